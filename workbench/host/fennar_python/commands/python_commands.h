// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include <QString>

#include <functional>

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

/** What the functions of commands need. */
struct PythonCommandServices
{
    /** The commands; not null. Not owned: it outlives Python. */
    CommandRegistry* registry = nullptr;
    /**
     * Runs a command line as CommandInterpreter::call() does, without Python's lock.
     *
     * @param quiet  whether what the command prints need not be shown: it returns a value or changes the
     * model, and was not asked to tell more.
     */
    std::function<CommandInterpreter::Outcome(const QString& line, bool quiet)> call;
    /** As PythonHooks::end_call; may be null. */
    std::function<void()> end_call = {};
    /** Throws where commands must not be run, as on another thread; @p function is what the message says. May
     * be null if that cannot happen. */
    std::function<void(const char* function)> check_caller = {};
};

/**
 * Makes each command of the registry a function of the Python module @p module, with arguments and
 * documentation by its declaration, and gives it the classes of entities. They come and go with their
 * commands. The module must have CommandError.
 *
 * It knows neither the program nor how Python was started. The caller holds Python's lock; throws what
 * pybind11 throws.
 */
void add_python_commands(struct _object* module, const PythonCommandServices& services);
