// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/CommandRegistry.h"

#include "workbench/fennari19/tokenize.h"

#include <algorithm>

namespace {

bool is_command_name(const QString& name)
{
    // A variable's name, apart from the two more marks that may follow the first letter.
    return !name.isEmpty() && is_variable_name(name.first(1)) &&
           std::all_of(name.begin(), name.end(), [](QChar c) {
               return c == u'-' || c == u'.' || (c >= u'0' && c <= u'9') ||
                      is_variable_name(QStringView(&c, 1));
           });
}

} // namespace

CommandRegistry::AddResult CommandRegistry::add(const Command& command)
{
    if (!is_command_name(command.name))
        return AddResult::BadName;
    if (!command.run)
        return AddResult::NothingToRun;
    if (mCommands.contains(command.name))
        return AddResult::NameTaken;
    mCommands.insert(command.name, std::make_shared<const Command>(command));
    return AddResult::Added;
}

bool CommandRegistry::remove(const QString& name)
{
    return mCommands.remove(name) > 0;
}

int CommandRegistry::remove_owner(const QString& owner)
{
    return int(mCommands.removeIf([&owner](const auto& entry) { return entry.value()->owner == owner; }));
}
