// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of the workbench that deals with Python, its own and that of another process.

#include "host/ostrelfw/Broker.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/line_interpreters.h"
#include "workbench/application/python/commands_for_python.h"
#include "workbench/application/windows/undo_parts.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/fennar_python/make_python_interpreter.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QScopedValueRollback>

namespace fennar {

void Workbench::set_up_python()
{
    PythonHooks hooks;
    hooks.output = [](const QString& text) { Broker::command << text; };
    hooks.error_output = [this](const QString& text) { report_error(text); };
    hooks.end_call = [this] {
        if (mProcess.end_call)
            mProcess.end_call();
    };
    const CommandsForPython commands{
        [this] {
            if (interrupt_requested()) {
                mInterruptsPassedOn = interrupt_requests();
                PythonRuntime::request_interrupt();
            }
        },
        [this](const QString& line, bool quiet) { return call_for_python(line, quiet); }, hooks.end_call};
    hooks.run_command = [this, commands](const QString& text) {
        begin_call(text);
        const auto failure = commands.run(text);
        if (!failure)
            end_call(text);
        return failure;
    };
    hooks.extend = [commands](struct _object* module) { commands.extend(module); };
    hooks.wake = [this] { announce_output(); };
    hooks.turn = [this] {
        give_turn();
        Playback& playback = Fennar::instance().playback();
        playback.script_reached(PythonRuntime::line_reached(playback.script_in_play()));
        pass_interrupt_on();
    };
    PythonRuntime::start_when_needed(hooks);
    set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()),
                               make_python_interpreter(PythonRuntime::user_namespace()));
    mCommands = make_command_lines();
    mPython = make_python_lines();
}

CommandInterpreter::Outcome Workbench::call_for_python(const QString& line, bool quiet)
{
    begin_call(line);
    const QScopedValueRollback rollback(mQuiet, quiet && mProcess.output);
    CommandInterpreter::Outcome outcome = Fennar::instance().interpreter().call(line);
    if (!outcome.failure)
        end_call(line);
    return outcome;
}

void Workbench::begin_call(QString text)
{
    if (mProcess.output)
        return;
    if (text.endsWith(u'\n'))
        text.chop(1);
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines)
        echo(line, true);
}

void Workbench::end_call(const QString& text)
{
    // What runs within another command runs again with that one.
    if (mProcess.output && !Fennar::instance().interpreter().is_running())
        mCalled << text;
}

void Workbench::begin_in(const Process& process)
{
    mProcess = process;
    BuiltinServices& services = Fennar::instance().services();
    services.history = [this] { return mCalled; };
    services.quit = nullptr; // the process is not the workbench's to end
    begin_without_window(process.output);
}

void Workbench::end_in()
{
    end_without_window();
    mProcess = {};
}

void Workbench::begin_without_window(const std::function<void(const QString&)>& output)
{
    OutputRouter::instance().set_fallback(output);
    // A Python that is there already finds its modules where it is told to by whoever has started it.
    if (!mProcess.output)
        tell_of_start();
    // A script must not change what the user finds at the next start.
    mComponents->set_remembering(false);
    read_undo_limit(Fennar::instance().registry().steps());
    if (mWithComponents)
        mComponents->load_all();
}

void Workbench::end_without_window()
{
    mComponents->unload_all();
    PythonRuntime::deliver_output();
    OutputRouter::instance().set_fallback(nullptr);
}

} // namespace fennar
