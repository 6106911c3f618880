// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QString>

#include <functional>
#include <optional>

/** What running commands for Python needs of the application; none may be null. */
struct CommandsForPython
{
    /** A command has failed: ends the Python code that has called it, if the user has interrupted. */
    std::function<void()> end_caller;
    /** Shows the command line that a function of the module fennar stands for. */
    std::function<void(const QString& line)> show;

    /** For PythonHooks::run_command. */
    std::optional<PythonCommandFailure> run(const QString& text) const;
    /** For PythonHooks::extend: actions, and a function for each command. */
    void extend(struct _object* module) const;
};
