// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "workbench/host/fennar_python/export.h"

#include <memory>

namespace fennar {

class PythonNamespace;

/** An interpreter object that runs its source in @p names, which must outlive it. */
FENNAR_PYTHON_EXPORT std::unique_ptr<FennarPythonInterpreter> make_python_interpreter(PythonNamespace& names);

} // namespace fennar
