// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennar_util/Interrupt.h"

#include <atomic>

namespace {

std::atomic<bool> requested = false;
int open_scopes = 0;

} // namespace

bool interrupt_requested()
{
    return requested.load(std::memory_order_relaxed);
}

void request_interrupt()
{
    requested.store(true);
}

void clear_interrupt()
{
    requested.store(false);
}

InterruptScope::InterruptScope()
{
    if (open_scopes++ == 0)
        clear_interrupt();
}

InterruptScope::~InterruptScope()
{
    if (--open_scopes == 0)
        clear_interrupt();
}
