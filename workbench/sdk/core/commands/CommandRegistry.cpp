// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandRegistry.h"

#include "workbench/sdk/core/commands/tokenize.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

QString command_entity()
{
    return u"command"_s;
}

QString Command::translated_summary() const
{
    return QCoreApplication::translate("Command", summary.toUtf8().constData());
}

QString Command::notes() const
{
    QStringList notes;
    if (changes_model)
        notes << u"It changes the model."_s;
    if (long_running)
        notes << u"It may take long, and can be cancelled."_s;
    return notes.join(u' ');
}

bool CommandRegistry::is_name(const QString& text)
{
    // A variable's name, apart from the two more marks that may follow the first letter.
    return !text.isEmpty() && is_variable_name(text.first(1)) &&
           std::all_of(text.begin(), text.end(), [](QChar c) {
               return c == u'-' || c == u'.' || (c >= u'0' && c <= u'9') ||
                      is_variable_name(QStringView(&c, 1));
           });
}

CommandRegistry::CommandRegistry()
{
    mEntities.offer(
        command_entity(), {}, [this] { return names(); }, {},
        [this](const QString& word) {
            const QString hint = mAbsentHint(word);
            const QString nearest = hint.isEmpty() ? nearest_name(word, names()) : QString();
            return nearest.isEmpty() ? hint : u"did you mean \"%1\"?"_s.arg(nearest);
        });
}

CommandRegistry::AddResult CommandRegistry::add(const Command& command)
{
    if (!is_name(command.name))
        return AddResult::BadName;
    if (!command.perform)
        return AddResult::NothingToRun;
    if (!declaration_fault(command.forms).isEmpty())
        return AddResult::BadForms;
    if (mCommands.contains(command.name))
        return AddResult::NameTaken;
    mCommands.insert(command.name, std::make_shared<Command>(command));
    mEntities.tell_changed(command_entity());
    return AddResult::Added;
}

bool CommandRegistry::add_all(const QString& owner, QList<Command> commands)
{
    for (qsizetype i = 0; i < commands.size(); ++i) {
        commands[i].owner = owner;
        if (add(commands[i]) == AddResult::Added)
            continue;
        while (--i >= 0)
            remove(commands[i].name);
        return false;
    }
    return true;
}

bool CommandRegistry::remove(const QString& name)
{
    const bool removed = mCommands.remove(name) > 0;
    if (removed)
        mEntities.tell_changed(command_entity());
    return removed;
}

int CommandRegistry::remove_owner(const QString& owner)
{
    // Those that remain may be asked for what is told to have changed.
    const int removed =
        int(mCommands.removeIf([&owner](const auto& entry) { return entry.value()->owner == owner; }));
    if (!owner.isEmpty())
        mEntities.withdraw(owner);
    mSteps.remove_owner(owner);
    if (removed > 0)
        mEntities.tell_changed(command_entity());
    return removed;
}

bool CommandRegistry::has_owner(const QString& owner) const
{
    return std::any_of(mCommands.begin(), mCommands.end(),
                       [&owner](const auto& command) { return command->owner == owner; });
}

CommandError CommandRegistry::not_found(const QString& name, qsizetype column) const
{
    return CommandError::expected(u"a command"_s, CommandError::shown(name), column,
                                  mEntities.remedy(command_entity(), name));
}

QString CommandRegistry::line_for_selection(const QString& name) const
{
    const std::shared_ptr<const Command> command = find(name);
    if (!command)
        return name;
    const CommandSyntax& form = command->forms.first();
    QList<ClauseValues> values = selected_values(form, mEntities);
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (form.clauses[i].optional)
            values[i].reset();
    }
    return command_line(name, form, values);
}

} // namespace fennar
