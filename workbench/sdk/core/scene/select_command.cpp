// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/scene/select_command.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/scene/Scene.h"

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

const QString owner = u"workbench"_s;

/** All ids if the only name is "all", none if it is "none". A repeated name counts once. */
QList<int> items(const QStringList& names, const Scene& scene)
{
    QList<int> ids;
    if (names == QStringList(u"none"_s))
        return ids;
    const bool all = names == QStringList(u"all"_s);
    for (const auto& [id, item] : scene.items()) {
        if (all || names.contains(item.name))
            ids << id;
    }
    return ids;
}

void select(CommandCall& call, const CommandArguments& arguments, Scene& scene)
{
    if (arguments.has("NAME"_L1))
        scene.select(items(arguments.texts("NAME"_L1), scene));
    const QStringList names = scene.selection();
    call.print(names.isEmpty() ? u"Nothing is selected.\n"_s : u"Selected: %1\n"_s.arg(names.join(u", "_s)));
}

} // namespace

QString item_entity()
{
    return u"item"_s;
}

bool register_select_command(CommandRegistry& registry, Scene& scene)
{
    CommandEntities& entities = registry.entities();
    entities.offer(item_entity(), owner, [&scene] {
        QStringList names;
        for (const auto& [id, item] : scene.items())
            names << item.name;
        return names;
    });
    entities.offer_selection(item_entity(), [&scene] { return scene.selection(); });
    QObject::connect(&scene, &Scene::item_changed, &entities,
                     [&entities] { entities.tell_changed(item_entity()); });
    const Command command{
        .name = u"select"_s,
        .summary = u"Selects what is named, and nothing else."_s,
        .help = u"\"all\" stands for all items, \"none\" for none. Without an argument it tells "
                u"what is selected. A click in the graphics view or in the "
                "model tree does the same."_s,
        .owner = owner,
        .perform = [&scene](CommandCall& call,
                            const CommandArguments& arguments) { select(call, arguments, scene); },
        .forms = {{.clauses = {optional_value({.name = u"NAME"_s,
                                               .kind = CommandParameter::Kind::Entity,
                                               .what = u"the name of an item"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "Items"),
                                               .choices = {u"all"_s, u"none"_s},
                                               .entity = item_entity(),
                                               .repeated = true})}}}};
    return registry.add(command) == CommandRegistry::AddResult::Added;
}

} // namespace fennar
