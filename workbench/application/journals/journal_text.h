// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace fennar {

/** The text that the editor makes of a file: each line up to its first NUL, and a line feed behind the last.
 */
inline QString journal_text(const QByteArray& bytes)
{
    QString text;
    for (const QByteArray& line : bytes.split('\n'))
        text += QString::fromUtf8(line.constData()) + u'\n';
    return text;
}

} // namespace fennar
