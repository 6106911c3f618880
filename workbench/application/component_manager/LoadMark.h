// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

namespace fennar {

/**
 * Notes on disk which component is being loaded, so that the next start knows it if the program does not
 * survive that.
 *
 * Each note has a lock that its program holds, and that is free once the program is gone. Programs that run
 * side by side thus tell a load that goes on from one that ended badly.
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
    bool make_own_lock();

    QString mDirectory;
    /** The note's file; there is one while something is being loaded. */
    QString mNote;
    /** Held from the first note until the end: making it costs more than a note. */
    std::unique_ptr<QLockFile> mLock;
};

} // namespace fennar
