// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/export.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class FennarPythonInterpreter;
struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/** Why a command has failed: what fennar.CommandError tells. */
struct PythonCommandFailure
{
    /** One line; empty if there is nothing to tell. */
    QString message = {};
    /** The command's name; empty if there is none. */
    QString command = {};
    /** The character of the line that is at fault, from 1; 0 for none. */
    qsizetype column = 0;
    /** What to do about it; may be empty. */
    QString remedy = {};
};

/** Why a script has ended, for a caller that is a program. */
struct PythonScriptFailure
{
    /** One line: that of the command for fennar.CommandError, otherwise as the last one of the traceback. */
    QString message = {};
    /** The command of a fennar.CommandError; empty if it has none, and for other exceptions. */
    QString command = {};
    /** As PythonCommandFailure has it. */
    QString remedy = {};
    /** The line of the script; within a function of a module, the one that has called it. 0 if there is none.
     */
    qsizetype line = 0;
    /** What stands in that line. */
    QString text = {};
};

/** What Python needs of the application. Each may be null; its texts are then dropped, its answer is no. */
struct PythonHooks
{
    /** Shows what Python code wrote to sys.stdout. Called on the GUI thread. */
    std::function<void(const QString& text)> output;
    /** Shows what Python code wrote to sys.stderr, tracebacks among it. Called on the GUI thread. */
    std::function<void(const QString& text)> error_output;
    /** Runs a command line for fennar.cmd() and tells why it failed, if it did. Called on the GUI thread. */
    std::function<std::optional<PythonCommandFailure>(const QString& text)> run_command;
    /**
     * Another thread has written text that waits for PythonRuntime::deliver_output(). Called on that thread,
     * once until the text has been fetched; it must only pass the word on, as by posting an event.
     */
    std::function<void()> wake;
    /**
     * Called on the GUI thread about ten times a second while Python code runs there, between two of its
     * instructions, so that the application can show progress and see to cancelling.
     */
    std::function<void()> turn;
    /**
     * Called with Python's lock held behind each command line that Python code has run. What it throws,
     * Python code sees in the place of how the command has ended. For guests of a Python, see start().
     */
    std::function<void()> end_call = {};
    /**
     * Adds what the application offers to the module fennar. Called once, by PythonRuntime::start() with
     * Python's lock held; an exception makes that fail.
     */
    std::function<void(struct _object* module)> extend;
};

/** The global names of some Python code: the dictionary of a module. PythonRuntime owns the two there are. */
class FENNAR_PYTHON_EXPORT PythonNamespace
{
public:
    /** @param module  the module's name, as __main__. */
    explicit PythonNamespace(const char* module) : mModule(module) {}
    PythonNamespace(const PythonNamespace&) = delete;
    PythonNamespace& operator=(const PythonNamespace&) = delete;

    /** The dictionary, borrowed; null while Python does not run. */
    struct _object* dictionary() const { return mDictionary; }

private:
    friend class PythonRuntime;

    /** Finds or makes the module. The caller holds Python's lock; throws what pybind11 throws. */
    void open();
    /** Lets go of the dictionary. The caller holds Python's lock. */
    void close();

    QByteArray mModule;
    struct _object* mDictionary = nullptr;
};

/**
 * The one Python of the process. It is started once and may be stopped once.
 *
 * The thread that calls start() is the GUI thread; all other functions are for it too, but those that say
 * something else. Between the calls Python's lock is free, so that Python's own threads go on.
 * The hooks but extend are called without that lock and may call back.
 *
 * A process that Python code forks off has no application: its output goes to the standard streams, it calls
 * no hook, and where the code would return to the caller it ends.
 */
class FENNAR_PYTHON_EXPORT PythonRuntime
{
public:
    /**
     * Starts Python. It takes nothing from the environment: neither variables nor PATH nor the user's own
     * packages, and leaves the locale and the signal handlers as they are. A broken pipe no longer ends the
     * process, unless the application handles that signal itself.
     *
     * Where Python runs already, since the process is its own, it is taken as it is: streams, signals and the
     * name space __main__ stay what they are, there are no turns, and stop() does not end it. A module fennar
     * must be there to be imported; the calling thread becomes the GUI thread.
     *
     * @param hooks  kept until stop().
     * @param home   the folder that holds Python's lib; empty for the installation that it was built with.
     * @return false if it cannot be started, or was before; the reason goes to the hook for errors.
     */
    static bool start(PythonHooks hooks, const QString& home = QString());

    /**
     * As start(), but puts the work, and the report of a failure, off until Python is first needed: by
     * is_ready(), a console, an interpreter or run_file(). To be called on the GUI thread, on which alone
     * Python then starts. A broken pipe no longer ends the process from now on. If Python was started before,
     * nothing happens.
     */
    static void start_when_needed(PythonHooks hooks, const QString& home = QString());

    /**
     * Starts Python now if start_when_needed() was called and it has not been started since. Another thread
     * than the GUI thread does not start it.
     *
     * @return running().
     */
    static bool is_ready();

    /**
     * Stops Python. Its threads are asked to end by a SystemExit; one that has not ended within @p grace is
     * left standing still. Functions registered with atexit run. What was written before arrives first.
     * Called from Python code, through a hook, it lets go of the hooks at once, ends that code by a
     * SystemExit, and finishes when the code has returned. Without a start it
     * only sees to it that none is made when Python is needed.
     */
    static void stop(std::chrono::milliseconds grace = std::chrono::seconds(1));

    /** Whether Python runs. May be called on any thread. */
    static bool running();

    /** False in a process that Python code has forked off. May be called on any thread. */
    static bool in_application();

    /**
     * For functions that Python code calls: throws std::runtime_error, which Python sees as RuntimeError, on
     * any thread but the GUI thread, and in a process forked off.
     *
     * @param function  what the message says cannot be called.
     */
    static void require_gui_thread(const char* function);

    /** Shows the text that other threads have written. Without any it does nothing. */
    static void deliver_output();

    /**
     * Raises KeyboardInterrupt in the Python code that the GUI thread is running. May be called on any thread
     * and from the hooks.
     *
     * @return false if none is running, or what it raised is being shown; a later run is then not affected.
     */
    static bool request_interrupt();

    /**
     * Runs a script in the user's name space.
     *
     * @param path    its file name, for tracebacks and __file__; the file is not read.
     * @param source  its text.
     * @param piece   whether it is a piece of a script: its lines may then all be indented.
     * @param failure  is told of an exception that has ended it; may be null.
     * @return false if an exception was raised, SystemExit included; it has then been reported.
     */
    static bool run_file(const QString& path, const QString& source, bool piece = false,
                         PythonScriptFailure* failure = nullptr);

    /**
     * The line of the script @p path that run_file() has reached, for the hook for turns; within a function,
     * the line that has called it.
     *
     * @return 0 if none of that path runs.
     */
    static int line_reached(const QString& path);

    /** Where the application's own Python code runs. Empty while Python does not run. */
    static PythonNamespace& framework_namespace();
    /** Where the user's Python code runs: the module __main__, which has fennar imported. */
    static PythonNamespace& user_namespace();
};

/** An interpreter object that runs its source in @p names, which must outlive it. */
FENNAR_PYTHON_EXPORT std::unique_ptr<FennarPythonInterpreter> make_python_interpreter(PythonNamespace& names);

} // namespace fennar
