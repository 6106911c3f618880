// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/run_model_command.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/commands/CommandError.h"

void run_model_command(CommandCall&, GeometryModel&, const std::function<void()>& work)
{
    try {
        work();
    } catch (const GeometryError& error) {
        throw CommandError(error.message());
    }
}
