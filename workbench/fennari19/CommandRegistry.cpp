// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/CommandRegistry.h"

#include "workbench/fennari19/nearest_name.h"
#include "workbench/fennari19/tokenize.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool CommandRegistry::is_name(const QString& text)
{
    // A variable's name, apart from the two more marks that may follow the first letter.
    return !text.isEmpty() && is_variable_name(text.first(1)) &&
           std::all_of(text.begin(), text.end(), [](QChar c) {
               return c == u'-' || c == u'.' || (c >= u'0' && c <= u'9') ||
                      is_variable_name(QStringView(&c, 1));
           });
}

CommandRegistry::AddResult CommandRegistry::add(const Command& command)
{
    if (!is_name(command.name))
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

CommandError CommandRegistry::not_found(const QString& name, qsizetype column) const
{
    QString found = CommandError::shown(name);
    if (const QString nearest = nearest_name(name, names()); !nearest.isEmpty())
        found += u"; did you mean \"%1\"?"_s.arg(nearest);
    return CommandError::expected(u"a command"_s, found, column);
}
