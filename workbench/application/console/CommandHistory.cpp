// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/CommandHistory.h"

#include "workbench/sdk/core/files/write_whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <tuple>
#include <utility>

namespace fennar {

namespace {

/** Entries that may gather in the file beyond the limit before it is written anew. */
constexpr qsizetype slack = 1000;

/** On the console, any of these would begin a line. */
void make_one_line(QString& entry)
{
    std::replace_if(
        entry.begin(), entry.end(),
        [](QChar c) { return c == u'\n' || c == u'\r' || c == QChar::ParagraphSeparator; }, u' ');
}

/** Adds @p line to the end of a file, as a line of its own. Returns false if that fails; no part of the line
 * is there then. */
bool append(const QString& path, QByteArray line)
{
    // A device has no end to go to, and nothing of it can be taken back.
    const bool is_device = QFileInfo::exists(path) && !QFileInfo(path).isFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered |
                   (is_device ? QIODevice::ExistingOnly : QIODevice::Append)))
        return false;
    const qint64 before = file.size();
    // The line before may have been cut off, as by a power failure.
    if (!is_device && before > 0 && file.seek(before - 1) && file.read(1) != "\n")
        line.prepend('\n');
    const qint64 written = file.write(line);
    const bool whole = written == line.size();
    // Unless another program has added a line behind it.
    if (!whole && !is_device && file.size() == before + std::max<qint64>(written, 0))
        file.resize(before);
    file.close();
    return whole && file.error() == QFileDevice::NoError;
}

} // namespace

CommandHistory::CommandHistory(const QString& file) : mFile(file)
{
    // A pipe or a device may have no end.
    if (QFile device(mFile); QFileInfo(mFile).isFile() && device.open(QIODevice::ReadOnly))
        mEntries = read(device);
    const qsizetype surplus = mEntries.size() - limit;
    if (surplus > 0)
        mEntries.remove(0, surplus);
    if (surplus > slack) {
        // If that fails the file stays as it is, which loses nothing; add() tells of one that cannot be
        // written.
        std::ignore = write_whole_file(mFile, {mEntries.join(u'\n').toUtf8(), "\n"});
    }
    mPosition = mEntries.size();
}

QStringList CommandHistory::read(QIODevice& device)
{
    QStringList entries = QString::fromUtf8(device.readAll()).split(u'\n', Qt::SkipEmptyParts);
    // Another program may have written the file.
    std::ranges::for_each(entries, &make_one_line);
    return entries;
}

bool CommandHistory::add(const QString& command)
{
    QString entry = command;
    make_one_line(entry);
    bool written = true;
    if (!entry.trimmed().isEmpty() && (mEntries.isEmpty() || mEntries.last() != entry)) {
        mEntries.append(entry);
        if (mEntries.size() > limit)
            mEntries.removeFirst();
        if (!mFile.isEmpty()) {
            QDir().mkpath(QFileInfo(mFile).path());
            written = append(mFile, entry.toUtf8() + '\n');
        }
    }
    reset_position();
    return written;
}

QString CommandHistory::previous(const QString& typed)
{
    if (mEntries.isEmpty())
        return typed;
    if (mPosition == mEntries.size())
        mTyped = typed;
    mPosition = std::max<qsizetype>(mPosition - 1, 0);
    return mEntries[mPosition];
}

QString CommandHistory::next(const QString& typed)
{
    if (mPosition == mEntries.size())
        return typed;
    ++mPosition;
    return mPosition == mEntries.size() ? std::exchange(mTyped, {}) : mEntries[mPosition];
}

qsizetype CommandHistory::find(const QString& text, qsizetype before) const
{
    for (qsizetype i = std::min(before, mEntries.size()) - 1; i >= 0; --i) {
        if (mEntries[i].contains(text, Qt::CaseInsensitive))
            return i;
    }
    return -1;
}

void CommandHistory::go_to(qsizetype index, const QString& typed)
{
    if (mPosition == mEntries.size())
        mTyped = typed;
    mPosition = std::clamp<qsizetype>(index, 0, mEntries.size());
}

void CommandHistory::reset_position()
{
    mPosition = mEntries.size();
    mTyped.clear();
}

} // namespace fennar
