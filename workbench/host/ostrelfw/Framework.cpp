// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/Framework.h"

#include "workbench/host/ostrelfw/FrameworkInterpreters.h"

#include <utility>

namespace {

std::unique_ptr<FennarPythonInterpreter> framework_interpreter;
std::unique_ptr<FennarPythonInterpreter> user_interpreter;

} // namespace

void fennar::set_framework_interpreters(std::unique_ptr<FennarPythonInterpreter> framework,
                                        std::unique_ptr<FennarPythonInterpreter> user)
{
    framework_interpreter = std::move(framework);
    user_interpreter = std::move(user);
}

FennarPythonInterpreter* Framework::python_interpreter()
{
    return framework_interpreter.get();
}

FennarPythonInterpreter* Framework::user_python_interpreter()
{
    return user_interpreter.get();
}
