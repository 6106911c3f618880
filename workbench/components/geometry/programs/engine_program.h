// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/file_program.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace fennar::geometry {

// What the programs have in common that use the engine.

/** Whether the current mesh has elements of the dimension: in one of its entities, or anywhere. */
bool has_elements(int dimension, int entity = -1);

/** Writes how many nodes and elements of each kind the current mesh has. */
void write_counts(std::ostream& out);

/** Writes the quality of the volume elements by one of the engine's measures, "ICN" or "IGE". */
void write_quality(std::ostream& out, const char* measure);

/** Plain triangles. */
struct Triangles
{
    /** Coordinates, three for each point. */
    std::vector<double> points;
    /** Numbers of points from 0 on, three for each triangle. */
    std::vector<std::uint32_t> corners;
};

/** The places of the nodes of the current mesh, by their tags. */
class NodePlaces
{
public:
    NodePlaces();

    /** Three coordinates. Throws if there is no such node. */
    const double* operator[](std::size_t tag) const;

private:
    std::vector<double> mCoordinates;
    /** The tags, in their order, and where their coordinates begin. */
    std::vector<std::pair<std::size_t, std::size_t>> mOrder;
};

/** @param corner_nodes  the tags of nodes, three for each triangle. */
Triangles make_triangles(const std::vector<std::size_t>& corner_nodes, const NodePlaces& places);

/** Two counts, the points and the triangles, and then both, in the machine's own numbers: 64 bits for counts,
 * double precision for coordinates, 32 bits for corners. */
void write_surface(const Triangles& surface, const std::string& path);

/** As run_file_program(), with the engine started. */
int run_engine_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run);

} // namespace fennar::geometry
