// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/FormServices.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/tokenize.h"

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

QHash<QString, QString>& applied_lines()
{
    static QHash<QString, QString> lines;
    return lines;
}

std::optional<CommandError> find_fault(const QList<CommandSyntax>& forms, const QList<ClauseValues>& values,
                                       qsizetype way)
{
    const CommandVariables* variables = services().variables;
    const CommandWords words =
        tokenize(command_line(u"command"_s, forms[way], values),
                 [variables](QStringView name) { return variables ? variables->value(name) : std::nullopt; });
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
