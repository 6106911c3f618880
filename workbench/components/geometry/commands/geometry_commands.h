// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDir>
#include <QString>

namespace fennar {
class CommandRegistry;
struct ApplicationServices;
} // namespace fennar

namespace fennar::geometry {

class GeometryModel;

/**
 * Adds the commands that make, change and mesh solids.
 *
 * @param model     outlives the commands, and so does @p services.
 * @param programs  the folder of the programs with the engine.
 * @return false, with none added, if a name is taken.
 */
bool register_geometry_commands(CommandRegistry& registry, const QString& owner, GeometryModel& model,
                                const ApplicationServices& services, const QDir& programs);

} // namespace fennar::geometry
