// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/Fennar.h"

#include "host/fennar_util/AppUtil.h"

Fennar& Fennar::instance()
{
    static Fennar fennar;
    return fennar;
}

Fennar::Fennar() : mInterpreter(mRegistry), mPlayback(mInterpreter), mAppUtil(std::make_shared<AppUtil>())
{
    register_builtin_commands(mInterpreter, mPlayback, mServices);
}
