// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "host/fennari19/FennarInterface.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "support/dialogs.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/search/CommandFinder.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/search/SearchTest.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The command search bears whatever happens while it is open and whatever runs, and runs nothing that may
 * not. */
class TstFinderEndures : public SearchTest
{
    Q_OBJECT

private slots:
    void disabled_entry_is_gray_and_does_not_run();
    void entry_that_needs_a_component_says_so();
    void entry_that_is_disabled_at_the_last_moment_does_not_run();
    void page_that_goes_at_the_last_moment_opens_nothing();
    void dialog_that_comes_at_the_last_moment_is_not_joined();
    void component_comes_and_goes_while_it_is_open();
    void chosen_entry_may_unload_its_component();
    void chosen_entry_may_open_a_dialog();
    void chosen_entry_may_take_the_search_away();
    void nothing_runs_while_a_command_does();
    void command_that_began_meanwhile_is_not_joined();
    void chosen_entry_may_close_the_window();

private:
    static QAction* find_command()
    {
        const QList<QAction*> actions = window().journal_editor()->actions();
        const auto found = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
            return action->objectName() == u"findCommand"_s;
        });
        return found == actions.end() ? nullptr : *found;
    }
};

void TstFinderEndures::disabled_entry_is_gray_and_does_not_run()
{
    zebra().setEnabled(false);
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"-Zebra|Tools|"_s));
    QCOMPARE(hint(), u"Not available now."_s);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QCOMPARE(zebra_runs(), 0);
    QVERIFY(search());
}

void TstFinderEndures::entry_that_needs_a_component_says_so()
{
    look_for(u"save as"_s);
    QCOMPARE(rows(), QStringList(u"-Save As|File|"_s));
    QCOMPARE(hint(), u"No loaded component does this."_s);
}

void TstFinderEndures::entry_that_is_disabled_at_the_last_moment_does_not_run()
{
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    zebra().setEnabled(false);
    flush();
    QCOMPARE(zebra_runs(), 0);
    zebra().setEnabled(true);
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    delete_zebra();
    flush();
    QCOMPARE(zebra_runs(), 0);
}

void TstFinderEndures::page_that_goes_at_the_last_moment_opens_nothing()
{
    auto added = std::make_unique<QWidget>();
    window().options()->add_panel(u"Okapi"_s, added.get());
    look_for(u"okapi options"_s);
    QCOMPARE(rows(), QStringList(u"Okapi|Options|"_s));
    QTest::keyClick(field(), Qt::Key_Return);
    window().options()->remove_panel(u"Okapi"_s);
    DialogDriver none;
    flush();
    QVERIFY(none.finish());
}

void TstFinderEndures::dialog_that_comes_at_the_last_moment_is_not_joined()
{
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    QDialog dialog(&window());
    dialog.open();
    flush();
    QCOMPARE(zebra_runs(), 0);
    dialog.close();
}

void TstFinderEndures::component_comes_and_goes_while_it_is_open()
{
    look_for(u"demo"_s);
    QVERIFY(!rows().contains(u"Count|Demo|"_s));
    workbench().console()->run_line(u"load \"%1/demo.so\""_s.arg(QStringLiteral(TREE_COMPONENTS)));
    flush();
    QVERIFY2(!text().contains(u"ERROR"_s), qPrintable(text()));
    QVERIFY(search());
    const QStringList loaded = rows();
    for (const QString& row :
         {u"Count|Demo|"_s, u"Demo|Options > Plugins|"_s, u"Count|Command demo|"_s, u"Demo Dialog|View|"_s})
        QVERIFY2(loaded.contains(row), qPrintable(row + u" is not among\n"_s + loaded.join(u'\n')));
    workbench().console()->run_line(u"unload demo"_s);
    flush();
    QVERIFY(search());
    for (const QString& row : rows())
        QVERIFY2(!loaded.contains(row), qPrintable(row));
}

void TstFinderEndures::chosen_entry_may_unload_its_component()
{
    enter(u"load \"%1/demo.so\""_s.arg(QStringLiteral(TREE_COMPONENTS)));
    QPointer<QAction> reset = window().findChild<QAction*>(u"demoReset"_s);
    if (!reset) {
        for (QWidget* widget : window().findChildren<QWidget*>())
            for (QAction* action : widget->actions())
                if (action->objectName() == u"demoReset"_s)
                    reset = action;
    }
    QVERIFY(reset);
    connect(reset, &QAction::triggered, this, [this] { workbench().console()->run_line(u"unload demo"_s); });
    choose(u"demo reset"_s);
    QVERIFY2(!text().contains(u"ERROR"_s), qPrintable(text()));
    QVERIFY(!reset);
    look_for(u"demo reset"_s);
    QCOMPARE(rows(), QStringList());
}

