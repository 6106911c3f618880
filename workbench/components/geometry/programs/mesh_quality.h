// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/engine_process.h"

namespace fennar::geometry {

/**
 * The quality of the volume elements of a mesh, in each measure; none if it has no such elements. It is
 * measured once, by a program with the engine.
 *
 * Throws a GeometryError if that fails.
 *
 * @param programs  the folder of the programs.
 * @return false if go_on() has ended it; otherwise the quality of @p mesh is there.
 */
bool measure_quality(const Mesh& mesh, const QDir& programs, const MesherListener& listener = {});

} // namespace fennar::geometry
