// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/export.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

namespace fennar {

class CommandEntities;

/**
 * The arguments of one call of a command, checked by what the command has declared.
 *
 * A value is found by the keyword of its clause, or in a clause without one by the name of the parameter:
 * number("RADIUS"), number("at", 2). A value that is left out is the declared default, if there is one.
 * Asking for a name that is not declared throws a std::logic_error: it is a fault of the command, which
 * fails.
 */
class FENNAR_CORE_EXPORT CommandArguments
{
public:
    /**
     * Checks a line. Throws a CommandError for the first word that is wrong, with its column and all that
     * could stand there; then what CommandSyntax::verify throws.
     *
     * @param words     the whole line, the command's name being word 0.
     * @param forms     the ways to write the command; at least one. They are kept by reference.
     * @param entities  what there is to name; null if names are not to be looked up, so that any will do. So
     *                  will those of kinds that nobody offers.
     * @param only      the index of the one form that is looked at; -1 for all of them.
     */
    CommandArguments(const CommandWords& words, const QList<CommandSyntax>& forms,
                     const CommandEntities* entities, qsizetype only = -1);

    /** The index of the form that the line has. */
    qsizetype form() const { return mForm; }
    /** Whether values, or a keyword that has none, are given. Also false for what only other forms have. */
    bool has(QLatin1StringView key) const;

    /** A number, or the one with index @p i of several; 0 if it is not given and has no default. */
    double number(QLatin1StringView key, qsizetype i = 0) const;
    /** A whole number, under the same terms. */
    int integer(QLatin1StringView key) const;
    /** A text, a choice or the name of an entity, even if that was given by its number or the like; empty if
     * it is not given and has no default. */
    QString text(QLatin1StringView key) const { return values(key).value(0).text; }
    /** All values, as text(). */
    QStringList texts(QLatin1StringView key) const;

    /** All values in the line of parameters of that kind and, unless it is empty, for these entities. */
    QStringList texts(CommandParameter::Kind kind, const QString& entity = {}) const;

    /** The index in words() of the value with index @p i, or of a keyword that has none; the
     * number of words if it is not given. */
    qsizetype word(QLatin1StringView key, qsizetype i = 0) const;
    /** The whole line. */
    const CommandWords& words() const { return mWords; }
    /** An error at word @p i. To be thrown. */
    CommandError error(qsizetype i, const CommandMessage& message) const
    {
        return CommandError(message, mWords.column(i));
    }

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
    CommandWords mWords;
    /** One for each clause of the form; a clause that is left out has no list. */
    QList<QList<QList<Value>>> mValues;
    /** The words with which the clauses begin; 0 for one that is left out. */
    QList<qsizetype> mStarts;
};

} // namespace fennar
