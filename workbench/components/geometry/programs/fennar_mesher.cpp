// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Meshes solids in a process of its own:  fennar-mesher JOB
//
// JOB is a text file, one entry a line; paths are relative to the folder it lies in:
//
//     size SIZE            the length of the elements
//     output FILE          where the mesh goes, in the MSH format
//     statistics FILE      where the counts go
//     algorithm NAME       how volumes are filled: delaunay, as without this line, or hxt
//     threads COUNT        how many threads may work at once; 1 without this line
//     solid NAME FILE      a solid to be meshed, in the BREP format; NAME holds no blank. The
//                          triangles around its elements go to FILE with ".surface" behind it
//
// What the engine has to say goes to standard output and standard error as it is. Among it are lines of this
// program, which begin with "@":
//
//     @stage 1D            what is done now: read, 1D, 2D, 3D, write
//     @expect 1234         about how many nodes the 3D stage will make
//
// The exit status is 0 once both files are complete, 1 if the solids cannot be meshed, 2 for a bad job.

#include "workbench/components/geometry/programs/engine_program.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <gmsh.h>
#include <sstream>
#include <string>
#include <vector>

using namespace fennar::geometry;

namespace {

struct MeshJob
{
    struct Solid
    {
        std::string name;
        std::string file;
    };

    double size = 0;
    bool hxt = false;
    int threads = 1;
    std::string output;
    std::string statistics;
    std::vector<Solid> solids;
};

bool read_job(const std::string& path, MeshJob& job)
{
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string key;
        words >> key;
        if (key == "size") {
            words >> job.size;
        } else if (key == "algorithm") {
            std::string name;
            words >> name;
            job.hxt = name == "hxt";
            if (!job.hxt && name != "delaunay")
                return false;
        } else if (key == "threads") {
            words >> job.threads;
        } else if (key == "output") {
            words >> job.output;
            job.output.insert(0, folder);
        } else if (key == "statistics") {
            words >> job.statistics;
            job.statistics.insert(0, folder);
        } else if (key == "solid") {
            MeshJob::Solid solid;
            words >> solid.name >> solid.file;
            solid.file.insert(0, folder);
            job.solids.push_back(solid);
        } else {
            return false;
        }
        if (words.fail())
            return false;
    }
    return job.size > 0 && job.threads > 0 && !job.output.empty() && !job.statistics.empty() &&
           !job.solids.empty();
}

/** Reads the solids; a physical group of each one's name keeps the elements of its volumes together. Returns
 * the volumes of each. */
std::vector<std::vector<int>> read_solids(const MeshJob& job)
{
    std::vector<std::pair<std::string, std::vector<int>>> groups;
    for (const MeshJob::Solid& solid : job.solids) {
        gmsh::vectorpair entities;
        gmsh::model::occ::importShapes(solid.file, entities, true, "brep");
        std::vector<int> volumes;
        for (const auto& [dimension, tag] : entities) {
            if (dimension == 3)
                volumes.push_back(tag);
        }
        if (volumes.empty())
            throw Failure("\"" + solid.name + "\" has no volume");
        groups.emplace_back(solid.name, volumes);
    }
    double expected = 0;
    for (const auto& group : groups) {
        for (const int volume : group.second) {
            double content = 0;
            gmsh::model::occ::getMass(3, volume, content);
            expected += content;
        }
    }
    gmsh::model::occ::synchronize();
    for (const auto& [name, volumes] : groups) {
        const int group = gmsh::model::addPhysicalGroup(3, volumes);
        gmsh::model::setPhysicalName(3, group, name);
    }
    // What the engine needs for regular tetrahedra, found by trying.
    expected *= 0.65 / std::pow(job.size, 3);
    std::printf("@expect %.0f\n", std::clamp(expected, 1.0, 1e12));
    std::vector<std::vector<int>> result;
    for (const auto& group : groups)
        result.push_back(group.second);
    return result;
}

void generate(const MeshJob& job)
{
    for (const char* option : {"Mesh.MeshSizeMin", "Mesh.MeshSizeMax"})
        gmsh::option::setNumber(option, job.size);
    constexpr int delaunay = 1;
    constexpr int hxt = 10;
    gmsh::option::setNumber("Mesh.Algorithm3D", job.hxt ? hxt : delaunay);
    for (const char* option : {"General.NumThreads", "Mesh.MaxNumThreads2D", "Mesh.MaxNumThreads3D"})
        gmsh::option::setNumber(option, job.threads);
    // All elements are kept, not only those of a physical group: the graphics and file formats need faces.
    gmsh::option::setNumber("Mesh.SaveAll", 1);
    gmsh::option::setNumber("Mesh.Binary", 1);
    stage("1D");
    gmsh::model::mesh::generate(1);
    stage("2D");
    gmsh::model::mesh::generate(2);
    stage("3D");
    gmsh::model::mesh::generate(3);
}

/** Each volume must have got its elements: the engine goes on when it cannot fill one. */
void check_volumes()
{
    gmsh::vectorpair volumes;
    gmsh::model::getEntities(volumes, 3);
    for (const auto& volume : volumes) {
        if (!has_elements(3, volume.second))
            throw Failure("a volume could not be filled with elements");
    }
}

/** The triangles around volumes, as the tags of their corners. */
std::vector<std::size_t> outer_triangles(const std::vector<int>& volumes)
{
    gmsh::vectorpair inside;
    for (const int volume : volumes)
        inside.emplace_back(3, volume);
    gmsh::vectorpair faces;
    gmsh::model::getBoundary(inside, faces, true, false);
    std::vector<std::size_t> result;
    for (const auto& face : faces) {
        constexpr int triangle = 2;
        std::vector<std::size_t> tags;
        std::vector<std::size_t> nodes;
        gmsh::model::mesh::getElementsByType(triangle, tags, nodes, face.second);
        result.insert(result.end(), nodes.begin(), nodes.end());
    }
    return result;
}

void run(const MeshJob& job)
{
    gmsh::model::add("mesh");
    stage("read");
    const std::vector<std::vector<int>> volumes = read_solids(job);
    generate(job);
    check_volumes();
    stage("write");
    std::ofstream statistics(job.statistics);
    statistics.precision(17);
    write_counts(statistics);
    statistics.close();
    if (!statistics)
        throw Failure("the statistics could not be written");
    const NodePlaces places;
    for (std::size_t i = 0; i < volumes.size(); ++i)
        write_surface(make_triangles(outer_triangles(volumes[i]), places), job.solids[i].file + ".surface");
    gmsh::write(job.output);
}

} // namespace

int main(int argc, char** argv)
{
    return run_engine_program(argc, argv, [](const std::string& path) {
        MeshJob job;
        if (!read_job(path, job))
            return false;
        run(job);
        return true;
    });
}
