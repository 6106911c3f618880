// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/** What the function view() shows. */
struct PythonPicture
{
    /** What is seen of the mesh. */
    enum class Mesh {
        /** The solids themselves. */
        None,
        /** The mesh in place of the solids that have one. */
        Instead,
        /** The mesh and nothing else. */
        Only,
    };

    /** The names of the solids; empty for all. */
    QStringList names = {};
    Mesh mesh = Mesh::Instead;
    /** In pixels. */
    QSize size = {};
};

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
    /** Draws what is to be seen as a PNG file, without Python's lock; may throw a CommandError. Null if
     * nothing can be seen. */
    std::function<QByteArray(const PythonPicture& picture)> picture = {};
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

} // namespace fennar
