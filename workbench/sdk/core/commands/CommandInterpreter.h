// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/Callback.h"
#include "workbench/sdk/core/commands/CommandValue.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace fennar {

class CommandError;
class CommandRegistry;
struct Command;

/** Why a line has failed, for a caller that is a program. */
struct CommandFailure
{
    /** One line without "ERROR", the command's name and the column. */
    QString message;
    /** The name of the command; empty if the line has none. */
    QString command;
    /** The character of the line that is at fault, from 1; 0 for none. */
    qsizetype column = 0;
    /** What to do about it, which the message ends with; may be empty. */
    QString remedy;
};

/** A command that is about to run, or has run, as an observer is told. */
struct CommandRun
{
    /** Its name as written, which may be no command; empty if the line has a fault in its first word. */
    QString command;
    /** The command as written, its lines joined. */
    QString text;
    /** The journal that it stands in; empty for a command from elsewhere. */
    QString file = {};
    /** Its first line there, from 1; 0 for none. */
    qsizetype line = 0;
    /** How many commands wait for it to end. */
    qsizetype depth = 0;
    /** What it has returned. */
    CommandValue value = {};
    /** Why it has failed. */
    std::optional<CommandFailure> failure = {};
    /** The line of the journal with the fault; 0 for none. */
    qsizetype failure_line = 0;
    /** The character at fault in its line, from 1; 0 for none. */
    qsizetype failure_column = 0;
};

/**
 * Runs commands: finds the words of a line, calls the command, reports what went wrong.
 *
 * An error is one line on the error output, as
 *
 *     ERROR: set: column 5: expected a name, found "="
 *
 * No exception leaves this class: whatever a command throws is reported in the name of that command. A
 * command may run others. What one has changed that changes the model is a step, see UndoSteps, even if it
 * fails in the end. The outermost run or enter is an InterruptScope. GUI thread only.
 */
class FENNAR_CORE_EXPORT CommandInterpreter
{
public:
    /** How a line or a text has ended. */
    enum class Result {
        /** The command has run, or the line held none. */
        Done,
        /** The line is continued; nothing has run yet. */
        Incomplete,
        /** An error was reported. */
        Failed,
    };
    /** Takes texts that bring their own line ends. */
    using Output = std::function<void(const QString& text)>;

    /** How deep commands may run commands. */
    static constexpr int depth_limit = 64;

    /** @param registry  not owned; outlives the interpreter. */
    explicit CommandInterpreter(CommandRegistry& registry);

    /** Where output goes; null drops it. The texts bring their own line ends. */
    void set_output(const Output& output) { mOutput = output; }
    /** Where errors go, under the same terms. */
    void set_error_output(const Output& output) { mErrorOutput = output; }

    /** Who is told of each command when it begins and when it has ended. Each may be null. */
    struct Observer
    {
        /** Without value and failure. */
        std::function<void(const CommandRun& run)> begun;
        /** With one of the two. */
        std::function<void(const CommandRun& run)> ended;
    };
    /** Has an observer told from now on; there is one at most. It runs no commands. */
    void set_observer(const Observer& observer);

    /** Takes one line as typed. A continued one is kept, and the line that ends the command runs it all. */
    Result enter(const QString& line);
    /** Forgets the lines of a command that is not complete yet. */
    void reset() { mEntered.clear(); }
    /** What was entered of a command that is not complete yet, its lines joined. */
    const QString& entered() const { return mEntered.text(); }
    /** Whether the last line entered was continued. */
    bool incomplete() const { return mEntered.is_incomplete(); }

    /**
     * Runs a text of any number of lines, until the first error or interrupt. A text that ends in a continued
     * line is an error. What enter() keeps is left alone.
     *
     * @param file        where the text comes from; with a name, errors begin with "FILE:LINE: ".
     * @param first_line  the number of the text's first line.
     */
    Result run(const QString& text, const QString& file = {}, qsizetype first_line = 1);

    /** How a call has ended. */
    struct Outcome
    {
        /** What the command has returned; nothing if it failed. */
        CommandValue value = {};
        /** Why it failed; empty if it did not. */
        std::optional<CommandFailure> failure = {};
    };
    /**
     * Runs one command for a caller that takes its value and its failure, which is therefore not reported.
     * What enter() keeps is left alone. A line that is continued fails.
     */
    Outcome call(const QString& line);
    /** The failure that was reported last; of no meaning unless a line has just failed. */
    const CommandFailure& last_failure() const { return mLastFailure; }

    /** Prints on the output. */
    void print(const QString& text) const { mOutput(text); }
    /** Prints on the error output. */
    void print_error(const QString& text) const { mErrorOutput(text); }
    /** Reports an error in the name of the command that runs, if any; one line without "ERROR". */
    void report(const QString& message) const;

    /** Whether a command of @p owner runs, be it that it waits for one that it has called. */
    bool is_running(const QString& owner) const;
    /** Whether any command runs. */
    bool is_running() const { return !mCalls.isEmpty(); }

    /** The commands that it finds. */
    CommandRegistry& registry() { return mRegistry; }
    /** The variables that it puts in. */
    CommandVariables& variables() { return mVariables; }

private:
    /** The lines of a command and where they come from. */
    struct Source
    {
        const ContinuedCommand& lines;
        QString file;
        qsizetype first_line;
        /** Whether the line number must be told, since the text has more than one. */
        bool tell_line;
    };
    struct Call;

    Result execute(const Source& source, Outcome* outcome = nullptr);
    CommandValue dispatch(Call& call);
    void commit_step(const Call& call);
    CommandRun run_of(const Call& call) const;
    void tell_ended(const Call& call, const Outcome& outcome, bool own_column);
    static CommandFailure failure_of(const Call* call, const CommandError& error);
    void report_at(const Call* call, const CommandError& error) const;

    CommandRegistry& mRegistry;
    CommandVariables mVariables;
    Callback<void(const QString&)> mOutput;
    Callback<void(const QString&)> mErrorOutput;
    Callback<void(const CommandRun&)> mBegun;
    Callback<void(const CommandRun&)> mEnded;
    ContinuedCommand mEntered;
    /** The calls that run, the outermost one first. */
    QList<const Call*> mCalls;
    mutable CommandFailure mLastFailure;
};

} // namespace fennar
