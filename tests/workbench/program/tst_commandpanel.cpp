// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "files/FileLineEdit.h"
#include "frame/Ostrel.h"
#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "support/dialogs.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/EntryButtons.h"
#include "workbench/host/navigation/FormField.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

const auto by_action = u"/xml/action-based-xml"_s;
const auto by_entity = u"/xml/entity-based-xml"_s;

QModelIndexList commands(const NavigationModel& model)
{
    return model.match(model.index(0, 0), NavigationRole::Kind, int(NavigationKind::Command), -1,
                       Qt::MatchExactly | Qt::MatchRecursive);
}

/** The names of the commands in @p model, sorted. */
QStringList names(const NavigationModel& model)
{
    QStringList result;
    for (const QModelIndex& entry : commands(model))
        result << entry.data(NavigationRole::Command).toString().section(u' ', 0, 0);
    result.sort();
    return result;
}

QStringList names_in(const QString& directory)
{
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(QCoreApplication::applicationDirPath() + directory, u".xml"_s);
    return names(model);
}

/** The components that @p entry waits for, itself and above. */
QStringList awaited(QModelIndex entry)
{
    QStringList result;
    for (; entry.isValid(); entry = entry.parent()) {
        if (const QString component = entry.data(NavigationRole::Component).toString(); !component.isEmpty())
            result << component;
    }
    return result;
}

} // namespace

/** The command panel of the whole application, with all components. */
class TstCommandPanel : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override;
    void set_up_class() override;
    void tear_down() override { set_options({u"rbRows"_s, u"rbByAction"_s}); }
    void tear_down_class() override { run(u"save model.mdl"_s); }
    void after_workbench() override { QDir::setCurrent(mOldDirectory); }

private slots:
    void both_kinds_of_files_hold_every_command();
    void commands_of_components_wait_for_them();
    void every_command_has_a_form_in_both_panels_data();
    void every_command_has_a_form_in_both_panels();
    void applied_form_runs_on_the_console();
    void file_field_is_that_of_the_shell();
    void kind_of_panel_changes_at_once_and_stays();
    void size_of_pictures_changes_at_once_and_stays();
    void arrangement_changes_at_once_and_stays();
    void options_that_are_cancelled_change_nothing();
    void entries_go_with_their_component();

private:
    static TaskPanel& panel() { return *window().command_buttons(); }
    static NavigationModel& model() { return *window().navigation_model(); }
    /** Goes to the entry of @p command in the panel that is shown, and returns its form. */
    static CommandForm* go_to(const QString& command);
    static void go_to(const QModelIndex& entry);
    template <typename Widget>
    static Widget* field(const QString& name)
    {
        auto* found = panel().findChild<Widget*>(name);
        if (!found)
            qFatal("no %s", qPrintable(name));
        return found;
    }
    /** Opens the options by the menu's action, goes to the page, clicks the controls, and saves or not. */
    void set_options(const QStringList& controls, bool save = true);
    void run(const QString& line)
    {
        QVERIFY2(Fennar::instance().interpreter().run(line) == CommandInterpreter::Result::Done,
                 qPrintable(line));
    }

    QTemporaryDir mDirectory;
    QString mOldDirectory;
};

void TstCommandPanel::prepare(Workbench&)
{
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    mOldDirectory = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mDirectory.path()));
}

void TstCommandPanel::set_up_class()
{
    workbench().components().load_all();
    run(u"brick 10 name plate"_s);
    run(u"sphere 3 name ball"_s);
}

void TstCommandPanel::go_to(const QModelIndex& entry)
{
    if (auto* rows = qobject_cast<CommandButtonPanel*>(&panel()))
        rows->set_current_index(entry);
    else
        qobject_cast<BreadcrumbsPanel*>(&panel())->set_current_index(entry);
}

CommandForm* TstCommandPanel::go_to(const QString& command)
{
    for (const QModelIndex& entry : commands(model())) {
        if (entry.data(NavigationRole::Command).toString() == command)
            go_to(entry);
    }
    return panel().findChild<CommandForm*>();
}

