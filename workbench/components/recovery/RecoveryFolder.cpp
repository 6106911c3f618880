// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/RecoveryFolder.h"

#include "workbench/sdk/core/files/write_whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::recovery {

namespace {

const auto journal_ending = u".journal"_s;
const auto work_ending = u".work"_s;
const auto lock_name = u"lock"_s;

/** More bytes than the first line of a document can have: the name of a file in it is limited. */
constexpr qint64 longest_head = 65'536;

/** How often a new folder is tried, should another program take each for one that is left. */
constexpr int attempts = 5;

/**
 * Takes the lock of a folder. Null if its program lives.
 *
 * The number of a program that is gone may be in use again, in a container even by this very program. What
 * counts is then whether someone holds the file, which the system knows.
 */
std::unique_ptr<QLockFile> take_lock(const QString& folder)
{
    auto lock = std::make_unique<QLockFile>(folder + u'/' + lock_name);
    // A folder does not become free with time.
    lock->setStaleLockTime(0);
    if (lock->tryLock(0))
        return lock;
    qint64 process = 0;
    QString host;
    QString program;
    // Only once something is written in it, the file is held by the one who made it.
    if (lock->error() == QLockFile::LockFailedError && lock->getLockInfo(&process, &host, &program) &&
        host == QSysInfo::machineHostName() && lock->removeStaleLockFile() && lock->tryLock(0))
        return lock;
    return nullptr;
}

int number_of(const QString& name)
{
    return name.section(u'.', 0, 0).toInt();
}

} // namespace

RecoveryFolder::RecoveryFolder(const QString& path, std::unique_ptr<QLockFile> lock)
    : mPath(path), mLock(std::move(lock))
{}

RecoveryFolder::~RecoveryFolder() = default;

std::unique_ptr<RecoveryFolder> RecoveryFolder::make(const QString& root)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const QString path = root + u'/' + QUuid::createUuid().toString(QUuid::Id128);
        if (!QDir().mkpath(root) ||
            !QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            continue;
        if (std::unique_ptr<QLockFile> lock = take_lock(path))
            return std::unique_ptr<RecoveryFolder>(new RecoveryFolder(path, std::move(lock)));
        QDir().rmdir(path);
    }
    return nullptr;
}

std::vector<std::unique_ptr<RecoveryFolder>> RecoveryFolder::claim_left(const QString& root)
{
    std::vector<std::unique_ptr<RecoveryFolder>> left;
    const QFileInfoList folders =
        QDir(root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
    for (const QFileInfo& one : folders) {
        std::unique_ptr<QLockFile> lock = take_lock(one.filePath());
        if (!lock)
            continue;
        std::unique_ptr<RecoveryFolder> folder(new RecoveryFolder(one.filePath(), std::move(lock)));
        if (!folder->remove_if_empty())
            left.push_back(std::move(folder));
    }
    return left;
}

bool RecoveryFolder::exists() const
{
    return QFileInfo(mPath).isDir();
}

QStringList RecoveryFolder::names() const
{
    QStringList names = QDir(mPath).entryList({u'*' + journal_ending, u'*' + work_ending}, QDir::Files);
    std::sort(names.begin(), names.end(), [](const QString& one, const QString& other) {
        return std::pair(number_of(one), one) < std::pair(number_of(other), other);
    });
    return names;
}

KeptDocument RecoveryFolder::read_head(const QString& name) const
{
    QFile file(mPath + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    KeptDocument head = KeptDocument::decode(file.readLine(longest_head));
    head.text.clear();
    return head;
}

std::optional<KeptDocument> RecoveryFolder::read(const QString& name) const
{
    QFile file(mPath + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {};
    return KeptDocument::decode(bytes);
}

QString RecoveryFolder::write(int number, const KeptDocument& document)
{
    return write_whole_file(mPath + u'/' + name_of(number, document.kind), document.encode());
}

bool RecoveryFolder::remove(const QString& name)
{
    const QString path = mPath + u'/' + name;
    return QFile::remove(path) || !QFile::exists(path);
}

QString RecoveryFolder::name_of(int number, const QString& kind)
{
    return QString::number(number) + (kind.isEmpty() ? journal_ending : work_ending);
}

void RecoveryFolder::remove_all()
{
    QDir folder(mPath);
    // What was being written when a program ended is there as well.
    const QStringList files = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : files) {
        if (name != lock_name)
            folder.remove(name);
    }
    mLock.reset();
    // Stays if another program has claimed it just now; it will find it empty, and remove it.
    QDir().rmdir(mPath);
}

bool RecoveryFolder::remove_if_empty()
{
    if (!names().isEmpty())
        return false;
    remove_all();
    return true;
}

} // namespace fennar::recovery
