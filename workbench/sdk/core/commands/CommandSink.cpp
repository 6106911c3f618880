// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandSink.h"

namespace fennar {

namespace {

std::function<void(const QString&)>& command_sink()
{
    static std::function<void(const QString&)> sink;
    return sink;
}

} // namespace

void set_command_sink(std::function<void(const QString&)> sink)
{
    command_sink() = std::move(sink);
}

void send_command(const QString& line)
{
    // Copies, since the sink may replace itself and delete the owner of the text while it runs.
    const auto sink = command_sink();
    const QString text = line;
    if (sink)
        sink(text);
}

} // namespace fennar
