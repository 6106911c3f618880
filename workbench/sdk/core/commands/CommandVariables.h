// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/tokenize.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace fennar {

/** The variables of the command language, by name. Names are case-sensitive. */
class CommandVariables
{
public:
    /** Sets a variable, new or not. Returns false and does nothing if is_variable_name(@p name) is false. */
    bool set(const QString& name, const QString& value)
    {
        if (is_variable_name(name))
            mValues.insert(name, value);
        return is_variable_name(name);
    }
    /** The value of a variable; empty if there is none of that name. */
    std::optional<QString> value(QStringView name) const
    {
        const auto found = mValues.constFind(name.toString());
        return found == mValues.constEnd() ? std::nullopt : std::optional(*found);
    }
    /** All names, sorted. */
    QStringList names() const { return mValues.keys(); }
    /** Removes a variable; none is no error. */
    void remove(const QString& name) { mValues.remove(name); }

private:
    QMap<QString, QString> mValues;
};

} // namespace fennar
