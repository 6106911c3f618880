// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/numbers.h"

#include <QByteArray>

#include <charconv>

namespace fennar {

namespace {

bool is_digit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool is_sign(QChar c)
{
    return c == u'+' || c == u'-';
}

qsizetype skip_digits(QStringView text, qsizetype from)
{
    while (from < text.size() && is_digit(text[from]))
        ++from;
    return from;
}

/** Checks the shape by hand, since std::from_chars would also take "inf" and "nan". */
bool has_number_shape(QStringView text)
{
    qsizetype at = !text.isEmpty() && is_sign(text[0]) ? 1 : 0;
    const qsizetype whole_end = skip_digits(text, at);
    qsizetype digits = whole_end - at;
    at = whole_end;
    if (at < text.size() && text[at] == u'.') {
        const qsizetype fraction_end = skip_digits(text, at + 1);
        digits += fraction_end - (at + 1);
        at = fraction_end;
    }
    if (digits == 0)
        return false;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        ++at;
        if (at < text.size() && is_sign(text[at]))
            ++at;
        const qsizetype exponent_end = skip_digits(text, at);
        if (exponent_end == at)
            return false;
        at = exponent_end;
    }
    return at == text.size();
}

/** std::from_chars knows no plus sign. */
QByteArray without_plus(QStringView text)
{
    return (text.startsWith(u'+') ? text.sliced(1) : text).toLatin1();
}

} // namespace

std::optional<double> parse_number(QStringView text)
{
    if (!has_number_shape(text))
        return std::nullopt;
    const QByteArray bytes = without_plus(text);
    double value = 0;
    const auto [end, error] = std::from_chars(bytes.cbegin(), bytes.cend(), value);
    if (error != std::errc())
        return std::nullopt;
    return value;
}

std::optional<qint64> parse_integer(QStringView text)
{
    const qsizetype digits = !text.isEmpty() && is_sign(text[0]) ? 1 : 0;
    if (digits == text.size() || skip_digits(text, digits) != text.size())
        return std::nullopt;
    const QByteArray bytes = without_plus(text);
    qint64 value = 0;
    const auto [end, error] = std::from_chars(bytes.cbegin(), bytes.cend(), value);
    if (error != std::errc())
        return std::nullopt;
    return value;
}

} // namespace fennar
