// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace fennar {

/**
 * Cuts lines that are too long to be shown, and may keep them whole.
 *
 * As long as such a line is in sight, the page lays it out anew at each output, and a line of a million
 * characters makes that slow. The text comes in pieces, which need not end their lines.
 */
class LineFolder
{
public:
    /** How many characters of a line are shown. */
    static constexpr qsizetype shown_size = 4000;
    /** How many folded lines are kept, the newest ones. */
    static constexpr qsizetype kept_lines = 10;
    /** How many characters are kept of all of them together. */
    static constexpr qsizetype kept_size = qsizetype(64) << 20;

    /** @param keeps  whether folded lines are kept. If not, another page has them and says how to see them.
     */
    explicit LineFolder(bool keeps = true) : mKeeps(keeps) {}

    /** @p text as it is to be shown. */
    QString fold(const QString& text);
    /** Ends the present line, and returns what is still to be shown of it: nothing, or the mark of a folded
     * one. */
    QString end_line();

    /** A folded line whole, by the number in its mark, or as much of it as could be kept; empty if it is not
     * kept, or has never been. */
    std::optional<QString> line(int number) const;

private:
    struct Line
    {
        int number = 0;
        QString text;
    };

    void keep(const QString& text);

    bool mKeeps;
    /** What is kept of the present line. */
    QString mOpen;
    /** Its length so far. */
    qsizetype mLength = 0;
    /** Oldest first. */
    QList<Line> mLines;
    int mCount = 0;
};

} // namespace fennar
