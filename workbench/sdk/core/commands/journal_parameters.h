// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringView>

#include <optional>

namespace fennar {

class CommandArguments;
class CommandVariables;

/*
 * The parameters of a journal are variables that it declares at its beginning, ahead of all other commands,
 * by the command "parameter": each with its type and its default. Who plays the journal may give other
 * values.
 */

/** A value for a parameter, as the user has written it. */
struct JournalSetting
{
    /** As is_variable_name() wants it. */
    QString name;
    /** Not checked yet. */
    QString value;
};

/** Reads "NAME=VALUE", where VALUE may be empty; nothing if NAME cannot name a variable. */
FENNAR_CORE_EXPORT std::optional<JournalSetting> read_setting(const QString& text);

/** The name of the command that declares a parameter. */
inline constexpr QLatin1StringView parameter_command{"parameter"};

/** The ways to write that command: one for each type. */
FENNAR_CORE_EXPORT const QList<CommandSyntax>& parameter_forms();

/** The parameter that a line, read by parameter_forms(), declares: its kind is Number, WholeNumber, Text or
 * Choice, its default_value what the line gives, which is among its values. */
FENNAR_CORE_EXPORT CommandParameter declared_parameter(const CommandArguments& arguments);

/** The error of a declaration behind other commands of the journal. */
FENNAR_CORE_EXPORT CommandError late_declaration();
/** The error of a second declaration of one name. */
FENNAR_CORE_EXPORT CommandError declared_twice(const CommandArguments& second);

/** The beginning of a journal: declarations of parameters, empty lines and comments. */
struct JournalHead
{
    /** In their order. */
    QList<CommandParameter> parameters;
    /** How many lines it has, up to the first other command or the first declaration with an error. */
    qsizetype lines = 0;
    /** What is wrong with that declaration, or with the value that was given for it. */
    std::optional<CommandError> error;
};

/**
 * Reads the head of a journal.
 *
 * @param variables  those that are set when the journal begins: a default may use them, and the parameters
 *                   that are declared ahead of it.
 * @param given      the values of parameters that do not have their default, by name.
 */
FENNAR_CORE_EXPORT JournalHead read_journal_head(QStringView text, CommandVariables variables,
                                                 const QMap<QString, QString>& given = {});

} // namespace fennar
