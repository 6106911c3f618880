// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/GeometryWindow.h"

#include "frame/Ostrel.h"
#include "workbench/components/geometry/commands/geometry_parameters.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/window/GeometryDock.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
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
    make_solid_actions();
    make_change_actions();
    make_mesh_actions();
    add_dock();
    add_menu();
    context.add_to_toolbar("GeometryTools", tr("Geometry Tools"), mToolActions);
    connect(mDock, &GeometryDock::selection_changed, this, &GeometryWindow::update_actions);
    update_actions();
}

QAction* GeometryWindow::make_action(const char* command, const QString& text, const char* icon,
                                     CommandUse use)
{
    QAction* action = mContext.make_command_action(text, QLatin1StringView(command), use);
    action->setObjectName(u"geometry_"_s + QLatin1StringView(command));
    if (icon)
        action->setIcon(QIcon(u":/geometry/images/light/"_s + QLatin1StringView(icon)));
    return action;
}

QAction* GeometryWindow::make_selection_action(const char* command, const QString& text, const char* icon)
{
    QAction* action = make_action(command, text, icon, CommandUse::Run);
    const auto declared = Fennar::instance().registry().find(QLatin1StringView(command));
    const int least = declared->forms.first().clauses.first().parameters.first().at_least;
    mSelectionActions.append({action, least});
    set_disabled_reason(action,
                        least == 1 ? tr("No solid is selected.") : tr("Fewer than two solids are selected."));
    return action;
}

void GeometryWindow::make_solid_actions()
{
    mMenuActions = {make_action("brick", tr("Bric&k..."), "brick.svg"),
                    make_action("cylinder", tr("&Cylinder..."), "cylinder.svg"),
                    make_action("sphere", tr("&Sphere..."), "sphere.svg"),
                    make_action("cone", tr("C&one..."), "cone.svg"),
                    make_action("torus", tr("&Torus..."), "torus.svg")};
    mToolActions = mMenuActions;
}

void GeometryWindow::make_change_actions()
{
    QAction* unite = make_selection_action("unite", tr("&Unite"), "unite.svg");
    QAction* subtract = make_action("subtract", tr("Su&btract..."), "subtract.svg");
    QAction* intersect = make_selection_action("intersect", tr("&Intersect"), "intersect.svg");
    mDockActions = {make_action("move", tr("&Move...")),
                    make_action("rotate", tr("&Rotate...")),
                    make_action("copy", tr("Co&py...")),
                    make_action("rename", tr("Re&name...")),
                    nullptr,
                    unite,
                    subtract,
                    intersect,
                    nullptr,
                    make_selection_action("delete", tr("&Delete"))};
    mMenuActions.push_back(nullptr);
    mMenuActions.insert(mMenuActions.end(), mDockActions.begin(), mDockActions.end());
    mToolActions.insert(mToolActions.end(), {unite, subtract, intersect});
}

void GeometryWindow::make_mesh_actions()
{
    QAction* mesh = make_action("mesh", tr("M&esh..."), "mesh.svg");
    mMenuActions.insert(mMenuActions.end(),
                        {nullptr, make_action("list", tr("&List"), nullptr, CommandUse::Run), nullptr, mesh,
                         make_action("statistics", tr("Mesh St&atistics"), nullptr, CommandUse::Run),
                         make_action("quality", tr("Mesh &Quality"), nullptr, CommandUse::Run)});
    mToolActions.push_back(mesh);
}

void GeometryWindow::add_menu()
{
    mContext.add_to_menu(tr("&Geometry"), mMenuActions);
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

void GeometryWindow::add_dock()
{
    mContext.add_dock(mDock, Qt::LeftDockWidgetArea, Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    for (QAction* action : mDockActions) {
        if (action)
            mDock->context_menu()->addAction(action);
        else
            mDock->context_menu()->addSeparator();
    }
}

void GeometryWindow::update_actions()
{
    const qsizetype count = mDock ? mDock->selection().size() : 0;
    for (const auto& [action, least] : std::as_const(mSelectionActions))
        action->setEnabled(count >= least);
}

} // namespace fennar::geometry
