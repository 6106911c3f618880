// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <chrono>

namespace shell_clock {

using Time = std::chrono::steady_clock::time_point;

/** Tells the time to what waits between two runs. A function so that a test can put one of its own here. */
inline Time (*now)() = &std::chrono::steady_clock::now;

} // namespace shell_clock
