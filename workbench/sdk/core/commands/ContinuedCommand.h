// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>
#include <QStringView>

namespace fennar {

/**
 * One command while its lines come in: a line whose last character is a backslash continues on the next one.
 *
 * The lines are joined without the backslash and with nothing in between.
 */
class FENNAR_CORE_EXPORT ContinuedCommand
{
public:
    /** A place in the lines as they were typed. */
    struct Position
    {
        /** 0 for the first line of the command. */
        qsizetype line = 0;
        /** The character of that line, from 1; a character outside the basic plane counts as one. */
        qsizetype column = 0;
    };

    /**
     * Takes the next line. One "\r" or "\r\n" or "\n" at its end is no part of it.
     *
     * @return whether the command is complete.
     */
    bool add(QStringView line);
    /**
     * The command that begins at index @p start of a text of several lines, which then is where the next one
     * begins. It is incomplete if the text ends in a continued line.
     */
    static ContinuedCommand read(QStringView text, qsizetype& start);
    /** Forgets all lines. */
    void clear() { *this = ContinuedCommand(); }

    /** Whether lines have come and another one is needed. */
    bool is_incomplete() const { return mIncomplete; }
    /** How many lines have come. */
    qsizetype line_count() const { return mStarts.size(); }
    /** The lines so far, joined. */
    const QString& text() const { return mText; }

    /** The error that another line is needed, and the text has none. */
    CommandError unended() const;

    /** Where the character at @p column (an index into text(), plus 1) was typed. */
    Position position(qsizetype column) const;

private:
    QString mText;
    /** Where each line starts in the text. */
    QList<qsizetype> mStarts;
    bool mIncomplete = false;
};

} // namespace fennar
