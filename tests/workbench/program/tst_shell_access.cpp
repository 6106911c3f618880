// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "support/MarkingTranslator.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/component/shell_access.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QTreeWidgetItem>

using namespace fennar;
using namespace Qt::StringLiterals;

/** That the kit and the program find what they need of the shell's windows, by the names that the shell gives
 * them. */
class TstShellAccess : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }

private slots:
    void cancel_button_cancels();
    void plugin_tool_is_there_once_it_has_been_opened();
    void closing_action_closes_the_document();
    void pages_of_the_options_are_listed_as_they_stand();
    void entry_of_the_options_is_found_by_its_path();
    void import_menu_has_what_is_added_to_it();
    void buttons_of_a_toolbar_that_wait_for_it_are_deleted();
    void recent_files_are_found_in_the_menu();
    void entries_that_need_a_component_are_those_of_the_menu();
    void menus_are_titled_as_in_the_menu_bar();
    void tabs_hold_the_documents();
    void document_tells_its_file();
    void nothing_is_found_without_a_window();
};

void TstShellAccess::cancel_button_cancels()
{
    QAbstractButton* button = cancel_button(&window());
    QVERIFY(button);
    QCOMPARE(button->window(), &window());
    clear_interrupt();
    const bool was_enabled = button->isEnabled();
    button->setEnabled(true);
    button->click();
    button->setEnabled(was_enabled);
    QVERIFY(interrupt_requested());
    clear_interrupt();
}

void TstShellAccess::plugin_tool_is_there_once_it_has_been_opened()
{
    QVERIFY(!plugin_tool(&window()));
    enter(u"show plugins"_s);
    QDialog* tool = plugin_tool(&window());
    QVERIFY(tool && tool->isVisible());
    tool->hide();
    QCOMPARE(plugin_tool(&window()), tool);
    QVERIFY(plugin_list(tool));
}

void TstShellAccess::closing_action_closes_the_document()
{
    JournalEditor* editor = window().journal_editor();
    editor->add_document(u"list\n"_s);
    editor->add_document(u"brick 1 2 3\n"_s);
    const QTabWidget* tabs = journal_tabs(editor);
    const int count = tabs->count();
    current_journal(editor)->document()->setModified(false);
    close_journal_action(editor)->trigger();
    QCOMPARE(tabs->count(), count - 1);
}

void TstShellAccess::pages_of_the_options_are_listed_as_they_stand()
{
    OptionsPanel* panel = window().options();
    const QStringList before = option_pages(panel);
    QVERIFY(!before.isEmpty());
    auto* page = new QWidget;
    panel->add_panel(u"Shell access/Page"_s, page);
    const QStringList now = option_pages(panel);
    const qsizetype group = now.indexOf(u"Shell access"_s);
    QVERIFY(group >= 0);
    QCOMPARE(now.value(group + 1), u"Shell access/Page"_s);
    QCOMPARE(now.size(), before.size() + 2);
    panel->remove_panel(u"Shell access/Page"_s);
    panel->remove_panel(u"Shell access"_s);
    delete page;
    QCOMPARE(option_pages(panel), before);
}

void TstShellAccess::entry_of_the_options_is_found_by_its_path()
{
    OptionsPanel* options = window().options();
    auto* page = new QWidget;
    options->add_panel(u"Group/Page"_s, page);
    QVERIFY(options_entry(*options, u"Group"_s));
    QCOMPARE(options_entry(*options, u"Group/Page"_s)->parent(), options_entry(*options, u"Group"_s));
    QVERIFY(!options_entry(*options, u"Page"_s));
    options->remove_panel(u"Group/Page"_s);
    options->remove_panel(u"Group"_s);
    delete page;
    QVERIFY(!options_entry(*options, u"Group"_s));
}

void TstShellAccess::import_menu_has_what_is_added_to_it()
{
    QAction action(u"Here"_s);
    window().journal_editor()->add_action_to_import_menu(&action);
    const QMenu* menu = import_menu(*window().journal_editor());
    QVERIFY(menu && menu->actions().contains(&action));
}

