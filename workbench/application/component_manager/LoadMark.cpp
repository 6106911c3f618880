// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/LoadMark.h"

#include <QDir>
#include <QUuid>

#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

const auto note_ending = u".loading"_s;

/** Whether the open @p note is nobody's by now: the system takes locks from programs that are gone. */
bool take_lock(const QFile& note)
{
    return flock(note.handle(), LOCK_EX | LOCK_NB) == 0;
}

} // namespace

LoadMark::LoadMark(const QString& directory) : mDirectory(directory) {}

LoadMark::~LoadMark()
{
    end();
}

bool LoadMark::begin(const QString& file)
{
    end();
    if (!QDir().mkpath(mDirectory))
        return false;
    // Under another name until it is whole and locked: whoever finds a note can read it. Nothing waits for
    // the disk: when the program crashes the system still has the note, and only then is it needed.
    const QString path = mDirectory + u'/' + QUuid::createUuid().toString(QUuid::Id128);
    mNote.setFileName(path + u".part"_s);
    const QByteArray text = file.toUtf8();
    const bool is_whole = mNote.open(QIODevice::WriteOnly) && take_lock(mNote) &&
                          mNote.write(text) == text.size() && mNote.flush();
    mPath = path + note_ending;
    if (is_whole && QFile::rename(mNote.fileName(), mPath))
        return true;
    mNote.remove();
    return false;
}

void LoadMark::end()
{
    if (!mNote.isOpen())
        return;
    // The lock outlives the note, or another program would take the note for a crash.
    QFile::remove(mPath);
    mNote.close();
}

QStringList LoadMark::take_crashed()
{
    QStringList files;
    const QStringList notes = QDir(mDirectory).entryList({u'*' + note_ending}, QDir::Files, QDir::Name);
    for (const QString& name : notes) {
        QFile note(mDirectory + u'/' + name);
        // If it has gone before its lock was free, all went well.
        if (note.open(QIODevice::ReadOnly) && take_lock(note) && note.exists()) {
            files << QString::fromUtf8(note.readAll());
            note.remove();
        }
    }
    return files;
}

} // namespace fennar
