// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "options/OptionsPanel.h"
#include "support/describe_window.h"
#include "support/leftovers.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The component in the whole application, as a user meets it. */
class TstGeometryComponent : public WorkbenchTest
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;
    void after_workbench() override { QCOMPARE(child_processes(), QList<int>()); }

private slots:
    void window_is_as_before_after_each_unload();
    void menu_toolbar_and_dock_are_there();
    void form_sends_its_command_to_the_console();
    void form_with_a_wrong_field_sends_nothing();
    void form_goes_with_the_component();
    void tree_follows_the_model();
    void selection_decides_what_can_be_chosen();
    void delete_in_the_tree_sends_a_command();
    void subtract_form_is_filled_from_the_selection();
    void form_remembers_values_but_no_names();
    void entries_tell_what_the_commands_tell();
    void keys_of_undo_are_those_of_text_in_text();
    void played_journal_is_undone_as_a_whole();
    void python_gets_the_errors_of_commands();
    void cancel_button_ends_the_mesher();
    void bar_shows_progress();
    void bar_stays_as_it_is_for_a_quality_that_is_known();
    void closed_dock_comes_to_no_harm();
    void batch_run_meshes_and_keeps_standard_output_clean();

private:
    /** The action that a user finds in the menus; null if there is none. */
    static QAction* find_action(const char* name);
    /** Returns whether there is such an action. */
    static bool trigger(const char* name);
    static QTreeWidget* tree() { return Ostrel::instance()->findChild<QTreeWidget*>(u"GeometryModelTree"_s); }
    /** The rows of the solids, each as "name volume". */
    static QStringList rows();
    static void select(const QStringList& names);
    static QWidget* form(const char* command)
    {
        return Ostrel::instance()->findChild<QWidget*>(u"commandDialog_"_s + QLatin1StringView(command));
    }
    static void fill(QWidget* form, const QString& field, const QString& text)
    {
        form->findChild<QLineEdit*>(field)->setText(text);
    }
    static QString line(QWidget* form) { return form->findChild<QLineEdit*>(u"commandLine"_s)->text(); }
    static QPushButton* ok(QWidget* form)
    {
        return form->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }

    QTemporaryDir mDirectory;
};

void TstGeometryComponent::set_up()
{
    // The component goes behind each function, with all that it has made.
    OstrelFileMenu::set_save_prompt(false);
    page()->clearToPrompt();
    const QString answer = enter(u"load "_s + QStringLiteral(GEOMETRY));
    QVERIFY2(!answer.contains(u"ERROR"), qPrintable(answer));
    QVERIFY(Fennar::instance().registry().find(u"brick"_s));
}

void TstGeometryComponent::tear_down()
{
    if (Fennar::instance().registry().find(u"brick"_s)) {
        const QString answer = enter(u"unload geometry"_s);
        QVERIFY2(!answer.contains(u"ERROR") && !answer.contains(u"left behind"), qPrintable(answer));
    }
    QVERIFY(!Fennar::instance().registry().find(u"brick"_s));
}

QAction* TstGeometryComponent::find_action(const char* name)
{
    const auto menus = Ostrel::instance()->findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        const QList<QAction*> actions = menu->actions();
        for (QAction* action : actions) {
            if (action->objectName() == u"geometry_"_s + QLatin1StringView(name))
                return action;
        }
    }
    return nullptr;
}

bool TstGeometryComponent::trigger(const char* name)
{
    QAction* action = find_action(name);
    if (action)
        action->trigger();
    flush();
    return action;
}

QStringList TstGeometryComponent::rows()
{
    flush();
    QStringList result;
    const QTreeWidgetItem* solids = tree()->topLevelItem(0);
    for (int i = 0; i < solids->childCount(); ++i)
        result << solids->child(i)->text(0) + u' ' + solids->child(i)->text(1);
    return result;
}

void TstGeometryComponent::select(const QStringList& names)
{
    flush();
    tree()->clearSelection();
    QTreeWidgetItem* solids = tree()->topLevelItem(0);
    for (int i = 0; i < solids->childCount(); ++i)
        solids->child(i)->setSelected(names.contains(solids->child(i)->text(0)));
}

