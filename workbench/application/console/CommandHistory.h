// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

class QIODevice;

namespace fennar {

/**
 * The commands entered so far, oldest first, and the place in them that Up and Down have reached.
 *
 * Each entry is written to a file before its command runs, so that it is there after a crash in it. Several
 * running programs may share the file.
 */
class CommandHistory
{
public:
    /** The most entries kept, in memory and when the file is read. */
    static constexpr qsizetype limit = 1000;

    /**
     * Reads @p file, whose entries beyond the limit are forgotten, oldest first. One that is missing counts
     * as empty.
     *
     * @param file  empty keeps the history in memory only.
     */
    explicit CommandHistory(const QString& file = {});
    /** The entries in what an open @p device has, however many they are; one to a line. */
    static QStringList read(QIODevice& device);

    /**
     * Adds @p command behind the newest entry, and returns to the newest position.
     *
     * One that is blank or the same as the newest entry is not added. Line ends in it become blanks.
     *
     * @return false if the file could not be written; the entry then stands in memory only.
     */
    bool add(const QString& command);

    /**
     * The entry before the present position; the oldest again past the end.
     *
     * @param typed  the line on screen, which is kept if this leaves the newest position.
     */
    QString previous(const QString& typed);
    /** The entry behind the present position; behind the newest the line that was kept. */
    QString next(const QString& typed);
    /** Returns to the newest position and forgets the line kept. */
    void reset_position();

    /**
     * The newest entry ahead of index @p before that holds @p text, in large or small letters.
     *
     * @return its index in entries(); -1 if there is none. An empty text is in every entry.
     */
    qsizetype find(const QString& text, qsizetype before) const;
    /** Makes entry @p index the present position; @p typed is kept if this leaves the newest one. */
    void go_to(qsizetype index, const QString& typed);

    const QStringList& entries() const { return mEntries; }

private:
    QString mFile;
    QStringList mEntries;
    /** Index of the entry on screen; the number of entries stands for the line being typed. */
    qsizetype mPosition = 0;
    QString mTyped;
};

} // namespace fennar
