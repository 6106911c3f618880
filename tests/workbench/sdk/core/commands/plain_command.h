// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

/** A command that takes any words and finds them in its call. */
inline fennar::Command plain_command(const QString& name, const QString& component,
                                     const std::function<void(fennar::CommandCall&)>& run)
{
    const fennar::CommandParameter words{.name = QStringLiteral("WORD"),
                                         .kind = fennar::CommandParameter::Kind::Words};
    return {.name = name,
            .owner = component,
            .perform = [run](fennar::CommandCall& call, const fennar::CommandArguments&) { run(call); },
            .forms = {{.clauses = {fennar::optional_value(words)}}}};
}