void TstShellAccess::buttons_of_a_toolbar_that_wait_for_it_are_deleted()
{
    QToolBar bar;
    QAction* action = bar.addAction(u"Here"_s);
    const QPointer<QWidget> button = bar.widgetForAction(action);
    QAction* other = bar.addAction(u"There"_s);
    QVERIFY(button);
    delete_waiting_buttons(bar);
    QVERIFY(button);
    bar.removeAction(action); // its button waits
    delete_waiting_buttons(bar);
    QVERIFY(!button);
    QVERIFY(bar.widgetForAction(other));
}

void TstShellAccess::recent_files_are_found_in_the_menu()
{
    QCOMPARE(recent_file_actions(&window()).size(), 0);
    const QStringList names = {u"/a/first.mdl"_s, u"/a/rather/long/name/of/a/directory/second.mdl"_s};
    for (const QString& name : names)
        window().file_menu()->recent_file(name);
    window().file_menu()->recent_import(u"import stl '/a/third.stl'"_s);
    const auto found = recent_file_actions(&window());
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].first, names[1]);
    QCOMPARE(found[1].first, names[0]);
    QVERIFY(found[0].second->text().endsWith(u"/second.mdl"_s));
    QCOMPARE(found[1].second->text(), u"&2 /a/first.mdl"_s);
}

void TstShellAccess::entries_that_need_a_component_are_those_of_the_menu()
{
    QStringList texts;
    const QList<QAction*> actions = file_actions(&window());
    for (const QAction* action : actions) {
        QVERIFY(!action->isEnabled());
        texts << action->text();
    }
    QCOMPARE(texts, QStringList({u"&New"_s, u"&Open..."_s, u"&Save"_s, u"Save &As..."_s, u"&Import..."_s,
                                 u"&Export..."_s}));
}

void TstShellAccess::menus_are_titled_as_in_the_menu_bar()
{
    QStringList titles;
    for (const QAction* menu : window().menuBar()->actions())
        titles << menu->text();
    for (const char* title : {"&File", "&View", "&Tools", "&Help"})
        QVERIFY2(titles.contains(main_menu_title(title)), title);
    QCOMPARE(main_menu_title("&Geometry"), u"&Geometry"_s);
    const MarkingTranslator marks("Ostrel");
    QCOMPARE(main_menu_title("&Tools"), u"<&Tools>"_s);
}

void TstShellAccess::tabs_hold_the_documents()
{
    JournalEditor* editor = window().journal_editor();
    editor->add_document(u"# one\n"_s);
    QTabWidget* tabs = journal_tabs(editor);
    QVERIFY(tabs && tabs->count() > 0);
    QPlainTextEdit* document = current_journal(editor);
    QCOMPARE(document->toPlainText(), u"# one\n"_s);
    QCOMPARE(journal_document(tabs->currentWidget()), document);
    QPlainTextEdit other;
    QVERIFY(!journal_document(&other));
    document->document()->setModified(false);
}

void TstShellAccess::document_tells_its_file()
{
    JournalEditor* editor = window().journal_editor();
    editor->add_document(u"# without a file\n"_s);
    QPlainTextEdit* document = current_journal(editor);
    QVERIFY(journal_file(document).isEmpty());
    document->document()->setModified(false);
    const QString file = write_temp(u"part.jou"_s, "list\n");
    editor->open_file(file);
    QCOMPARE(journal_file(current_journal(editor)), file);
    QPlainTextEdit other;
    QVERIFY(journal_file(&other).isEmpty());
    QVERIFY(journal_file(nullptr).isEmpty());
}

void TstShellAccess::nothing_is_found_without_a_window()
{
    QVERIFY(!cancel_button(nullptr));
    QVERIFY(!plugin_tool(nullptr));
    QVERIFY(!close_journal_action(nullptr));
    QVERIFY(option_pages(nullptr).isEmpty());
    QVERIFY(recent_file_actions(nullptr).isEmpty());
    QVERIFY(file_actions(nullptr).isEmpty());
    QVERIFY(!journal_tabs(nullptr));
    QVERIFY(!current_journal(nullptr));
    QVERIFY(!journal_document(nullptr));
}

OSTREL_TEST(TstShellAccess)

#include "tst_shell_access.moc"
