// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonRuntime.h"

#include "workbench/host/fennar_python/PythonEntry.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <csignal>
#include <stdexcept>
#include <string>
#include <utility>

namespace py = pybind11;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fennar {

namespace {

PyStatus initialize(const QString& home)
{
    PyPreConfig early;
    PyPreConfig_InitIsolatedConfig(&early);
    early.configure_locale = 0; // the locale is the application's
    early.utf8_mode = 1;        // file names are UTF-8 in any locale
    PyStatus status = Py_PreInitialize(&early);
    if (PyStatus_Exception(status))
        return status;

    PyConfig config;
    PyConfig_InitIsolatedConfig(&config);
    config.install_signal_handlers = 0;
    const auto clear = qScopeGuard([&config] { PyConfig_Clear(&config); });
    const auto executable = QStringLiteral(FENNAR_PYTHON_EXECUTABLE);
    // Given all, Python does not look along PATH for itself.
    for (const auto& [field, value] : {std::pair(&config.home, home),
                                       {&config.executable, executable},
                                       {&config.program_name, executable}}) {
        status = PyConfig_SetString(&config, field, value.toStdWString().c_str());
        if (PyStatus_Exception(status))
            return status;
    }
    return Py_InitializeFromConfig(&config);
}

/** Python would do this along with its signal handlers; its libraries rely on it. */
void ignore_broken_pipes()
{
    struct sigaction current = {};
    if (sigaction(SIGPIPE, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
        std::signal(SIGPIPE, SIG_IGN);
}

py::ssize_t write(PythonOutput::Stream stream, const py::object& object)
{
    if (!py::isinstance<py::str>(object)) {
        throw py::type_error("write() argument must be str, not " +
                             std::string(Py_TYPE(object.ptr())->tp_name));
    }
    PythonState& state = PythonState::get();
    const QString text = to_qstring(py::reinterpret_borrow<py::str>(object));
    if (text.isEmpty())
        return 0;
    if (state.on_gui_thread()) {
        without_python_lock([&] { state.output.show(stream, text); });
    } else if (state.output.enqueue(stream, text)) {
        without_python_lock([&] {
            const auto hooks = state.output.hooks();
            if (hooks && hooks->wake)
                hooks->wake();
        });
    }
    return PyUnicode_GET_LENGTH(object.ptr());
}

/** Runs support.py, which puts the streams in place. */
void install_support()
{
    py::dict names;
    names["__name__"] = "fennar_support";
    names["executable"] = FENNAR_PYTHON_EXECUTABLE;
    names["write_output"] = py::cpp_function(
        [](const py::object& text) { return write(PythonOutput::Stream::Output, text); }, py::name("write"));
    names["write_error"] = py::cpp_function(
        [](const py::object& text) { return write(PythonOutput::Stream::Error, text); }, py::name("write"));
    names["become_child"] = py::cpp_function([] { PythonState::get().output.become_child(); });
    run_resource(u":/fennar_python/support.py"_s, names);
    if (!PythonState::get().guest)
        names["take_streams"]();
    PythonState::get().support = names.release().ptr();
}

/** The module fennar. In a Python of our own it is made here; otherwise it is a package of files. */
py::module_ fennar_module()
{
    if (PythonState::get().guest)
        return py::module_::import("fennar");
    auto module = py::reinterpret_borrow<py::module_>(PyImport_AddModule("fennar"));
    if (!module)
        throw py::error_already_set();
    module.doc() = "The application that this Python runs in.\n\n"
                   "cmd(text) runs one of its commands; CommandError tells that a command failed.";
    return module;
}

int take_turn(void*)
{
    PythonState& state = PythonState::get();
    if (state.depth > 0 && !state.reporting && state.on_gui_thread()) {
        try {
            without_python_lock([&] {
                const auto hooks = state.output.hooks();
                if (hooks && hooks->turn)
                    hooks->turn();
            });
        } catch (const std::exception& error) {
            PyErr_SetString(PyExc_RuntimeError, error.what());
            return -1;
        } catch (...) {
            PyErr_SetString(PyExc_RuntimeError, "unknown error of the application");
            return -1;
        }
    }
    return 0;
}

/** What an exception that has ended a script tells a program; nothing if Python cannot tell. */
PythonScriptFailure told_failure(const py::error_already_set& error, const py::str& file)
{
    try {
        const py::handle support(PythonState::get().support);
        const py::object trace = error.trace() ? error.trace() : py::none();
        const py::tuple told = support["tell_failure"](error.value(), trace, file);
        const auto text = [&told](std::size_t at) { return to_qstring(py::str(told[at])); };
        return {text(0), text(1), text(2), told[3].cast<qsizetype>(), text(4)};
    } catch (const py::error_already_set&) {
        return {}; // the user has interrupted once more
    }
}

/** Ends Python's other threads as far as they listen within @p grace. Called and left with Python's lock
 * held. */
bool end_other_threads(std::chrono::milliseconds grace)
{
    const auto next_other = [own = PyThreadState_Get()](PyThreadState* thread) {
        return thread == own ? PyThreadState_Next(thread) : thread;
    };
    const auto first = [&] { return next_other(PyInterpreterState_ThreadHead(PyInterpreterState_Get())); };

    for (PyThreadState* thread = first(); thread; thread = next_other(PyThreadState_Next(thread)))
        PyThreadState_SetAsyncExc(thread->thread_id, PyExc_SystemExit);
    const auto end = std::chrono::steady_clock::now() + grace;
    while (first() && std::chrono::steady_clock::now() < end)
        without_python_lock([] { std::this_thread::sleep_for(1ms); });
    return !first();
}

} // namespace

bool PythonRuntime::start(PythonHooks hooks, const QString& home)
{
    PythonState& state = PythonState::get();
    const auto fail = [&hooks](const QString& reason) {
        if (hooks.error_output)
            hooks.error_output(u"Python cannot be started: %1.\n"_s.arg(reason));
        return false;
    };

    state.waiting = nullptr;
    if (state.running)
        return fail(u"it runs already"_s);
    if (state.spent)
        return fail(u"it has been stopped, and a process can start it only once"_s);
    const QString installation = home.isEmpty() ? QStringLiteral(FENNAR_PYTHON_PREFIX) : home;
    const QString library =
        u"%1/lib/python%2.%3"_s.arg(installation).arg(PY_MAJOR_VERSION).arg(PY_MINOR_VERSION);
    state.guest = Py_IsInitialized() != 0;
    if (!state.guest && !QFileInfo::exists(library + u"/os.py"_s))
        return fail(u"its standard library is not in \"%1\""_s.arg(library));

    state.spent = true;
    if (!state.guest) {
        const PyStatus status = initialize(installation);
        if (PyStatus_Exception(status))
            return fail(QString::fromUtf8(status.err_msg ? status.err_msg : "unknown reason"));
        ignore_broken_pipes();
    }

    const PyGILState_STATE lock = PyGILState_Ensure();
    state.guiThread = std::this_thread::get_id();
    state.guiThreadIdent = PyThread_get_thread_ident();
    try {
        install_support();
        framework_namespace().open();
        user_namespace().open();
        const py::module_ fennar = fennar_module();
        fill_fennar_module(fennar.ptr());
        if (hooks.extend)
            hooks.extend(fennar.ptr());
        if (!state.guest)
            py::handle(user_namespace().dictionary())["fennar"] = fennar;
    } catch (const std::exception& error) {
        // What was begun stays as it is, out of reach: taking it down is not safer than leaving it.
        const QString reason = QString::fromUtf8(error.what());
        PyGILState_Release(lock);
        return fail(reason);
    }
    PyGILState_Release(lock);
    const bool ticking = hooks.turn != nullptr && !state.guest;
    state.output.open(std::make_shared<const PythonHooks>(std::move(hooks)));
    if (ticking)
        state.ticker.emplace(&take_turn);
    state.running = true;
    if (!state.guest)
        PyEval_SaveThread();
    return true;
}

void PythonRuntime::start_when_needed(PythonHooks hooks, const QString& home)
{
    PythonState& state = PythonState::get();
    if (state.spent)
        return;
    // Whatever else the process writes to a pipe must not depend on whether Python was needed.
    ignore_broken_pipes();
    state.guiThread = std::this_thread::get_id();
    state.waiting = [hooks = std::move(hooks), home] { start(hooks, home); };
}

bool PythonRuntime::is_ready()
{
    PythonState& state = PythonState::get();
    if (!state.running && state.on_gui_thread()) {
        if (const std::function<void()> start = std::exchange(state.waiting, nullptr))
            start();
    }
    return state.running;
}

void PythonRuntime::stop(std::chrono::milliseconds grace)
{
    PythonState& state = PythonState::get();
    state.waiting = nullptr;
    if (!state.running && !state.stopWhenIdle)
        return;
    const PyGILState_STATE lock = PyGILState_Ensure();
    if (state.depth > 0) {
        state.running = false;
        state.stopWhenIdle = true;
        state.output.close();
        PyThreadState_SetAsyncExc(state.guiThreadIdent, PyExc_SystemExit);
        PyGILState_Release(lock);
        return;
    }
    if (state.guest) {
        state.running = false;
        state.output.close();
        framework_namespace().close();
        user_namespace().close();
        release_fennar_module();
        Py_CLEAR(state.support);
        PyGILState_Release(lock);
        return;
    }
    // From here on the lock is kept for good: either Python ends, or its threads stand still.
    state.running = false;
    state.stopWhenIdle = false;
    without_python_lock([&] { state.ticker.reset(); });

    const bool alone = end_other_threads(grace);
    if (!alone) {
        try {
            py::module_::import("atexit").attr("_run_exitfuncs")();
        } catch (py::error_already_set& error) {
            report(error);
        }
    }
    without_python_lock([&] { state.output.deliver(); });
    framework_namespace().close();
    user_namespace().close();
    if (alone) {
        release_fennar_module();
        Py_CLEAR(state.support);
        Py_FinalizeEx();
    }
    state.output.deliver();
    state.output.close();
}

bool PythonRuntime::running()
{
    return PythonState::get().running;
}

bool PythonRuntime::in_application()
{
    return !PythonState::get().output.is_child();
}

void PythonRuntime::require_gui_thread(const char* function)
{
    if (!PythonState::get().on_gui_thread()) {
        throw std::runtime_error(std::string(function) +
                                 " can only be called in the main thread of the application");
    }
    if (!in_application()) {
        throw std::runtime_error(std::string(function) +
                                 " cannot be called in another process than the application's");
    }
}

void PythonRuntime::deliver_output()
{
    PythonState::get().output.deliver();
}

bool PythonRuntime::request_interrupt()
{
    PythonState& state = PythonState::get();
    if (!state.running)
        return false;
    const PyGILState_STATE lock = PyGILState_Ensure();
    // A guest's host has told Python itself.
    const bool busy = state.depth > 0 && !state.reporting && !state.guest;
    if (busy)
        PyThreadState_SetAsyncExc(state.guiThreadIdent, PyExc_KeyboardInterrupt);
    PyGILState_Release(lock);
    return busy;
}

bool PythonRuntime::run_file(const QString& path, const QString& source, bool piece,
                             PythonScriptFailure* failure)
{
    if (!is_ready())
        return false;
    const PythonEntry entry;
    try {
        const py::str file = to_python(path);
        py::str text = to_python(source.startsWith(QChar::ByteOrderMark) ? source.mid(1) : source);
        py::handle support(PythonState::get().support);
        if (piece)
            text = support["without_indentation"](file, text);
        support["remember_source"](file, text);
        py::dict names = py::reinterpret_borrow<py::dict>(user_namespace().dictionary());
        const py::object before = names.attr("get")("__file__"); // that of the program, for a guest
        names["__file__"] = file;
        const bool done = run_source(names.ptr(), text, file, [&](const py::error_already_set& error) {
            if (failure)
                *failure = told_failure(error, file);
        });
        names.attr("pop")("__file__", py::none());
        if (!before.is_none())
            names["__file__"] = before;
        return done;
    } catch (py::error_already_set& error) {
        report(error);
        return false;
    }
}

int PythonRuntime::line_reached(const QString& path)
{
    if (path.isEmpty() || !running())
        return 0;
    const PyGILState_STATE lock = PyGILState_Ensure();
    int line = 0;
    {
        const py::str wanted = to_python(path);
        auto frame = py::reinterpret_steal<py::object>(
            reinterpret_cast<PyObject*>(PyThreadState_GetFrame(PyThreadState_Get())));
        while (frame) {
            auto* const here = reinterpret_cast<PyFrameObject*>(frame.ptr());
            const auto code =
                py::reinterpret_steal<py::object>(reinterpret_cast<PyObject*>(PyFrame_GetCode(here)));
            if (py::object(code.attr("co_filename")).equal(wanted))
                line = PyFrame_GetLineNumber(here);
            frame = py::reinterpret_steal<py::object>(reinterpret_cast<PyObject*>(PyFrame_GetBack(here)));
        }
    }
    PyGILState_Release(lock);
    return line;
}

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

PythonNamespace& PythonRuntime::framework_namespace()
{
    static PythonNamespace names("__framework__");
    return names;
}

PythonNamespace& PythonRuntime::user_namespace()
{
    static PythonNamespace names("__main__");
    return names;
}

} // namespace fennar