void TstCommandPanel::set_options(const QStringList& controls, bool save)
{
    DialogDriver driver;
    QStringList missing;
    driver.expect<OptionsPanel>([&](OptionsPanel* dialog) {
        auto* pages = dialog->findChild<QTreeWidget*>(u"mOptionList"_s);
        const QList<QTreeWidgetItem*> items = pages->findItems(u"Panel"_s, Qt::MatchExactly);
        if (!items.isEmpty())
            pages->setCurrentItem(items.first());
        for (const QString& name : controls) {
            auto* control = dialog->findChild<QAbstractButton*>(name);
            if (control && control->isVisible())
                control->click();
            else
                missing << name;
        }
        dialog->findChild<QPushButton*>(save ? u"mSaveButton"_s : u"mCancelButton"_s)->click();
    });
    window().tools_menu()->run_options();
    QVERIFY(driver.finish());
    QCOMPARE(missing, QStringList());
}

void TstCommandPanel::both_kinds_of_files_hold_every_command()
{
    const QStringList registered = Fennar::instance().registry().names();
    QVERIFY(registered.size() >= 35);
    QCOMPARE(names_in(by_action), registered);
    QCOMPARE(names_in(by_entity), registered);
}

void TstCommandPanel::commands_of_components_wait_for_them()
{
    const CommandRegistry& registry = Fennar::instance().registry();
    const QStringList own{u"fennari19"_s, u"workbench"_s};
    int waiting = 0;
    for (const char* const control : {"rbByEntity", "rbByAction"}) {
        set_options({QString::fromLatin1(control)});
        for (const QModelIndex& entry : commands(model())) {
            const QString name = entry.data(NavigationRole::Command).toString().section(u' ', 0, 0);
            const QString owner = registry.find(name)->owner;
            const QStringList components = awaited(entry);
            QVERIFY2(components == (own.contains(owner) ? QStringList() : QStringList(owner)),
                     qPrintable(name + u": "_s + components.join(u", "_s)));
            waiting += !components.isEmpty();
        }
    }
    QVERIFY(waiting > 40);
}

void TstCommandPanel::every_command_has_a_form_in_both_panels_data()
{
    QTest::addColumn<QStringList>("controls");
    QTest::newRow("rows, by action") << QStringList{u"rbRows"_s, u"rbByAction"_s};
    QTest::newRow("rows, by entity") << QStringList{u"rbRows"_s, u"rbByEntity"_s};
    QTest::newRow("levels, by action") << QStringList{u"rbLevels"_s, u"rbByAction"_s};
    QTest::newRow("levels, by entity") << QStringList{u"rbLevels"_s, u"rbByEntity"_s};
}

