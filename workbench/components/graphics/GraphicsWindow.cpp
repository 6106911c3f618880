// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/GraphicsWindow.h"

#include "workbench/components/graphics/GraphicsView.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QAction>
#include <QIcon>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

QString settings_key(const DisplayOption& option)
{
    return u"/graphics/"_s + option.name;
}

} // namespace

GraphicsWindow::GraphicsWindow(ComponentContext& context, GraphicsState& state) : mState(state)
{
    setObjectName(u"GraphicsWindow"_s);
    restore_display();
    const std::vector<QAction*> actions = {
        nullptr, // parts it from what other components have in the menu
        make_sender(u"view front"_s, tr("&Front"), "Ctrl+Alt+1"),
        make_sender(u"view back"_s, tr("B&ack"), "Ctrl+Alt+2"),
        make_sender(u"view left"_s, tr("&Left"), "Ctrl+Alt+3"),
        make_sender(u"view right"_s, tr("&Right"), "Ctrl+Alt+4"),
        make_sender(u"view top"_s, tr("T&op"), "Ctrl+Alt+5"),
        make_sender(u"view bottom"_s, tr("&Bottom"), "Ctrl+Alt+6"),
        make_sender(u"view iso"_s, tr("&Isometric"), "Ctrl+Alt+7"),
        make_sender(u"fit"_s, tr("Fi&t"), "Ctrl+Alt+0"),
        make_switch(display_options[0], tr("&Shaded")),
        make_switch(display_options[1], tr("&Wireframe")),
        make_switch(display_options[2], tr("&Mesh")),
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

QAction* GraphicsWindow::make_action(const QString& command, const QString& text)
{
    const QString name = command.section(u' ', -1);
    auto* action = new QAction(QIcon(u":/graphics/images/light/%1.svg"_s.arg(name)), text, this);
    action->setObjectName(u"graphics_"_s + name);
    return action;
}

QAction* GraphicsWindow::make_sender(const QString& command, const QString& text, const char* shortcut)
{
    QAction* action = make_action(command, text);
    action->setShortcut(QKeySequence(QLatin1StringView(shortcut)));
    connect(action, &QAction::triggered, this, [command] { send_command(command); });
    return action;
}

QAction* GraphicsWindow::make_switch(const DisplayOption& option, const QString& text)
{
    const QString command = u"display "_s + option.name;
    QAction* action = make_action(command, text);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, command](bool on) {
        send_command(command + (on ? u" on"_s : u" off"_s));
        // The command may not have run.
        update_switches();
    });
    mSwitches.emplace_back(action, option.value);
    return action;
}

void GraphicsWindow::update_switches()
{
    for (const auto& [action, value] : mSwitches)
        action->setChecked(mState.display().*value);
}

void GraphicsWindow::restore_display()
{
    const QSettings settings;
    DisplayOptions display = mState.display();
    for (const DisplayOption& option : display_options)
        display.*option.value = settings.value(settings_key(option), display.*option.value).toBool();
    mState.set_display(display);
}

void GraphicsWindow::keep_display() const
{
    QSettings settings;
    for (const DisplayOption& option : display_options)
        settings.setValue(settings_key(option), mState.display().*option.value);
}

} // namespace fennar::graphics
