// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/MarkingTranslator.h"

#include <QCoreApplication>

MarkingTranslator::MarkingTranslator(const char* context) : mContext(context)
{
    if (!QCoreApplication::installTranslator(this))
        qFatal("no translator can be installed");
}

MarkingTranslator::~MarkingTranslator()
{
    QCoreApplication::removeTranslator(this);
}

QString MarkingTranslator::translate(const char* context, const char* source, const char*, int) const
{
    return mContext == context ? u'<' + QString::fromUtf8(source) + u'>' : QString();
}
