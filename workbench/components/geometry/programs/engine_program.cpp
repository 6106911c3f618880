// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/engine_program.h"

#include <algorithm>
#include <fstream>
#include <gmsh.h>
#include <limits>
#include <ostream>
#include <unordered_map>
#include <utility>
#include <vector>

namespace fennar::geometry {

bool has_elements(int dimension, int entity)
{
    std::vector<int> types;
    std::vector<std::vector<std::size_t>> tags;
    std::vector<std::vector<std::size_t>> nodes;
    gmsh::model::mesh::getElements(types, tags, nodes, dimension, entity);
    return !types.empty();
}

void write_counts(std::ostream& out)
{
    std::vector<std::size_t> nodes;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(nodes, coordinates, parameters);
    out << "nodes " << nodes.size() << '\n';

    std::vector<int> types;
    std::vector<std::vector<std::size_t>> tags;
    std::vector<std::vector<std::size_t>> element_nodes;
    gmsh::model::mesh::getElements(types, tags, element_nodes);
    for (std::size_t i = 0; i < types.size(); ++i) {
        std::string name;
        int dimension = 0;
        int order = 0;
        int node_count = 0;
        int primary_count = 0;
        std::vector<double> local;
        gmsh::model::mesh::getElementProperties(types[i], name, dimension, order, node_count, local,
                                                primary_count);
        out << "elements " << dimension << ' ' << tags[i].size() << ' ' << name << '\n';
    }
}

void write_quality(std::ostream& out, const char* measure)
{
    const char* const plugin = "AnalyseMeshQuality";
    gmsh::plugin::setNumber(plugin, "JacobianDeterminant", 0);
    gmsh::plugin::setNumber(plugin, "IGEMeasure", 0);
    gmsh::plugin::setNumber(plugin, "ICNMeasure", 0);
    gmsh::plugin::setNumber(plugin, std::string(measure) + "Measure", 1);
    gmsh::plugin::setNumber(plugin, "CreateView", 1);
    gmsh::plugin::setNumber(plugin, "DimensionOfElements", 3);
    gmsh::plugin::run(plugin);
    std::vector<int> views;
    gmsh::view::getTags(views);
    if (views.empty())
        throw Failure("the quality of the mesh could not be found");
    std::string kind;
    std::vector<std::size_t> tags;
    std::vector<std::vector<double>> values;
    double time = 0;
    int components = 0;
    gmsh::view::getModelData(views.back(), 0, kind, tags, values, time, components);
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    double sum = 0;
    std::size_t count = 0;
    for (const std::vector<double>& value : values) {
        if (value.empty())
            continue;
        least = std::min(least, value.front());
        most = std::max(most, value.front());
        sum += value.front();
        ++count;
    }
    if (count > 0)
        out << measure << ' ' << least << ' ' << sum / double(count) << ' ' << most << '\n';
    gmsh::view::remove(views.back());
}

NodePlaces::NodePlaces()
{
    std::vector<std::size_t> tags;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(tags, mCoordinates, parameters);
    mOrder.reserve(tags.size());
    for (std::size_t i = 0; i < tags.size(); ++i)
        mOrder.emplace_back(tags[i], 3 * i);
    std::sort(mOrder.begin(), mOrder.end());
}

const double* NodePlaces::operator[](std::size_t tag) const
{
    const auto found = std::lower_bound(mOrder.begin(), mOrder.end(), std::pair(tag, std::size_t(0)));
    if (found == mOrder.end() || found->first != tag)
        throw Failure("an element has a node that does not exist");
    return mCoordinates.data() + found->second;
}

Triangles make_triangles(const std::vector<std::size_t>& corner_nodes, const NodePlaces& places)
{
    Triangles result;
    result.corners.reserve(corner_nodes.size());
    std::unordered_map<std::size_t, std::uint32_t> numbers;
    for (const std::size_t node : corner_nodes) {
        const auto [found, is_new] = numbers.emplace(node, static_cast<std::uint32_t>(numbers.size()));
        if (is_new) {
            const double* const place = places[node];
            result.points.insert(result.points.end(), place, place + 3);
        }
        result.corners.push_back(found->second);
    }
    return result;
}

void write_surface(const Triangles& surface, const std::string& path)
{
    const std::uint64_t counts[] = {surface.points.size() / 3, surface.corners.size() / 3};
    std::ofstream file(path, std::ios::binary);
    const auto write = [&file](const auto* items, std::size_t count) {
        file.write(reinterpret_cast<const char*>(items), static_cast<std::streamsize>(count * sizeof *items));
    };
    write(counts, 2);
    write(surface.points.data(), surface.points.size());
    write(surface.corners.data(), surface.corners.size());
    file.close();
    if (!file)
        throw Failure("a temporary file cannot be written");
}

int run_engine_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run)
{
    return run_file_program(argc, argv, [&run](const std::string& job) {
        gmsh::initialize(0, nullptr, false);
        const bool understood = run(job);
        gmsh::finalize();
        return understood;
    });
}

} // namespace fennar::geometry
