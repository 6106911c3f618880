// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of the workbench that deals with Python, its own and that of another process.

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Framework.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/LineInterpreter.h"
#include "workbench/application/python/draw_picture.h"
#include "workbench/application/python/python_actions.h"
#include "workbench/application/windows/undo_parts.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/fennar_python/commands/python_commands.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QScopedValueRollback>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/**
 * "python STATEMENT...": the words, joined with blanks, are one Python source.
 *
 * @param errors  what Python has told of errors since it began.
 */
void run_python_command(CommandCall& call, const CommandArguments& arguments, const QString& errors)
{
    const QByteArray source = arguments.texts("STATEMENT"_L1).join(u' ').toUtf8();
    FennarPythonInterpreter* python = Framework::user_python_interpreter();
    if (!python || !python->IsInitialized())
        throw call.error(0, u"Python is not available"_s);
    if (python->Run_SimpleString(source.constData()) == 0)
        return;
    // The last line of a traceback is the exception.
    const QString reason = errors.trimmed().section(u'\n', -1);
    throw call.error(1, u"the Python statement failed"_s + (reason.isEmpty() ? reason : u": "_s + reason));
}

/** The command "python", which runs a statement as the user's own. While it runs @p errors is where to put
 * what Python tells of errors. */
void register_python_command(CommandRegistry& registry, QString*& errors)
{
    registry.add(
        {.name = u"python"_s,
         .summary = u"Runs a Python statement."_s,
         .help = u"The words are joined with blanks. Quote the statement if it has quotes of its own, as\n"
                 "    python 'print(\"done\")'"_s,
         .owner = u"workbench"_s,
         .perform =
             [&errors](CommandCall& call, const CommandArguments& arguments) {
                 QString told;
                 const QScopedValueRollback rollback(errors, &told);
                 run_python_command(call, arguments, told);
             },
         .forms = {{.clauses = {required_value({.name = u"STATEMENT"_s,
                                                .kind = CommandParameter::Kind::Text,
                                                .what = u"a Python statement"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Statement"),
                                                .repeated = true,
                                                .example = u"print('done')"_s})}}},
         .runs_commands = true,
         .long_running = true});
}

} // namespace

void Workbench::set_up_python()
{
    register_python_command(Fennar::instance().registry(), mPythonErrors);
    PythonHooks hooks;
    hooks.output = [](const QString& text) { Broker::command << text; };
    hooks.error_output = [this](const QString& text) {
        if (mPythonErrors)
            *mPythonErrors += text;
        report_error(text);
    };
    hooks.end_call = [this] {
        if (mProcess.end_call)
            mProcess.end_call();
    };
    hooks.run_command = [this](const QString& text) { return run_for_python(text); };
    hooks.extend = [this, end_call = hooks.end_call](struct _object* module) {
        add_python_actions(module);
        add_python_commands(
            module, {.registry = &Fennar::instance().registry(),
                     .call = [this](const QString& line, bool quiet) { return call_for_python(line, quiet); },
                     .end_call = end_call,
                     .picture = &draw_picture,
                     .check_caller = &PythonRuntime::require_gui_thread});
    };
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

std::optional<PythonCommandFailure> Workbench::run_for_python(const QString& text)
{
    CommandInterpreter& interpreter = Fennar::instance().interpreter();
    begin_call(text);
    if (interpreter.run(text) == CommandInterpreter::Result::Done) {
        end_call(text);
        return std::nullopt;
    }
    end_caller();
    const CommandFailure& failure = interpreter.last_failure();
    return PythonCommandFailure{failure.message, failure.command, failure.column, failure.remedy};
}

CommandInterpreter::Outcome Workbench::call_for_python(const QString& line, bool quiet)
{
    // Code that outlives its Python for a moment finds no application any more.
    if (!PythonRuntime::running())
        throw std::runtime_error("Python ends");
    begin_call(line);
    const QScopedValueRollback rollback(mQuiet, quiet && mProcess.output);
    CommandInterpreter::Outcome outcome = Fennar::instance().interpreter().call(line);
    if (outcome.failure)
        end_caller();
    else
        end_call(line);
    return outcome;
}

void Workbench::end_caller()
{
    if (!interrupt_requested())
        return;
    mInterruptsPassedOn = interrupt_requests();
    PythonRuntime::request_interrupt();
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
