// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <pybind11/pybind11.h>

namespace fennar {

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
