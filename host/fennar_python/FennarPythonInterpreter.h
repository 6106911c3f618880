// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <memory>

/** A Python interpreter with a name space of its own. Framework hands the two of the application out. */
class FennarPythonInterpreter
{
public:
    /** The host's side of the interpreter; only the host completes and creates it. */
    struct Private;

    /** For the host: @p implementation is what runs the code. */
    explicit FennarPythonInterpreter(std::unique_ptr<Private> implementation);
    ~FennarPythonInterpreter();

    /** Whether Python runs. While it does not, nothing else may be called but the version numbers. */
    bool IsInitialized();

    /**
     * Runs Python source.
     *
     * @param command  the source in UTF-8; null counts as empty.
     * @return 0 on success, -1 if an exception was raised; its traceback has then been printed.
     */
    int Run_SimpleString(const char* command);

    /** The first part of Python's version, as 3 of 3.11.2. */
    int version_major();
    /** The second part of Python's version, as 11. */
    int version_minor();
    /** The third part of Python's version, as 2. */
    int version_micro();

private:
    std::unique_ptr<Private> mPrivate;
};
