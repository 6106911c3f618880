// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string>

// What the programs have in common that use the engine in a process of their own.

/** A message for the user; "what" is all that he is told. */
class Failure : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/** Tells the program that waits what is done now; see MesherReport. */
void stage(const char* name);

/** Whether the current mesh has elements of the dimension: in one of its entities, or anywhere. */
bool has_elements(int dimension, int entity = -1);

/** Writes how many nodes and elements of each kind the current mesh has. */
void write_counts(std::ostream& out);

/** Writes the quality of the volume elements by one of the engine's measures, "ICN" or "IGE". */
void write_quality(std::ostream& out, const char* measure);

/**
 * The main function: starts the engine and runs the job that the only argument names. The process ends with
 * the one that has started it.
 *
 * @param run  returns false if the job cannot be understood; throws if it cannot be done.
 * @return the exit status: 0 for success, 1 if the job cannot be done, 2 for a bad job.
 */
int run_engine_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run);
