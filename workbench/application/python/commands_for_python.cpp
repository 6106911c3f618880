// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/commands_for_python.h"

#include "workbench/application/python/draw_picture.h"
#include "workbench/application/python/python_actions.h"
#include "workbench/host/fennar_python/commands/python_commands.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <stdexcept>

namespace fennar {

std::optional<PythonCommandFailure> CommandsForPython::run(const QString& text) const
{
    CommandInterpreter& interpreter = Fennar::instance().interpreter();
    if (interpreter.run(text) == CommandInterpreter::Result::Done)
        return std::nullopt;
    end_caller();
    const CommandFailure& failure = interpreter.last_failure();
    return PythonCommandFailure{failure.message, failure.command, failure.column, failure.remedy};
}

void CommandsForPython::extend(struct _object* module) const
{
    add_python_actions(module);
    const auto call_line = [commands = *this](const QString& line, bool quiet) {
        // Code that outlives its Python for a moment finds no application any more.
        if (!PythonRuntime::running())
            throw std::runtime_error("Python ends");
        CommandInterpreter::Outcome outcome = commands.call(line, quiet);
        if (outcome.failure)
            commands.end_caller();
        return outcome;
    };
    add_python_commands(module, {.registry = &Fennar::instance().registry(),
                                 .call = call_line,
                                 .end_call = end_call,
                                 .picture = &draw_picture,
                                 .check_caller = &PythonRuntime::require_gui_thread});
}

} // namespace fennar
