// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads and writes files of meshes in a process of its own:  fennar-converter JOB
//
// JOB is a text file, one entry a line; paths have no blank and are relative to the folder it lies in. It
// begins with one of
//
//     read mesh            reads "input", a file that the engine knows, and writes the mesh to "output"
//                          in the MSH format, its counts to "statistics", and to the file "surface"
//                          "closed VOLUME" or "open", or nothing if it has no triangles
//     read surface         the same, for an input of plain triangles
//     read quality         reads "input", a mesh with volumes in the MSH format, and writes a line for each
//                          measure of quality to "output": its name, the least, mean and greatest value
//     read arrays          reads "input", a mesh in the MSH format, and writes to "output" lines with
//                          "nodes COUNT" and for each kind of elements "elements NODES_OF_ONE COUNT KIND",
//                          an empty line, and then in the machine's own numbers of 64 bits the coordinates
//                          of the nodes and, kind by kind, the nodes of the elements, told by their places,
//                          from 0
//     write ENDING         writes the "solids", in the BREP format, or the "mesh", in the MSH format, to
//                          "output" in the format that ENDING tells; "surface" means plain triangles, and
//                          "size" is the greatest edge of triangles that are made, 0 if it does not matter
//
// Plain triangles are two counts, the points and the corners of the triangles, in the machine's own numbers:
// 64 bits for counts, double precision for coordinates, 32 bits for corners.
//
// Output and exit status are as those of fennar-mesher.

#include "workbench/components/geometry/programs/engine_program.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <gmsh.h>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

using namespace fennar::geometry;

