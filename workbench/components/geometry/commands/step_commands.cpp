// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/GeometryCommand.h"
#include "workbench/components/geometry/commands/geometry_parameters.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelSteps.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"

using namespace Qt::StringLiterals;

namespace {

using Context = GeometryCommand::Context;

/** Tells which step was taken back or made again, or how many. @p step is the last of them. */
void print_moved(CommandCall& call, const QString& done, std::size_t count, const ModelSteps::Step& step)
{
    call.print(count == 1 ? u"%1: %2\n"_s.arg(done, step.command)
                          : u"%1: %2 steps of a journal\n"_s.arg(done).arg(count));
}

void undo(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    ModelSteps& steps = context.model.steps();
    const std::size_t count = steps.undo(arguments.has("step"_L1));
    if (count == 0)
        throw call.error(0, u"there is nothing to undo"_s);
    print_moved(call, u"Undone"_s, count, steps.steps()[steps.done()]);
}

void redo(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    ModelSteps& steps = context.model.steps();
    const std::size_t count = steps.redo(arguments.has("step"_L1));
    if (count == 0)
        throw call.error(0, u"there is nothing to redo"_s);
    print_moved(call, u"Redone"_s, count, steps.steps()[steps.done() - 1]);
}

void list(CommandCall& call, const CommandArguments&, Context& context)
{
    const ModelSteps& steps = context.model.steps();
    if (steps.steps().empty()) {
        call.print(u"There are no steps.\n"_s);
        return;
    }
    QList<QStringList> rows;
    for (std::size_t i = 0; i < steps.steps().size(); ++i) {
        const ModelSteps::Step& step = steps.steps()[i];
        rows << QStringList{QString::number(i + 1), i < steps.done() ? QString() : u"undone"_s,
                            step.journal != 0 ? u"journal"_s : QString(), step.command};
    }
    call.print(table(rows, {true, false, false, false}));
}

CommandSyntax single()
{
    return {.clauses = {{.keyword = u"step"_s,
                         .optional = true,
                         .label = QT_TRANSLATE_NOOP("CommandParameter", "One step of a journal")}}};
}

} // namespace

QList<GeometryCommand> step_commands()
{
    return {
        {.name = "undo"_L1,
         .summary = "Takes back the last command that has changed the model."_L1,
         .help = "A journal that was played is taken back as a whole; with \"step\", its last command alone. "
                 "\"new\" and\n"
                 "\"open\" cannot be taken back."_L1,
         .perform = undo,
         .forms = {single()},
         .changes_model = true,
         .makes = {solid_entity()}},
        {.name = "redo"_L1,
         .summary = "Makes again what was undone last."_L1,
         .help =
             "A journal is made again as a whole; with \"step\", its next command alone. The first change "
             "after an undo\n"
             "ends it."_L1,
         .perform = redo,
         .forms = {single()},
         .changes_model = true,
         .makes = {solid_entity()}},
        {.name = "steps"_L1,
         .summary = "Lists the steps that can be undone and redone."_L1,
         .help =
             "The oldest is the first. Steps that take more memory than the options allow are forgotten, the "
             "oldest\n"
             "first."_L1,
         .perform = list},
    };
}
