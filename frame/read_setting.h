// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAnyStringView>
#include <QSettings>

#include <limits>
#include <type_traits>

/**
 * The value of @p key, or @p fallback if there is none or it cannot be read as a @p Value.
 *
 * QVariant's own toInt() and its kin turn what they cannot read into 0 or false instead.
 */
template <class Value>
Value read_setting(const QSettings& settings, QAnyStringView key, const Value& fallback)
{
    QVariant value = settings.value(key);
    if constexpr (std::is_same_v<Value, int>) {
        // Asked for an int, QVariant cuts the upper half off a larger number.
        if (!value.convert(QMetaType::fromType<qlonglong>()))
            return fallback;
        const qlonglong number = value.toLongLong();
        const bool fits =
            number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
        return fits ? static_cast<int>(number) : fallback;
    } else {
        return value.convert(QMetaType::fromType<Value>()) ? value.value<Value>() : fallback;
    }
}
