// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The host's declaration carries no mark for export, so it gets its visibility here.
#include <memory>
#pragma GCC visibility push(default)
#include "host/fennar_python/FennarPythonInterpreter.h"
#pragma GCC visibility pop

#include "workbench/host/fennar_python/PythonEntry.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <cstring>
#include <utility>

namespace py = pybind11;

using namespace fennar;

struct FennarPythonInterpreter::Private
{
    PythonNamespace& names;
};

FennarPythonInterpreter::FennarPythonInterpreter(std::unique_ptr<Private> implementation)
    : mPrivate(std::move(implementation))
{}

FennarPythonInterpreter::~FennarPythonInterpreter() = default;

bool FennarPythonInterpreter::IsInitialized()
{
    return PythonRuntime::is_ready();
}

int FennarPythonInterpreter::Run_SimpleString(const char* command)
{
    if (!PythonRuntime::is_ready())
        return -1;
    const PythonEntry entry;
    try {
        const char* const source = command ? command : "";
        PyObject* const text =
            PyUnicode_DecodeUTF8(source, static_cast<Py_ssize_t>(std::strlen(source)), nullptr);
        if (!text)
            throw py::error_already_set();
        const bool done = run_source(mPrivate->names.dictionary(), py::reinterpret_steal<py::str>(text),
                                     py::str("<string>"));
        return done ? 0 : -1;
    } catch (py::error_already_set& error) {
        report(error);
        return -1;
    }
}

int FennarPythonInterpreter::version_major()
{
    return static_cast<int>(Py_Version >> 24);
}

int FennarPythonInterpreter::version_minor()
{
    return static_cast<int>(Py_Version >> 16 & 0xff);
}

int FennarPythonInterpreter::version_micro()
{
    return static_cast<int>(Py_Version >> 8 & 0xff);
}

std::unique_ptr<FennarPythonInterpreter> fennar::make_python_interpreter(PythonNamespace& names)
{
    return std::make_unique<FennarPythonInterpreter>(
        std::make_unique<FennarPythonInterpreter::Private>(FennarPythonInterpreter::Private{names}));
}
