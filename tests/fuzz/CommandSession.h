// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QString>

/** An interpreter with a few commands of all kinds, and what it prints. */
class CommandSession
{
public:
    CommandSession();

    fennar::CommandInterpreter& interpreter() { return mInterpreter; }
    const QString& output() const { return mOutput; }
    /** The errors, each of which must be one line. */
    const QString& errors() const { return mErrors; }

private:
    fennar::CommandRegistry mRegistry;
    fennar::CommandInterpreter mInterpreter{mRegistry};
    QString mOutput;
    QString mErrors;
};
