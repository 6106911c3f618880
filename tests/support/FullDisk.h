// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/** Makes every file that is written end at a size, as a full disk does. */
class FullDisk
{
public:
    explicit FullDisk(rlim_t size) : mHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &mLimit);
        const rlimit limit{size, mLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &mLimit);
        std::signal(SIGXFSZ, mHandler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit mLimit{};
    void (*mHandler)(int);
};
