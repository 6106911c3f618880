// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonEntry.h"

#include "workbench/host/fennar_python/PythonRuntime.h"

#include <unistd.h>

namespace fennar {

PythonState& PythonState::get()
{
    // Never destroyed: a thread of Python's may still write while the process ends.
    static PythonState* const state = new PythonState;
    return *state;
}

PythonEntry::PythonEntry() : mLock(PyGILState_Ensure())
{
    PythonState& state = PythonState::get();
    if (state.depth++ == 0 && state.ticker)
        state.ticker->set_active(true);
}

PythonEntry::~PythonEntry()
{
    PythonState& state = PythonState::get();
    // The application behind the call is the parent's: going on would be a second one on the same window.
    if (state.output.is_child())
        _exit(state.childFailed ? 1 : 0);
    const bool last = --state.depth == 0;
    if (last) {
        if (state.ticker)
            state.ticker->set_active(false);
        // An interrupt that came too late must not hit the next run.
        PyThreadState_SetAsyncExc(state.guiThreadIdent, nullptr);
    } else if (state.stopWhenIdle) {
        PyThreadState_SetAsyncExc(state.guiThreadIdent, PyExc_SystemExit); // the code around has to end too
    }
    PyGILState_Release(mLock);
    if (last && state.stopWhenIdle)
        PythonRuntime::stop();
}

} // namespace fennar
