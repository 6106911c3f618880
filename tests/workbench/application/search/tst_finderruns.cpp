// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "host/fennari19/FennarInterface.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "support/IdleDocuments.h"
#include "support/dialogs.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/search/CommandFinder.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/search/SearchTest.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

/** A model file handler that notes what it is asked to open. */
class Models : public IdleDocuments
{
public:
    void open_file(const QString& file) override { opened << file; }

    QStringList opened;
};

} // namespace

/** What is chosen in the command search runs, and the search bears whatever that does. */
class TstFinderRuns : public SearchTest
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void menu_entry_runs_with_the_focus_back();
    void click_runs_as_well();
    void command_runs_as_if_typed();
    void command_runs_in_python_mode_as_well();
    void command_with_arguments_opens_its_form();
    void command_without_a_form_comes_to_the_prompt();
    void page_of_the_options_opens();
    void recent_file_opens_as_from_the_menu();
    void missing_recent_file_is_told_of();
    void disabled_entry_is_gray_and_does_not_run();
    void entry_that_is_disabled_at_the_last_moment_does_not_run();
    void component_comes_and_goes_while_it_is_open();
    void chosen_entry_may_unload_its_component();
    void chosen_entry_may_open_a_dialog();
    void chosen_entry_may_take_the_search_away();
    void nothing_runs_while_a_command_does();
    void command_that_began_meanwhile_is_not_joined();
    void used_entries_come_first();
    void chosen_entry_may_close_the_window();

private:
    std::unique_ptr<QAction> mZebra;
    int mRuns = 0;
};

void TstFinderRuns::set_up()
{
    SearchTest::set_up();
    page()->clearToPrompt();
    mRuns = 0;
    mZebra = std::make_unique<QAction>(u"&Zebra..."_s);
    connect(mZebra.get(), &QAction::triggered, this, [this] { ++mRuns; });
    window().tools_menu()->add_item(mZebra.get(), "test");
}

void TstFinderRuns::tear_down()
{
    if (Ostrel::instance())
        window().tools_menu()->remove_component_items("test");
    mZebra.reset();
    SearchTest::tear_down();
}

void TstFinderRuns::menu_entry_runs_with_the_focus_back()
{
    const QWidget* before = QApplication::focusWidget();
    const QWidget* during = nullptr;
    bool open = true;
    connect(mZebra.get(), &QAction::triggered, this, [&] {
        during = QApplication::focusWidget();
        open = search();
    });
    choose(u"zeb"_s);
    QCOMPARE(mRuns, 1);
    QVERIFY(during && during == before);
    QVERIFY(!open);
}

void TstFinderRuns::click_runs_as_well()
{
    look_for(u"zeb"_s);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualRect(list()->model()->index(0, 1)).center());
    flush();
    QCOMPARE(mRuns, 1);
    QVERIFY(!search());
}

void TstFinderRuns::command_runs_as_if_typed()
{
    look_for(u"command components"_s);
    QCOMPARE(rows().constFirst(), u"List Components|Command components|"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    const QString said = text();
    QVERIFY2(said.startsWith(u"Fennar>components\n"_s), qPrintable(said));
    QCOMPARE(workbench().console()->history().entries().constLast(), u"components"_s);
}

void TstFinderRuns::command_runs_in_python_mode_as_well()
{
    python_mode(true);
    const auto back = qScopeGuard([this] { python_mode(false); });
    choose(u"command components"_s);
    QCOMPARE(workbench().console()->history().entries().constLast(), u"fennar.cmd('components')"_s);
}

void TstFinderRuns::command_with_arguments_opens_its_form()
{
    auto* panel = window().findChild<QDockWidget*>(u"FennarCommandPanel"_s);
    QVERIFY(panel);
    panel->hide();
    choose(u"command echo"_s);
    // "echo" needs no argument; "play" does.
    QVERIFY(text().startsWith(u"Fennar>echo\n"_s));
    choose(u"play command"_s);
    QVERIFY(panel->isVisible());
    const auto* form = panel->findChild<CommandForm*>();
    QVERIFY(form && form->isVisible());
    QCOMPARE(form->findChild<QLineEdit*>(u"commandLine"_s)->text(), u"play"_s);
    QVERIFY(form->isAncestorOf(QApplication::focusWidget()));
}

void TstFinderRuns::command_without_a_form_comes_to_the_prompt()
{
    Fennar::instance().registry().add(
        {.name = u"zigzag"_s, .usage = u"zigzag NUMBER"_s, .owner = u"test"_s, .run = [](CommandCall&) {}});
    const auto gone = qScopeGuard([] { Fennar::instance().registry().remove_owner(u"test"_s); });
    choose(u"zigzag"_s);
    QCOMPARE(text(), u"Fennar>zigzag "_s);
    QCOMPARE(QApplication::focusWidget(), page());
    page()->clearToPrompt();
    python_mode(true);
    choose(u"zigzag"_s);
    QTest::keyClicks(page(), u"5"_s);
    QVERIFY2(text().endsWith(u"fennar.cmd('zigzag 5')"_s), qPrintable(text()));
    page()->setCurrentCommand({});
    python_mode(false);
}

void TstFinderRuns::page_of_the_options_opens()
{
    DialogDriver driver;
    QString shown;
    driver.expect<OptionsPanel>([&shown](OptionsPanel* panel) {
        shown = panel->findChild<QStackedWidget*>()->currentWidget()->windowTitle();
        panel->close();
    });
    choose(u"options panel"_s);
    QVERIFY(driver.finish());
    QCOMPARE(shown, u"Panel"_s);
}

void TstFinderRuns::recent_file_opens_as_from_the_menu()
{
    Models models;
    window().file_menu()->set_open_save_handler(&models);
    const auto out = qScopeGuard([] { window().file_menu()->set_open_save_handler(nullptr); });
    for (const QString& name : {u"first.mdl"_s, u"last.mdl"_s})
        window().file_menu()->recent_file(write_temp(name, {}));
    choose(u"first recent"_s);
    QCOMPARE(models.opened, QStringList(temp_path(u"first.mdl"_s)));
    std::vector<QString> files;
    window().file_menu()->get_recent_files(files);
    QCOMPARE(files.at(0), temp_path(u"first.mdl"_s));
}

void TstFinderRuns::missing_recent_file_is_told_of()
{
    window().file_menu()->recent_file(write_temp(u"stays.mdl"_s, {}));
    window().file_menu()->recent_file(temp_path(u"gone.mdl"_s));
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    choose(u"gone.mdl"_s);
    QVERIFY(driver.finish());
    look_for(u"gone.mdl"_s);
    QCOMPARE(rows(), QStringList());
}

void TstFinderRuns::disabled_entry_is_gray_and_does_not_run()
{
    mZebra->setEnabled(false);
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"-Zebra|Tools|"_s));
    QCOMPARE(hint(), u"Not available now."_s);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QCOMPARE(mRuns, 0);
    QVERIFY(search());
}

