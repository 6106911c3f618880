// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"
#include "workbench/sdk/core/export.h"

namespace fennar {

/** The command side of the application, behind FennarInterface. GUI thread only. */
class FENNAR_CORE_EXPORT Fennar
{
public:
    /** The one object; made at the first call. */
    static Fennar& instance();

    /** The commands that can be typed. */
    CommandRegistry& registry() { return mRegistry; }
    /** What runs them. */
    CommandInterpreter& interpreter() { return mInterpreter; }
    /** What plays journals. */
    Playback& playback() { return mPlayback; }
    /** What the built-in commands ask the application for. */
    BuiltinServices& services() { return mServices; }
    /** What other commands ask it for. */
    ApplicationServices& application() { return mApplication; }

    /** Whether lines typed on the console are Python statements. At first they are commands. */
    bool python_mode() const { return mPythonMode; }
    /** Sets what python_mode() tells. */
    void set_python_mode(bool python) { mPythonMode = python; }

private:
    Fennar();

    CommandRegistry mRegistry;
    CommandInterpreter mInterpreter;
    Playback mPlayback;
    BuiltinServices mServices;
    ApplicationServices mApplication;
    bool mPythonMode = false;
};

} // namespace fennar
