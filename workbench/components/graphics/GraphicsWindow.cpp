// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/GraphicsWindow.h"

#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/components/graphics/GraphicsView.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QAction>
#include <QIcon>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

constexpr auto shaded_key = "/graphics/shaded"_L1;
constexpr auto wireframe_key = "/graphics/wireframe"_L1;
constexpr auto mesh_key = "/graphics/mesh"_L1;
constexpr auto opengl_key = "/graphics/opengl"_L1;

} // namespace

GraphicsWindow::GraphicsWindow(ComponentContext& context, GraphicsState& state) : mState(state)
{
    setObjectName(u"GraphicsWindow"_s);
    restore_display();
    const std::vector<QAction*> actions = {
        nullptr, // parts it from what other components have in the menu
        make_action("front", tr("&Front"), "front.svg", "Ctrl+Alt+1", "view front"),
        make_action("back", tr("B&ack"), "back.svg", "Ctrl+Alt+2", "view back"),
        make_action("left", tr("&Left"), "left.svg", "Ctrl+Alt+3", "view left"),
        make_action("right", tr("&Right"), "right.svg", "Ctrl+Alt+4", "view right"),
        make_action("top", tr("T&op"), "top.svg", "Ctrl+Alt+5", "view top"),
        make_action("bottom", tr("&Bottom"), "bottom.svg", "Ctrl+Alt+6", "view bottom"),
        make_action("iso", tr("&Isometric"), "iso.svg", "Ctrl+Alt+7", "view iso"),
        make_action("fit", tr("Fi&t"), "fit.svg", "Ctrl+Alt+0", "fit"),
        mShaded = make_switch("shaded", tr("&Shaded"), "shaded.svg"),
        mWireframe = make_switch("wireframe", tr("&Wireframe"), "wireframe.svg"),
        mMesh = make_switch("mesh", tr("&Mesh"), "mesh.svg"),
    };
    auto* const view = new GraphicsView(state);
    context.set_graphics_widget(view);
    context.add_to_menu(FixedMenu::View, actions);
    context.add_to_toolbar("GraphicsTools", tr("Graphics Tools"), actions);
    connect(&state, &GraphicsState::display_changed, this, &GraphicsWindow::update_switches);
    connect(&state, &GraphicsState::display_changed, this, &GraphicsWindow::keep_display);
    update_switches();
    connect(view, &GraphicsView::command_wanted, this, [](const QString& line) { send_command(line); });
}

QAction* GraphicsWindow::make_action(const char* name, const QString& text, const char* icon,
                                     const char* shortcut, const char* command)
{
    auto* action = new QAction(QIcon(u":/graphics/images/light/"_s + QLatin1StringView(icon)), text, this);
    action->setObjectName(u"graphics_"_s + QLatin1StringView(name));
    action->setShortcut(QKeySequence(QLatin1StringView(shortcut)));
    connect(action, &QAction::triggered, this, [command] { send_command(QString::fromLatin1(command)); });
    return action;
}

QAction* GraphicsWindow::make_switch(const char* name, const QString& text, const char* icon)
{
    auto* action = new QAction(QIcon(u":/graphics/images/light/"_s + QLatin1StringView(icon)), text, this);
    action->setObjectName(u"graphics_"_s + QLatin1StringView(name));
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, name](bool on) {
        send_command(u"display %1 %2"_s.arg(QLatin1StringView(name), on ? u"on"_s : u"off"_s));
        // The command may not have run.
        update_switches();
    });
    return action;
}

void GraphicsWindow::update_switches()
{
    mShaded->setChecked(mState.display().shaded);
    mWireframe->setChecked(mState.display().wireframe);
    mMesh->setChecked(mState.display().mesh);
}

void GraphicsWindow::restore_display()
{
    const QSettings settings;
    DisplayOptions display = mState.display();
    display.shaded = settings.value(shaded_key, display.shaded).toBool();
    display.wireframe = settings.value(wireframe_key, display.wireframe).toBool();
    display.mesh = settings.value(mesh_key, display.mesh).toBool();
    mState.set_display(display);
    mState.set_wants_opengl(settings.value(opengl_key, mState.wants_opengl()).toBool());
}

void GraphicsWindow::keep_display() const
{
    QSettings settings;
    settings.setValue(shaded_key, mState.display().shaded);
    settings.setValue(wireframe_key, mState.display().wireframe);
    settings.setValue(mesh_key, mState.display().mesh);
    settings.setValue(opengl_key, mState.wants_opengl());
}

} // namespace fennar::graphics
