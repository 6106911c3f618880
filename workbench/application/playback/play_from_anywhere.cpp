// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/play_from_anywhere.h"

#include "workbench/host/ostrelfw/CommandLine.h"

#include <QFile>

#include <cstdio>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace fennar {

/** Whether reading from the file has to wait for others. */
static bool is_pipe(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 &&
           (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

Playback::Outcome play_from_anywhere(Playback& playback, const QString& journal,
                                     const QList<JournalSetting>& settings)
{
    QFile file(journal);
    if (journal == CommandLine::standard_input && file.open(stdin, QIODevice::ReadOnly))
        return playback.play_device(file, u"standard input"_s, settings);
    // A window would wait for the other program, too, and so does not take one.
    if (is_pipe(journal) && file.open(QIODevice::ReadOnly))
        return playback.play_device(file, journal, settings);
    return playback.play(journal, 1, settings);
}

} // namespace fennar
