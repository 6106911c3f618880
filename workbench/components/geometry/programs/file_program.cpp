// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/file_program.h"

#include "workbench/components/geometry/programs/is_written.h"

#include <clocale>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>

#ifdef __linux__
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>
#endif

namespace fennar::geometry {

namespace {

/** The process that started this one may die without a word, and nobody would want the result any more. */
void die_with_parent()
{
#ifdef __linux__
    const pid_t parent = getppid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        std::_Exit(1);
#endif
}

} // namespace

bool Job::read(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    std::ifstream file(path);
    if (!(file >> action >> kind))
        return false;
    const std::map<std::string, std::string*> files{{"input", &input},
                                                    {"output", &output},
                                                    {"statistics", &statistics},
                                                    {"mesh", &mesh},
                                                    {"solids", &solids}};
    std::string key;
    while (file >> key) {
        std::string word;
        if (key == "size") {
            file >> size;
        } else if (const auto found = files.find(key); found != files.end()) {
            file >> word;
            *found->second = folder + word;
        } else {
            return false;
        }
        if (file.fail())
            return false;
    }
    return !output.empty();
}

void stage(const char* name)
{
    std::printf("@stage %s\n", name);
    std::fflush(stdout);
}

void check_written(const std::string& path)
{
    if (!is_written(path.c_str()))
        throw Failure("a temporary file cannot be written; the disk may be full");
}

int run_file_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run)
{
    die_with_parent();
    std::setlocale(LC_ALL, "C");
    // Progress must not wait until a buffer is full.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    // The CAD kernel praises its own work there; what has gone wrong is told in lines of their own.
    std::cout.rdbuf(nullptr);
    try {
        if (argc == 2 && run(argv[1]))
            return 0;
        std::fprintf(stderr, "usage: %s JOB\n", argv[0]);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "Error   : %s\n", error.what());
    } catch (const std::string& error) { // what older versions of the engine throw
        std::fprintf(stderr, "Error   : %s\n", error.c_str());
    } catch (...) {
        std::fputs("Error   : the engine failed for an unknown reason\n", stderr);
    }
    return 1;
}

} // namespace fennar::geometry
