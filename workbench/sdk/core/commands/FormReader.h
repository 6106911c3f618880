// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace fennar {

/** The words after a command's name, assigned to the clauses of one form. Words count from 0. */
struct FormReading
{
    /** The words of each parameter of a clause. */
    using Clause = QList<QList<qsizetype>>;

    /** One for each clause of the form; nothing for clauses that are left out. */
    QList<std::optional<Clause>> clauses;
    /** The words with which they begin: their keywords, if they have some. */
    QList<qsizetype> starts;
    /** The first word that was not read; the number of words if all were. */
    qsizetype next = 0;
    /** Whether the line is complete: no required clause is missing. */
    bool may_end = false;
    /** The keywords that could come next. */
    QStringList keywords;
    /** The parameters whose values could come next; they belong to the form. */
    QList<const CommandParameter*> parameters;
    /** Whether that would be another value of a parameter that has some. */
    bool another = false;
};

/** What to do if a required clause is missing. */
enum class Missing {
    /** Stop. */
    End,
    /** Skip it, so that a line that is still being typed can be read. */
    PassOver,
};

/**
 * Reads words by the shape of a form: where a value ends and the next clause begins is decided here alone.
 * Whether the values are valid is checked elsewhere.
 *
 * - Clauses without a keyword come in the order of the form. Neighboring clauses with a keyword come in any
 * order.
 * - The keyword of a later clause, or of one that may come in any order with this one, is not a value;
 * neither are the reserved words of a parameter. Texts and files take any word.
 * - A choice that stands for entities, as "all", must be the only value.
 * - Without a keyword, an optional clause behind another one needs that one.
 * - An optional clause that begins with a number is skipped if the word is neither a number nor a variable.
 */
FormReading read_form(const CommandSyntax& form, const QStringList& words, Missing missing);

} // namespace fennar
