// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/check_journal.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/journal_parameters.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QSet>

#include <algorithm>
#include <map>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

const QString variable_entity = u"variable"_s;

/** Whether the command can give a new name to something of the kind. */
bool gives_names(const Command& command, const QString& kind)
{
    for (const CommandSyntax& form : command.forms) {
        for (const CommandClause& clause : form.clauses) {
            for (const CommandParameter& parameter : clause.parameters) {
                if (parameter.kind == Kind::NewName && parameter.entity == kind)
                    return true;
            }
        }
    }
    return false;
}

/** Whether the command brings names of the kind that its line does not tell. Commands come by few, which say
 * so; that a journal or a script, which could do anything, loads components is not expected. */
bool may_make(const Command& command, const QString& kind)
{
    return kind == command_entity() ? command.makes.contains(kind)
                                    : command.may_make(kind) || gives_names(command, kind);
}

class Checker
{
public:
    Checker(const CommandRegistry& registry, const CommandVariables& variables)
        : mRegistry(registry), mVariables(variables)
    {
        mEntities.offer(variable_entity, variable_entity, [this] { return mVariables.names(); });
        mEntities.offer_test(variable_entity,
                             [this](const QString& name) { return mVariables.value(name).has_value(); });
        for (const QString& kind : registry.entities().kinds()) {
            if (kind != variable_entity)
                follow_names_of(kind);
        }
    }

    QList<JournalFault> check(const QString& text)
    {
        qsizetype first = 1;
        for (qsizetype start = 0; start < text.size();) {
            const ContinuedCommand lines = ContinuedCommand::read(text, start);
            if (lines.is_incomplete())
                tell(lines, first, {}, lines.unended());
            else
                check_command(lines, first);
            first += lines.line_count();
        }
        return mFaults;
    }

private:
    void tell(const ContinuedCommand& lines, qsizetype first, const QString& command,
              const CommandError& error)
    {
        const ContinuedCommand::Position at = lines.position(error.column());
        QString message = CommandRegistry::is_name(command) ? command + ": "_L1 : QString();
        if (error.column() > 0)
            message += u"column %1: "_s.arg(at.column);
        mFaults.append({first + at.line, message + error.message()});
    }

    /** Looks names of the kind up from now on. */
    void follow_names_of(const QString& kind)
    {
        Names& names = mNames[kind];
        names.in_order = mRegistry.entities().names(kind);
        names.possible = {names.in_order.begin(), names.in_order.end()};
        const auto sure = [&names] { return QStringList(names.sure.begin(), names.sure.end()); };
        const auto meaning = [this, kind, &names](const QString& word) {
            // What number a thing will have is not known.
            const bool number = parse_integer(word).value_or(0) > 0;
            return names.possible.contains(word) || number ? word : mRegistry.entities().find(kind, word);
        };
        mEntities.offer(kind, kind, sure, meaning, [this, kind, &names](const QString& word) {
            const QString remedy = CommandEntities::remedy_among(word, names.in_order);
            return remedy.isEmpty() ? mRegistry.entities().remedy(kind, word) : remedy;
        });
        mEntities.offer_test(kind, [&names](const QString& word) { return names.sure.contains(word); });
        mEntities.offer_possible(kind, [&names] { return names.in_order; });
    }

    /** Any name may be one from now on. */
    void give_up(const QString& kind) { mEntities.withdraw(kind); }

    /** Whether commands may have come that are not there now. */
    bool is_any_command() const { return !mEntities.has(command_entity()); }

    /** Whether variables may have been set that are not known. */
    bool is_any_variable() const { return !mEntities.has(variable_entity); }

