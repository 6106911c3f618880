// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/python_tools.h"

#include <functional>

namespace fennar {

// All functions here are called with Python's lock held, on the GUI thread where they run code.

/** Takes an exception before it is reported. */
using TakeException = std::function<void(const pybind11::error_already_set& error)>;

/**
 * Compiles @p source as a module with the name @p file and runs it in @p names.
 *
 * @param raised  is called for an exception; may be null.
 * @return false if an exception was raised; it has then been reported.
 */
bool run_source(PyObject* names, const pybind11::str& source, const pybind11::str& file,
                const TakeException& raised = nullptr);

/** Runs compiled code in @p names; the rest as in run_source(). */
bool run_code(PyObject* names, const pybind11::object& code, const TakeException& raised = nullptr);

/** Prints an exception on sys.stderr. @p withTrace false leaves out where it came from. */
void report(pybind11::error_already_set& error, bool withTrace = true);

} // namespace fennar
