// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "acts.h"

#include "Stage.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "menus/PyAction.h"
#include "options/OptionsPanel.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Takes the component out of the window, and leaves what it has.
void leave(Stage& stage)
{
    Ostrel* const window = stage.window();
    if (!window)
        return;
    window->remove_menu_items("own");
    window->remove_toolbar_items("own");
    window->remove_dock_windows("own");
    window->options()->remove_panel(u"Own/Page"_s);
    window->command_line()->remove_command_tab(stage.page);
    window->command_line()->remove_command_tab(stage.other_page);
    stage.drop_formats();
}

void delete_actions(Stage& stage)
{
    if (Ostrel* const window = stage.window()) {
        window->remove_menu_items("own");
        window->remove_toolbar_items("own");
    }
    stage.menu_action.reset();
    stage.button_action.reset();
    delete stage.py_action.data();
}

void press(QObject* target, int key, const QString& text)
{
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text));
}

// The user types on, and the host announces work.
void deliver_events(Stage& stage)
{
    if (stage.page) {
        press(stage.page, Qt::Key_A, u"a"_s);
        press(stage.page, Qt::Key_Return, u"\r"_s);
    }
    if (stage.window()) {
        press(stage.window(), Qt::Key_F1, {});
        stage.frame->new_event();
    }
    QCoreApplication::processEvents();
}

void open_dialog(Stage& stage)
{
    QDialog dialog(stage.window());
    dialog.setObjectName(dialog_of_an_act);
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    // The window may go, and its dialogs with it, but this one stands on the stack.
    const QPointer<Ostrel> window(stage.window());
    dialog.exec();
    dialog.setParent(nullptr);
}

void unload(Stage& stage)
{
    // Also while it loads.
    if (stage.frame)
        stage.frame->unload_gui();
}

} // namespace

std::span<const Act> all_acts()
{
    static const Act acts[] = {
        {"nothing", [](Stage&) {}},
        {"own items removed", leave},
        {"items added",
         [](Stage& stage) {
             leave(stage);
             stage.menu_action.reset();
             stage.button_action.reset();
             delete stage.py_action.data();
             delete stage.dock.data();
             delete stage.other_page.data();
             stage.furnish();
         }},
        {"page removed",
         [](Stage& stage) {
             if (stage.console())
                 stage.console()->remove_command_tab(stage.page);
         }},
        {"page deleted", [](Stage& stage) { delete stage.page.data(); }},
        {"dock deleted", [](Stage& stage) { delete stage.dock.data(); }},
        {"actions deleted", delete_actions},
        {"actions deleted without a word",
         [](Stage& stage) {
             stage.menu_action.reset();
             stage.button_action.reset();
         }},
        {"graphics widget deleted", [](Stage& stage) { delete stage.graphics.data(); }},
        {"graphics widget changed",
         [](Stage& stage) {
             delete stage.graphics.data();
             stage.furnish();
         }},
        {"options page deleted", [](Stage& stage) { stage.drop_options_page(); }},
        {"options page deleted without a word", [](Stage& stage) { delete stage.options_page.data(); }},
        {"about page deleted", [](Stage& stage) { delete stage.about.data(); }},
        {"formats deleted", [](Stage& stage) { stage.drop_formats(); }},
        {"documents deleted", [](Stage& stage) { stage.drop_documents(); }},
        {"other documents plugged in",
         [](Stage& stage) {
             if (stage.file_menu())
                 stage.plug_documents();
         }},
        {"documents unplugged",
         [](Stage& stage) {
             if (stage.file_menu())
                 stage.file_menu()->set_open_save_handler(nullptr);
         }},
        {"journal deleted", [](Stage& stage) { delete stage.journal.data(); }},
        {"journal closed",
         [](Stage& stage) {
             if (!stage.journal)
                 return;
             stage.journal->document()->setModified(false);
             if (stage.editor())
                 stage.editor()->fileClose();
         }},
        {"console cleared",
         [](Stage& stage) {
             if (stage.console())
                 stage.console()->clear_contents();
         }},
        {"mode changed",
         [](Stage& stage) {
             if (stage.console())
                 stage.console()->set_python_mode(!HostDouble::instance().python_mode);
         }},
        {"window closed",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->close();
         }},
        {"window unloaded", unload},
        {"window unloaded, frame deleted",
         [](Stage& stage) {
             unload(stage);
             stage.frame.reset();
         }},
        {"dialog opened", open_dialog},
        {"events delivered", deliver_events},
        {"the same begun again",
         [](Stage& stage) {
             if (const auto again = stage.again)
                 again();
         }},
    };
    return acts;
}
