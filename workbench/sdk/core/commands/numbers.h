// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QStringView>

#include <optional>

namespace fennar {

/**
 * Reads a decimal number: an optional sign, digits with at most one decimal point, an optional exponent.
 *
 * The whole text must be the number. The decimal point is a point whatever the locale. Empty for anything
 * else ("1,5", "nan", "inf", "0x10", " 1") and for a number that a double cannot hold (1e999, 1e-999).
 */
FENNAR_CORE_EXPORT std::optional<double> parse_number(QStringView text);

/** As parse_number(), but a number that a double cannot hold is infinite, or 0 if it is too small. */
FENNAR_CORE_EXPORT std::optional<double> parse_any_number(QStringView text);

/** Reads a whole number: an optional sign and digits, nothing else. Empty also if it does not fit. */
FENNAR_CORE_EXPORT std::optional<qint64> parse_integer(QStringView text);

} // namespace fennar