    void check_command(const ContinuedCommand& lines, qsizetype first)
    {
        bool unknown = false;
        const auto lookup = [&](QStringView name) -> std::optional<QString> {
            const std::optional<QString> value = mVariables.value(name);
            unknown = unknown || !value;
            return value || !is_any_variable() ? value : QString();
        };
        const CommandWords words = tokenize(lines.text(), lookup);
        if (!words.error && words.words.isEmpty())
            return;
        const QString name = words.words.isEmpty() ? QString() : words.words[0].text;
        const std::shared_ptr<const Command> command = mRegistry.find(name);
        try {
            if (unknown && is_any_variable()) {
                follow_unknown(command.get());
                return;
            }
            if (words.error)
                throw *words.error;
            if (!command && is_any_command()) {
                follow_unknown(nullptr);
                return;
            }
            if (!command)
                throw mRegistry.not_found(name, words.words[0].column);
            const CommandArguments arguments(words, command->forms, &mEntities);
            if (name == parameter_command)
                declare(arguments);
            else
                mInHead = false;
            follow(*command, arguments);
        } catch (const CommandError& error) {
            tell(lines, first, name, error);
            mInHead = mInHead && name == parameter_command;
            // It was meant to do something, and a fault that follows from this one helps nobody.
            follow_unknown(command.get());
        }
    }

    void declare(const CommandArguments& arguments)
    {
        const CommandParameter parameter = declared_parameter(arguments);
        if (!mInHead)
            throw late_declaration();
        if (mParameters.contains(parameter.name))
            throw declared_twice(arguments);
        mParameters << parameter.name;
        mVariables.set(parameter.name, parameter.default_value);
    }

    /** Does what the command does to variables and names. */
    void follow(const Command& command, const CommandArguments& arguments)
    {
        for (auto& [kind, names] : mNames) {
            const QStringList given = arguments.texts(Kind::NewName, kind);
            const QStringList used = arguments.texts(Kind::Entity, kind);
            for (const QString& name : given)
                names.add_possible(name);
            // What a command changes may be gone or have another name behind it. With a number, with what
            // stands for several, and where nothing is named, it may be any.
            const QSet<QString>& possible = names.possible;
            const bool all_known = std::all_of(used.begin(), used.end(), [&possible](const QString& name) {
                return possible.contains(name);
            });
            if (command.runs_commands ||
                (command.changes_model && (!all_known || (used.isEmpty() && given.isEmpty()))))
                names.sure.clear();
            else if (command.changes_model)
                names.sure -= QSet<QString>(used.begin(), used.end());
            names.sure += QSet<QString>(given.begin(), given.end());
            if (given.isEmpty() && may_make(command, kind))
                give_up(kind);
        }
        if (command.runs_commands)
            give_up(variable_entity);
        const QStringList variables = arguments.texts(Kind::Variable);
        const QStringList value = arguments.texts(Kind::Words);
        if (!variables.isEmpty() && !value.isEmpty())
            mVariables.set(variables.first(), value.join(u' '));
    }

    /** @param command  null if there is none. */
    void follow_unknown(const Command* command)
    {
        if (command && command->runs_commands)
            give_up(variable_entity);
        for (auto& [kind, names] : mNames) {
            names.sure.clear();
            if (command ? may_make(*command, kind) : kind != command_entity())
                give_up(kind);
        }
    }

    struct Names
    {
        void add_possible(const QString& name)
        {
            if (!possible.contains(name))
                in_order << name;
            possible << name;
        }

        /** Those that there may be. */
        QSet<QString> possible;
        /** The same, first those that there are, then as they were given: long journals leave no time to
         * sort them for each error. */
        QStringList in_order;
        /** Those of them that there are, so that they cannot be given once more. */
        QSet<QString> sure;
    };

    const CommandRegistry& mRegistry;
    CommandVariables mVariables;
    /** By kind; those of kinds that are looked up are offered as entities. */
    std::map<QString, Names> mNames;
    CommandEntities mEntities;
    QStringList mParameters;
    /** Whether parameters may still be declared. */
    bool mInHead = true;
    QList<JournalFault> mFaults;
};

} // namespace

QList<JournalFault> check_journal(const QString& text, const CommandRegistry& registry,
                                  CommandVariables variables)
{
    return Checker(registry, variables).check(text);
}

} // namespace fennar
