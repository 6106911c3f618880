// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QString>

namespace fennar {

class CommandRegistry;
class Scene;

/** The kind of entities that items of the scene are, by their names. */
FENNAR_CORE_EXPORT QString item_entity();

/**
 * Adds the command "select", which works on @p scene.
 *
 * @param scene  must outlive the command.
 * @return false if there is a command of that name already.
 */
FENNAR_CORE_EXPORT bool register_select_command(CommandRegistry& registry, Scene& scene);

} // namespace fennar
