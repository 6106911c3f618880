// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/menus.h"
#include "support/windows.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The component, loaded into the workbench's window. */
class TstInsertCommand : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void initTestCase();
    void cleanupTestCase();

    void item_comes_and_goes_with_the_component();
    void list_shows_usage_and_summary_of_all_commands();
    void filter_looks_into_both_columns();
    void filter_that_leaves_nothing_offers_nothing();
    void keys_in_the_filter_move_in_the_list();
    void description_is_that_of_the_selected_command();
    void template_goes_to_the_caret_with_its_arguments_selected();
    void command_without_arguments_leaves_the_caret_behind_it();
    void selection_is_not_replaced();
    void one_undo_takes_it_back();
    void cancelled_dialog_inserts_nothing();
    void key_works_in_an_empty_document();
    void document_that_goes_meanwhile_takes_nothing();
    void window_may_go_under_the_dialog();

private:
    static JournalEditor* editor() { return Ostrel::instance()->journal_editor(); }
    static QPlainTextEdit* document()
    {
        return qobject_cast<QPlainTextEdit*>(editor()->findChild<QTabWidget*>(u"mDocTab"_s)->currentWidget());
    }
    static QStringList context_menu();
    static void choose_item();
    /** Opens the dialog, and lets @p act have it. */
    static void ask(const std::function<void(QDialog*)>& act);
    /** The rows of the list, columns apart by "|". */
    static QStringList rows(const QDialog* dialog);
    static QLineEdit* filter(QDialog* dialog) { return dialog->findChild<QLineEdit*>(u"mFilter"_s); }
    static void insert(const QString& name);

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<MainFrame> mFrame;
    std::unique_ptr<ComponentManager> mManager;
};

void TstInsertCommand::initTestCase()
{
    PythonRuntime::start({});
    set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()), nullptr);
}

void TstInsertCommand::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mFrame = std::make_unique<MainFrame>();
    QVERIFY(mFrame->load_gui());
    mManager = std::make_unique<ComponentManager>(Fennar::instance().interpreter(), mDirectory->path());
    QCOMPARE(mManager->load(QStringLiteral(TREE_COMPONENTS "/insert_command.so")), QString());
    editor()->add_document(u"# note\n"_s);
    QVERIFY(show_active(editor()));
}

void TstInsertCommand::tear_down()
{
    Fennar::instance().registry().remove_owner(u"test"_s);
    mManager.reset();
    if (mFrame && mFrame->is_loaded())
        mFrame->unload_gui();
    mFrame.reset();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        delete window;
}

void TstInsertCommand::cleanupTestCase()
{
    set_framework_interpreters(nullptr, nullptr);
    PythonRuntime::stop();
}

QStringList TstInsertCommand::context_menu()
{
    QStringList found;
    const MenuDriver driver([&found](QMenu* menu) { found = menu_rows(menu); });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), document()->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(document()->viewport(), &event);
    return found;
}

void TstInsertCommand::choose_item()
{
    const MenuDriver driver([](QMenu* menu) { choose(menu, u"Insert command..."_s); });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), document()->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(document()->viewport(), &event);
}

void TstInsertCommand::ask(const std::function<void(QDialog*)>& act)
{
    DialogDriver driver;
    driver.expect(u"InsertCommandDialog"_s, [&](QWidget* dialog) { act(qobject_cast<QDialog*>(dialog)); });
    choose_item();
    QVERIFY(driver.finish());
}

QStringList TstInsertCommand::rows(const QDialog* dialog)
{
    const QAbstractItemModel* model = dialog->findChild<QTreeView*>(u"mCommands"_s)->model();
    QStringList result;
    for (int row = 0; row < model->rowCount(); ++row)
        result << model->index(row, 0).data().toString() + u'|' + model->index(row, 1).data().toString();
    return result;
}

