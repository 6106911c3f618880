// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

namespace fennar {

/** How often the user has asked the running work to stop, which tells a request from the one before it.
 * Cheap, and safe from any thread. */
FENNAR_CORE_EXPORT int interrupt_requests();

/** Whether he has. Cheap, and safe from any thread. */
inline bool interrupt_requested()
{
    return interrupt_requests() > 0;
}

/** Asks the running work to stop. Safe from any thread. */
FENNAR_CORE_EXPORT void request_interrupt();

/** Takes the request back. Safe from any thread. */
FENNAR_CORE_EXPORT void clear_interrupt();

/**
 * One piece of work that an interrupt can end, such as a command or the playback of a journal.
 *
 * Scopes nest. The outermost one takes back, at its start, a request that came while nothing ran, and, at its
 * end, the one that was meant for it. GUI thread only.
 */
class FENNAR_CORE_EXPORT InterruptScope
{
public:
    InterruptScope();
    ~InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;
};

} // namespace fennar
