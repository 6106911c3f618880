// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QSettings>

/**
 * The value of @p key, or @p fallback if there is none or it cannot be read as a @p Value.
 *
 * QVariant's own toInt() and its kin turn what they cannot read into 0 or false instead.
 */
template <class Value>
Value read_setting(const QSettings& settings, const QString& key, const Value& fallback)
{
    QVariant value = settings.value(key);
    return value.convert(QMetaType::fromType<Value>()) ? value.value<Value>() : fallback;
}
