// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/fennar_module.h"

#include "workbench/host/fennar_python/PythonEntry.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/fennar_python/run_python.h"

#include <pybind11/embed.h>

namespace py = pybind11;

namespace {

PyObject* command_error = nullptr;

void cmd(const py::str& text)
{
    PythonRuntime::require_gui_thread("fennar.cmd()");
    // A command with a character replaced would be another command: this raises UnicodeEncodeError instead.
    if (!PyUnicode_AsUTF8(text.ptr()))
        throw py::error_already_set();
    const QString line = to_qstring(text);
    bool done = false;
    without_python_lock([&] {
        const auto hooks = PythonState::get().output.hooks();
        done = hooks && hooks->run_command && hooks->run_command(line);
    });
    if (!done) {
        PyErr_SetObject(command_error, py::str("command failed: {}").format(text).ptr());
        throw py::error_already_set();
    }
}

} // namespace

PYBIND11_EMBEDDED_MODULE(fennar, module)
{
    py::options options;
    options.disable_function_signatures();
    module.doc() = "The application that this Python runs in.\n\n"
                   "cmd(text) runs one of its commands; CommandError tells that a command failed.";
    command_error = PyErr_NewExceptionWithDoc(
        "fennar.CommandError", "A command of the application failed; its messages are on the console.",
        nullptr, nullptr);
    if (!command_error)
        throw py::error_already_set();
    module.attr("CommandError") = py::handle(command_error);
    module.def("cmd", &cmd, py::arg("text"),
               "cmd(text)\n\n"
               "Runs a command line as though it had been typed, and returns when it is done.\n"
               "Raises CommandError if the command fails, and RuntimeError in any thread but the main one.");
}

void release_fennar_module()
{
    Py_CLEAR(command_error);
}
