// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <pybind11/pybind11.h>

namespace fennar {

// All of these are called with Python's lock held.

/** The text of a Python string. A lone surrogate, which no Qt text may hold, becomes U+FFFD. */
QString to_qstring(const pybind11::str& text);

/** The Python string of @p text. */
pybind11::str to_python(const QString& text);

/** A Python source among the resources of a library. Throws std::runtime_error without it. */
pybind11::str resource_text(const QString& path);

/** Runs such a source in @p names, as "<fennar>", which tracebacks leave out; throws what pybind11 throws. */
void run_resource(const QString& path, pybind11::dict& names);

/**
 * Calls @p function without Python's lock. Takes it again in plain sight instead of in a destructor: a thread
 * that Python ends at this point is unwound, which a destructor would turn into the end of the process.
 */
template <typename Function>
void without_python_lock(Function&& function)
{
    PyThreadState* const thread = PyEval_SaveThread();
    try {
        function();
    } catch (...) {
        PyEval_RestoreThread(thread);
        throw;
    }
    PyEval_RestoreThread(thread);
}

} // namespace fennar
