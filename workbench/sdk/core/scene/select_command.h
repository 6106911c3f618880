// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

class CommandRegistry;
class Scene;

/**
 * Adds the command "select", which works on @p scene.
 *
 * @param scene  must outlive the command.
 * @return false if there is a command of that name already.
 */
FENNAR_CORE_EXPORT bool register_select_command(CommandRegistry& registry, Scene& scene);
