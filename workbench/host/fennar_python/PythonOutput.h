// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace fennar {

struct PythonHooks;

/**
 * Carries text from any thread to the hooks of the application, in the order of writing. Knows nothing of
 * Python's lock; no hook is called with the own mutex held.
 *
 * In a process that Python code has forked off there is no application: its text goes to the process's own
 * standard output and standard error.
 */
class PythonOutput
{
public:
    enum class Stream { Output, Error };

    /** Starts to deliver to @p hooks. */
    void open(std::shared_ptr<const PythonHooks> hooks);
    /** Drops what waits and all that comes. A hook that is running ends undisturbed. */
    void close();

    /** Lets go of the application for good. Called in a new process, where the mutex may be locked for ever.
     */
    void become_child() { mIsChild = true; }
    /** Whether this is a process that Python code has forked off. */
    bool is_child() const { return mIsChild; }

    /** The hooks; null unless open, and in a forked process. */
    std::shared_ptr<const PythonHooks> hooks() const;

    /** Shows @p text behind all that waits. GUI thread; any thread in a forked process. */
    void show(Stream stream, const QString& text);
    /**
     * Puts @p text behind what waits. Any thread.
     *
     * @return true if nobody has been told yet that text waits: call the hook for that.
     */
    [[nodiscard]] bool enqueue(Stream stream, const QString& text);
    /** Shows what waits now; what is written meanwhile is announced anew. GUI thread. */
    void deliver();

private:
    struct Piece
    {
        Stream stream;
        QString text;
    };

    void show_waiting(const PythonHooks& hooks);
    static void call(const PythonHooks& hooks, Stream stream, const QString& text);

    std::atomic<bool> mIsChild = false;
    mutable std::mutex mMutex;
    std::shared_ptr<const PythonHooks> mHooks;
    std::deque<Piece> mWaiting;
    bool mAnnounced = false;
};

} // namespace fennar
