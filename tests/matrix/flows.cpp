// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "flows.h"

#include "Stage.h"
#include "frame/Ostrel.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"

#include <QContextMenuEvent>
#include <QTest>

using namespace Qt::StringLiterals;

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
             // What comes of unsaved data is a flow of the file menu.
             if (stage.documents)
                 stage.documents->modified = false;
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
        {"settings saved",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->save_settings();
         }},
    };
    return flows;
}
