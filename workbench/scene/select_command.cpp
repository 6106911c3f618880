// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/scene/select_command.h"

#include "workbench/fennari19/CommandCall.h"
#include "workbench/fennari19/CommandRegistry.h"
#include "workbench/scene/Scene.h"

using namespace Qt::StringLiterals;

namespace {

/** All ids if the only name is "all", none if it is "none". A repeated name counts once. */
QList<int> read_items(CommandCall& call, const Scene& scene)
{
    QList<int> ids;
    if (call.count() == 2 && call.text(1, u"an item") == "none"_L1)
        return ids;
    if (call.count() == 2 && call.text(1, u"an item") == "all"_L1) {
        for (const auto& item : scene.items())
            ids << item.first;
        return ids;
    }
    for (qsizetype i = 1; i < call.count(); ++i) {
        const int id = scene.find(call.text(i, u"an item"));
        if (id == 0)
            throw call.expected(i, u"the name of an item");
        ids << id;
    }
    return ids;
}

void select(CommandCall& call, Scene& scene)
{
    if (call.has(1))
        scene.select(read_items(call, scene));
    call.expect_end();
    const QStringList names = scene.selection();
    call.print(names.isEmpty() ? u"Nothing is selected.\n"_s : u"Selected: %1\n"_s.arg(names.join(u", "_s)));
}

} // namespace

bool register_select_command(CommandRegistry& registry, Scene& scene)
{
    const Command command{u"select"_s,
                          u"select [NAME...]"_s,
                          u"Selects what is named, and nothing else."_s,
                          u"\"all\" stands for all items, \"none\" for none. Without an argument it tells "
                          u"what is selected. A click in the graphics view or in the "
                          "model tree does the same."_s,
                          u"workbench"_s,
                          [&scene](CommandCall& call) { select(call, scene); }};
    return registry.add(command) == CommandRegistry::AddResult::Added;
}
