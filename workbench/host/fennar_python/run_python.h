// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/python_text.h"

// All functions here are called with Python's lock held, on the GUI thread where they run code.

/**
 * Compiles @p source as a module with the name @p file and runs it in @p names.
 *
 * @return false if an exception was raised; it has then been reported.
 */
bool run_source(PyObject* names, const pybind11::str& source, const pybind11::str& file);

/** Runs compiled code in @p names; the result as in run_source(). */
bool run_code(PyObject* names, const pybind11::object& code);

/** Prints an exception on sys.stderr. @p withTrace false leaves out where it came from. */
void report(pybind11::error_already_set& error, bool withTrace = true);
