// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace fennar {
class CommandRegistry;
}

namespace fennar::graphics {

class GraphicsState;

/**
 * Adds the commands "view", "fit" and "display".
 *
 * @param state  must outlive them.
 * @return false, with none of them added, if one of the names is taken.
 */
bool register_graphics_commands(CommandRegistry& registry, const QString& owner, GraphicsState& state);

} // namespace fennar::graphics
