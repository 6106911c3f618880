// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <ctime>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fennar {

/**
 * Settings in memory for QSettings to read, which wants a name. Each has a time of its own: Qt keeps what it
 * has read once under a name, and tells the first reader alone what was wrong, until the file has another
 * time.
 */
class MemoryFile
{
public:
    explicit MemoryFile(const QByteArray& text) : mFile(memfd_create("settings", MFD_CLOEXEC))
    {
        static std::time_t times = 0;
        const std::timespec time{++times, 0};
        mIsValid = mFile >= 0 && write(mFile, text.constData(), std::size_t(text.size())) == text.size() &&
                   futimens(mFile, std::array{time, time}.data()) == 0;
    }
    ~MemoryFile()
    {
        if (mFile >= 0)
            close(mFile);
    }
    Q_DISABLE_COPY_MOVE(MemoryFile)

    /** Whether there was memory for it. */
    bool is_valid() const { return mIsValid; }
    /** The path by which this process can read it, for as long as this object lives. */
    QString name() const { return QStringLiteral("/proc/self/fd/%1").arg(mFile); }

private:
    int mFile;
    bool mIsValid = false;
};

} // namespace fennar