void TstGeometryComponent::window_is_as_before_after_each_unload()
{
    enter(u"unload geometry"_s);
    flush();
    const QStringList before = describe_window(*Ostrel::instance());
    QVERIFY(!before.join(u'\n').contains(u"Geometry"));
    for (int i = 0; i < 5; ++i) {
        enter(u"load "_s + QStringLiteral(GEOMETRY));
        QVERIFY(describe_window(*Ostrel::instance()) != before);
        QVERIFY(enter(u"brick 2"_s).contains(u"brick1: volume 8"));
        QVERIFY(enter(u"mesh size 1"_s).contains(u"volume elements"));
        QVERIFY(trigger("sphere"));
        QVERIFY(!enter(u"unload geometry"_s).contains(u"left behind"));
        flush();
        QCOMPARE(describe_window(*Ostrel::instance()), before);
    }
}

void TstGeometryComponent::menu_toolbar_and_dock_are_there()
{
    Ostrel* window = Ostrel::instance();
    auto* toolbar = window->findChild<QToolBar*>(u"GeometryTools"_s);
    QVERIFY(toolbar && toolbar->isVisible());
    QCOMPARE(toolbar->actions().size(), 9);
    for (const QAction* button : toolbar->actions())
        QVERIFY2(!button->icon().pixmap(22).isNull(), qPrintable(button->objectName()));
    auto* dock = window->findChild<QDockWidget*>(u"GeometryModelDock"_s);
    QVERIFY(dock && dock->isVisible());
    QCOMPARE(dock->windowTitle(), u"Model"_s);
    const QString description = describe_window(*window).join(u'\n');
    QVERIFY(description.contains(u"&Geometry"_s));
    QVERIFY(description.contains(u"geometry_help"_s));
}

void TstGeometryComponent::form_sends_its_command_to_the_console()
{
    QVERIFY(trigger("cylinder"));
    QWidget* dialog = form("cylinder");
    QVERIFY(dialog && dialog->isVisible());
    fill(dialog, u"valueRADIUS"_s, u"2"_s);
    fill(dialog, u"valueHEIGHT"_s, u" 3.5 "_s);
    fill(dialog, u"valueatX"_s, u"1"_s);
    fill(dialog, u"valueatY"_s, u"2"_s);
    fill(dialog, u"valueatZ"_s, u" 3"_s);
    fill(dialog, u"valuealongX"_s, {});
    fill(dialog, u"valueNAME"_s, u"rod"_s);
    QCOMPARE(line(dialog), u"cylinder 2 3.5 at 1 2 3 name rod"_s);
    page()->clearToPrompt();
    ok(dialog)->click();
    flush();
    QVERIFY2(
        page()->toPlainText().startsWith(u"Fennar>cylinder 2 3.5 at 1 2 3 name rod\nrod: volume 43.9823\n"_s),
        qPrintable(page()->toPlainText()));
    QCOMPARE(workbench().console()->history().entries().last(), u"cylinder 2 3.5 at 1 2 3 name rod"_s);
    QVERIFY(!form("cylinder"));
}

void TstGeometryComponent::form_with_a_wrong_field_sends_nothing()
{
    QVERIFY(trigger("brick"));
    QWidget* dialog = form("brick");
    QVERIFY(dialog && !ok(dialog)->isEnabled());
    fill(dialog, u"valueWIDTH"_s, u"1"_s);
    QVERIFY(ok(dialog)->isEnabled());
    for (const QString& wrong : {u"x"_s, QString(), u"1,5"_s, u"1 2"_s, u"nan"_s}) {
        fill(dialog, u"valueWIDTH"_s, wrong);
        QVERIFY2(!ok(dialog)->isEnabled(), qPrintable(wrong));
        QTest::keyClick(dialog->findChild<QLineEdit*>(u"valueWIDTH"_s), Qt::Key_Return);
        QVERIFY(dialog->isVisible());
    }
    fill(dialog, u"valueWIDTH"_s, u"1.5"_s);
    QVERIFY(ok(dialog)->isEnabled());
    fill(dialog, u"valueatX"_s, u"1 2"_s);
    QVERIFY(!ok(dialog)->isEnabled());
    dialog->close();
    flush();
    QCOMPARE(rows(), QStringList());
}

