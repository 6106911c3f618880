// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace fennar {

/**
 * Asks Python to call a function on the GUI thread about ten times a second while code runs there. It is
 * called between two instructions of that code, with Python's lock held.
 */
class PythonTicker
{
public:
    using Function = int (*)(void*);

    explicit PythonTicker(Function function);
    ~PythonTicker();

    /** Code begins or has ended to run. */
    void set_active(bool active);

private:
    void run();

    const Function mFunction;
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mActive = false;
    bool mEnding = false;
    std::thread mThread;
};

} // namespace fennar
