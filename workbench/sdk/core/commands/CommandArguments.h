// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/export.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

class CommandEntities;
struct CommandWords;

/**
 * The arguments of one call of a command, checked by what the command has declared.
 *
 * Values go by the keyword of their clause, or where that has none by the name of the parameter:
 * number("RADIUS"), numbers("at"). What is left out has the default that is declared, if any. To ask for what
 * is not declared is a fault of the command, and fails the program.
 */
class FENNAR_CORE_EXPORT CommandArguments
{
public:
    /**
     * Checks a line: the first word that is wrong is thrown as a CommandError that tells its column and what
     * could stand there.
     *
     * @param words     the whole line, the command's name being word 0.
     * @param forms     the ways to write the command; at least one. They are kept by reference.
     * @param entities  what there is to name; null if names are not to be looked up, so that any will do.
     */
    CommandArguments(const CommandWords& words, const QList<CommandSyntax>& forms,
                     const CommandEntities* entities);

    /** Which of the ways to write the command it is, from 0. */
    qsizetype form() const { return mForm; }
    /** Whether values, or a keyword that has none, are given. Also false for what only other forms have. */
    bool has(QLatin1StringView key) const;

    /** A number, that with index @p i if there are several. 0 if there is none. */
    double number(QLatin1StringView key, qsizetype i = 0) const;
    /** A whole number; the same. */
    int integer(QLatin1StringView key) const;
    /** A text, the name of an entity or a choice; empty if there is none. An entity that was given by its
     * number is named. */
    QString text(QLatin1StringView key) const;
    /** All values, as text(). */
    QStringList texts(QLatin1StringView key) const;

    /** Where the value with index @p i is in the line, as CommandCall::words(); that behind the last word if
     * it is not given. */
    qsizetype word(QLatin1StringView key, qsizetype i = 0) const;

private:
    struct Value
    {
        QString text;
        /** The index of the word; 0 for a default. */
        qsizetype word = 0;
    };
    struct Place
    {
        qsizetype clause;
        /** -1 for all of the clause. */
        qsizetype parameter;
    };

    Place place(QLatin1StringView key) const;
    QList<Value> values(QLatin1StringView key) const;

    const QList<CommandSyntax>* mForms;
    qsizetype mForm = 0;
    qsizetype mCount;
    /** One for each clause of the form; a clause that is left out has no list. */
    QList<QList<QList<Value>>> mValues;
    QList<bool> mGiven;
};
