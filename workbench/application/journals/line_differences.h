// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

namespace fennar {

/**
 * How two texts differ, line by line: "- " leads a line that only @p before has, "+ " one that only @p after
 * has, and two blanks one of up to three equal lines around a difference; "..." stands for those left out.
 *
 * Empty if they do not differ. Of long texts that differ much the lines are not matched: those of the one
 * follow those of the other.
 */
QStringList line_differences(const QStringList& before, const QStringList& after);

} // namespace fennar
