// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component with one command, of its own name.

#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandCall.h"

using namespace fennar;
using namespace Qt::StringLiterals;

void fennar::load_component(ComponentContext& context)
{
    context.add_command({.name = context.name(),
                         .summary = u"Says so."_s,
                         .perform = [name = context.name()](CommandCall& call, const CommandArguments&) {
                             call.print(name + u" ran\n"_s);
                         }});
}
