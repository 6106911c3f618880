// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/PythonOutput.h"
#include "workbench/host/fennar_python/PythonTicker.h"
#include "workbench/host/fennar_python/python_tools.h"

#include <pybind11/pybind11.h>

#include <atomic>
#include <functional>
#include <optional>
#include <thread>

namespace fennar {

/** What the parts of this library share about the running Python. */
struct PythonState
{
    static PythonState& get();

    /** Whether the calling thread is the one that started Python, or is to. */
    bool on_gui_thread() const { return std::this_thread::get_id() == guiThread; }

    std::atomic<bool> running = false;
    /** Python was started once: it cannot be again. */
    bool spent = false;
    /** The process is Python's own, and this library a guest in it: it neither starts nor ends Python. */
    bool guest = false;
    /** Starts Python when it is first needed; null if nobody has asked for that, or it has been tried. */
    std::function<void()> waiting;
    /** stop() was called by code that Python runs. */
    bool stopWhenIdle = false;
    std::thread::id guiThread;
    /** Python's name for that thread. */
    unsigned long guiThreadIdent = 0;
    /** How many entries are nested; touched with Python's lock held. */
    int depth = 0;
    /** This is a process that Python code has forked off, and an exception has ended that code. */
    bool childFailed = false;
    /** An exception is being shown: no turns and no interrupts; touched with Python's lock held. */
    bool reporting = false;
    PythonOutput output;
    std::optional<PythonTicker> ticker;
    /** The names of support.py; owned. */
    PyObject* support = nullptr;
};

/** While it lives, the GUI thread holds Python's lock and may use Python. Python objects go before it. */
class PythonEntry
{
public:
    PythonEntry();
    ~PythonEntry();
    PythonEntry(const PythonEntry&) = delete;
    PythonEntry& operator=(const PythonEntry&) = delete;

private:
    PyGILState_STATE mLock;
};

// All functions below are called with Python's lock held, on the GUI thread where they run code.

/** Takes an exception before it is reported. */
using TakeException = std::function<void(const pybind11::error_already_set& error)>;

/**
 * Compiles @p source as a module with the name @p file and runs it in @p names.
 *
 * @param raised  is called for an exception; may be null.
 * @return false if an exception was raised; it has then been reported.
 */
bool run_source(PyObject* names, const pybind11::str& source, const pybind11::str& file,
                const TakeException& raised = nullptr);

/** Runs compiled code in @p names; the rest as in run_source(). */
bool run_code(PyObject* names, const pybind11::object& code, const TakeException& raised = nullptr);

/** Prints an exception on sys.stderr. @p withTrace false leaves out where it came from. */
void report(pybind11::error_already_set& error, bool withTrace = true);

/** Gives the module fennar cmd() and CommandError. Throws what pybind11 throws. */
void fill_fennar_module(PyObject* fennar);

/** Lets go of what the module fennar holds outside Python. Called before the end. */
void release_fennar_module();

} // namespace fennar