void TstCommandPanel::every_command_has_a_form_in_both_panels()
{
    QFETCH(const QStringList, controls);
    set_options(controls);
    QStringList seen;
    for (const QModelIndex& entry : commands(model())) {
        const QString name = entry.data(NavigationRole::Command).toString();
        go_to(entry);
        const auto* form = panel().findChild<CommandForm*>();
        QVERIFY2(form->isVisible(), qPrintable(name));
        const QList<CommandSyntax> ways = Fennar::instance().registry().find(name)->forms;
        auto* chooser = panel().findChild<QComboBox*>(u"commandWays"_s);
        QCOMPARE(chooser->isVisible(), ways.size() > 1);
        for (int way = 0; way < ways.size(); ++way) {
            if (ways.size() > 1) {
                chooser->setFocus();
                QTest::keyClick(chooser, way == 0 ? Qt::Key_Home : Qt::Key_Down);
            }
            QStringList expected;
            for (const CommandClause& clause : ways[way].clauses) {
                for (const CommandParameter& parameter : clause.parameters)
                    expected << parameter.name;
            }
            QStringList found;
            QStringList object_names;
            for (const FormField* each : form->findChildren<FormField*>()) {
                QVERIFY2(each->isVisible() && !each->label().isEmpty(), qPrintable(name));
                QVERIFY2(!each->controls().first()->accessibleName().isEmpty(), qPrintable(name));
                found << each->parameter().name;
                object_names << each->controls().first()->objectName();
            }
            QCOMPARE(object_names.removeDuplicates(), 0);
            QCOMPARE(found, expected);
            QVERIFY2(field<QLineEdit>(u"commandLine"_s)->text().startsWith(name), qPrintable(name));
            QVERIFY2(field<QLineEdit>(u"commandLine"_s)->isReadOnly(), qPrintable(name));
            // All of it is inside of the dock.
            const auto* area = panel().findChild<QScrollArea*>();
            QTRY_COMPARE(area->widget()->width(), area->viewport()->width());
            for (const QWidget* widget : form->findChildren<QWidget*>()) {
                const int right = widget->mapTo(area->widget(), QPoint(widget->width(), 0)).x();
                QVERIFY2(!widget->isVisible() || right <= area->widget()->width(),
                         qPrintable(name + u' ' + widget->objectName()));
            }
        }
        seen << name;
    }
    seen.sort();
    QCOMPARE(seen, Fennar::instance().registry().names());
}

void TstCommandPanel::applied_form_runs_on_the_console()
{
    const CommandForm* form = go_to(u"cylinder"_s);
    QVERIFY(form->isVisible());
    auto* radius = field<QLineEdit>(u"valueRADIUS"_s);
    radius->setFocus();
    QTest::keyClicks(radius, u"2"_s);
    QVERIFY(!field<QPushButton>(u"applyButton"_s)->isEnabled());
    QTest::keyClicks(field<QLineEdit>(u"valueHEIGHT"_s), u"5"_s);
    QTest::keyClicks(field<QLineEdit>(u"valueNAME"_s), u"pin"_s);
    QTest::keyClick(field<QLineEdit>(u"valueNAME"_s), Qt::Key_Return);
    const QString text = workbench().console()->command_page()->toPlainText();
    QVERIFY2(text.contains(u"Fennar>cylinder 2 5 name pin\npin: volume 62.8319\nFennar>"_s),
             qPrintable(text));
    QCOMPARE(workbench().console()->history().entries().last(), u"cylinder 2 5 name pin"_s);
    // The name is taken now.
    QTRY_VERIFY(!field<QPushButton>(u"applyButton"_s)->isEnabled());

    go_to(u"rename"_s);
    const auto* solids = field<QComboBox>(u"valueSOLID"_s);
    QVERIFY(solids->findText(u"pin"_s) >= 0);
    run(u"delete pin"_s);
    QTRY_VERIFY(solids->findText(u"pin"_s) < 0);
    QCOMPARE(solids->count(), 2);
}

void TstCommandPanel::file_field_is_that_of_the_shell()
{
    go_to(u"picture"_s);
    auto* file = panel().findChild<FileLineEdit*>();
    QVERIFY(file && file->isVisible());
    DialogDriver driver;
    FileQuestion asked;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, mDirectory.filePath(u"my window"_s));
    });
    file->findChild<QToolButton*>()->click();
    QVERIFY(driver.finish());
    QCOMPARE(asked.filters, QStringList({u"PNG (*.png)"_s, u"JPEG (*.jpg)"_s}));
    QCOMPARE(file->filename(), mDirectory.filePath(u"my window.png"_s));
    QCOMPARE(field<QLineEdit>(u"commandLine"_s)->text(),
             u"picture \"%1\""_s.arg(mDirectory.filePath(u"my window.png"_s)));
    field<QPushButton>(u"applyButton"_s)->click();
    QVERIFY(QFile::exists(mDirectory.filePath(u"my window.png"_s)));
}

