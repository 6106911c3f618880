// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonOutput.h"

#include "workbench/host/fennar_python/PythonRuntime.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>
#include <utility>

namespace fennar {

namespace {

/** Small writes are joined up to this many characters, so that a busy thread does not cost a call for each.
 */
constexpr qsizetype joined_size = 1 << 16;

/** Not through the C library: its buffers hold what the parent has yet to write. */
void write_to(int descriptor, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(descriptor, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return;
        done += std::max<ssize_t>(written, 0);
    }
}

} // namespace

void PythonOutput::open(std::shared_ptr<const PythonHooks> hooks)
{
    const std::lock_guard lock(mMutex);
    mHooks = std::move(hooks);
}

void PythonOutput::close()
{
    std::shared_ptr<const PythonHooks> hooks;
    const std::lock_guard lock(mMutex);
    hooks.swap(mHooks);
    mWaiting.clear();
    mAnnounced = false;
}

std::shared_ptr<const PythonHooks> PythonOutput::hooks() const
{
    if (mIsChild)
        return nullptr;
    const std::lock_guard lock(mMutex);
    return mHooks;
}

void PythonOutput::show(Stream stream, const QString& text)
{
    if (mIsChild) {
        write_to(stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO, text);
    } else if (const auto current = hooks()) {
        show_waiting(*current);
        call(*current, stream, text);
    }
}

bool PythonOutput::enqueue(Stream stream, const QString& text)
{
    if (mIsChild) {
        show(stream, text);
        return false;
    }
    const std::lock_guard lock(mMutex);
    if (!mHooks)
        return false;
    if (!mWaiting.empty() && mWaiting.back().stream == stream && mWaiting.back().text.size() < joined_size)
        mWaiting.back().text += text;
    else
        mWaiting.push_back({stream, text});
    return !std::exchange(mAnnounced, true);
}

void PythonOutput::deliver()
{
    const auto current = hooks();
    if (!current)
        return;
    {
        const std::lock_guard lock(mMutex);
        mAnnounced = false;
    }
    show_waiting(*current);
}

void PythonOutput::show_waiting(const PythonHooks& hooks)
{
    // One piece at a time, because a hook may come back here and must then go on where this stands. No more
    // than wait at the beginning, because a thread may write faster than the application shows.
    std::unique_lock lock(mMutex);
    for (std::size_t count = mWaiting.size(); count > 0 && !mWaiting.empty(); --count) {
        const Piece piece = std::move(mWaiting.front());
        mWaiting.pop_front();
        lock.unlock();
        call(hooks, piece.stream, piece.text);
        lock.lock();
    }
}

void PythonOutput::call(const PythonHooks& hooks, Stream stream, const QString& text)
{
    const auto& hook = stream == Stream::Output ? hooks.output : hooks.error_output;
    if (hook)
        hook(text);
}

} // namespace fennar
