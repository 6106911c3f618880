// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/export.h"

#include <QString>
#include <QStringList>

namespace fennar {

class PythonNamespace;

/**
 * Python statements typed line by line, by the rules of Python's own interactive mode: the value of an
 * expression is shown and kept in _, a block ends with an empty line, and a statement goes on inside brackets
 * and triple quotes. An exception is printed, SystemExit too, and never ends the process.
 */
class FENNAR_PYTHON_EXPORT PythonConsole
{
public:
    /** What a line led to. */
    struct Outcome
    {
        /** The statement goes on: ask for its next line. */
        bool incomplete = false;
        /** Blanks to begin that line with. */
        QString indent;
        /** An exception was raised, or Python does not run. */
        bool failed = false;
    };

    /** A console that runs its statements in @p names, which must outlive it. */
    explicit PythonConsole(PythonNamespace& names) : mNames(names) {}

    /**
     * Takes the next line and runs the statement if that completes it. Text of several lines counts as these
     * lines one after another; it has failed if one of them has. A line of only blanks is an empty line,
     * unless it lies within a string.
     */
    Outcome enter(const QString& line);

    /** Names that could stand at the caret. */
    struct Names
    {
        /** Where the part typed begins, an index into the line. */
        qsizetype start = 0;
        /** Sorted; blanks for indentation if nothing is typed on the line. */
        QStringList names;
        /** What all of them begin with. */
        QString common;
        /** The function whose arguments come here with its signature, if nothing is typed; empty otherwise.
         */
        QString hint;
    };

    /**
     * The names that go on with what stands ahead of @p caret: keywords, names of the name space,
     * attributes, and arguments of the function that is called there.
     *
     * No code of the user's runs: attributes are looked up in modules, classes and the dictionaries of
     * objects, and what a property or __getattr__ would give is not known. None in a string or comment.
     */
    Names complete(const QString& line, qsizetype caret) const;
    /** As above, for a line that is none of this console's: @p before has those ahead of it in its statement.
     */
    Names complete(const QString& line, qsizetype caret, const QString& before) const;

    /** Drops the lines of a statement that goes on. What __future__ switched on stays. */
    void reset() { mPending.clear(); }

private:
    Outcome enter_one(const QString& line);

    PythonNamespace& mNames;
    QStringList mPending;
    int mCompilerFlags = 0;
};

} // namespace fennar
