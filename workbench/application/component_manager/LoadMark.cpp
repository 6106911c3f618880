// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/LoadMark.h"

#include <QDir>
#include <QFile>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace fennar {

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
    // The lock outlives the note, or another program would take the note for a crash.
    end();
}

bool LoadMark::begin(const QString& file)
{
    end();
    if (!mLock && !make_own_lock())
        return false;
    // Under another name until it is whole: whoever finds a note can read it. Not by QSaveFile, which waits
    // for the disk.
    QFile writer(mNote + u".part"_s);
    const QByteArray text = file.toUtf8();
    const bool written = writer.open(QIODevice::WriteOnly) && writer.write(text) == text.size();
    writer.close();
    if (!written || writer.error() != QFileDevice::NoError || !writer.rename(mNote)) {
        writer.remove();
        return false;
    }
    return true;
}

void LoadMark::end()
{
    if (mLock)
        QFile::remove(mNote);
}

bool LoadMark::make_own_lock()
{
    if (!QDir().mkpath(mDirectory))
        return false;
    mNote = mDirectory + u'/' + QUuid::createUuid().toString(QUuid::Id128) + note_ending;
    std::unique_ptr<QLockFile> lock = make_lock(mNote);
    if (!lock->tryLock(0))
        return false;
    mLock = std::move(lock);
    return true;
}

QStringList LoadMark::take_crashed()
{
    QStringList files;
    // Programs that ended badly at other times have left their locks without a note.
    const QStringList locks = QDir(mDirectory).entryList({u'*' + lock_ending}, QDir::Files, QDir::Name);
    for (const QString& name : locks) {
        const QString note = mDirectory + u'/' + name.chopped(lock_ending.size()) + note_ending;
        if (!QFile::exists(note))
            make_lock(note)->tryLock(0);
    }
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

} // namespace fennar
