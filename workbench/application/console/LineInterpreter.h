// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/LineCompletion.h"

#include <QString>

#include <memory>

namespace fennar {

class CommandInterpreter;

/** What runs the lines of one console mode. The console owner knows no more of it than this. */
class LineInterpreter
{
public:
    struct Outcome
    {
        /** The line did not complete a command: its next line is wanted. */
        bool incomplete = false;
        /** What the next line should begin with, if incomplete. */
        QString indent;
        /** The line completed a command, and that failed. */
        bool failed = false;
    };

    virtual ~LineInterpreter() = default;

    /** Takes one line without its line end, and runs the command if that completes it. */
    virtual Outcome enter(const QString& line) = 0;
    /** Forgets the lines of a command that is not complete. */
    virtual void reset() = 0;
    /** What could stand at index @p caret of a line that is not entered yet. Runs nothing. */
    virtual LineCompletion complete(const QString& line, qsizetype caret)
    {
        Q_UNUSED(line)
        return {.start = caret};
    }
};

/** Runs lines of the command language, and completes them. */
std::unique_ptr<LineInterpreter> make_command_lines();
/** Runs lines of Python as the user, and completes them. */
std::unique_ptr<LineInterpreter> make_python_lines();

/** Completes a line of commands; @p before has what stands ahead of it in a command that it continues. */
LineCompletion complete_commands(const QString& line, qsizetype caret, const QString& before,
                                 CommandInterpreter& interpreter);
/** Completes a line of Python that is not on the console, by the user's names. @p before has the lines ahead
 * of it in its statement. */
LineCompletion complete_python(const QString& line, qsizetype caret, const QString& before);

} // namespace fennar
