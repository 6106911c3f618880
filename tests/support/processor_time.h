// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

#include <ctime>

/** Time of the processor that @p work takes, since others may keep it busy meanwhile. */
template <class Work>
std::clock_t processor_time(Work work)
{
    const std::clock_t start = std::clock();
    work();
    return std::clock() - start;
}

/**
 * Whether @p longer() takes less than @p limit times what @p shorter() takes; each returns its ticks. Returns
 * what was measured, or nothing if it holds. A machine that is slow for a moment spoils one comparison, so
 * five are made.
 */
template <class Shorter, class Longer>
[[nodiscard]] QString takes_too_long(double limit, Shorter shorter, Longer longer)
{
    QStringList measured;
    for (int comparison = 0; comparison < 5; ++comparison) {
        const double of_shorter = static_cast<double>(shorter());
        const double of_longer = static_cast<double>(longer());
        if (of_shorter > 0 && of_longer > 0 && of_longer < limit * of_shorter)
            return {};
        measured << QStringLiteral("%1 and %2 ticks").arg(of_shorter).arg(of_longer);
    }
    return measured.join(QLatin1String(", "));
}
