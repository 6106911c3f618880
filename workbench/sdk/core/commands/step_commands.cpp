// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/step_commands.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/UndoSteps.h"

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Tells which step was taken back or made again, or how many. @p index is that of the last of them. */
void print_moved(CommandCall& call, const QString& done, std::size_t count, const UndoSteps& steps,
                 std::size_t index)
{
    if (count > 1)
        call.print(u"%1: %2 steps of a journal\n"_s.arg(done).arg(count));
    else if (index < steps.steps().size()) // not forgotten meanwhile
        call.print(done + u": "_s + steps.steps()[index].command + u'\n');
}

void undo(CommandCall& call, const CommandArguments& arguments, UndoSteps& steps)
{
    const std::size_t count = steps.undo(arguments.has("step"_L1));
    if (count == 0)
        throw call.error(0, u"there is nothing to undo"_s);
    print_moved(call, u"Undone"_s, count, steps, steps.done());
}

void redo(CommandCall& call, const CommandArguments& arguments, UndoSteps& steps)
{
    const std::size_t count = steps.redo(arguments.has("step"_L1));
    if (count == 0)
        throw call.error(0, u"there is nothing to redo"_s);
    print_moved(call, u"Redone"_s, count, steps, steps.done() - 1);
}

Command step_command(const QString& name, const QString& summary, const QString& help, UndoSteps& steps,
                     void (*perform)(CommandCall&, const CommandArguments&, UndoSteps&))
{
    return {
        .name = name,
        .summary = summary,
        .help = help,
        .perform = [perform, &steps](CommandCall& call,
                                     const CommandArguments& arguments) { perform(call, arguments, steps); },
        .forms = {{.clauses = {{.keyword = u"step"_s,
                                .optional = true,
                                .label = QT_TRANSLATE_NOOP("CommandParameter", "One step of a journal")}}}},
        .changes_model = true,
        .makes = {Command::any_kind}};
}

} // namespace

void register_step_commands(CommandRegistry& registry, const QString& owner)
{
    UndoSteps& steps = registry.steps();
    registry.add_all(
        owner,
        {step_command(
             u"undo"_s, u"Takes back the last command that has changed the model."_s,
             u"A journal that was played is taken back as a whole; with \"step\", its last command "
             "alone. What starts\nanother model, as \"new\" and \"open\" do, cannot be taken back."_s,
             steps, undo),
         step_command(u"redo"_s, u"Makes again what was undone last."_s,
                      u"A journal is made again as a whole; with \"step\", its next command alone. The first "
                      "change after an undo\nends it."_s,
                      steps, redo)});
}

void list_steps(CommandCall& call, const UndoSteps& steps)
{
    if (steps.steps().empty()) {
        call.print(u"There are no steps.\n"_s);
        return;
    }
    const auto width = QString::number(steps.steps().size()).size();
    QString text;
    for (std::size_t i = 0; i < steps.steps().size(); ++i) {
        const UndoSteps::Step& step = steps.steps()[i];
        text += QString::number(i + 1).rightJustified(width) +
                (i < steps.done() ? u"          "_s : u"  undone  "_s) +
                (step.journal != 0 ? u"journal  "_s : u"         "_s) + step.command + u'\n';
    }
    call.print(text);
}

} // namespace fennar
