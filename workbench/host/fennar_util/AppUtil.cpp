// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/fennar_util/AppUtil.h"

#include "workbench/sdk/core/commands/Interrupt.h"

using namespace fennar;

void AppUtil::set_interrupt(bool interrupt)
{
    if (interrupt)
        request_interrupt();
    else
        clear_interrupt();
}
