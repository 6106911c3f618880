// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <pybind11/pybind11.h>

#include <memory>
#include <optional>

class QCoreApplication;

namespace fennar {

class Workbench;

/**
 * The workbench in a process of Python's: without a window, with Python's streams and signals, behind the
 * module fennar.
 *
 * Made and used on Python's main thread, with Python's lock held. It is made once in a process.
 */
class Engine
{
public:
    /**
     * Starts the workbench and gives the module fennar its functions. An application object that is there is
     * used as it is, otherwise one is made.
     *
     * @param program  the folder of the program, with its components.
     * Throws std::runtime_error if that fails.
     */
    explicit Engine(const QString& program);
    /** Unloads all. */
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

private:
    void make_application();
    /** Writes to a stream of Python's. Called without its lock. */
    void write(const char* stream, const QString& text);
    /** Lets Python see to its signals. Called without its lock. */
    void take_signals();
    /** Throws what Python's handlers of signals, or its streams, have raised meanwhile. */
    void end_call();
    /** Keeps the exception that is set for end_call(), and has the command end. */
    void keep_exception();

    std::unique_ptr<QCoreApplication> mApplication;
    std::unique_ptr<Workbench> mWorkbench;
    std::optional<pybind11::error_already_set> mRaised;
};

} // namespace fennar
