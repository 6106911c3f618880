// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/engine_process.h"

#include <QList>
#include <QString>

#include <memory>

namespace fennar::geometry {

class GeometryModel;

/** What the elements of a mesh are to be like, and how they are made. */
struct MeshSettings
{
    /** Their length, in the model's units. */
    double size = 0;
    /** The parallel algorithm rather than the usual one. */
    bool hxt = false;
    /** How many threads may work at once. */
    int threads = 1;
};

/**
 * Meshes solids in a process of its own and waits for it.
 *
 * Throws a GeometryError if that fails, for whatever reason: a mesher that crashes is one. The model is left
 * alone, and neither the process nor a file of it stays behind.
 *
 * @param program  the path of the mesher.
 * @param ids      the solids.
 * @return the mesh, which is not the model's yet; null if go_on() has returned false.
 */
std::shared_ptr<const Mesh> run_mesher(const QString& program, const GeometryModel& model,
                                       const QList<int>& ids, const MeshSettings& settings,
                                       const MesherListener& listener = {});

} // namespace fennar::geometry
