// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/MainFrame.h"
#include "workbench/fennar_util/Interrupt.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <mutex>
#include <optional>

class CommandCall;
class ComponentManager;
class ConsoleOwner;
class LineInterpreter;
class OutputHandler;

/**
 * The reference application: joins the shell, the command interpreter, Python and the console owner.
 *
 * It shows how a host drives the shell, call by call. One object at a time; it needs an application object
 * and is used on its thread.
 */
class Workbench
{
public:
    /** Makes the interpreters ready. There is no window yet. */
    Workbench();
    ~Workbench();

    /** Makes the workbench load no components. To be called before load() and play_batch(). */
    void leave_components_out() { mWithComponents = false; }

    /**
     * Brings the main window up, with a splash screen meanwhile. The components follow, one by one, once the
     * event loop runs.
     *
     * @return false if there is no QApplication: the workbench then can only play_batch().
     */
    bool load();
    /** Runs the event loop until the user closes the window or enters "quit". */
    void run();
    /** Unloads the components and takes the main window down. */
    void unload();

    /** Plays @p journal as though "play" had been typed, once the components are loaded. */
    void play_later(const QString& journal);

    /**
     * Loads the components and plays @p journal, without a window. Output goes to standard output, errors to
     * standard error.
     *
     * @return the program's exit status: 0, or 1 if the journal failed or its output could not be written.
     */
    int play_batch(const QString& journal);

    /** The console's pages; null while there is no window. */
    ConsoleOwner* console() const { return mConsole.get(); }
    ComponentManager& components() { return *mComponents; }
    /** Where the commands entered are kept for the next run. */
    static QString history_file();

private:
    void set_up_commands();
    void set_up_python();
    void set_console(OutputHandler* window);
    void report_error(const QString& text);
    void echo(const QString& line);
    void announce_output();
    void play_waiting();
    void set_busy(bool busy);
    void give_turn();
    void pass_interrupt_on();
    void run_panel_command(const QString& command);
    void write_picture(CommandCall& call);
    void quit();
    void end_run();

    MainFrame mFrame;
    std::unique_ptr<LineInterpreter> mCommands;
    std::unique_ptr<LineInterpreter> mPython;
    std::unique_ptr<ConsoleOwner> mConsole;
    std::unique_ptr<ComponentManager> mComponents;
    QElapsedTimer mLastTurn;
    /** The line that runs on the console. */
    std::optional<InterruptScope> mWork;
    /** How many of the user's requests to stop it Python has been told of. */
    int mInterruptsPassedOn = 0;
    /** Guards mAnnounce, and the window while a thread announces its output. */
    std::mutex mFrameMutex;
    bool mAnnounce = false;
    bool mWithComponents = true;
    /** Whether the components are loaded, and a journal need not wait for them. */
    bool mReady = false;
    /** The journal that waits for the components. */
    QString mJournal;
    bool mQuitting = false;
};
