// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/MainFrame.h"
#include "workbench/application/ProgramStart.h"
#include "workbench/application/playback/CloseGuard.h"
#include "workbench/application/playback/batch_job.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class OutputHandler;

namespace fennar {

class ColorScheme;
class ComponentManager;
class ConsoleOwner;
class JournalPlayer;
class LineInterpreter;
class RunRecord;
class WindowCommands;
class WindowParts;
struct PythonCommandFailure;

/**
 * The reference application: joins the shell, the command interpreter, Python and the console owner.
 *
 * It shows how a host drives the shell, call by call. One object at a time; it needs an application object
 * and is used on its thread.
 */
class Workbench
{
public:
    /**
     * Makes the interpreters ready. There is no window yet.
     *
     * @param data_directory  where the commands entered, and notes on components that are being loaded, are
     * kept for the next run. It is made when it is needed.
     */
    explicit Workbench(const QString& data_directory = default_data_directory());
    ~Workbench();

    /** Where the platform has the user's data of this program. */
    static QString default_data_directory();

    /**
     * Adds to the errors that the user is told of when the program starts, on the console or, in a batch run,
     * on standard error. An empty text adds nothing. To be called before load() and play_batch().
     *
     * @param error  whole lines.
     */
    void add_start_error(const QString& error);

    /** Makes the workbench load no components. To be called before load() and play_batch(). */
    void leave_components_out() { mWithComponents = false; }

    /**
     * Brings the main window up, with a splash screen meanwhile. Python and the components follow, one by
     * one, once the event loop runs and the window has been painted.
     *
     * @return false if there is no QApplication: the workbench then can only play_batch().
     */
    bool load();
    /** Runs the event loop until the user closes the window or enters "quit". */
    void run();
    /** Unloads the components and takes the main window down. */
    void unload();

    /**
     * Opens a model and plays a journal as though "open" and "play" had been typed, once the components are
     * loaded: "open" is the command of one.
     *
     * @param model    the path of its file; empty for none. If it cannot be opened, nothing is played.
     * @param journal  the path of its file; empty for none.
     * @param parameters  values for parameters that it declares.
     */
    void start_later(const QString& model, const QString& journal,
                     const QList<JournalSetting>& parameters = {});

    /**
     * Loads the components and plays a journal, without a window. Output goes to standard output, errors to
     * standard error.
     *
     * @return the program's exit status: 0; 1 if the model could not be opened, the journal failed, or its
     * output or the record could not be written; 2 if the values for its parameters were refused.
     */
    int play_batch(const BatchJob& job);

    /**
     * Loads the components and looks for errors in @p journal, a file, without a window and without running
     * it.
     *
     * @return the program's exit status: 0, or 1 if there are errors or it could not be read.
     */
    int check_batch(const QString& journal);

    /** What takes the place of standard streams and signals in a process that is not the program's own. */
    struct Process
    {
        /** Takes what commands print. */
        std::function<void(const QString& text)> output;
        /** Takes messages of whole lines. */
        std::function<void(const QString& text)> error_output;
        /** Called many times a second while a command runs; it may request an interrupt. */
        std::function<void()> turn;
        /** As PythonHooks::end_call. */
        std::function<void()> end_call;
    };
    /** Loads the components, to take commands for a process that has Python already. There is no window. */
    void begin_in(const Process& process);
    /** Unloads the components. Called once after begin_in(). */
    void end_in();

    /** The console's pages; null while there is no window. */
    ConsoleOwner* console() const { return mConsole.get(); }
    ComponentManager& components() { return *mComponents; }

private:
    void set_up_commands();
    void set_up_python();
    void set_up_playback();
    void tell_of_start();
    /** Loads the components for work without a window, whose output goes to @p output. */
    void begin_without_window(const std::function<void(const QString&)>& output);
    void end_without_window();
    /** Runs command lines for fennar.cmd(); returns why that has failed. */
    std::optional<PythonCommandFailure> run_for_python(const QString& text);
    /** Runs a command line that a function of the module fennar stands for; see PythonCommandServices. */
    CommandInterpreter::Outcome call_for_python(const QString& line, bool quiet);
    /** A command has failed: ends the Python code that has called it, if the user has interrupted. */
    void end_caller();
    /** Python is about to run this: tells the user of the program. */
    void begin_call(QString text);
    /** Python has run this without an error: keeps it for the history of another process. */
    void end_call(const QString& text);
    /** Does work of a batch run, which tells its exit status, with the components loaded. Returns the exit
     * status of the program. */
    int run_batch(std::FILE* output, const std::function<int()>& work);
    /** Tells of settings that could not be written, after another try. */
    void check_settings();
    void set_console(OutputHandler* window);
    void report_error(const QString& text);
    /** Shows a line that is about to run as though it had been typed. @p by_python  Python has called it. */
    void echo(const QString& line, bool by_python = false);
    void announce_output();
    void set_busy(bool busy);
    void show_progress(const QString& journal, int percent);
    void give_turn();
    void pass_interrupt_on();
    void run_panel_command(const QString& command);
    /** Puts the command's name where the user types, to be completed. */
    void write_command(const QString& name);
    void quit();
    void stop_running();
    void end_run();

    /** What the console shows ahead of a command. */
    static constexpr auto command_prompt = QLatin1StringView("Fennar>");

    const QString mDataDirectory;
    /** What others have set stays with it until it can be written. */
    QSettings mSettings;
    /** What to tell the user once there is a place for it. */
    QStringList mErrors;
    /** What a batch run has reported behind "quit": that it was stopped, which nobody need know, or a
     * failure. */
    QStringList mHeldBack;
    /** Of a batch run that keeps one, while it runs. */
    RunRecord* mRecord = nullptr;
    MainFrame mFrame;
    std::unique_ptr<LineInterpreter> mCommands;
    std::unique_ptr<LineInterpreter> mPython;
    std::unique_ptr<ConsoleOwner> mConsole;
    std::unique_ptr<JournalPlayer> mPlayer;
    CloseGuard mCloseGuard;
    std::unique_ptr<WindowParts> mParts;
    std::unique_ptr<ComponentManager> mComponents;
    std::unique_ptr<ColorScheme> mScheme;
    std::unique_ptr<WindowCommands> mWindowCommands;
    QElapsedTimer mLastTurn;
    /** The line that runs on the console. */
    std::optional<InterruptScope> mWork;
    /** How many of the user's requests to stop it Python has been told of. */
    int mInterruptsPassedOn = 0;
    /** Guards mAnnounce, and the window while a thread announces its output. */
    std::mutex mFrameMutex;
    bool mAnnounce = false;
    bool mWithComponents = true;
    ProgramStart mStart;
    bool mQuitting = false;
    /** Takes what Python tells of errors while the command "python" runs; null otherwise. */
    QString* mPythonErrors = nullptr;
    /** Empty in the program's own process. */
    Process mProcess;
    /** What Python has run in another. */
    QStringList mCalled;
    /** What commands print is dropped. */
    bool mQuiet = false;
};

} // namespace fennar