void TstFinderEndures::chosen_entry_may_open_a_dialog()
{
    connect(&zebra(), &QAction::triggered, this, [] {
        QDialog dialog(&window());
        dialog.setObjectName(u"Dialog of the zebra"_s);
        dialog.exec();
    });
    DialogDriver driver;
    driver.expect(u"Dialog of the zebra"_s, [](QWidget* dialog) { dialog->close(); });
    choose(u"zebra"_s);
    QVERIFY(driver.finish());
    look_for(u"zebra"_s);
}

void TstFinderEndures::chosen_entry_may_take_the_search_away()
{
    // This one takes the entry of the other one along.
    QAction* own = find_command();
    QVERIFY(own);
    const auto back = qScopeGuard([own] { window().tools_menu()->add_item(own, "search"); });

    std::unique_ptr<CommandFinder> finder;
    finder = std::make_unique<CommandFinder>(
        &window(), Fennar::instance().registry(),
        CommandFinder::Services{[&finder](const QString&) { finder.reset(); }, nullptr});
    finder->open();
    QTest::keyClicks(field(), u"command components"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QVERIFY(!finder);
    QVERIFY(!search());

    // And so may whoever takes the window down while it is open.
    finder =
        std::make_unique<CommandFinder>(&window(), Fennar::instance().registry(), CommandFinder::Services{});
    finder->open();
    QVERIFY(search());
    finder.reset();
    QVERIFY(!search());
}

void TstFinderEndures::nothing_runs_while_a_command_does()
{
    const QString journal = write_temp(u"paused.jou"_s, "echo was_played\n");
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
    FennarInterface::pause_playback();
    QStringList during;
    QStringList all;
    QString told;
    // Its turns come while the paused journal waits, when input is dropped.
    QTimer turn;
    connect(&turn, &QTimer::timeout, this, [&] {
        if (during.isEmpty()) {
            during = rows();
            return;
        }
        turn.stop();
        during = rows();
        told = hint();
        QTest::keyClick(field(), Qt::Key_Return);
        // Opened by a script, say, it offers nothing, either.
        find_command()->trigger();
        field()->clear();
        all = rows();
        field()->setText(u"zebra"_s);
        FennarInterface::resume_playback();
    });
    turn.start(0);
    workbench().console()->run_line(u"play \"%1\""_s.arg(journal));
    flush();
    QCOMPARE(during, QStringList(u"-Zebra|Tools|"_s));
    QVERIFY2(told.contains(u"command is running"_s), qPrintable(told));
    QVERIFY(text().contains(u"\nwas_played"_s));
    QVERIFY(all.size() > 40);
    for (const QString& row : all)
        QVERIFY2(row.startsWith(u'-'), qPrintable(row));
    QCOMPARE(zebra_runs(), 0);
    QVERIFY(search());
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QCOMPARE(zebra_runs(), 1);
}

void TstFinderEndures::command_that_began_meanwhile_is_not_joined()
{
    const QString journal = write_temp(u"paused.jou"_s, "echo was_played\n");
    FennarInterface::pause_playback();
    QTimer turn;
    int runs_during = -1;
    connect(&turn, &QTimer::timeout, this, [&] {
        turn.stop();
        flush();
        runs_during = zebra_runs();
        FennarInterface::resume_playback();
    });
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    turn.start(0);
    workbench().console()->run_line(u"play \"%1\""_s.arg(journal));
    flush();
    QCOMPARE(runs_during, 0);
    QCOMPARE(zebra_runs(), 0);
    QVERIFY(text().contains(u"\nwas_played"_s));
}

void TstFinderEndures::chosen_entry_may_close_the_window()
{
    connect(&zebra(), &QAction::triggered, this, [] { window().close(); });
    choose(u"zebra"_s);
    QCOMPARE(zebra_runs(), 1);
    QVERIFY(!window().isVisible());
    QVERIFY(!search());
    QTRY_VERIFY(!QGuiApplication::focusWindow());
    QVERIFY(show_active(&window()));
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
}

OSTREL_TEST(TstFinderEndures)
#include "tst_finderendures.moc"
