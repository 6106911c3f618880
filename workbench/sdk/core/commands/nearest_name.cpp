// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/nearest_name.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace fennar {

namespace {

// No name is as long; a pasted paragraph would only cost time.
constexpr qsizetype longest_word = 64;

qsizetype distance(const QString& a, const QString& b)
{
    const auto width = size_t(b.size()) + 1;
    std::vector<qsizetype> before(width), last(width), now(width);
    std::iota(last.begin(), last.end(), 0);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        now[0] = i;
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const auto at = size_t(j);
            const qsizetype change = last[at - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            now[at] = std::min({change, last[at] + 1, now[at - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                now[at] = std::min(now[at], before[at - 2] + 1);
        }
        before.swap(last);
        last.swap(now);
    }
    return last.back();
}

} // namespace

QString nearest_name(const QString& typed, const QStringList& names)
{
    if (typed.size() > longest_word)
        return {};
    QString nearest;
    qsizetype allowed = std::max(typed.size() / 3, qsizetype(1));
    for (const QString& name : names) {
        if (std::abs(name.size() - typed.size()) > allowed)
            continue;
        const qsizetype steps = distance(typed, name);
        // A word that shares no letter with the name is no slip of the fingers.
        if (steps <= allowed && steps < std::max(typed.size(), name.size())) {
            nearest = name;
            allowed = steps - 1;
        }
    }
    return nearest;
}

} // namespace fennar
