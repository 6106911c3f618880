// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include <QString>

#include <functional>
#include <optional>

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/** What running commands for Python needs of the application. */
struct CommandsForPython
{
    /** A command has failed: ends the Python code that has called it, if the user has interrupted. */
    std::function<void()> end_caller;
    /** Runs the command line that a function of the module fennar stands for; see PythonCommandServices. */
    std::function<CommandInterpreter::Outcome(const QString& line, bool quiet)> call;
    /** As PythonHooks::end_call; may be null. */
    std::function<void()> end_call;

    /** For PythonHooks::run_command. */
    std::optional<PythonCommandFailure> run(const QString& text) const;
    /** For PythonHooks::extend: actions, and a function for each command. */
    void extend(struct _object* module) const;
};

} // namespace fennar
