// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/python_literal.h"

using namespace Qt::StringLiterals;

namespace fennar {

QString python_literal(QString text)
{
    text.replace(u'\\', u"\\\\"_s);
    text.replace(u'\'', u"\\'"_s);
    text.replace(u'\n', u"\\n"_s);
    text.replace(u'\r', u"\\r"_s);
    return u'\'' + text + u'\'';
}

} // namespace fennar
