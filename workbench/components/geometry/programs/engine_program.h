// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/file_program.h"

#include <iosfwd>

// What the programs have in common that use the engine.

/** Whether the current mesh has elements of the dimension: in one of its entities, or anywhere. */
bool has_elements(int dimension, int entity = -1);

/** Writes how many nodes and elements of each kind the current mesh has. */
void write_counts(std::ostream& out);

/** Writes the quality of the volume elements by one of the engine's measures, "ICN" or "IGE". */
void write_quality(std::ostream& out, const char* measure);

/** As run_file_program(), with the engine started. */
int run_engine_program(int argc, char** argv, const std::function<bool(const std::string& job)>& run);