void TstGeometryComponent::form_goes_with_the_component()
{
    QVERIFY(trigger("brick"));
    QVERIFY(trigger("mesh"));
    QVERIFY(form("brick") && form("mesh"));
    enter(u"unload geometry"_s);
    QVERIFY(!form("brick") && !form("mesh"));
}

void TstGeometryComponent::tree_follows_the_model()
{
    QCOMPARE(rows(), QStringList());
    enter(u"brick 1 2 3 name plate"_s);
    enter(u"sphere 1"_s);
    QCOMPARE(rows(), QStringList({u"plate 6"_s, u"sphere2 4.18879"_s}));
    enter(u"rename sphere2 ball"_s);
    enter(u"brick 1 at 9 9 9 name far"_s);
    enter(u"unite plate far"_s);
    QCOMPARE(rows(), QStringList({u"plate 7"_s, u"ball 4.18879"_s}));
    enter(u"unite no such"_s);
    QCOMPARE(rows(), QStringList({u"plate 7"_s, u"ball 4.18879"_s}));
    QTreeWidgetItem* mesh = tree()->topLevelItem(1);
    QCOMPARE(mesh->text(1), u"none"_s);
    enter(u"mesh plate size 1"_s);
    flush();
    QCOMPARE(mesh->text(1), QString());
    QCOMPARE(mesh->child(0)->text(0), u"Nodes"_s);
    QVERIFY(mesh->child(0)->text(1).toInt() > 8);
    QVERIFY(mesh->childCount() == 5);
    enter(u"delete ball"_s);
    flush();
    QCOMPARE(mesh->text(1), u"of an earlier model"_s);
    QCOMPARE(mesh->childCount(), 5);
    QCOMPARE(rows(), QStringList({u"plate 7"_s}));
}

void TstGeometryComponent::selection_decides_what_can_be_chosen()
{
    enter(u"brick 1 name a"_s);
    enter(u"brick 1 at 0.5 0 0 name b"_s);
    const auto enabled = [](const char* name) { return find_action(name) && find_action(name)->isEnabled(); };
    QVERIFY(find_action("unite") && find_action("intersect") && find_action("delete"));
    QVERIFY(!enabled("unite") && !enabled("intersect") && !enabled("delete"));
    QCOMPARE(fennar::disabled_reason(find_action("delete")), u"No solid is selected."_s);
    QCOMPARE(fennar::disabled_reason(find_action("unite")), u"Fewer than two solids are selected."_s);
    select({u"a"_s});
    QVERIFY(!enabled("unite") && enabled("delete"));
    select({u"a"_s, u"b"_s});
    QVERIFY(enabled("unite") && enabled("intersect") && enabled("delete"));
    page()->clearToPrompt();
    QVERIFY(trigger("unite"));
    QVERIFY(page()->toPlainText().startsWith(u"Fennar>unite a b\na: volume 1.5\n"_s));
    QCOMPARE(rows(), QStringList(u"a 1.5"_s));
}

void TstGeometryComponent::delete_in_the_tree_sends_a_command()
{
    enter(u"brick 1 name a"_s);
    enter(u"brick 1 name b"_s);
    select({u"b"_s});
    QMenu* menu = Ostrel::instance()->findChild<QMenu*>(u"GeometryModelMenu"_s);
    QVERIFY(menu);
    QAction* chosen = nullptr;
    for (QAction* candidate : menu->actions())
        if (candidate->objectName() == u"geometry_delete")
            chosen = candidate;
    QVERIFY(chosen && chosen->isEnabled());
    page()->clearToPrompt();
    chosen->trigger();
    QVERIFY(page()->toPlainText().startsWith(u"Fennar>delete b\n"_s));
    QCOMPARE(rows(), QStringList(u"a 1"_s));
}

