// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class FennarPythonInterpreter;

/** Gives access to the framework's Python interpreters. Both results are owned by the framework. */
class Framework
{
public:
    /** The interpreter in which the framework's own Python code runs. Never null. */
    static FennarPythonInterpreter* python_interpreter();
    /** The interpreter in which the user's Python code runs; null if there is none. */
    static FennarPythonInterpreter* user_python_interpreter();
};
