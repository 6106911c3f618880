// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace fennar {

class CommandCall;
class CommandInterpreter;
class CommandRegistry;
class Playback;
class UndoSteps;

/** The lines typed so far, the oldest one first. */
using HistorySource = std::function<QStringList()>;

/** What the built-in commands need from the application; each may be null and may be set later. */
struct BuiltinServices
{
    /** For "history": set by the owner of the console. */
    HistorySource history;
    /** For "quit": asks the application to end. */
    std::function<void()> quit;
};

/** The kinds of files that can be played, for dialogs: journals first, then Python scripts. */
FENNAR_CORE_EXPORT QList<CommandFileFilter> journal_filters();

/**
 * Looks for errors in a journal without running it, and prints them or that there are none, as "check" does.
 *
 * @throw CommandError  it has errors, which are printed by then, or is none that can be checked.
 */
FENNAR_CORE_EXPORT void check_file(CommandInterpreter& interpreter, const QString& path);

/**
 * Adds help, echo, set, history, undo, redo, those about journals and quit to the interpreter's registry,
 * with the owner "fennari19". The arguments outlive the commands.
 */
FENNAR_CORE_EXPORT void register_builtin_commands(CommandInterpreter& interpreter, Playback& playback,
                                                  const BuiltinServices& services);

/** Adds undo and redo of the registry's steps alone. */
FENNAR_CORE_EXPORT void register_step_commands(CommandRegistry& registry, const QString& owner);

/** Prints the steps, those that were undone with a mark. */
FENNAR_CORE_EXPORT void list_steps(CommandCall& call, const UndoSteps& steps);

} // namespace fennar
