// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace fennar::geometry {

// What all programs have in common that do a job in a process of their own.

/** A message for the user; "what" is all that he is told. */
class Failure : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/** A job that reads or writes files; each program says what it needs of it. */
struct Job
{
    /** "read" or "write". */
    std::string action;
    std::string kind;
    /** Where the job lies, with a slash at the end; the files below begin with it. */
    std::string folder;
    std::string input;
    std::string output;
    std::string statistics;
    std::string mesh;
    std::string solids;
    double size = 0;

    /** Reads the file of the job: first the action and the kind, then a key and its value on each line. False
     * if it cannot be read, or nothing is to be written. */
    bool read(const std::string& path);
};

/** Tells the program that waits what is done now; see MesherReport. */
void stage(const char* name);

/** Throws if a file was not written whole. */
void check_written(const std::string& path);

/**
 * The main function: runs the job that the only argument names. The process ends with the one that has
 * started it.
 *
 * @param run  returns false if the job cannot be understood; throws if it cannot be done.
 * @return the exit status: 0 for success, 1 if the job cannot be done, 2 for a bad job.
 */
int run_file_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run);

} // namespace fennar::geometry
