// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/clock.h"

#include <QtGlobal>

/** As long as it lives the shell's time is what it says, which stands still but for advance(). One at a time.
 */
class TestClock
{
public:
    TestClock()
    {
        sNow = shell_clock::Time(std::chrono::hours(1));
        shell_clock::now = [] { return sNow; };
    }
    ~TestClock() { shell_clock::now = mBefore; }
    Q_DISABLE_COPY_MOVE(TestClock)

    static void advance(std::chrono::nanoseconds by) { sNow += by; }

private:
    static inline shell_clock::Time sNow;
    shell_clock::Time (*const mBefore)() = shell_clock::now;
};