namespace {

namespace occ = gmsh::model::occ;

bool is_complete(const Job& job)
{
    if (job.action == "read" && (job.kind == "quality" || job.kind == "arrays"))
        return !job.input.empty();
    if (job.action == "read")
        return (job.kind == "mesh" || job.kind == "surface") && !job.input.empty() && !job.statistics.empty();
    return job.action == "write" && job.mesh.empty() != job.solids.empty();
}

void write_checked(const std::string& path)
{
    stage("write");
    gmsh::write(path);
    check_written(path);
}

gmsh::vectorpair volumes()
{
    gmsh::vectorpair shapes;
    occ::getEntities(shapes, 3);
    return shapes;
}

/** The first three corners of each triangle, and two triangles for each quadrangle. */
Triangles triangles()
{
    std::vector<std::size_t> corner_nodes;
    std::vector<int> types;
    std::vector<std::vector<std::size_t>> tags;
    std::vector<std::vector<std::size_t>> nodes;
    gmsh::model::mesh::getElements(types, tags, nodes, 2);
    for (std::size_t i = 0; i < types.size(); ++i) {
        std::string name;
        int dimension = 0;
        int order = 0;
        int node_count = 0;
        int corners = 0;
        std::vector<double> local;
        gmsh::model::mesh::getElementProperties(types[i], name, dimension, order, node_count, local, corners);
        for (std::size_t at = 0; at < nodes[i].size(); at += static_cast<std::size_t>(node_count)) {
            for (int corner = 2; corner < corners; ++corner) {
                const std::size_t second = at + static_cast<std::size_t>(corner) - 1;
                corner_nodes.insert(corner_nodes.end(),
                                    {nodes[i][at], nodes[i][second], nodes[i][second + 1]});
            }
        }
    }
    return make_triangles(corner_nodes, NodePlaces());
}

/** Whether each edge belongs to two triangles, which run along it in opposite directions. */
bool is_closed(const Triangles& surface)
{
    std::set<std::pair<std::uint32_t, std::uint32_t>> edges;
    for (std::size_t i = 0; i < surface.corners.size(); i += 3) {
        for (std::size_t j = 0; j < 3; ++j) {
            if (!edges.emplace(surface.corners[i + j], surface.corners[i + (j + 1) % 3]).second)
                return false;
        }
    }
    return std::all_of(edges.begin(), edges.end(), [&edges](const auto& edge) {
        return edges.count({edge.second, edge.first}) > 0;
    });
}

double enclosed_volume(const Triangles& surface)
{
    double sum = 0;
    const auto point = [&surface](std::uint32_t corner) {
        return surface.points.data() + std::size_t(3) * corner;
    };
    for (std::size_t i = 0; i < surface.corners.size(); i += 3) {
        const double* a = point(surface.corners[i]);
        const double* b = point(surface.corners[i + 1]);
        const double* c = point(surface.corners[i + 2]);
        sum += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
               a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
    return sum / 6;
}

template <typename Item>
void read_items(std::istream& file, std::vector<Item>& items, std::uint64_t count)
{
    items.resize(count);
    file.read(reinterpret_cast<char*>(items.data()), static_cast<std::streamsize>(count * sizeof(Item)));
}

void read_surface(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint64_t> counts;
    Triangles surface;
    read_items(file, counts, 2);
    read_items(file, surface.points, 3 * counts[0]);
    read_items(file, surface.corners, 3 * counts[1]);
    if (!file)
        throw Failure("the triangles are damaged");
    std::vector<std::size_t> nodes(counts[0]);
    for (std::size_t i = 0; i < nodes.size(); ++i)
        nodes[i] = i + 1;
    std::vector<std::size_t> corners;
    for (const std::uint32_t corner : surface.corners)
        corners.push_back(corner + std::size_t(1));
    const int entity = gmsh::model::addDiscreteEntity(2);
    gmsh::model::mesh::addNodes(2, entity, nodes, surface.points);
    gmsh::model::mesh::addElementsByType(entity, 2, {}, corners);
}

void read_mesh(const Job& job)
{
    gmsh::model::add("input");
    stage("open");
    if (job.kind == "surface")
        read_surface(job.input);
    else
        gmsh::merge(job.input);
    if (!has_elements(2) && !has_elements(3))
        throw Failure("it holds no faces and no volumes");
    std::ofstream statistics(job.statistics);
    statistics.precision(17);
    write_counts(statistics);
    statistics.close();
    std::ofstream about_surface(job.folder + "surface");
    about_surface.precision(17);
    if (const Triangles surface = triangles(); !surface.corners.empty())
        about_surface << (is_closed(surface) ? "closed " : "open ") << enclosed_volume(surface) << '\n';
    about_surface.close();
    if (!statistics || !about_surface)
        throw Failure("a temporary file cannot be written");
    write_checked(job.output);
}

void measure_mesh(const Job& job)
{
    gmsh::model::add("input");
    stage("open");
    gmsh::merge(job.input);
    stage("quality");
    std::ofstream output(job.output);
    output.precision(17);
    write_quality(output, "ICN");
    write_quality(output, "IGE");
    output.close();
    if (!output)
        throw Failure("a temporary file cannot be written");
}

template <typename Item>
void write_items(std::ostream& file, const std::vector<Item>& items)
{
    file.write(reinterpret_cast<const char*>(items.data()),
               static_cast<std::streamsize>(items.size() * sizeof(Item)));
}

void write_arrays(const Job& job)
{
    gmsh::model::add("input");
    stage("open");
    gmsh::merge(job.input);
    stage("write");
    std::vector<std::size_t> tags;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(tags, coordinates, parameters);
    std::unordered_map<std::size_t, std::int64_t> places;
    for (const std::size_t tag : tags)
        places.emplace(tag, static_cast<std::int64_t>(places.size()));
    if (places.size() != tags.size())
        throw Failure("two nodes have one number");

    std::ofstream output(job.output, std::ios::binary);
    output << "nodes " << tags.size() << '\n';
    std::vector<std::vector<std::int64_t>> lists;
    for (int dimension = 0; dimension <= 3; ++dimension) {
        std::vector<int> types;
        std::vector<std::vector<std::size_t>> elements;
        std::vector<std::vector<std::size_t>> nodes;
        gmsh::model::mesh::getElements(types, elements, nodes, dimension);
        for (std::size_t i = 0; i < types.size(); ++i) {
            std::string name;
            int order = 0;
            int size = 0;
            int corners = 0;
            std::vector<double> local;
            gmsh::model::mesh::getElementProperties(types[i], name, dimension, order, size, local, corners);
            output << "elements " << size << ' ' << elements[i].size() << ' ' << name << '\n';
            std::vector<std::int64_t>& list = lists.emplace_back();
            list.reserve(nodes[i].size());
            for (const std::size_t tag : nodes[i])
                list.push_back(places.at(tag));
        }
    }
    output << '\n';
    write_items(output, coordinates);
    for (const auto& list : lists)
        write_items(output, list);
    output.close();
    if (!output)
        throw Failure("a temporary file cannot be written");
}

/** Puts triangles on the faces of the solids. */
void triangulate(double size)
{
    gmsh::option::setNumber("Mesh.MeshSizeFromCurvature", 24);
    if (size > 0)
        gmsh::option::setNumber("Mesh.MeshSizeMax", size);
    stage("1D");
    gmsh::model::mesh::generate(1);
    stage("2D");
    gmsh::model::mesh::generate(2);
    gmsh::vectorpair faces;
    gmsh::model::getEntities(faces, 2);
    for (const auto& face : faces) {
        if (!has_elements(2, face.second))
            throw Failure("a face could not be covered with triangles");
    }
}

/** The number of nodes, and of the elements of dimension 2 and 3, of the current mesh. */
std::array<std::size_t, 3> mesh_size()
{
    std::vector<std::size_t> nodes;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(nodes, coordinates, parameters);
    std::array<std::size_t, 3> result{nodes.size(), 0, 0};
    for (const int dimension : {2, 3}) {
        std::vector<int> types;
        std::vector<std::vector<std::size_t>> tags;
        std::vector<std::vector<std::size_t>> element_nodes;
        gmsh::model::mesh::getElements(types, tags, element_nodes, dimension);
        for (const auto& some : tags)
            result[static_cast<std::size_t>(dimension) - 1] += some.size();
    }
    return result;
}

/** Reads a mesh that was written just now: the engine goes on behind a piece that it could not write. */
void check_mesh(const std::string& path)
{
    const auto written = mesh_size();
    gmsh::model::add("check");
    gmsh::merge(path);
    if (mesh_size() != written)
        throw Failure("a temporary file cannot be written; the disk may be full");
}

void write_file(const Job& job)
{
    gmsh::model::add("output");
    stage("read");
    const bool triangles_only = job.kind == "stl" || job.kind == "surface";
    if (!job.mesh.empty()) {
        gmsh::merge(job.mesh);
        if (triangles_only && !has_elements(2))
            throw Failure("the mesh has no faces");
    } else {
        gmsh::vectorpair shapes;
        occ::importShapes(job.solids, shapes, true, "brep");
        occ::synchronize();
        if (volumes().empty())
            throw Failure("there is no solid");
        if (triangles_only)
            triangulate(job.size);
    }
    if (job.kind == "surface") {
        stage("write");
        write_surface(triangles(), job.output);
    } else {
        // As text: version 4.13 of the engine does not read the binary files of this format that it writes.
        if (job.kind == "vtk")
            gmsh::option::setNumber("Mesh.Binary", 0);
        write_checked(job.output);
        if (job.kind == "vtk")
            check_mesh(job.output);
    }
}

} // namespace

int main(int argc, char** argv)
{
    return run_engine_program(argc, argv, [](const std::string& path) {
        Job job;
        if (!job.read(path) || !is_complete(job))
            return false;
        // All elements, not only those of a physical group.
        gmsh::option::setNumber("Mesh.SaveAll", 1);
        gmsh::option::setNumber("Mesh.Binary", 1);
        if (job.action == "write")
            write_file(job);
        else if (job.kind == "quality")
            measure_mesh(job);
        else if (job.kind == "arrays")
            write_arrays(job);
        else
            read_mesh(job);
        return true;
    });
}
