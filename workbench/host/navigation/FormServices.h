// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandError.h"

#include <QHash>

#include <functional>
#include <optional>

class QWidget;

namespace fennar {

class CommandRegistry;
class CommandVariables;

/** What the forms of commands are made from. Nothing is owned. */
struct FormServices
{
    /** The commands that can be described; null leaves every form with nothing but the command's line. */
    CommandRegistry* registry = nullptr;
    /** What a value may refer to, as "$radius". May be null. */
    const CommandVariables* variables = nullptr;
    /**
     * Makes a field for the name of a file with a way to choose one: a child of @p parent that holds a
     * QLineEdit. Null makes plain lines.
     *
     * @param open  whether the file must be there.
     */
    std::function<QWidget*(QWidget* parent, bool open, const QList<CommandFileFilter>& filters)> file_field;
};

/** Sets the services of all forms; those that are made from then on use them. What was applied is forgotten.
 */
void set_form_services(const FormServices& services);

/** The services set last. */
const FormServices& form_services();

/** The value of a variable that a form's line may refer to; empty if there is none of that name. */
std::optional<QString> form_variable(QStringView name);

/** For tokenize(): lets the words of a line keep their variables as they are written. */
std::optional<QString> keep_reference(QStringView name);

/** A label or tip of a description in the user's language; empty for null. */
QString translated_parameter(const char* text);

/** The line that a form has applied last for each command, by its name. */
QHash<QString, QString>& applied_lines();

/**
 * What is wrong with values, as the reader of the arguments of all commands finds it; nothing if they are
 * right.
 *
 * @param forms   the ways to write the command.
 * @param values  one entry for each clause of the form.
 * @param way     the index of the form that the values are of.
 */
std::optional<CommandError> find_fault(const QList<CommandSyntax>& forms, const QList<ClauseValues>& values,
                                       qsizetype way = 0);

} // namespace fennar
