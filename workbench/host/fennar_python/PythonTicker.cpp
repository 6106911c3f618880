// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonTicker.h"

#include <pybind11/pybind11.h>

using namespace std::chrono_literals;

namespace fennar {

PythonTicker::PythonTicker(Function function) : mFunction(function), mThread(&PythonTicker::run, this) {}

PythonTicker::~PythonTicker()
{
    {
        const std::lock_guard lock(mMutex);
        mEnding = true;
    }
    mChanged.notify_one();
    mThread.join();
}

void PythonTicker::set_active(bool active)
{
    {
        const std::lock_guard lock(mMutex);
        mActive = active;
    }
    // Only the beginning wakes the thread: the end shows at its next tick.
    if (active)
        mChanged.notify_one();
}

void PythonTicker::run()
{
    std::unique_lock lock(mMutex);
    while (!mEnding) {
        mChanged.wait(lock, [this] { return mActive || mEnding; });
        if (mChanged.wait_for(lock, 100ms, [this] { return mEnding; }) || !mActive)
            continue;
        // The GUI thread holds Python's lock when it asks for this one.
        lock.unlock();
        Py_AddPendingCall(mFunction, nullptr); // needs no lock of Python's; a full list just skips this
        // Python 3.11 does not tell the GUI thread of a call that another thread has added: an endless loop
        // there would never look. It does look whenever it has got Python's lock back.
        PyGILState_Release(PyGILState_Ensure());
        lock.lock();
    }
}

} // namespace fennar
