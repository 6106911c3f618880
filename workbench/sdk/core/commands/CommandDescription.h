// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <limits>
#include <optional>

namespace fennar {

class CommandArguments;
class CommandEntities;

/** A kind of files, as file dialogs offer it. */
struct CommandFileFilter
{
    /** As "Journals"; translated as CommandParameter::label. */
    QString name;
    /** With its dot, as ".jou". */
    QString extension;
};

/**
 * One value of a command: what it is called, what it can be, and what it is without one.
 *
 * Labels and tips are for users and are translated when they are shown, in the context "CommandParameter":
 * mark them with QT_TRANSLATE_NOOP. They live as long as the program.
 */
struct CommandParameter
{
    /** What the value can be. */
    enum class Kind {
        /** A number from least to most. */
        Number,
        WholeNumber,
        /** One of the choices. */
        Choice,
        /** The name of something that is there, see CommandEntities, or one of the choices. */
        Entity,
        /** A name that can be given to something and that no entity has yet. */
        NewName,
        /** The name of a variable, which need not be there. */
        Variable,
        /** A file or directory that is read. */
        InputFile,
        /** A file that is written. */
        OutputFile,
        /** Any text; it becomes one word. */
        Text,
        /** All words to the end of the line, in the command language: with quotes and variables. */
        Words,
    };

    /** As the usage has it: capital letters, digits and "_". Not shown for a choice. */
    QString name;
    /** What the value can be. */
    Kind kind = Kind::Text;
    /** As messages have it, as "a radius"; empty if the name will do. A choice is told by its choices. */
    QString what = {};
    /** A few words for a form. */
    const char* label = nullptr;
    /** One line more; null if the label says it all. */
    const char* tip = nullptr;
    /** Of a number, as "mm"; empty if it has none. */
    QString unit = {};
    /** What the command takes if the value is left out; null if that is nothing one could write. */
    QString default_value = {};
    /** The least number allowed. */
    double least = -std::numeric_limits<double>::infinity();
    /** The greatest number allowed. */
    double most = std::numeric_limits<double>::infinity();
    /** What a choice can be, or what stands for entities besides their names, as "all". */
    QStringList choices = {};
    /** The choice that stands for all entities of the kind, of which there must be at_least; empty for none.
     */
    QString all = {};
    /** The kind of entities, for Entity, NewName and Variable. */
    QString entity = {};
    /** Whether an entity may also be named by a whole number. */
    bool by_number = false;
    /** Names that cannot be given. */
    QStringList reserved = {};
    /** Whether several can follow each other, of which there must be at_least. */
    bool repeated = false;
    /** The least number of values where several can follow each other. */
    int at_least = 1;
    /** Whether an entity can be named once only, be it by another such parameter of the line. */
    bool distinct = false;
    /** What a file dialog offers; null for all files. */
    std::function<QList<CommandFileFilter>()> filters = {};
    /** A valid value, for manuals and tests; empty if the kind says enough. */
    QString example = {};
    /** What else can be completed behind the words that are given, as "size=" with its value to follow; null
     * for nothing. It may be slow, as it is asked for at the user's key only, and must not throw. */
    std::function<QStringList(const QStringList& given)> beginnings = {};

    /** Whether it is a number, whole or not. */
    bool is_number() const { return kind == Kind::Number || kind == Kind::WholeNumber; }
    /** Whether it is the name of a file, or of a directory. */
    bool is_file() const { return kind == Kind::InputFile || kind == Kind::OutputFile; }
};

/** Values of a command that are written together or not at all, with a keyword in front if they have one. */
struct CommandClause
{
    /** Empty if the place tells what the values are. */
    QString keyword = {};
    /** None for a keyword that says everything itself. */
    QList<CommandParameter> parameters = {};
    /** Whether the clause may be left out. */
    bool optional = false;
    /** For a form, as CommandParameter::label; null if the parameters have labels enough. */
    const char* label = nullptr;
    /** One line more for a form; null if the label says it all. */
    const char* tip = nullptr;
    /** Whether all of its numbers must not be 0 at once, as those of a direction. */
    bool not_zero = false;
};

/**
 * One way to write a command. Its clauses are written in their order, except that those with a keyword that
 * follow each other may come in any order.
 */
struct CommandSyntax
{
    /** What stands behind the command's name. */
    QList<CommandClause> clauses = {};
    /** What tells it from the command's other ways, as CommandParameter::label; null if there are none. */
    const char* title = nullptr;
    /**
     * Throws a CommandError, which tells what to do about it, if values that are right by themselves do not
     * go together. What else it throws becomes such an error. Null if they all do.
     *
     * It is asked ahead of each run, by the check of journals, by forms and by completion, and so judges by
     * its arguments alone: by what the command has declared, and by the names that there are. What it asks
     * for that nobody offers (CommandEntities::has()) may be any.
     */
    std::function<void(const CommandArguments& arguments, const CommandEntities& entities)> verify = {};
};

/**
 * What numbers a parameter takes, as "a whole number from 1 on".
 *
 * @param found  what was given in its place. For a number that is too large, whatever the parameter, the
 * limit of all numbers is told; empty for none.
 */
FENNAR_CORE_EXPORT CommandMessage number_range(const CommandParameter& parameter, const QString& found = {});

/** A clause that must be there. */
inline CommandClause required_value(const CommandParameter& parameter)
{
    return {.parameters = {parameter}};
}
/** A clause that may be left out. Behind another one without a keyword it needs that one. */
inline CommandClause optional_value(const CommandParameter& parameter)
{
    return {.parameters = {parameter}, .optional = true};
}

/**
 * What no line could ever fit in the declaration of a command, or nobody could ask for, as "the value COUNT
 * has no choices". Empty if nothing is wrong.
 */
FENNAR_CORE_EXPORT QString declaration_fault(const QList<CommandSyntax>& forms);

/**
 * How the command is written, as "play FILE [LINE]": brackets around what may be left out, "..." behind what
 * may be repeated, " | " between the ways to write it.
 */
FENNAR_CORE_EXPORT QString command_usage(const QString& name, const QList<CommandSyntax>& forms);

/** The words of each parameter of a clause; empty if the clause is left out. */
using ClauseValues = std::optional<QList<QStringList>>;

/** Whether @p text is nothing but a variable, as "$radius" or "${radius}". */
FENNAR_CORE_EXPORT bool is_variable_reference(const QString& text);

/**
 * The line that calls the command with these values, each quoted where it must be. Variables stay variables
 * (is_variable_reference()), except in texts and the names of files, which are taken literally.
 *
 * @param values  one entry for each clause; clauses behind the last one are left out.
 */
FENNAR_CORE_EXPORT QString command_line(const QString& name, const CommandSyntax& form,
                                        const QList<ClauseValues>& values);

/**
 * The values in @p words, those of a line behind the name of the command: the reverse of command_line().
 *
 * Clauses and values that the words do not reach are left out, required or not, so that a line that has just
 * been begun can be read. Nothing is looked up, so that names and numbers need not be valid.
 *
 * @return one entry for each clause; nothing if the words are not of this form.
 */
FENNAR_CORE_EXPORT std::optional<QList<ClauseValues>> read_values(const CommandSyntax& form,
                                                                  const QStringList& words);

} // namespace fennar
