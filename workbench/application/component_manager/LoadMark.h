// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

namespace fennar {

/**
 * Notes on disk which component is being loaded, so that the next start knows it if the program does not
 * survive that.
 *
 * Its program holds a lock on each note, which is free once the program is gone. Programs that run side by
 * side thus tell a load that goes on from one that ended badly. The lock is flock's: QLockFile waits for the
 * disk, which takes 2 to 9 ms at each start.
 */
class LoadMark
{
public:
    /** @param directory  where the notes are kept; it is made when the first one is written. */
    explicit LoadMark(const QString& directory);
    ~LoadMark();
    Q_DISABLE_COPY_MOVE(LoadMark)

    const QString& directory() const { return mDirectory; }

    /** Notes that @p file is about to be loaded. Returns false if the note could not be written. */
    bool begin(const QString& file);
    /** Takes the note away: the load has ended, well or not. */
    void end();

    /** Takes the notes of programs that are gone, and returns the files that they were loading. */
    QStringList take_crashed();

private:
    QString mDirectory;
    /** The note and its lock, open while something is being loaded. */
    QFile mNote;
    /** The name that the note got when it was whole. */
    QString mPath;
};

} // namespace fennar
