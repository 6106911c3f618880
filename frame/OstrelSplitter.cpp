// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/OstrelSplitter.h"

OstrelSplitter::OstrelSplitter(QWidget* parent, const char* name) : QSplitter(parent)
{
    setObjectName(QString::fromUtf8(name));
}

OstrelSplitter::OstrelSplitter(Qt::Orientation orientation, QWidget* parent, const char* name)
    : QSplitter(orientation, parent)
{
    setObjectName(QString::fromUtf8(name));
}

void OstrelSplitter::removeWidget(QWidget* widget)
{
    if (indexOf(widget) != -1)
        widget->setParent(nullptr);
}
