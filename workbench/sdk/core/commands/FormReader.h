// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <QList>
#include <QStringList>

#include <optional>

/** How the words behind a command's name fall on one way to write it. Words count from 0. */
struct FormReading
{
    /** The words of each parameter of a clause. */
    using Clause = QList<QList<qsizetype>>;

    /** One for each clause of the form; nothing for those that are left out. */
    QList<std::optional<Clause>> clauses;
    /** The first word that falls on nothing; the number of words if all do. */
    qsizetype next = 0;
    /** Whether the line could end there: nothing that must be there is missing. */
    bool may_end = false;
    /** The keywords that could stand there. */
    QStringList keywords;
    /** The parameters of which a value could stand there; they belong to the form. */
    QList<const CommandParameter*> parameters;
    /** Whether those have values already, and this would be another one. */
    bool another = false;
};

/** What becomes of a clause that must be there and is not. */
enum class Missing {
    /** The reading ends there. */
    End,
    /** It is passed over, so that a line that has just been begun can be read. */
    PassOver,
};

/**
 * Reads words by the shape of a form. This is the one place that knows where a value ends and the next clause
 * begins; whether values are right is for others to say.
 *
 * Clauses without a keyword stand in their order. Clauses with one that follow each other may come in any
 * order. A word that is the keyword of a clause behind, or of one that may come in any order with it, is no
 * value, save of texts and files; nor is one that the parameter reserves. A choice that stands for entities,
 * as "all", stands alone. A clause that may be left out and begins with a number is left out if the word is
 * none, nor a variable.
 */
FormReading read_form(const CommandSyntax& form, const QStringList& words, Missing missing);