void TstFinderRuns::entry_that_is_disabled_at_the_last_moment_does_not_run()
{
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    mZebra->setEnabled(false);
    flush();
    QCOMPARE(mRuns, 0);
    mZebra->setEnabled(true);
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    mZebra.reset();
    flush();
    QCOMPARE(mRuns, 0);
}

void TstFinderRuns::component_comes_and_goes_while_it_is_open()
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

void TstFinderRuns::chosen_entry_may_unload_its_component()
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

void TstFinderRuns::chosen_entry_may_open_a_dialog()
{
    connect(mZebra.get(), &QAction::triggered, this, [] {
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

void TstFinderRuns::chosen_entry_may_take_the_search_away()
{
    // This one takes the entry of the other one along.
    const QList<QAction*> actions = window().journal_editor()->actions();
    const auto own = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->objectName() == u"findCommand"_s;
    });
    QVERIFY(own != actions.end());
    const auto back = qScopeGuard([action = *own] { window().tools_menu()->add_item(action, "search"); });

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

void TstFinderRuns::nothing_runs_while_a_command_does()
{
    const QString journal = write_temp(u"paused.jou"_s, "echo was_played\n");
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
    FennarInterface::pause_playback();
    QStringList during;
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
        mZebra->setProperty("seen", true);
        // Who gets round that finds nothing that can be run, either.
        window().findChild<QAction*>(u"findCommand"_s);
        FennarInterface::resume_playback();
    });
    turn.start(0);
    workbench().console()->run_line(u"play \"%1\""_s.arg(journal));
    flush();
    QCOMPARE(during, QStringList(u"-Zebra|Tools|"_s));
    QVERIFY2(told.contains(u"command is running"_s), qPrintable(told));
    QVERIFY(text().contains(u"\nwas_played"_s));
    QCOMPARE(mRuns, 0);
    QVERIFY(search());
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QCOMPARE(mRuns, 1);
}

void TstFinderRuns::command_that_began_meanwhile_is_not_joined()
{
    const QString journal = write_temp(u"paused.jou"_s, "echo was_played\n");
    FennarInterface::pause_playback();
    QTimer turn;
    int runs_during = -1;
    connect(&turn, &QTimer::timeout, this, [&] {
        turn.stop();
        flush();
        runs_during = mRuns;
        FennarInterface::resume_playback();
    });
    look_for(u"zebra"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    turn.start(0);
    workbench().console()->run_line(u"play \"%1\""_s.arg(journal));
    flush();
    QCOMPARE(runs_during, 0);
    QCOMPARE(mRuns, 0);
    QVERIFY(text().contains(u"\nwas_played"_s));
}

void TstFinderRuns::used_entries_come_first()
{
    look_for({});
    QVERIFY(rows().constFirst() != u"Zebra|Tools|"_s);
    QTest::keyClick(field(), Qt::Key_Escape);
    choose(u"zebra"_s);
    look_for({});
    QCOMPARE(rows().constFirst(), u"Zebra|Tools|"_s);
    QTest::keyClick(field(), Qt::Key_Escape);
    choose(u"command components"_s);
    look_for({});
    QCOMPARE(rows().mid(0, 2), QStringList({u"List Components|Command components|"_s, u"Zebra|Tools|"_s}));
}

void TstFinderRuns::chosen_entry_may_close_the_window()
{
    connect(mZebra.get(), &QAction::triggered, this, [] { window().close(); });
    choose(u"zebra"_s);
    QCOMPARE(mRuns, 1);
    QVERIFY(!window().isVisible());
    QVERIFY(!search());
    QTRY_VERIFY(!QGuiApplication::focusWindow());
    QVERIFY(show_active(&window()));
    look_for(u"zebra"_s);
    QCOMPARE(rows(), QStringList(u"Zebra|Tools|"_s));
}

OSTREL_TEST(TstFinderRuns)
#include "tst_finderruns.moc"
