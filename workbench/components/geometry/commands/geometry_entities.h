// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandValue.h"

#include <QList>
#include <QString>

class QDir;

namespace fennar {
class CommandEntities;
}

namespace fennar::geometry {

class GeometryModel;
struct Mesh;

/** The kind of the model's mesh. */
QString mesh_entity();

/** A solid as what a command returns. It is gone when it is deleted, and when the model is replaced. */
CommandValue solid_value(const GeometryModel& model, int id);
/** Several of them. */
CommandValue solids_value(const GeometryModel& model, const QList<int>& ids);
/** A mesh as what a command returns. It is gone when another one takes its place. */
CommandValue mesh_value(const Mesh& mesh);
/** How many nodes and elements a mesh has, by their kinds. */
CommandValue mesh_counts(const Mesh& mesh);
/** The measures of quality of a mesh by their names: all of them, or the one that is @p wanted. They must
 * have been measured. */
CommandValue mesh_qualities(const Mesh& mesh, const QString& wanted);

/**
 * Offers the solids and the mesh of @p model, which outlives the offer, with their properties.
 *
 * @param programs  the folder of the programs with the engine.
 */
void offer_geometry_entities(CommandEntities& entities, GeometryModel& model, const QDir& programs,
                             const QString& owner);

} // namespace fennar::geometry
