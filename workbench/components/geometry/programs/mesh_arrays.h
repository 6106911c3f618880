// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/engine_process.h"

#include <memory>
#include <optional>
#include <vector>

namespace fennar::geometry {

/** The nodes and elements of a mesh as plain numbers. */
struct MeshArrays
{
    /** Elements of one kind. */
    struct Elements
    {
        /** The engine's name, as "Tetrahedron 4". */
        QString kind;
        /** How many nodes an element has, at least 1. */
        qsizetype size = 1;
        /** The nodes of one element behind those of the other, told by their places among the nodes, from 0.
         */
        std::shared_ptr<const std::vector<qint64>> nodes;
    };

    /** x, y and z of one node behind those of the other. */
    std::shared_ptr<const std::vector<double>> nodes;
    /** Each kind once: points, lines, faces, then volumes. */
    std::vector<Elements> elements;
};

/**
 * Has a program with the engine tell them.
 *
 * Throws a GeometryError if that fails.
 *
 * @param programs  the folder of the programs.
 * @return empty if go_on() has ended it.
 */
std::optional<MeshArrays> read_mesh_arrays(const Mesh& mesh, const QDir& programs,
                                           const MesherListener& listener = {});

/** What the program has left; all nodes of elements exist. Throws a GeometryError if @p data is anything
 * else. */
MeshArrays unpack_arrays(const QByteArray& data);

} // namespace fennar::geometry
