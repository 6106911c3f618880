// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/trim.h"

qsizetype dropped_at_once(QStringView text, int max_blocks)
{
    if (max_blocks <= 0)
        return 0;
    // From the end, so that the work depends on what is kept and not on what is dropped.
    qsizetype kept_from = text.size();
    for (int line_ends = 0; line_ends < max_blocks; ++line_ends) {
        const qsizetype line_end = text.first(kept_from).lastIndexOf(u'\n');
        if (line_end < 0)
            return 0;
        kept_from = line_end;
    }
    return kept_from + 1;
}
