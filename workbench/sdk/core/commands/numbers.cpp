// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/numbers.h"

#include <QByteArray>

#include <charconv>

namespace fennar {

namespace {

template <typename Number>
std::optional<Number> parse(QStringView text)
{
    const QByteArray bytes = text.toLatin1();
    // std::from_chars knows no plus sign, and would also take "inf" and "nan".
    const char* const start = bytes.constData() + (bytes.startsWith('+') ? 1 : 0);
    const char first = bytes.startsWith('-') ? start[1] : *start;
    if ((first < '0' || first > '9') && first != '.')
        return std::nullopt;
    Number value = 0;
    const char* const behind = bytes.constData() + bytes.size();
    const auto [end, error] = std::from_chars(start, behind, value);
    return error == std::errc() && end == behind ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<double> parse_number(QStringView text)
{
    return parse<double>(text);
}

std::optional<qint64> parse_integer(QStringView text)
{
    return parse<qint64>(text);
}

} // namespace fennar
