// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/GeometryWindow.h"

#include "frame/Ostrel.h"
#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/window/GeometryDock.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QFile>
#include <QIcon>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

GeometryWindow::GeometryWindow(ComponentContext& context, const GeometryModel& model)
    : mContext(context), mDock(new GeometryDock(model, context.window()))
{
    setObjectName(u"GeometryWindow"_s);
    Fennar::instance().registry().entities().offer_selection(
        solid_entity(), [dock = mDock] { return dock ? dock->selection() : QStringList(); });
    using Actions = QList<QAction*>;
    const Actions solids{make_action(u"brick"_s, tr("Bric&k...")),
                         make_action(u"cylinder"_s, tr("&Cylinder...")),
                         make_action(u"sphere"_s, tr("&Sphere...")), make_action(u"cone"_s, tr("C&one...")),
                         make_action(u"torus"_s, tr("&Torus..."))};
    const Actions combinations{make_selection_action(u"unite"_s, tr("&Unite")),
                               make_action(u"subtract"_s, tr("Su&btract...")),
                               make_selection_action(u"intersect"_s, tr("&Intersect"))};
    const Actions changes =
        Actions{make_action(u"move"_s, tr("&Move...")), make_action(u"rotate"_s, tr("&Rotate...")),
                make_action(u"copy"_s, tr("Co&py...")), make_action(u"rename"_s, tr("Re&name...")), nullptr} +
        combinations + Actions{nullptr, make_selection_action(u"delete"_s, tr("&Delete"))};
    QAction* const mesh = make_action(u"mesh"_s, tr("M&esh..."));
    const Actions menu = solids + Actions{nullptr} + changes +
                         Actions{nullptr,
                                 make_action(u"list"_s, tr("&List"), CommandUse::Run),
                                 nullptr,
                                 mesh,
                                 make_action(u"statistics"_s, tr("Mesh St&atistics"), CommandUse::Run),
                                 make_action(u"quality"_s, tr("Mesh &Quality"), CommandUse::Run)};
    const Actions tools = solids + combinations + Actions{mesh};

    context.add_dock(mDock, Qt::LeftDockWidgetArea, Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    for (QAction* action : changes) {
        if (action)
            mDock->context_menu()->addAction(action);
        else
            mDock->context_menu()->addSeparator();
    }
    context.add_to_menu(tr("&Geometry"), {menu.begin(), menu.end()});
    add_help();
    context.add_to_toolbar("GeometryTools", tr("Geometry Tools"), {tools.begin(), tools.end()});
    connect(mDock, &GeometryDock::selection_changed, this, &GeometryWindow::update_actions);
    update_actions();
}

QAction* GeometryWindow::make_action(const QString& command, const QString& text, CommandUse use)
{
    QAction* action = mContext.make_command_action(text, command, use);
    action->setObjectName(u"geometry_"_s + command);
    if (const QString icon = u":/geometry/images/light/%1.svg"_s.arg(command); QFile::exists(icon))
        action->setIcon(QIcon(icon));
    return action;
}

QAction* GeometryWindow::make_selection_action(const QString& command, const QString& text)
{
    QAction* action = make_action(command, text, CommandUse::Run);
    const auto declared = Fennar::instance().registry().find(command);
    const int least = declared->forms.first().clauses.first().parameters.first().at_least;
    mSelectionActions.append({action, least});
    set_disabled_reason(action,
                        least == 1 ? tr("No solid is selected.") : tr("Fewer than two solids are selected."));
    return action;
}

void GeometryWindow::add_help()
{
    QAction* const help =
        mContext.add_menu_entry(FixedMenu::Manuals, tr("&Geometry Commands"), [owner = mContext.name()] {
            const CommandRegistry& registry = Fennar::instance().registry();
            for (const QString& name : registry.names()) {
                if (const auto command = registry.find(name); command && command->owner == owner)
                    send_command(u"help "_s + name);
            }
        });
    help->setObjectName(u"geometry_help"_s);
}

void GeometryWindow::update_actions()
{
    const qsizetype count = mDock ? mDock->selection().size() : 0;
    for (const auto& [action, least] : std::as_const(mSelectionActions))
        action->setEnabled(count >= least);
}

} // namespace fennar::geometry
