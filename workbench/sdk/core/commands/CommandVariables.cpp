// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandVariables.h"

#include "workbench/sdk/core/commands/tokenize.h"

namespace fennar {

bool CommandVariables::set(const QString& name, const QString& value)
{
    if (!is_variable_name(name))
        return false;
    mValues.insert(name, value);
    return true;
}

std::optional<QString> CommandVariables::value(QStringView name) const
{
    const auto found = mValues.constFind(name.toString());
    if (found == mValues.constEnd())
        return std::nullopt;
    return *found;
}

} // namespace fennar
