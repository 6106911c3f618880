// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonNamespace.h"

#include <pybind11/pybind11.h>

namespace py = pybind11;

namespace fennar {

void PythonNamespace::open()
{
    const auto module =
        py::reinterpret_borrow<py::object>(PyImport_AddModuleObject(py::str(mModule.toStdString()).ptr()));
    if (!module)
        throw py::error_already_set();
    py::object names = module.attr("__dict__");
    names["__builtins__"] = py::module_::import("builtins");
    mDictionary = names.release().ptr();
}

void PythonNamespace::close()
{
    Py_CLEAR(mDictionary);
}

} // namespace fennar
