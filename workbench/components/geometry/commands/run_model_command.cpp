// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/run_model_command.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/CommandCall.h"

void run_model_command(CommandCall& call, GeometryModel& model, const std::function<void()>& work)
{
    const auto print_messages = [&] {
        const QStringList messages = model.take_messages();
        for (const QString& message : messages)
            call.print(message + u'\n');
    };
    try {
        work();
    } catch (const GeometryError& error) {
        print_messages();
        throw CommandError(error.message());
    } catch (...) {
        print_messages();
        throw;
    }
    print_messages();
}
