// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/Fennar.h"

namespace fennar {

Fennar& Fennar::instance()
{
    static Fennar fennar;
    return fennar;
}

Fennar::Fennar() : mInterpreter(mRegistry), mPlayback(mInterpreter)
{
    mRegistry.steps().set_journal([this] { return mPlayback.journal_number(); });
    register_builtin_commands(mInterpreter, mPlayback, mServices);
}

} // namespace fennar
