// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandSink.h"

#include "workbench/sdk/core/commands/Callback.h"

namespace fennar {

namespace {

Callback<void(const QString&)>& command_sink()
{
    static Callback<void(const QString&)> sink;
    return sink;
}

} // namespace

void set_command_sink(const std::function<void(const QString&)>& sink)
{
    command_sink() = sink;
}

void send_command(const QString& line)
{
    // A copy, since the sink may delete the owner of the text while it runs.
    command_sink()(QString(line));
}

} // namespace fennar
