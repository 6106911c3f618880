// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/Interrupt.h"

#include <atomic>

namespace fennar {

namespace {

std::atomic<int> requests = 0;
int open_scopes = 0;

} // namespace

int interrupt_requests()
{
    return requests.load(std::memory_order_relaxed);
}

void request_interrupt()
{
    ++requests;
}

void clear_interrupt()
{
    requests.store(0);
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

} // namespace fennar
