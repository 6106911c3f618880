// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QString>

namespace fennar {

class CommandCall;
class CommandRegistry;
class UndoSteps;

/** Adds undo and redo of the registry's steps. */
FENNAR_CORE_EXPORT void register_step_commands(CommandRegistry& registry, const QString& owner);

/** Prints the steps, those that were undone with a mark. */
FENNAR_CORE_EXPORT void list_steps(CommandCall& call, const UndoSteps& steps);

} // namespace fennar
