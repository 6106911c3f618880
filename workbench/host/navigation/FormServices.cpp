// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/FormServices.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

FormServices& services()
{
    static FormServices services;
    return services;
}

} // namespace

void set_form_services(const FormServices& new_services)
{
    services() = new_services;
    applied_lines().clear();
}

const FormServices& form_services()
{
    return services();
}

std::optional<QString> form_variable(QStringView name)
{
    return services().variables ? services().variables->value(name) : std::nullopt;
}

std::optional<QString> keep_reference(QStringView name)
{
    return u"${"_s + name.toString() + u'}';
}

QString translated_parameter(const char* text)
{
    return text ? QCoreApplication::translate("CommandParameter", text) : QString();
}

QHash<QString, QString>& applied_lines()
{
    static QHash<QString, QString> lines;
    return lines;
}

std::optional<CommandError> find_fault(const QList<CommandSyntax>& forms, const QList<ClauseValues>& values,
                                       qsizetype way)
{
    const CommandWords words = tokenize(command_line(u"command"_s, forms[way], values), &form_variable);
    if (words.error)
        return words.error;
    try {
        const CommandArguments arguments(
            words, forms, services().registry ? &services().registry->entities() : nullptr, way);
    } catch (const CommandError& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace fennar
