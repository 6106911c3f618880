// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/component_commands.h"

#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

QList<CommandFileFilter> component_filters()
{
    return {{QString::fromLatin1(QT_TRANSLATE_NOOP("CommandParameter", "Components")), u".so"_s}};
}

QString state_of(const ComponentManager::Component& component)
{
    if (component.state != ComponentManager::State::Unloaded)
        return ComponentManager::state_word(component.state);
    if (component.crashed)
        return u"left out"_s;
    if (component.off)
        return u"off"_s;
    return component.refusal.isEmpty() ? ComponentManager::state_word(component.state) : u"refused"_s;
}

void list_components(CommandCall& call, ComponentManager& manager)
{
    const std::vector<ComponentManager::Component> components = manager.components();
    QList<QStringList> rows;
    for (const ComponentManager::Component& component : components) {
        const QString version = component.version.isEmpty() ? u"-"_s : component.version;
        rows << QStringList{component.name, state_of(component), version, component.file};
    }
    QList<qsizetype> widths(3, 0);
    for (const QStringList& row : std::as_const(rows)) {
        for (qsizetype i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size() + 2);
    }
    QString text;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        for (qsizetype column = 0; column < widths.size(); ++column)
            text += rows[i][column].leftJustified(widths[column]);
        text += rows[i].last() + u'\n';
        const ComponentManager::Component& component = components[std::size_t(i)];
        if (!component.refusal.isEmpty())
            text += u"    "_s + component.refusal + u'\n';
        if (component.state != ComponentManager::State::Unloaded)
            continue;
        if (!component.commands.isEmpty())
            text += u"    commands: "_s + component.commands.join(u", "_s) + u'\n';
        if (!component.needs.isEmpty())
            text += u"    needs: "_s + component.needs.join(u", "_s) + u'\n';
    }
    const QStringList directories = manager.component_path().split(u';', Qt::SkipEmptyParts);
    if (directories.isEmpty())
        text += u"The component path is empty.\n"_s;
    else
        text += u"Searched: "_s + directories.join(u", "_s) + u'\n';
    call.print(text);
}

Command components_command(ComponentManager& manager)
{
    return {.name = u"components"_s,
            .summary = u"Lists the components."_s,
            .help = u"Each with its state, version and file; below it, why it is not loaded, and what it "
                    u"would bring.\n"
                    "    loaded    it works\n"
                    "    unloaded  it has been found since the start\n"
                    "    off       unloaded by the user; it stays so at the next start\n"
                    "    refused   it could not be loaded\n"
                    "    left out  the program ended while it was being loaded"_s,
            .perform = [&manager](CommandCall& call, const CommandArguments&) {
                list_components(call, manager);
            }};
}

Command load_command(ComponentManager& manager)
{
    return {
        .name = u"load"_s,
        .summary = u"Loads a component, now and at each start."_s,
        .help =
            u"NAME is looked up in the component path. FILE has a \"/\" or ends in .so; a file outside the\n"
            "component path is not found again at the next start. Components that it needs are loaded first."_s,
        .perform =
            [&manager](CommandCall& call, const CommandArguments& arguments) {
                const QString what = arguments.text(arguments.has("NAME"_L1) ? "NAME"_L1 : "FILE"_L1);
                QString name;
                if (const QString refusal = manager.load(what, &name); !refusal.isEmpty())
                    throw call.error(1, refusal);
                call.print(u"The component \"%1\" is loaded.\n"_s.arg(name));
            },
        .forms = {{.clauses = {required_value({.name = u"NAME"_s,
                                               .kind = CommandParameter::Kind::Entity,
                                               .what = u"the name of a component"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "Component"),
                                               .entity = other_component})},
                   .title = QT_TRANSLATE_NOOP("CommandParameter", "By name")},
                  {.clauses = {required_value({.name = u"FILE"_s,
                                               .kind = CommandParameter::Kind::InputFile,
                                               .what = u"a file"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "Component"),
                                               .filters = &component_filters})},
                   .title = QT_TRANSLATE_NOOP("CommandParameter", "From a file")}},
        .makes = {Command::any_kind, command_entity()}};
}

Command unload_command(ComponentManager& manager)
{
    return {
        .name = u"unload"_s,
        .summary = u"Unloads a component, now and at each start."_s,
        .help = u"\"load NAME\" turns it on again. In a run without a window neither is remembered. A "
                u"component\n"
                "that others need stays until they are unloaded."_s,
        .perform =
            [&manager](CommandCall& call, const CommandArguments& arguments) {
                const QString name = arguments.text("NAME"_L1);
                if (const QString refusal = manager.unload(name); !refusal.isEmpty())
                    throw call.error(1, refusal);
                call.print(u"The component \"%1\" is unloaded.\n"_s.arg(name));
            },
        .forms = {{.clauses = {required_value({.name = u"NAME"_s,
                                               .kind = CommandParameter::Kind::Entity,
                                               .what = u"a component that is loaded"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "Component"),
                                               .entity = loaded_component})}}},
        .makes = {other_component}};
}

} // namespace

void register_component_commands(CommandRegistry& registry, ComponentManager& manager)
{
    const QString owner = u"workbench"_s;
    const auto offer = [&](const QString& kind, bool loaded) {
        registry.entities().offer(kind, owner, [&manager, loaded] {
            QStringList names;
            for (const ComponentManager::Component& component : manager.components()) {
                if (loaded == (component.state == ComponentManager::State::Loaded))
                    names << component.name;
            }
            return names;
        });
    };
    offer(loaded_component, true);
    offer(other_component, false);
    registry.add_all(owner, {components_command(manager), load_command(manager), unload_command(manager)});
}

} // namespace fennar
