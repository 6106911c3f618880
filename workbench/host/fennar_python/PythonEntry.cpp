// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonEntry.h"

#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QScopedValueRollback>

#include <unistd.h>

namespace py = pybind11;
using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** The last resort where Python itself cannot show an exception. */
void report_unshown(const py::error_already_set& error)
{
    const auto* const type = reinterpret_cast<const PyTypeObject*>(error.type().ptr());
    const QString text =
        u"An exception of type %1 cannot be shown.\n"_s.arg(QString::fromUtf8(type->tp_name));
    without_python_lock([&] { PythonState::get().output.show(PythonOutput::Stream::Error, text); });
}

} // namespace

PythonState& PythonState::get()
{
    // Never destroyed: a thread of Python's may still write while the process ends.
    static PythonState* const state = new PythonState;
    return *state;
}

PythonEntry::PythonEntry() : mLock(PyGILState_Ensure())
{
    PythonState& state = PythonState::get();
    if (state.depth++ == 0 && state.ticker)
        state.ticker->set_active(true);
}

PythonEntry::~PythonEntry()
{
    PythonState& state = PythonState::get();
    // The application behind the call is the parent's: going on would be a second one on the same window.
    if (state.output.is_child())
        _exit(state.childFailed ? 1 : 0);
    const bool last = --state.depth == 0;
    if (last) {
        if (state.ticker)
            state.ticker->set_active(false);
        // An interrupt that came too late must not hit the next run.
        PyThreadState_SetAsyncExc(state.guiThreadIdent, nullptr);
    } else if (state.stopWhenIdle) {
        PyThreadState_SetAsyncExc(state.guiThreadIdent, PyExc_SystemExit); // the code around has to end too
    }
    PyGILState_Release(mLock);
    if (last && state.stopWhenIdle)
        PythonRuntime::stop();
}

bool run_source(PyObject* names, const py::str& source, const py::str& file, const TakeException& raised)
{
    py::object code;
    try {
        code = py::module_::import("builtins").attr("compile")(source, file, "exec", 0, true);
    } catch (py::error_already_set& error) {
        if (raised)
            raised(error);
        report(error, false);
        return false;
    }
    return run_code(names, code, raised);
}

bool run_code(PyObject* names, const py::object& code, const TakeException& raised)
{
    try {
        const auto result = py::reinterpret_steal<py::object>(PyEval_EvalCode(code.ptr(), names, names));
        if (!result)
            throw py::error_already_set();
        return true;
    } catch (py::error_already_set& error) {
        if (raised)
            raised(error);
        // Whoever has called the guest is to stop, too.
        if (PythonState::get().guest && error.matches(PyExc_KeyboardInterrupt))
            PyErr_SetInterrupt();
        else
            report(error);
        return false;
    }
}

void report(py::error_already_set& error, bool withTrace)
{
    PythonState& state = PythonState::get();
    state.childFailed = state.output.is_child();
    const QScopedValueRollback rollback(state.reporting);
    try {
        // A hook of the user is code as any other. Our own is short, and an interrupt would cost the message.
        const py::module_ sys = py::module_::import("sys");
        state.reporting = sys.attr("excepthook").is(sys.attr("__excepthook__"));
        if (state.reporting)
            PyThreadState_SetAsyncExc(state.guiThreadIdent, nullptr);
        const py::object trace = withTrace && error.trace() ? error.trace() : py::none();
        py::handle(state.support)["report"](error.value(), trace);
    } catch (const py::error_already_set&) {
        report_unshown(error);
    }
}

} // namespace fennar