void TstInsertCommand::insert(const QString& name)
{
    ask([&name](QDialog* dialog) {
        filter(dialog)->setText(name);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
}

void TstInsertCommand::item_comes_and_goes_with_the_component()
{
    const QString row = u"Insert command... [] (enabled)"_s;
    QVERIFY2(context_menu().contains(row), qPrintable(context_menu().join(u'\n')));
    editor()->add_document(u"second"_s);
    QCOMPARE(context_menu().count(row), 1);
    QCOMPARE(mManager->unload(u"insert_command"_s), QString());
    QVERIFY(!context_menu().join(u'\n').contains(u"Insert command"_s));
    editor()->add_document(u"third"_s);
    QVERIFY(!context_menu().join(u'\n').contains(u"Insert command"_s));
    QVERIFY(editor()->actions().isEmpty());
    QCOMPARE(mManager->load(u"insert_command"_s), QString());
    QCOMPARE(context_menu().count(row), 1);
}

void TstInsertCommand::list_shows_usage_and_summary_of_all_commands()
{
    const CommandRegistry& registry = Fennar::instance().registry();
    QStringList expected;
    for (const QString& name : registry.names())
        expected << registry.find(name)->usage() + u'|' + registry.find(name)->summary;
    QVERIFY(expected.contains(u"echo [WORD...]|Prints its words."_s));
    QStringList seen;
    ask([&](QDialog* dialog) {
        seen = rows(dialog);
        dialog->reject();
    });
    QCOMPARE(seen, expected);
}

void TstInsertCommand::filter_looks_into_both_columns()
{
    QStringList by_usage;
    QStringList by_summary;
    ask([&](QDialog* dialog) {
        QTest::keyClicks(filter(dialog), u"word..."_s);
        by_usage = rows(dialog);
        filter(dialog)->setText(u"prints ITS"_s);
        by_summary = rows(dialog);
        dialog->reject();
    });
    QCOMPARE(by_usage, QStringList(u"echo [WORD...]|Prints its words."_s));
    QCOMPARE(by_summary, by_usage);
}

void TstInsertCommand::filter_that_leaves_nothing_offers_nothing()
{
    bool enabled = true;
    bool enabled_again = false;
    ask([&](QDialog* dialog) {
        const QPushButton* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        filter(dialog)->setText(u"no such thing"_s);
        enabled = ok->isEnabled();
        filter(dialog)->clear();
        enabled_again = ok->isEnabled();
        dialog->reject();
    });
    QVERIFY(!enabled);
    QVERIFY(enabled_again);
}

void TstInsertCommand::keys_in_the_filter_move_in_the_list()
{
    QList<int> at;
    ask([&](QDialog* dialog) {
        const auto* list = dialog->findChild<QTreeView*>(u"mCommands"_s);
        at << list->currentIndex().row();
        QTest::keyClick(filter(dialog), Qt::Key_Down);
        QTest::keyClick(filter(dialog), Qt::Key_Down);
        at << list->currentIndex().row();
        QTest::keyClick(filter(dialog), Qt::Key_Up);
        at << list->currentIndex().row();
        QTest::keyClick(filter(dialog), Qt::Key_Return);
    });
    QCOMPARE(at, QList<int>({0, 2, 1}));
    // Return has inserted the command.
    const CommandRegistry& registry = Fennar::instance().registry();
    QCOMPARE(document()->toPlainText(), registry.find(registry.names().at(1))->usage() + u"# note\n"_s);
}

void TstInsertCommand::description_is_that_of_the_selected_command()
{
    QString seen;
    ask([&](QDialog* dialog) {
        filter(dialog)->setText(u"set ["_s);
        seen = dialog->findChild<QPlainTextEdit*>(u"mHelp"_s)->toPlainText();
        dialog->reject();
    });
    QCOMPARE(seen, Fennar::instance().registry().find(u"set"_s)->help);
    QVERIFY(!seen.isEmpty());
}

void TstInsertCommand::template_goes_to_the_caret_with_its_arguments_selected()
{
    document()->moveCursor(QTextCursor::End);
    insert(u"set ["_s);
    QCOMPARE(document()->toPlainText(), u"# note\nset [NAME [VALUE...]]"_s);
    QCOMPARE(document()->textCursor().selectedText(), u"[NAME [VALUE...]]"_s);
    QVERIFY(document()->document()->isModified());
    QTest::keyClicks(document(), u"a 5"_s);
    QCOMPARE(document()->toPlainText(), u"# note\nset a 5"_s);
}

void TstInsertCommand::command_without_arguments_leaves_the_caret_behind_it()
{
    document()->moveCursor(QTextCursor::End);
    insert(u"quit"_s);
    QCOMPARE(document()->toPlainText(), u"# note\nquit"_s);
    QVERIFY(!document()->textCursor().hasSelection());
    QCOMPARE(document()->textCursor().position(), 11);
}

void TstInsertCommand::selection_is_not_replaced()
{
    QTextCursor cursor(document()->document());
    cursor.movePosition(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
    document()->setTextCursor(cursor);
    insert(u"quit"_s);
    QCOMPARE(document()->toPlainText(), u"# notequit\n"_s);
}

void TstInsertCommand::one_undo_takes_it_back()
{
    insert(u"set ["_s);
    document()->undo();
    QCOMPARE(document()->toPlainText(), u"# note\n"_s);
}

void TstInsertCommand::cancelled_dialog_inserts_nothing()
{
    ask([](QDialog* dialog) {
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
    });
    QCOMPARE(document()->toPlainText(), u"# note\n"_s);
}

void TstInsertCommand::key_works_in_an_empty_document()
{
    document()->clear();
    document()->setFocus();
    DialogDriver driver;
    driver.expect(u"InsertCommandDialog"_s, [](QWidget* dialog) {
        filter(qobject_cast<QDialog*>(dialog))->setText(u"quit"_s);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QTest::keyClick(editor()->windowHandle(), Qt::Key_Space, Qt::ControlModifier);
    QVERIFY(driver.finish());
    QCOMPARE(document()->toPlainText(), u"quit"_s);
}

void TstInsertCommand::document_that_goes_meanwhile_takes_nothing()
{
    editor()->add_document(u"second"_s);
    ask([](QDialog* dialog) {
        document()->document()->setModified(false);
        editor()->fileClose();
        dialog->accept();
    });
    QCOMPARE(document()->toPlainText(), u"# note\n"_s);
}

void TstInsertCommand::window_may_go_under_the_dialog()
{
    DialogDriver driver;
    driver.expect(u"InsertCommandDialog"_s, [&](QWidget*) { mFrame->unload_gui(); });
    editor()->actions().constFirst()->trigger();
    QVERIFY(driver.finish());
    QVERIFY(!Ostrel::instance());
}

OSTREL_TEST(TstInsertCommand)
#include "tst_insert_command.moc"
