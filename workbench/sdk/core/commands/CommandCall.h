// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandValue.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/tokenize.h"

namespace fennar {

/**
 * One call of a command, as the command sees it beside its arguments, which are a CommandArguments.
 *
 * Word 0 is the command's name. The object lives as long as the call.
 */
class CommandCall
{
public:
    /** For the interpreter. Neither is owned; both outlive the call. */
    CommandCall(const CommandWords& words, CommandInterpreter& interpreter)
        : mWords(words), mInterpreter(interpreter)
    {}

    /** The number of words, the command's name included. */
    qsizetype count() const { return mWords.words.size(); }
    /** All words, the command's name included. */
    const QList<CommandWord>& words() const { return mWords.words; }
    /** Where word @p i begins, from 1; the end of the line if there is no such word. */
    qsizetype column(qsizetype i) const { return mWords.column(i); }

    /** An error at word @p i with a message of its own. To be thrown. */
    CommandError error(qsizetype i, const QString& message) const { return CommandError(message, column(i)); }

    /** Prints on the interpreter's output; @p text brings its own line ends. In the workbench this gives the
     * shell a turn now and then, so that a command that prints in a loop need only test interrupted(). */
    void print(const QString& text) { mInterpreter.print(text); }
    /** Whether the user wants the command to stop. A long command tests it and throws. */
    bool interrupted() const { return interrupt_requested(); }

    /** Sets what the command returns to a caller that is a program; it must fit Command::result. Without it,
     * that is nothing. A command that throws returns nothing. */
    void set_result(const CommandValue& value) { mResult = value; }
    /** What was set last. */
    const CommandValue& result() const { return mResult; }

    /** What runs the command, by which it can run others. */
    CommandInterpreter& interpreter() { return mInterpreter; }

private:
    const CommandWords& mWords;
    CommandInterpreter& mInterpreter;
    CommandValue mResult;
};

} // namespace fennar
