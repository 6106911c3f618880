// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Meshes solids in a process of its own:  fennar-mesher JOB
//
// JOB is a text file, one entry a line; paths are relative to the folder it lies in:
//
//     size SIZE            the length of the elements
//     output FILE          where the mesh goes, in the MSH format
//     statistics FILE      where the counts and the quality go
//     solid NAME FILE      a solid to be meshed, in the BREP format; NAME holds no blank
//
// What the engine has to say goes to standard output and standard error as it is. Among it are lines of this
// program, which begin with "@":
//
//     @stage 1D            what is done now: read, 1D, 2D, 3D, quality, write
//     @expect 1234         about how many nodes the 3D stage will make
//
// The exit status is 0 once both files are complete, 1 if the solids cannot be meshed, 2 for a bad job.

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <gmsh.h>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#ifdef __linux__
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>
#endif

namespace {

struct Job
{
    struct Solid
    {
        std::string name;
        std::string file;
    };

    double size = 0;
    std::string output;
    std::string statistics;
    std::vector<Solid> solids;
};

/** A message for the user; "what" is all that he is told. */
class Failure : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

void stage(const char* name)
{
    std::printf("@stage %s\n", name);
    std::fflush(stdout);
}

/** The process that started this one may die without a word, and nobody would want the mesh any more. */
void die_with_parent()
{
#ifdef __linux__
    const pid_t parent = getppid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        std::_Exit(1);
#endif
}

bool read_job(const std::string& path, Job& job)
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
        } else if (key == "output") {
            words >> job.output;
            job.output.insert(0, folder);
        } else if (key == "statistics") {
            words >> job.statistics;
            job.statistics.insert(0, folder);
        } else if (key == "solid") {
            Job::Solid solid;
            words >> solid.name >> solid.file;
            solid.file.insert(0, folder);
            job.solids.push_back(solid);
        } else {
            return false;
        }
        if (words.fail())
            return false;
    }
    return job.size > 0 && !job.output.empty() && !job.statistics.empty() && !job.solids.empty();
}

/** Reads the solids; a physical group of each one's name keeps the elements of its volumes together. */
void read_solids(const Job& job)
{
    std::vector<std::pair<std::string, std::vector<int>>> groups;
    for (const Job::Solid& solid : job.solids) {
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
}

void generate(const Job& job)
{
    for (const char* option : {"Mesh.MeshSizeMin", "Mesh.MeshSizeMax"})
        gmsh::option::setNumber(option, job.size);
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
        std::vector<int> types;
        std::vector<std::vector<std::size_t>> tags;
        std::vector<std::vector<std::size_t>> nodes;
        gmsh::model::mesh::getElements(types, tags, nodes, 3, volume.second);
        if (types.empty())
            throw Failure("a volume could not be filled with elements");
    }
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
        out << "quality " << measure << ' ' << least << ' ' << sum / double(count) << ' ' << most << '\n';
    gmsh::view::remove(views.back());
}

void run(const Job& job)
{
    gmsh::model::add("mesh");
    stage("read");
    read_solids(job);
    generate(job);
    check_volumes();
    stage("quality");
    std::ofstream statistics(job.statistics);
    statistics.precision(17);
    write_counts(statistics);
    write_quality(statistics, "ICN");
    write_quality(statistics, "IGE");
    stage("write");
    statistics.close();
    if (!statistics)
        throw Failure("the statistics could not be written");
    gmsh::write(job.output);
}

} // namespace

int main(int argc, char** argv)
{
    die_with_parent();
    std::setlocale(LC_ALL, "C");
    // Progress must not wait until a buffer is full.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    Job job;
    if (argc != 2 || !read_job(argv[1], job)) {
        std::fputs("usage: fennar-mesher JOB\n", stderr);
        return 2;
    }
    try {
        gmsh::initialize(0, nullptr, false);
        run(job);
        gmsh::finalize();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "Error   : %s\n", error.what());
    } catch (const std::string& error) { // what older versions of the engine throw
        std::fprintf(stderr, "Error   : %s\n", error.c_str());
    } catch (...) {
        std::fputs("Error   : the engine failed for an unknown reason\n", stderr);
    }
    return 1;
}
