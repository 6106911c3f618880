// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace fennar {

/** @p text as a string literal of Python. */
inline QString python_literal(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    text.replace(u'\'', QStringLiteral("\\'"));
    text.replace(u'\n', QStringLiteral("\\n"));
    text.replace(u'\r', QStringLiteral("\\r"));
    return u'\'' + text + u'\'';
}

} // namespace fennar
