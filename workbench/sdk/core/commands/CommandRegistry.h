// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/Callback.h"
#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandValue.h"
#include "workbench/sdk/core/commands/UndoSteps.h"
#include "workbench/sdk/core/export.h"

#include <QLatin1StringView>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace fennar {

class CommandArguments;
class CommandCall;

/** The kind of entities that commands are themselves. */
FENNAR_CORE_EXPORT QString command_entity();

/** A command of the command language. */
struct Command
{
    /** One word: a letter or "_", then letters, digits, "_", "-" and ".", all of them ASCII. */
    QString name;
    /** What the command does in a few words, for the list of commands. */
    QString summary = {};
    /** More lines for "help NAME"; may be empty. */
    QString help = {};
    /** Who has added the command, as a component's name; remove_owner() goes by it. */
    QString owner = {};
    /** Runs the command with arguments that have been checked by the forms. It ends with an error by throwing
     * a CommandError. */
    std::function<void(CommandCall&, const CommandArguments&)> perform = {};
    /** The ways to write the command, at least one: an empty one if it has no arguments. */
    QList<CommandSyntax> forms = {{}};
    /** Whether it can change the model, which is what is saved. What it has changed, be it by commands that
     * it runs, is one step that can be undone; see UndoSteps. */
    bool changes_model = false;
    /** Kinds of entities that it can make under names that its line does not tell, as an import does;
     * any_kind for all but commands. A name that may be given by a NewName, but is not, need not be told
     * here. */
    QStringList makes = {};
    static constexpr QLatin1StringView any_kind{"*"};
    /** Whether its line does not tell what it does, since it runs other commands, or code that can. */
    bool runs_commands = false;
    /** Whether it can take long. It tells its progress then, and tests CommandCall::interrupted(). */
    bool long_running = false;
    /** What it returns by CommandCall::set_result(). */
    CommandType result = {};

    /** The summary in the user's language, from the context "Command" of the translators. */
    FENNAR_CORE_EXPORT QString translated_summary() const;
    /** Whether entities of the kind may come by it that its line does not tell. */
    bool may_make(const QString& kind) const
    {
        return runs_commands || makes.contains(kind) || makes.contains(any_kind);
    }
    /** How the command is written, as "set [NAME [VALUE...]]". */
    QString usage() const { return command_usage(name, forms); }
    /** What the flags mean to the user, in whole sentences; empty if none is set. */
    FENNAR_CORE_EXPORT QString notes() const;
};

/** The commands that can be typed. Names are compared exactly and case-sensitively. GUI thread only. */
class FENNAR_CORE_EXPORT CommandRegistry
{
public:
    /** What has become of a command that was to be added. */
    enum class AddResult {
        Added,
        /** Another command has the name; that one stays. */
        NameTaken,
        /** The name is no command name. */
        BadName,
        /** The command has no function to run. */
        NothingToRun,
        /** What it declares cannot be, see declaration_fault(). */
        BadForms,
    };

    /** Whether @p text could be the name of a command. */
    static bool is_name(const QString& text);

    CommandRegistry();

    /** Adds a command; nothing changes unless the result is Added. */
    AddResult add(const Command& command);
    /** Adds commands in the name of @p owner: all of them, or none and false is returned. */
    bool add_all(const QString& owner, QList<Command> commands);
    /** Removes a command. Returns false if there is none of that name. */
    bool remove(const QString& name);
    /**
     * Removes all commands, entities and sources of steps of @p owner and returns how many commands there
     * were.
     *
     * A command that runs goes on to its end: the library that holds its code must stay loaded until then,
     * see CommandInterpreter::is_running().
     */
    int remove_owner(const QString& owner);

    /** The command of that name; null if there is none. It stays valid when it is removed meanwhile. */
    std::shared_ptr<const Command> find(const QString& name) const { return mCommands.value(name); }
    /** Whether there is a command of that owner. */
    bool has_owner(const QString& owner) const;
    /** All names, sorted. */
    QStringList names() const { return mCommands.keys(); }
    /** The error that @p name is no command, with the one that was most likely meant. */
    CommandError not_found(const QString& name, qsizetype column) const;
    /** Sets who tells how a command that is not there can be had, as the end of a sentence; empty for one
     * that nobody brings. Null for nobody, as at first. */
    void set_absent_hint(const CommandEntities::Remedy& hint) { mAbsentHint = hint; }

    /** The line that runs a command on what is selected, without what may be left out; @p name alone if there
     * is no such command. */
    QString line_for_selection(const QString& name) const;

    /** The names that commands work on; "command" among them. */
    CommandEntities& entities() { return mEntities; }
    /** The same, for looking only. */
    const CommandEntities& entities() const { return mEntities; }
    /** What can be undone of what commands have changed. */
    UndoSteps& steps() { return mSteps; }
    /** The same, for looking only. */
    const UndoSteps& steps() const { return mSteps; }

private:
    Callback<QString(const QString&)> mAbsentHint;
    CommandEntities mEntities;
    UndoSteps mSteps;
    QMap<QString, std::shared_ptr<const Command>> mCommands;
};

} // namespace fennar
