// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/engine_module/Engine.h"

#include "workbench/application/Workbench.h"
#include "workbench/application/component_manager/component_settings.h"
#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>

#include <clocale>
#include <stdexcept>
#include <string>

namespace py = pybind11;
using namespace Qt::StringLiterals;

namespace fennar {

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

} // namespace

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

} // namespace fennar
