// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QDir>
#include <QSet>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace fennar {

namespace {

/** All folders there are. Never deleted: static objects may have folders. */
struct Folders
{
    std::mutex mutex;
    QSet<QString> paths;

    static Folders& all()
    {
        static auto* const folders = new Folders;
        return *folders;
    }
};

std::array<int, 2> signal_pipe{-1, -1};
pid_t process = 0;
std::atomic<void (*)()> cancel_work = nullptr;
/** The signal that has cancelled the work; 0 for none. */
std::atomic<int> caught_signal = 0;

void end_by(int signal)
{
    std::signal(signal, SIG_DFL);
    kill(getpid(), signal);
}

/** Hands a signal to the thread that waits for it: hardly anything may be called here. */
void hand_over(int signal)
{
    const int error = errno;
    const auto number = static_cast<unsigned char>(signal);
    // A process that was forked, by a script of the user's, has this function but not the thread.
    if (getpid() != process || write(signal_pipe[1], &number, 1) != 1)
        end_by(signal);
    errno = error;
}

void wait_for_signal()
{
    unsigned char signal = 0;
    for (bool cancelled = true; cancelled;) {
        while (read(signal_pipe[0], &signal, 1) != 1) {
            if (errno != EINTR)
                return;
        }
        auto* const cancel = cancel_work.exchange(nullptr);
        cancelled = cancel != nullptr;
        if (cancelled) {
            caught_signal = signal;
            cancel();
        }
    }
    // Nobody makes a folder any more, and those who write in one that is there come to an end with it.
    Folders& folders = Folders::all();
    folders.mutex.lock();
    for (const QString& path : std::as_const(folders.paths)) {
        constexpr int attempts = 1000;
        for (int i = 0; i < attempts && QDir(path).exists(); ++i)
            QDir(path).removeRecursively();
    }
    end_by(signal);
}

} // namespace

TemporaryFolder::TemporaryFolder()
{
    Folders& folders = Folders::all();
    const std::scoped_lock lock(folders.mutex);
    mFolder = std::make_unique<QTemporaryDir>();
    if (is_valid())
        folders.paths.insert(path());
}

TemporaryFolder::~TemporaryFolder()
{
    const QString path = mFolder->path();
    mFolder.reset();
    Folders& folders = Folders::all();
    const std::scoped_lock lock(folders.mutex);
    folders.paths.remove(path);
}

bool TemporaryFolder::make_folder(const QString& name) const
{
    const std::scoped_lock lock(Folders::all().mutex);
    return is_valid() && QDir(path()).mkpath(name);
}

void TemporaryFolder::remove_on_signals()
{
    if (pipe2(signal_pipe.data(), O_CLOEXEC) != 0)
        return;
    process = getpid();
    std::thread(&wait_for_signal).detach();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
            continue;
        action = {};
        action.sa_handler = &hand_over;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

void TemporaryFolder::cancel_on_first_signal(void (*cancel)())
{
    cancel_work = cancel;
}

void TemporaryFolder::end_by_caught_signal()
{
    if (caught_signal == 0)
        return;
    cancel_work = nullptr;
    hand_over(caught_signal);
    while (true)
        pause();
}

} // namespace fennar
