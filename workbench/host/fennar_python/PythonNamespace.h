// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/export.h"

#include <QByteArray>

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/** The global names of some Python code: the dictionary of a module. PythonRuntime owns the two there are. */
class FENNAR_PYTHON_EXPORT PythonNamespace
{
public:
    /** @param module  the module's name, as __main__. */
    explicit PythonNamespace(const char* module) : mModule(module) {}
    PythonNamespace(const PythonNamespace&) = delete;
    PythonNamespace& operator=(const PythonNamespace&) = delete;

    /** The dictionary, borrowed; null while Python does not run. */
    struct _object* dictionary() const { return mDictionary; }

private:
    friend class PythonRuntime;

    /** Finds or makes the module. The caller holds Python's lock; throws what pybind11 throws. */
    void open();
    /** Lets go of the dictionary. The caller holds Python's lock. */
    void close();

    QByteArray mModule;
    struct _object* mDictionary = nullptr;
};

} // namespace fennar
