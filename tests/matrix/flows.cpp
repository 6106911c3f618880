// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "flows.h"

#include "Stage.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

void key(const QPointer<CommandWidget>& page, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    if (page)
        QTest::keyClick(page.data(), key, modifiers);
}

void open_context_menu(QWidget* widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(widget, &event);
}

// What the framework has to say goes to the console, if there is one.
template <class Say>
void say(Stage& stage, Say&& words)
{
    if (OutputHandler* output = stage.console())
        words(*output);
}

} // namespace

std::span<const Flow> window_flows()
{
    static const Flow flows[] = {
        {"loading", [](Stage& stage) { stage.load(); }, true},
        {"unloading",
         [](Stage& stage) {
             if (stage.frame && stage.frame->is_loaded())
                 stage.frame->unload_gui();
         }},
        {"closing",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->close();
         }},
        {"help key",
         [](Stage& stage) {
             if (stage.window())
                 QTest::keyClick(stage.window(), Qt::Key_F1);
         }},
        {"context menu of the window",
         [](Stage& stage) {
             if (!stage.window())
                 return;
             QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
             stage.window()->display_context_menu(&event);
         }},
        {"menu entry",
         [](Stage& stage) {
             if (stage.menu_action)
                 stage.menu_action->trigger();
         }},
        {"tool button",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->push_tool_button("own", "toolbar", true);
             if (stage.button_action)
                 stage.button_action->trigger();
         }},
        {"script",
         [](Stage& stage) {
             if (stage.py_action)
                 stage.py_action->actionActivated();
         }},
        {"docks",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->view_menu()->hide_dock_window(u"Own"_s);
             if (stage.window())
                 stage.window()->view_menu()->show_dock_window(u"Own"_s);
         }},
        {"graphics",
         [](Stage& stage) {
             if (!stage.window())
                 return;
             delete stage.graphics.data();
             stage.graphics = new QWidget;
             if (stage.window())
                 stage.window()->set_graphics_widget(stage.graphics);
         }},
        {"work announced",
         [](Stage& stage) {
             if (!stage.frame)
                 return;
             stage.frame->new_event();
             QCoreApplication::processEvents();
         }},
        {"components come and go",
         [](Stage& stage) {
             stage.announce(&ComponentTracker::component_loading);
             stage.announce(&ComponentTracker::component_loaded);
             stage.announce(&ComponentTracker::component_unloading);
             stage.announce(&ComponentTracker::component_unloaded);
         }},
        {"progress",
         [](Stage& stage) {
             const auto step = [&](auto&& call) {
                 if (stage.frame && stage.frame->is_loaded())
                     call(*stage.frame);
             };
             step([](MainFrame& frame) { frame.start_progress_session("Work", 1); });
             step([](MainFrame& frame) { frame.enable_cancel(true); });
             step([](MainFrame& frame) { frame.new_event(); });
             step([](MainFrame& frame) { frame.update_progress_session("More work", 50); });
             step([](MainFrame& frame) { frame.check_interrupt_session("Work"); });
             if (stage.window())
                 stage.window()->cancel_progress();
             step([](MainFrame& frame) { frame.end_progress_session("Work"); });
         }},
        {"pause",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->tools_menu()->pause_playback(true);
             if (stage.window())
                 stage.window()->tools_menu()->pause_playback(false);
         }},
        {"a line typed",
         [](Stage& stage) {
             key(stage.page, Qt::Key_L);
             key(stage.page, Qt::Key_Up);
             key(stage.page, Qt::Key_Down);
             key(stage.page, Qt::Key_Return);
         }},
        {"lines pasted",
         [](Stage& stage) {
             QGuiApplication::clipboard()->setText(u"one\ntwo\nthree"_s);
             key(stage.page, Qt::Key_V, Qt::ControlModifier);
         }},
        {"context menu of a page",
         [](Stage& stage) {
             if (stage.page)
                 open_context_menu(stage.page->viewport());
         }},
        {"output",
         [](Stage& stage) {
             say(stage, [](OutputHandler& output) { output.print_data(u"a line\n"_s); });
             say(stage, [](OutputHandler& output) { output.print_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.append_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.insert_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.set_read_only(true); });
             say(stage, [](OutputHandler& output) { output.set_read_only(false); });
             say(stage, [](OutputHandler& output) { output.print_prompt(false, nullptr); });
         }},
        {"console cleared",
         [](Stage& stage) {
             if (stage.console())
                 stage.console()->clear_contents();
         }},
        {"mode buttons",
         [](Stage& stage) {
             for (const QString& mode : {u"mPythonAction"_s, u"mFennarAction"_s}) {
                 if (stage.console())
                     stage.console()->findChild<QAction*>(mode)->trigger();
             }
         }},
        {"settings saved",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->save_settings();
         }},
    };
    return flows;
}