void TstGeometryComponent::subtract_form_is_filled_from_the_selection()
{
    enter(u"brick 2 name a"_s);
    enter(u"brick 1 at 1 0 0 name b"_s);
    select({u"a"_s, u"b"_s});
    QVERIFY(trigger("subtract"));
    QWidget* dialog = form("subtract");
    QVERIFY(dialog);
    QCOMPARE(line(dialog), u"subtract b from a"_s);
    ok(dialog)->click();
    flush();
    QCOMPARE(rows(), QStringList(u"a 7.5"_s));
}

void TstGeometryComponent::form_remembers_values_but_no_names()
{
    enter(u"brick 2 name a"_s);
    enter(u"brick 1 name b"_s);
    select({u"a"_s});
    QVERIFY(trigger("copy"));
    QCOMPARE(line(form("copy")), u"copy a"_s);
    fill(form("copy"), u"valuebyX"_s, u"3"_s);
    fill(form("copy"), u"valueNAME"_s, u"c"_s);
    ok(form("copy"))->click();
    flush();
    QCOMPARE(rows(), QStringList({u"a 8"_s, u"b 1"_s, u"c 8"_s}));
    select({u"b"_s});
    QVERIFY(trigger("copy"));
    QCOMPARE(line(form("copy")), u"copy b by 3 0 0"_s);
}

void TstGeometryComponent::entries_tell_what_the_commands_tell()
{
    for (const char* name : {"brick", "unite", "list"}) {
        const auto command = Fennar::instance().registry().find(QString::fromLatin1(name));
        QVERIFY(find_action(name) && !command->summary.isEmpty());
        QCOMPARE(find_action(name)->statusTip(), command->summary);
    }
}

void TstGeometryComponent::keys_of_undo_are_those_of_text_in_text()
{
    enter(u"brick 1 name a"_s);
    Ostrel* const window = Ostrel::instance();
    window->activateWindow();
    QTRY_VERIFY(window->isActiveWindow());
    // By the way of the window system, which looks for keys of entries first.
    const auto press = [window](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(window->windowHandle(), Qt::Key_Z, modifiers);
        flush();
    };
    page()->clearToPrompt();
    page()->setFocus();
    QTest::keyClicks(page(), u"sphere"_s);
    press(Qt::ControlModifier);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(rows(), QStringList(u"a 1"_s));
    QVERIFY2(!page()->toPlainText().contains(u"undo"_s), qPrintable(page()->toPlainText()));
    page()->clearToPrompt();
    tree()->setFocus();
    press(Qt::ControlModifier);
    QCOMPARE(rows(), QStringList());
    tree()->setFocus();
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(rows(), QStringList(u"a 1"_s));
}

