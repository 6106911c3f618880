// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/numbers.h"

#include <QByteArray>
#include <QLocale>

#include <charconv>
#include <utility>

namespace fennar {

namespace {

/** A number that does not fit has the error std::errc::result_out_of_range, what is none another one. */
template <typename Number>
std::pair<Number, std::errc> parse(QStringView text)
{
    const QByteArray bytes = text.toLatin1();
    // std::from_chars knows no plus sign, and would also take "inf" and "nan".
    const char* const start = bytes.constData() + (bytes.startsWith('+') ? 1 : 0);
    const char first = bytes.startsWith('-') ? start[1] : *start;
    if ((first < '0' || first > '9') && first != '.')
        return {0, std::errc::invalid_argument};
    Number value = 0;
    const char* const behind = bytes.constData() + bytes.size();
    const auto [end, error] = std::from_chars(start, behind, value);
    return {value, end == behind ? error : std::errc::invalid_argument};
}

template <typename Number>
std::optional<Number> parse_fitting(QStringView text)
{
    const auto [value, error] = parse<Number>(text);
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<double> parse_number(QStringView text)
{
    return parse_fitting<double>(text);
}

std::optional<double> parse_any_number(QStringView text)
{
    const auto [value, error] = parse<double>(text);
    if (error == std::errc::result_out_of_range)
        return QLocale::c().toDouble(text); // tells too large from too small
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<qint64> parse_integer(QStringView text)
{
    return parse_fitting<qint64>(text);
}

} // namespace fennar
