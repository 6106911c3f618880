// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Finds triangles and edges of solids in a process of its own:  fennar-tessellator NUMBER FILE [NUMBER
// FILE]...
//
// Each FILE holds a solid in the BREP format. For each, in this order, standard output gets a line
//
//     shape NUMBER TRIANGLES LINES
//
// and behind it, as doubles in the machine's own format: 9 coordinates of corners for each triangle, then 9
// components of the normals there, which point outwards, then 6 coordinates for each piece of an edge. A
// solid that cannot be done gets a line "failed NUMBER" alone.
//
// The exit status is 0 once all solids are through, 2 for bad arguments.

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gmsh.h>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#ifdef __linux__
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>
#endif

namespace {

/** A full circle gets so many pieces. */
constexpr int pieces_of_circle = 24;
/** No piece is shorter than this part of the solid's size. */
constexpr double least_piece = 1.0 / 400;

using Triple = std::array<double, 3>;

struct Shape
{
    std::vector<double> corners;
    std::vector<double> normals;
    std::vector<double> lines;
};

/** The process that started this one may die without a word, and nobody would want the triangles any more. */
void die_with_parent()
{
#ifdef __linux__
    const pid_t parent = getppid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        std::_Exit(1);
#endif
}

void append(std::vector<double>& list, const Triple& triple)
{
    list.insert(list.end(), triple.begin(), triple.end());
}

void set_sizes()
{
    Triple least;
    Triple most;
    gmsh::model::getBoundingBox(-1, -1, least[0], least[1], least[2], most[0], most[1], most[2]);
    const double size = std::hypot(most[0] - least[0], most[1] - least[1], most[2] - least[2]);
    gmsh::option::setNumber("Mesh.MeshSizeFromCurvature", pieces_of_circle);
    gmsh::option::setNumber("Mesh.MinimumCirclePoints", pieces_of_circle); // for what is thinner than a piece
    gmsh::option::setNumber("Mesh.MeshSizeFromPoints", 0);
    gmsh::option::setNumber("Mesh.MeshSizeExtendFromBoundary", 0);
    gmsh::option::setNumber("Mesh.MeshSizeMax", size);
    gmsh::option::setNumber("Mesh.MeshSizeMin", size * least_piece);
    gmsh::vectorpair faces;
    gmsh::model::getEntities(faces, 2);
    for (const auto& [dimension, tag] : faces) {
        std::string kind;
        gmsh::model::getType(dimension, tag, kind);
        // Planes need no points within; the other way is the quickest one for what is curved.
        gmsh::model::mesh::setAlgorithm(dimension, tag, kind == "Plane" ? 3 : 5);
    }
}

/** The normal of each node where the face has one. */
std::unordered_map<std::size_t, Triple> face_normals(int face)
{
    std::vector<std::size_t> tags;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(tags, coordinates, parameters, 2, face, true, true);
    std::vector<double> normals;
    gmsh::model::getNormal(face, parameters, normals);
    std::unordered_map<std::size_t, Triple> result;
    for (std::size_t i = 0; i < tags.size() && 3 * i + 2 < normals.size(); ++i) {
        const Triple normal{normals[3 * i], normals[3 * i + 1], normals[3 * i + 2]};
        if (std::abs(std::hypot(normal[0], normal[1], normal[2]) - 1) < 1e-3)
            result[tags[i]] = normal;
    }
    return result;
}

Triple triangle_normal(const Triple& a, const Triple& b, const Triple& c)
{
    const Triple u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const Triple v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    Triple normal{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    if (!(length > 0))
        return {0, 0, 1};
    for (double& component : normal)
        component /= length;
    return normal;
}

void add_face(int face, const std::unordered_map<std::size_t, Triple>& places, Shape& shape)
{
    const std::unordered_map<std::size_t, Triple> normals = face_normals(face);
    std::vector<std::size_t> triangles;
    std::vector<std::size_t> nodes;
    gmsh::model::mesh::getElementsByType(2, triangles, nodes, face);
    for (std::size_t i = 0; i + 2 < nodes.size(); i += 3) {
        const Triple flat =
            triangle_normal(places.at(nodes[i]), places.at(nodes[i + 1]), places.at(nodes[i + 2]));
        for (std::size_t j = i; j < i + 3; ++j) {
            append(shape.corners, places.at(nodes[j]));
            const auto found = normals.find(nodes[j]);
            Triple normal = found == normals.end() ? flat : found->second;
            const double sense = normal[0] * flat[0] + normal[1] * flat[1] + normal[2] * flat[2];
            // The triangles tell what is outside; the face's own normal does not.
            for (double& component : normal)
                component = sense < 0 ? -component : component;
            append(shape.normals, normal);
        }
    }
}

/** Whether the edge is one of a single face with itself, where a round surface closes. */
bool is_seam(int edge)
{
    std::vector<int> up;
    std::vector<int> down;
    gmsh::model::getAdjacencies(1, edge, up, down);
    return up.size() < 2;
}

Shape tessellate(const std::string& file)
{
    gmsh::vectorpair entities;
    gmsh::model::occ::importShapes(file, entities, true, "brep");
    gmsh::model::occ::synchronize();
    set_sizes();
    gmsh::vectorpair volumes;
    gmsh::model::getEntities(volumes, 3);
    gmsh::model::mesh::generate(2);
    for (const auto& volume : volumes)
        gmsh::model::mesh::setOutwardOrientation(volume.second);

    std::vector<std::size_t> tags;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(tags, coordinates, parameters);
    std::unordered_map<std::size_t, Triple> places;
    for (std::size_t i = 0; i < tags.size(); ++i)
        places[tags[i]] = {coordinates[3 * i], coordinates[3 * i + 1], coordinates[3 * i + 2]};

    Shape shape;
    gmsh::vectorpair faces;
    gmsh::model::getEntities(faces, 2);
    for (const auto& face : faces)
        add_face(face.second, places, shape);
    gmsh::vectorpair edges;
    gmsh::model::getEntities(edges, 1);
    for (const auto& edge : edges) {
        if (is_seam(edge.second))
            continue;
        std::vector<std::size_t> lines;
        std::vector<std::size_t> nodes;
        gmsh::model::mesh::getElementsByType(1, lines, nodes, edge.second);
        for (const std::size_t node : nodes)
            append(shape.lines, places.at(node));
    }
    return shape;
}

void write(const std::vector<double>& numbers)
{
    // A sphere has no edges, and an empty vector no address to write from.
    if (!numbers.empty())
        std::fwrite(numbers.data(), sizeof(double), numbers.size(), stdout);
}

void run(const char* number, const std::string& file)
{
    gmsh::model::add(number);
    try {
        const Shape shape = tessellate(file);
        std::printf("shape %s %zu %zu\n", number, shape.corners.size() / 9, shape.lines.size() / 6);
        write(shape.corners);
        write(shape.normals);
        write(shape.lines);
    } catch (...) {
        std::printf("failed %s\n", number);
    }
    std::fflush(stdout);
    gmsh::model::remove();
}

} // namespace

int main(int argc, char** argv)
{
    die_with_parent();
    std::setlocale(LC_ALL, "C");
    if (argc < 3 || argc % 2 == 0) {
        std::fputs("usage: fennar-tessellator NUMBER FILE [NUMBER FILE]...\n", stderr);
        return 2;
    }
    gmsh::initialize(0, nullptr, false);
    gmsh::option::setNumber("General.Terminal", 0);
    for (int i = 1; i + 1 < argc; i += 2)
        run(argv[i], argv[i + 1]);
    gmsh::finalize();
    return 0;
}
