// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/fennar_python/FennarPythonInterpreter.h"

#include <memory>

namespace fennar {

/**
 * Sets what Framework hands out. To be called once before the shell is loaded.
 *
 * @param framework  for the framework's own code; must not be null.
 * @param user       for the user's code; null if there is none.
 */
void set_framework_interpreters(std::unique_ptr<FennarPythonInterpreter> framework,
                                std::unique_ptr<FennarPythonInterpreter> user);

} // namespace fennar
