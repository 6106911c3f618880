// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

namespace fennar {

/** One word of a command. */
struct CommandWord
{
    /** The word without quotes, its escapes and variables replaced. */
    QString text;
    /** Where the word starts in the line, its opening quote included: an index into the line, plus 1. */
    qsizetype column = 0;
    /** Whether any part of the word stood in quotes. */
    bool quoted = false;

    /** Whether text, column and quotes are the same. */
    bool operator==(const CommandWord&) const = default;
};

/** What tokenize() makes of a line. */
struct CommandWords
{
    /** The command's name and its arguments. */
    QList<CommandWord> words;
    /** The column right behind the last word; 1 if there is none. */
    qsizetype end_column = 1;
    /** What is wrong with the line, if anything. The words in front of the fault are kept. */
    std::optional<CommandError> error;

    /** Where word @p i begins, from 1; the end of the line if there is no such word. */
    qsizetype column(qsizetype i) const { return i < words.size() ? words[i].column : end_column; }
    /** An error at word @p i: "expected WHAT, found WORD; REMEDY". */
    FENNAR_CORE_EXPORT CommandError expected(qsizetype i, const CommandMessage& what,
                                             const QString& remedy = {}) const;
};

/** The value of a variable; empty if there is no variable of that name, which is a part of the line itself.
 */
using VariableLookup = std::function<std::optional<QString>(QStringView name)>;

/** The longest text, in characters, that the variables of one line may expand to. */
inline constexpr qsizetype expansion_limit = qsizetype(1) << 26;

/**
 * Splits a command into words by the grammar of docs/command-language.md.
 *
 * @param line      one whole command, continued lines joined. Line ends in it count as blanks.
 * @param variable  finds the variables; none exist if it is null.
 */
FENNAR_CORE_EXPORT CommandWords tokenize(QStringView line, const VariableLookup& variable = {});

/** Whether @p c parts words: one of the blanks of ASCII, so that a journal means the same everywhere. */
constexpr bool is_command_blank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/** Writes @p word so that tokenize() reads exactly it back; in double quotes only where it needs them. */
FENNAR_CORE_EXPORT QString quote_word(QStringView word);

/** Whether @p name can name a variable: a letter or "_", then letters, digits and "_", all of them ASCII. */
FENNAR_CORE_EXPORT bool is_variable_name(QStringView name);

} // namespace fennar
