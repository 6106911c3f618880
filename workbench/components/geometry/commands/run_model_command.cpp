// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/run_model_command.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelSteps.h"
#include "workbench/sdk/core/commands/CommandCall.h"

#include <QScopeGuard>

namespace {

QString line_of(const CommandCall& call)
{
    QStringList words;
    for (const CommandWord& word : call.words())
        words << quote_word(word.text);
    return words.join(u' ');
}

} // namespace

void run_model_command(CommandCall& call, GeometryModel& model, const std::function<void()>& work)
{
    const auto commit = qScopeGuard([&] { model.steps().commit(line_of(call)); });
    try {
        work();
    } catch (const GeometryError& error) {
        throw CommandError(error.message());
    }
}
