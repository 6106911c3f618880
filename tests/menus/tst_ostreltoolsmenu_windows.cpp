// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/ComponentTool.h"
#include "options/OptionsPanel.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

/** What the entries of the Tools menu open. */
class TstOstrelToolsMenuWindows : public MenuTestCase
{
    Q_OBJECT

private:
    OstrelToolsMenu* tools() const { return window()->tools_menu(); }
    void trigger(const QString& name) const { tools()->findChild<QAction*>(name)->trigger(); }
    JournalEditor* editor() const { return window()->journal_editor(); }
    QList<ComponentTool*> component_tools() const { return window()->findChildren<ComponentTool*>(); }

private slots:
    void journal_editor_is_shown_and_comes_to_the_front()
    {
        QVERIFY(show_active(window()));
        QVERIFY(!editor()->isVisible());
        trigger(u"mScriptAction"_s);
        QVERIFY(editor()->isVisible());
        QTRY_VERIFY(editor()->isActiveWindow());
        QVERIFY(show_active(window()));
        trigger(u"mScriptAction"_s);
        QTRY_VERIFY(editor()->isActiveWindow());
        editor()->hide();
    }

    void minimized_journal_editor_is_restored_and_comes_to_the_front()
    {
        editor()->showMinimized();
        QVERIFY(editor()->isMinimized());
        QVERIFY(show_active(window()));
        trigger(u"mScriptAction"_s);
        QVERIFY(editor()->isVisible() && !editor()->isMinimized());
        QTRY_VERIFY(editor()->isActiveWindow());
        editor()->hide();
    }

    void maximized_journal_editor_stays_so()
    {
        editor()->showMaximized();
        trigger(u"mScriptAction"_s);
        QVERIFY(editor()->isVisible() && editor()->isMaximized());
        editor()->hide();
    }

    void plugin_tool_is_made_once_and_is_not_modal()
    {
        QVERIFY(component_tools().isEmpty());
        trigger(u"mComponentAction"_s);
        QCOMPARE(component_tools().size(), 1);
        ComponentTool* const tool = component_tools().first();
        QCOMPARE(tool->parent(), window());
        QVERIFY(tool->isVisible() && !tool->isModal());
        trigger(u"mComponentAction"_s);
        QCOMPARE(component_tools(), QList<ComponentTool*>({tool}));
        QVERIFY(tool->isVisible());
        tool->close();
        trigger(u"mComponentAction"_s);
        QCOMPARE(component_tools(), QList<ComponentTool*>({tool}));
        QVERIFY(tool->isVisible());
        tool->close();
    }

    void plugin_tool_goes_with_the_menu()
    {
        auto* second = new OstrelToolsMenu(window());
        second->show_component_tool();
        const QPointer<ComponentTool> tool = component_tools().first();
        tool->close();
        delete second;
        QVERIFY(!tool);
    }

    void plugin_tool_deleted_by_others_is_made_anew()
    {
        trigger(u"mComponentAction"_s);
        delete component_tools().first();
        trigger(u"mComponentAction"_s);
        QCOMPARE(component_tools().size(), 1);
        QVERIFY(component_tools().first()->isVisible());
        delete component_tools().first();
    }

    void open_options_come_to_the_front_as_they_are()
    {
        OptionsPanel* const panel = window()->options();
        auto* tree = panel->findChild<QTreeWidget*>(u"mOptionList"_s);
        const QSignalSpy refreshed(panel, &OptionsPanel::refreshSettings);
        int row = -1;
        bool open_still = false;
        DialogDriver driver;
        driver.expect<OptionsPanel>([&](OptionsPanel* open) {
            tree->setCurrentItem(tree->topLevelItem(1));
            // Nests no second loop, of which Qt would warn.
            tools()->run_options();
            open_still = open->isVisible();
            row = tree->indexOfTopLevelItem(tree->currentItem());
            open->reject();
        });
        trigger(u"mOptionsAction"_s);
        QVERIFY(driver.finish());
        QVERIFY(open_still);
        QCOMPARE(row, 1);
        QCOMPARE(refreshed.count(), 1);
    }

    void window_may_be_deleted_while_the_options_open()
    {
        connect(window()->options(), &OptionsPanel::refreshSettings, this, [this] { delete_window(); });
        tools()->run_options();
        QVERIFY(!Ostrel::instance());
    }

    void window_may_be_deleted_under_the_options()
    {
        DialogDriver driver;
        driver.expect<OptionsPanel>([&](OptionsPanel*) { delete_window(); });
        tools()->run_options();
        QVERIFY(driver.finish());
        QVERIFY(!Ostrel::instance());
    }

    void options_are_refreshed_and_begin_on_the_first_item()
    {
        OptionsPanel* const panel = window()->options();
        auto* tree = panel->findChild<QTreeWidget*>(u"mOptionList"_s);
        QVERIFY(tree->topLevelItemCount() > 1);
        const QSignalSpy refreshed(panel, &OptionsPanel::refreshSettings);
        QList<int> rows;
        QList<bool> modal;
        QList<qsizetype> refreshes;
        DialogDriver driver;
        for (int round = 0; round < 2; ++round) {
            driver.expect<OptionsPanel>([&](OptionsPanel* open) {
                modal << (open->isModal() && QApplication::activeModalWidget() == open);
                rows << tree->indexOfTopLevelItem(tree->currentItem());
                refreshes << refreshed.count();
                tree->setCurrentItem(tree->topLevelItem(1));
                open->reject();
            });
            trigger(u"mOptionsAction"_s);
            QCOMPARE(tree->indexOfTopLevelItem(tree->currentItem()), 1);
        }
        QVERIFY(driver.finish());
        QCOMPARE(modal, QList<bool>({true, true}));
        QCOMPARE(rows, QList<int>({0, 0}));
        QCOMPARE(refreshes, QList<qsizetype>({1, 2}));
    }
};

OSTREL_TEST(TstOstrelToolsMenuWindows)
#include "tst_ostreltoolsmenu_windows.moc"
