// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/export.h"

#include <QAnyStringView>

#include <limits>

class CommandInterpreter;

/**
 * One call of a command, as the command sees it.
 *
 * Word 0 is the command's name, its arguments start at 1. The accessors take what the word means, for the
 * message: number(1, "a radius") throws a CommandError "expected a radius, found ..." with the column of the
 * word, or of the end of the line if there is no such word. The object lives as long as the call.
 */
class FENNAR_CORE_EXPORT CommandCall
{
public:
    /** For the interpreter. Neither is owned; both outlive the call. */
    CommandCall(const CommandWords& words, CommandInterpreter& interpreter);

    /** The number of words, the command's name included. */
    qsizetype count() const { return mWords.words.size(); }
    /** All words, the command's name included. */
    const QList<CommandWord>& words() const { return mWords.words; }
    /** Whether there is a word @p i. */
    bool has(qsizetype i) const { return i >= 0 && i < count(); }
    /** Where word @p i begins, from 1; the end of the line if there is no such word. */
    qsizetype column(qsizetype i) const { return has(i) ? mWords.words[i].column : mWords.end_column; }

    /** Word @p i as it is; it may be empty if it was quoted. */
    QString text(qsizetype i, QAnyStringView what);
    /** Word @p i as a number; see parse_number(). */
    double number(qsizetype i, QAnyStringView what);
    /** Word @p i as a whole number from @p least to @p most. */
    int integer(qsizetype i, QAnyStringView what, int least = std::numeric_limits<int>::min(),
                int most = std::numeric_limits<int>::max());
    /** Word @p i, or empty if there is no such word. */
    std::optional<QString> optional(qsizetype i);
    /** Word @p i as a number, or empty if there is no such word. Throws if it is something else. */
    std::optional<double> optional_number(qsizetype i, QAnyStringView what);
    /** Throws if there are words behind the last one that was asked for. */
    void expect_end() const;

    /** An error at word @p i: "expected WHAT, found WORD". To be thrown. */
    CommandError expected(qsizetype i, QAnyStringView what) const;
    /** An error at word @p i with a message of its own. To be thrown. */
    CommandError error(qsizetype i, const QString& message) const;

    /** Prints on the interpreter's output; @p text brings its own line ends. In the workbench this gives the
     * shell a turn now and then, so that a command that prints in a loop need only test interrupted(). */
    void print(const QString& text);
    /** Whether the user wants the command to stop. A long command tests it and throws. */
    bool interrupted() const;

    /** What runs the command, by which it can run others. */
    CommandInterpreter& interpreter() { return mInterpreter; }

private:
    const CommandWord& word(qsizetype i, QAnyStringView what);

    const CommandWords& mWords;
    CommandInterpreter& mInterpreter;
    /** The first word that has not been asked for yet. */
    qsizetype mNext = 1;
};