void TstGeometryComponent::played_journal_is_undone_as_a_whole()
{
    QFile journal(mDirectory.filePath(u"three.jou"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("brick 1 name b\nbrick 1 name c\nmove b c by 1 0 0\n");
    journal.close();
    enter(u"brick 1 name a"_s);
    for (int i = 0; i < 2; ++i) {
        enter(u"play \"%1\""_s.arg(journal.fileName()));
        QCOMPARE(rows(), QStringList({u"a 1"_s, u"b 1"_s, u"c 1"_s}));
        enter(u"delete b c"_s);
        enter(u"undo"_s);
        QVERIFY(enter(u"undo"_s).contains(u"Undone: 3 steps of a journal\n"_s));
        QCOMPARE(rows(), QStringList(u"a 1"_s));
    }
    QVERIFY(enter(u"redo step"_s).contains(u"Redone: brick 1 name b\n"_s));
    QCOMPARE(rows(), QStringList({u"a 1"_s, u"b 1"_s}));
}

void TstGeometryComponent::python_gets_the_errors_of_commands()
{
    const QString made = enter(u"python 'fennar.cmd(\"brick 3\")'"_s);
    QVERIFY2(made.contains(u"brick1: volume 27"), qPrintable(made));
    const QString failed = enter(u"python 'fennar.cmd(\"brick 0\")'"_s);
    QVERIFY2(failed.contains(u"column 7: expected a width"), qPrintable(failed));
    QVERIFY2(failed.contains(u"CommandError"), qPrintable(failed));
}

void TstGeometryComponent::cancel_button_ends_the_mesher()
{
    enter(u"brick 1"_s);
    enter(u"mesh size 0.5"_s);
    bool clicked = false;
    QTimer timer;
    // Runs at the turns that the mesher gives the window.
    connect(&timer, &QTimer::timeout, this, [&] {
        auto* cancel = Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s);
        const auto* bar = Ostrel::instance()->findChild<QProgressBar*>(u"mProgress"_s);
        if (clicked || !cancel->isEnabled() || bar->value() < 35)
            return;
        // It must not be waited for, however long its work may take.
        clicked = freeze_children();
        QTest::mouseClick(cancel, Qt::LeftButton);
    });
    timer.start(10);
    const QString answer = enter(u"mesh size 0.02"_s);
    QVERIFY(clicked);
    QVERIFY2(answer.contains(u"ERROR: mesh: cancelled; the last mesh is as it was\nFennar>"),
             qPrintable(answer));
    QCOMPARE(child_processes(), QList<int>());
    QVERIFY(enter(u"statistics"_s).contains(u"size 0.5\n"));
}

void TstGeometryComponent::bar_shows_progress()
{
    enter(u"brick 1"_s);
    QList<int> values;
    QStringList texts;
    auto* bar = Ostrel::instance()->findChild<QProgressBar*>(u"mProgress"_s);
    QVERIFY(bar);
    connect(bar, &QProgressBar::valueChanged, this, [&](int value) {
        values << value;
        texts << bar->text();
    });
    enter(u"mesh size 0.08"_s);
    bar->disconnect(this);
    QVERIFY(values.size() > 5);
    QVERIFY2(texts.join(u'\n').contains(u"meshing volumes "_s), qPrintable(texts.join(u'\n')));
    // The session is over, and the text with it.
    QCOMPARE(bar->value(), bar->minimum() - 1);
    QVERIFY(std::is_sorted(values.begin(), values.end()));
    QCOMPARE(bar->format(), u"%p%"_s);
}

void TstGeometryComponent::bar_stays_as_it_is_for_a_quality_that_is_known()
{
    enter(u"brick 1"_s);
    enter(u"mesh size 1"_s);
    int changes = 0;
    auto* bar = Ostrel::instance()->findChild<QProgressBar*>(u"mProgress"_s);
    connect(bar, &QProgressBar::valueChanged, this, [&] { ++changes; });
    const QString measured = enter(u"quality"_s);
    QVERIFY(changes > 0);
    changes = 0;
    QCOMPARE(enter(u"quality"_s), measured);
    QCOMPARE(changes, 0);
    bar->disconnect(this);
}

void TstGeometryComponent::closed_dock_comes_to_no_harm()
{
    delete Ostrel::instance()->findChild<QDockWidget*>(u"GeometryModelDock"_s);
    QVERIFY(enter(u"brick 1"_s).contains(u"brick1: volume 1"));
    QVERIFY(trigger("move"));
    QVERIFY(form("move"));
}

void TstGeometryComponent::batch_run_meshes_and_keeps_standard_output_clean()
{
    QFile journal(mDirectory.filePath(u"a.jou"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("brick 1\nmesh size 0.5\nsphere 9\n");
    journal.close();
    QVERIFY(QDir(mDirectory.path()).mkdir(u"components"_s));
    QVERIFY(QFile::link(QStringLiteral(GEOMETRY), mDirectory.filePath(u"components/geometry.so"_s)));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FENNAR_COMPONENT_PATH"_s, mDirectory.filePath(u"components"_s));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(FENNAR), {u"--batch"_s, u"--play"_s, journal.fileName()});
    QVERIFY(process.waitForFinished());
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()), QString());
    QCOMPARE(process.exitCode(), 0);
    const QStringList lines = output.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines[1], u"brick1: volume 1"_s);
    QVERIFY(lines[3].endsWith(u" volume elements"));
    QCOMPARE(lines[5], u"sphere2: volume 3053.63"_s);
}

OSTREL_TEST(TstGeometryComponent)

#include "tst_geometrycomponent.moc"
