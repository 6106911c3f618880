// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonEntry.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <optional>

namespace py = pybind11;
using namespace Qt::StringLiterals;

namespace fennar {

namespace {

PyObject* command_error = nullptr;

void cmd(const py::str& text)
{
    PythonRuntime::require_gui_thread("fennar.cmd()");
    // A command with a character replaced would be another command: this raises UnicodeEncodeError instead.
    if (!PyUnicode_AsUTF8(text.ptr()))
        throw py::error_already_set();
    const QString line = to_qstring(text);
    std::optional<PythonCommandFailure> failure = PythonCommandFailure();
    const auto hooks = PythonState::get().output.hooks();
    without_python_lock([&] {
        if (hooks && hooks->run_command)
            failure = hooks->run_command(line);
    });
    if (hooks && hooks->end_call)
        hooks->end_call();
    if (!failure)
        return;
    const py::str message = failure->message.isEmpty() ? py::str("command failed: {}").format(text)
                                                       : py::object(to_python(failure->message));
    const py::object error = py::handle(command_error)(message, to_python(failure->command), failure->column,
                                                       to_python(failure->remedy));
    PyErr_SetObject(command_error, error.ptr());
    throw py::error_already_set();
}

} // namespace

void fill_fennar_module(PyObject* fennar)
{
    auto module = py::reinterpret_borrow<py::module_>(fennar);
    py::options options;
    options.disable_function_signatures();
    module.attr("__version__") = OSTREL_VERSION;
    py::dict names;
    names["__name__"] = "fennar";
    run_resource(u":/fennar_python/command_error.py"_s, names);
    command_error = py::object(names["CommandError"]).release().ptr();
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

} // namespace fennar
