// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/console/CommandHistory.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

class CommandWidget;
class CommandWindow;
class LineInterpreter;
class QPlainTextEdit;

/**
 * Puts the pages into the shell's console and connects them with the interpreters.
 *
 * It owns a page for commands and one that gathers errors. A line that the user enters goes to the
 * interpreter of the present mode; what comes in while one runs waits for its end. The workbench creates it
 * once the shell has a console and deletes it before the console goes.
 */
class ConsoleOwner : public QObject
{
    Q_OBJECT

public:
    /**
     * Adds the pages to @p window.
     *
     * @param window        must outlive this object.
     * @param history_file  see CommandHistory.
     */
    ConsoleOwner(CommandWindow* window, const QString& history_file);
    ~ConsoleOwner() override;

    /** Sets what runs lines in command mode and in Python mode. Not owned; null leaves the mode without a
     * reply. */
    void set_interpreters(LineInterpreter* commands, LineInterpreter* python);
    /** Is told of each change of mode that the user asks for, before the prompt changes. */
    void set_mode_handler(std::function<void(bool python)> handler);

    /** Is told when a line begins to run, and when it has ended. */
    void set_busy_handler(std::function<void(bool busy)> handler);

    /** Prints a prompt for the next line. */
    void prompt();

    /**
     * Runs @p line as though it had been typed, once the line that is running and those that wait are done.
     *
     * A line that is half typed stays; a command that waits for its next line is given up.
     */
    void run_line(const QString& line);

    /** Gives up the lines that wait for the running one. */
    void forget_waiting();

    /**
     * Keeps @p text on the page of errors, below the line that led to it, and puts a warning on the page's
     * tab unless the user is looking at it.
     */
    void report_error(const QString& text);

    bool python_mode() const { return mPythonMode; }
    const CommandHistory& history() const { return mHistory; }
    CommandWidget* command_page() const { return mPage.get(); }
    QPlainTextEdit* error_page() const { return mErrors.get(); }

private:
    void run_entered(const QString& line);
    void run_pasted(const QStringList& lines);
    void run_now(const QString& line);
    void set_running(bool running);
    void run_waiting();
    void change_mode(bool python);
    void forget_pending();
    LineInterpreter* interpreter() const { return mPythonMode ? mPython : mCommands; }

    CommandWindow* mWindow;
    std::unique_ptr<CommandWidget> mPage;
    std::unique_ptr<QPlainTextEdit> mErrors;
    CommandHistory mHistory;
    LineInterpreter* mCommands = nullptr;
    LineInterpreter* mPython = nullptr;
    std::function<void(bool)> mModeHandler;
    std::function<void(bool)> mBusyHandler;
    /** Lines that came while another was running. */
    QStringList mWaiting;
    /** The line to be named above the next error; empty once it has been. */
    QString mErrorContext;
    bool mPythonMode = false;
    bool mRunning = false;
    bool mIncomplete = false;
    QString mIndent;
    bool mHistoryBroken = false;
};
