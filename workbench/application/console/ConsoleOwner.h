// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/console/CommandHistory.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/sdk/core/commands/LineCompletion.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <utility>

class CommandWidget;
class CommandWindow;
class JournalEditor;

namespace fennar {

class CompletionKey;
class HistorySearch;
class LineInterpreter;
class OutputDrag;

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
    using Then = std::function<void(bool done)>;

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
    void set_mode_handler(std::function<void(bool python)> handler) { mModeHandler = std::move(handler); }

    /** Is told when a line begins to run, and when it has ended. */
    void set_busy_handler(std::function<void(bool busy)> handler) { mBusyHandler = std::move(handler); }

    /** Offers the pages in the import menu of @p editor, until they go. To be called once; not null. */
    void offer_pages(JournalEditor* editor);

    /** Prints a prompt for the next line. */
    void prompt();

    /**
     * Runs @p line as though it had been typed, once the line that is running and those that wait are done.
     *
     * A line that is half typed stays; a command that waits for its next line is given up.
     *
     * @param then  is told, once the prompt has been printed, whether the line went well; not called if the
     * line is given up before. Null for none.
     */
    void run_line(const QString& line, const Then& then = {});

    /**
     * Does @p work as though it were a line, and under the same terms as run_line(). It is not in the
     * history.
     *
     * @param title  names the work above its errors on the page of errors.
     */
    void run_work(const QString& title, const std::function<void()>& work);

    /** Whether a line or work runs. */
    bool is_running() const { return mRunning; }

    /** Gives up the lines and the work that wait for the running one. */
    void forget_waiting() { mWaiting.clear(); }

    /**
     * Keeps @p text on the page of errors, below the line that led to it, and puts a warning on the page's
     * tab unless the user is looking at it.
     */
    void report_error(const QString& text);

    bool python_mode() const { return mPythonMode; }
    const CommandHistory& history() const { return mHistory; }
    CommandWidget* command_page() const { return mPage.get(); }
    ErrorPage* error_page() const { return mErrors.get(); }

private:
    /** A line, or work of that title. */
    struct Task
    {
        QString line;
        std::function<void()> work = {};
        Then then = {};
    };

    LineCompletion complete(const QString& line, qsizetype caret) const;
    void run_soon(const Task& task);
    void run_entered(const QString& line);
    void run_pasted(const QStringList& lines);
    void run_now(const Task& task);
    void set_running(bool running);
    void run_waiting();
    void change_mode(bool python);
    void forget_pending();
    LineInterpreter* interpreter() const { return mPythonMode ? mPython : mCommands; }

    CommandWindow* mWindow;
    std::unique_ptr<CommandWidget> mPage;
    std::unique_ptr<ErrorPage> mErrors;
    CommandHistory mHistory;
    std::unique_ptr<CompletionKey> mCompletion;
    /** Sees keys first: one that ends a search may be for the completion. */
    std::unique_ptr<HistorySearch> mSearch;
    std::unique_ptr<OutputDrag> mOutputDrag;
    LineInterpreter* mCommands = nullptr;
    LineInterpreter* mPython = nullptr;
    std::function<void(bool)> mModeHandler;
    std::function<void(bool)> mBusyHandler;
    QPointer<JournalEditor> mEditor;
    /** What came while something was running. */
    std::deque<Task> mWaiting;
    /** The line to be named above the next error; empty once it has been. */
    QString mErrorContext;
    bool mPythonMode = false;
    bool mRunning = false;
    bool mIncomplete = false;
    QString mIndent;
    bool mHistoryBroken = false;
};

} // namespace fennar
