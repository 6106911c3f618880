// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The module fennar._engine: starts the workbench for the package fennar, and ends it with Python.

#include "workbench/application/engine_module/Engine.h"

#include <QString>

#include <memory>
#include <string>
#include <unistd.h>

namespace py = pybind11;

using namespace fennar;

namespace {

/** The engine of this process; null until start() and after stop(). Not destroyed with the static objects:
 * Python is gone then. */
Engine* engine = nullptr;
/** Another process, forked off, has a copy that it must leave alone. */
pid_t process = 0;

void stop()
{
    if (getpid() != process)
        return;
    delete engine;
    engine = nullptr;
}

void start(const std::string& program)
{
    if (engine)
        return;
    if (process != 0)
        throw std::runtime_error("the engine of fennar has ended, or could not be started");
    process = getpid();
    py::module_::import("atexit").attr("register")(py::cpp_function(&stop));
    engine = std::make_unique<Engine>(QString::fromStdString(program)).release();
}

} // namespace

PYBIND11_MODULE(_engine, module)
{
    module.doc() = "The native part of the package fennar, for that alone.";
    module.attr("version") = OSTREL_VERSION;
    module.def("start", &start, py::arg("program"));
    module.def("has_started", [] { return engine != nullptr; });
}
