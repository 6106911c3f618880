// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/own_methods.h"

#include <QMetaMethod>

using namespace Qt::StringLiterals;

QStringList own_methods(const QMetaObject& meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const QString kind = method.methodType() == QMetaMethod::Signal ? u"signal "_s
                             : method.methodType() == QMetaMethod::Slot ? u"slot "_s
                                                                        : u"method "_s;
        methods << kind + QString::fromLatin1(method.methodSignature());
    }
    return methods;
}