void TstCommandPanel::kind_of_panel_changes_at_once_and_stays()
{
    QVERIFY(window().usingButtonRows());
    go_to(u"sphere"_s);
    set_options({u"rbLevels"_s});
    QVERIFY(!window().usingButtonRows());
    QVERIFY(qobject_cast<BreadcrumbsPanel*>(&panel()) && panel().isVisible());
    // The place stays, and so the form that is shown.
    QVERIFY(field<QLineEdit>(u"valueRADIUS"_s)->isVisible());
    QCOMPARE(QSettings().value(u"/fennargui/commandpanel/breadcrumbs"_s).toBool(), true);
    set_options({u"rbRows"_s});
    QVERIFY(window().usingButtonRows() && panel().isVisible());
    QVERIFY(field<QLineEdit>(u"valueRADIUS"_s)->isVisible());
    QCOMPARE(QSettings().value(u"/fennargui/commandpanel/breadcrumbs"_s).toBool(), false);
}

void TstCommandPanel::size_of_pictures_changes_at_once_and_stays()
{
    const auto size = [] {
        for (const EntryButton* button : panel().findChildren<EntryButton*>()) {
            if (button->isVisible())
                return button->iconSize().width();
        }
        return 0;
    };
    set_options({u"rbLevels"_s});
    go_to(QModelIndex());
    QTRY_COMPARE(size(), 22);
    set_options({u"cbLargeIcons"_s});
    QTRY_COMPARE(size(), 36);
    QCOMPARE(QSettings().value(u"/fennar/commandpanel/largeicons"_s).toBool(), true);
    // Another panel takes the size over.
    set_options({u"rbRows"_s});
    set_options({u"rbLevels"_s});
    go_to(QModelIndex());
    QTRY_COMPARE(size(), 36);
    set_options({u"cbLargeIcons"_s});
    QTRY_COMPARE(size(), 22);
}

void TstCommandPanel::arrangement_changes_at_once_and_stays()
{
    const auto pages = [] {
        QStringList titles;
        for (const EntryButton* button : panel().findChildren<EntryButton*>()) {
            if (button->isVisible())
                titles << button->accessibleName();
        }
        return titles;
    };
    go_to(QModelIndex());
    QTRY_VERIFY(pages().contains(u"Make"_s));
    set_options({u"rbByEntity"_s});
    QTRY_VERIFY(pages().contains(u"Solids"_s));
    QVERIFY(!pages().contains(u"Make"_s));
    QCOMPARE(QSettings().value(u"/fennargui/commandpanel/classicnavigation"_s).toBool(), true);
    set_options({u"rbByAction"_s});
    QTRY_VERIFY(pages().contains(u"Make"_s));
    QVERIFY(!pages().contains(u"Solids"_s));
}

void TstCommandPanel::options_that_are_cancelled_change_nothing()
{
    set_options({u"rbLevels"_s, u"cbLargeIcons"_s, u"rbByEntity"_s}, false);
    QVERIFY(window().usingButtonRows());
    QVERIFY(!names(model()).isEmpty());
    QVERIFY(!QSettings().value(u"/fennargui/commandpanel/breadcrumbs"_s).toBool());
    QVERIFY(!QSettings().value(u"/fennargui/commandpanel/classicnavigation"_s).toBool());
    // The next visit begins with what is in force.
    set_options({});
    QVERIFY(window().usingButtonRows());
}

void TstCommandPanel::entries_go_with_their_component()
{
    const auto is_shown = [](const QString& title) {
        for (const EntryButton* button : panel().findChildren<EntryButton*>()) {
            if (button->isVisible() && button->accessibleName() == title)
                return true;
        }
        return false;
    };
    go_to(QModelIndex());
    QTRY_VERIFY(is_shown(u"Look"_s));
    run(u"unload graphics"_s);
    QTRY_VERIFY(!is_shown(u"Look"_s));
    QVERIFY(is_shown(u"Make"_s));
    run(u"load graphics"_s);
    QTRY_VERIFY(is_shown(u"Look"_s));
}

OSTREL_TEST(TstCommandPanel)
#include "tst_commandpanel.moc"
