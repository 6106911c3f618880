// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/console/LineInterpreter.h"

#include <memory>

/** Runs lines of the command language, and completes them. */
std::unique_ptr<LineInterpreter> make_command_lines();
/** Runs lines of Python as the user, and completes them. */
std::unique_ptr<LineInterpreter> make_python_lines();
