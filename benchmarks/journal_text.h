// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

namespace bench {

/** A journal with all that the translation has rules for, most of its lines being plain commands. */
inline QString journal(int lines)
{
    using namespace Qt::StringLiterals;
    const QStringList kinds = {u"volume %1 size 0.5\n"_s,
                               u"mesh volume %1 scheme tetmesh \\\n"_s,
                               u"    interval 12\n"_s,
                               u"import step 'C:\\models\\part%1.stp' heal\n"_s,
                               u"block %1 name \"outer shell\"\n"_s,
                               u"# the part's outer hull, step %1\n"_s,
                               u"\n"_s,
                               u"surface %1 interval 12 size 0.125\n"_s,
                               u"curve %1 to 17 merge tolerance 1e-6\n"_s,
                               u"list volume %1 geometry\n"_s};
    QString text;
    for (int line = 0; line < lines; ++line) {
        const QString& kind = kinds[line % kinds.size()];
        text += kind.contains(u"%1"_s) ? kind.arg(line) : kind;
    }
    text.chop(1);
    return text;
}

} // namespace bench
