// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/component_manager/LoadMark.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

const auto note_ending = u".loading"_s;
const auto lock_ending = u".lock"_s;

std::unique_ptr<QLockFile> make_lock(const QString& note)
{
    auto lock = std::make_unique<QLockFile>(note.chopped(note_ending.size()) + lock_ending);
    // A component may take its time: only a program that is gone gives its lock up.
    lock->setStaleLockTime(0);
    return lock;
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
    const QString note = mDirectory + u'/' + QUuid::createUuid().toString(QUuid::Id128) + note_ending;
    std::unique_ptr<QLockFile> lock = make_lock(note);
    if (!lock->tryLock(0))
        return false;
    // In one piece: whoever finds a note can read it.
    QSaveFile writer(note);
    const QByteArray text = file.toUtf8();
    if (!writer.open(QIODevice::WriteOnly) || writer.write(text) != text.size() || !writer.commit())
        return false;
    mNote = note;
    mLock = std::move(lock);
    return true;
}

void LoadMark::end()
{
    if (!mLock)
        return;
    // The lock outlives the note, or another program would take the note for a crash.
    QFile::remove(mNote);
    mLock.reset();
}

QStringList LoadMark::take_crashed()
{
    QStringList files;
    const QStringList notes = QDir(mDirectory).entryList({u'*' + note_ending}, QDir::Files, QDir::Name);
    for (const QString& name : notes) {
        const QString path = mDirectory + u'/' + name;
        const std::unique_ptr<QLockFile> lock = make_lock(path);
        QFile note(path);
        // The note may have gone before the lock was free: then all went well.
        if (!lock->tryLock(0) || !note.open(QIODevice::ReadOnly))
            continue;
        files << QString::fromUtf8(note.readAll());
        note.remove();
    }
    return files;
}
