// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandCall.h"

#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Interrupt.h"

using namespace Qt::StringLiterals;

namespace fennar {

CommandCall::CommandCall(const CommandWords& words, CommandInterpreter& interpreter)
    : mWords(words), mInterpreter(interpreter)
{}

CommandError CommandCall::error(qsizetype i, const QString& message) const
{
    return CommandError(message, column(i));
}

void CommandCall::print(const QString& text)
{
    mInterpreter.print(text);
}

bool CommandCall::interrupted() const
{
    return interrupt_requested();
}

} // namespace fennar
