// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "files/OstrelFileMenu.h"
#include "options/OptionsPanel.h"
#include "support/IdleDocuments.h"
#include "support/dialogs.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/search/SearchTest.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLineEdit>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

using namespace fennar;
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

/** What is chosen in the command search runs or opens, each kind in its way. */
class TstFinderRuns : public SearchTest
{
    Q_OBJECT

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
    void used_entries_come_first();
};

void TstFinderRuns::menu_entry_runs_with_the_focus_back()
{
    const QWidget* before = QApplication::focusWidget();
    const QWidget* during = nullptr;
    bool open = true;
    connect(&zebra(), &QAction::triggered, this, [&] {
        during = QApplication::focusWidget();
        open = search();
    });
    choose(u"zeb"_s);
    QCOMPARE(zebra_runs(), 1);
    QVERIFY(during && during == before);
    QVERIFY(!open);
}

void TstFinderRuns::click_runs_as_well()
{
    look_for(u"zeb"_s);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualRect(list()->model()->index(0, 1)).center());
    flush();
    QCOMPARE(zebra_runs(), 1);
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
    Fennar::instance().registry().add({.name = u"zigzag"_s,
                                       .owner = u"test"_s,
                                       .perform = [](CommandCall&, const CommandArguments&) {},
                                       .forms = {{.clauses = {required_value({.name = u"NUMBER"_s})}}}});
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

OSTREL_TEST(TstFinderRuns)
#include "tst_finderruns.moc"
