// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/journal_text.h"

#include <QList>

namespace fennar {

QString journal_text(const QByteArray& bytes)
{
    QString text;
    for (const QByteArray& line : bytes.split('\n'))
        text += QString::fromUtf8(line.constData()) + u'\n';
    return text;
}

} // namespace fennar
