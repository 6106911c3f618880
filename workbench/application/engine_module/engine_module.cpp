// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The module fennar._engine: starts the workbench for the package fennar, and ends it with Python.

#include "workbench/application/Workbench.h"
#include "workbench/application/component_manager/component_settings.h"
#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <pybind11/pybind11.h>

#include <clocale>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace py = pybind11;

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** While it lives, the thread holds Python's lock. Not pybind11's own class, which keeps a count of its own.
 */
class PythonLock
{
public:
    PythonLock() : mState(PyGILState_Ensure()) {}
    ~PythonLock() { PyGILState_Release(mState); }
    PythonLock(const PythonLock&) = delete;
    PythonLock& operator=(const PythonLock&) = delete;

private:
    PyGILState_STATE mState;
};

/**
 * The workbench in a process of Python's: without a window, with Python's streams and signals, behind the
 * module fennar.
 *
 * Made and used on Python's main thread, with Python's lock held. It is made once in a process.
 */
class Engine
{
public:
    /**
     * Starts the workbench and gives the module fennar its functions. An application object that is there is
     * used as it is, otherwise one is made.
     *
     * @param program  the folder of the program, with its components.
     * Throws std::runtime_error if that fails.
     */
    explicit Engine(const QString& program);
    /** Unloads all. */
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

private:
    void make_application();
    /** Writes to a stream of Python's. Called without its lock. */
    void write(const char* stream, const QString& text);
    /** Lets Python see to its signals. Called without its lock. */
    void take_signals();
    /** Throws what Python's handlers of signals, or its streams, have raised meanwhile. */
    void end_call();
    /** Keeps the exception that is set for end_call(), and has the command end. */
    void keep_exception();

    std::unique_ptr<QCoreApplication> mApplication;
    std::unique_ptr<Workbench> mWorkbench;
    std::optional<pybind11::error_already_set> mRaised;
};

Engine::Engine(const QString& program)
{
    if (!QCoreApplication::instance())
        make_application();
    set_program_directory(program);
    TemporaryFolder::remove_on_signals();
    // The folder of the program, whatever the application that is there is called.
    const QString data =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/ostrel/fennar"_s;
    mWorkbench = std::make_unique<Workbench>(data);
    mWorkbench->begin_in({[this](const QString& text) { write("stdout", text); },
                          [this](const QString& text) { write("stderr", text); }, [this] { take_signals(); },
                          [this] { end_call(); }});
    if (!PythonRuntime::is_ready())
        throw std::runtime_error("the engine of fennar could not be started");
}

Engine::~Engine()
{
    mWorkbench->end_in();
    mWorkbench.reset();
    mApplication.reset();
}

void Engine::make_application()
{
    static int count = 1;
    static char name[] = "fennar";
    static char* words[] = {name, nullptr};
    // The application object takes the user's language over for all of the C library; this process is
    // Python's.
    const char* const now = std::setlocale(LC_ALL, nullptr);
    const std::string locale = now ? now : "C";
    QCoreApplication::setOrganizationName(u"ostrel"_s);
    QCoreApplication::setApplicationName(u"fennar"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(OSTREL_VERSION));
    mApplication = std::make_unique<QCoreApplication>(count, words);
    std::setlocale(LC_ALL, locale.c_str());
    QSettings::setDefaultFormat(settings_format());
}

void Engine::write(const char* stream, const QString& text)
{
    const PythonLock lock;
    try {
        const py::object file = py::module_::import("sys").attr(stream);
        if (!file.is_none())
            file.attr("write")(text.toStdString());
    } catch (py::error_already_set& error) {
        error.restore();
        keep_exception();
    }
}

void Engine::take_signals()
{
    const PythonLock lock;
    if (PyErr_CheckSignals() != 0)
        keep_exception();
}

void Engine::keep_exception()
{
    // The first one tells most.
    if (mRaised)
        PyErr_Clear();
    else
        mRaised.emplace();
    request_interrupt();
}

void Engine::end_call()
{
    if (PyErr_CheckSignals() != 0)
        throw py::error_already_set();
    if (mRaised) {
        py::error_already_set raised = std::move(*mRaised);
        mRaised.reset();
        throw raised;
    }
}

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
