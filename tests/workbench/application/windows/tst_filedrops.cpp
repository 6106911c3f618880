// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "files/ImportExportHandler.h"
#include "files/OstrelFileMenu.h"
#include "journal/JournalEditor.h"
#include "support/IdleDocuments.h"
#include "support/drops.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabWidget>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr Qt::DropActions any_action = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

class Models : public IdleDocuments
{
public:
    void get_filters(QString& filters, bool) override { filters = u"Models (*.mdl);;All Files (*)"_s; }
};

class Importer : public ImportExportHandler
{
public:
    Importer(const QString& filters, QStringList& imported)
        : ImportExportHandler(u"test"_s), mImported(imported)
    {
        mFilters = filters;
    }
    void execute(const QString& file, const QString& filter) override
    {
        mImported << u"%1 as %2"_s.arg(QFileInfo(file).fileName(), filter);
    }

private:
    QStringList& mImported;
};

} // namespace

/** Files that are dropped on the windows of the whole application. */
class TstFileDrops : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void set_up() override { page()->clearToPrompt(); }
    void tear_down() override { editor()->close(); }

private slots:
    void names_go_into_the_command_data();
    void names_go_into_the_command();
    void names_go_to_the_place_in_the_command();
    void names_are_literals_in_python_mode();
    void read_only_page_takes_none();
    void text_is_dropped_as_ever();
    void editor_opens_what_is_dropped_on_it_data();
    void editor_opens_what_is_dropped_on_it();
    void center_opens_imports_and_edits();
    void center_tells_of_a_file_that_nothing_is_for();
    void files_that_could_only_be_moved_are_refused_data();
    void files_that_could_only_be_moved_are_refused();
    void text_is_not_dropped_on_the_center();

private:
    JournalEditor* editor() const { return window().journal_editor(); }
    QTabWidget* tabs() const { return editor()->findChild<QTabWidget*>(u"mDocTab"_s); }
    QWidget* current_journal() const
    {
        return qobject_cast<QPlainTextEdit*>(tabs()->currentWidget())->viewport();
    }
    QString write(const QString& name) { return write_temp(name, "echo one\n"); }
};

void TstFileDrops::names_go_into_the_command_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("command");
    QTest::newRow("one") << QStringList{u"/a/part.step"_s} << u"open /a/part.step "_s;
    QTest::newRow("one that must be quoted")
        << QStringList{u"/a b/part.step"_s} << u"open \"/a b/part.step\" "_s;
    QTest::newRow("several") << QStringList{u"/a"_s, u"/b"_s} << u"open /a /b "_s;
}

void TstFileDrops::names_go_into_the_command()
{
    QFETCH(const QStringList, files);
    QFETCH(const QString, command);
    page()->setCurrentCommand(u"open "_s);
    QCOMPARE(drop_files(page()->viewport(), QPoint(2, 2), files, any_action), Qt::CopyAction);
    QCOMPARE(page()->currentCommand(), command);
    QCOMPARE(page()->document()->blockCount(), 1);
    QVERIFY(page()->hasFocus());
}

void TstFileDrops::names_go_to_the_place_in_the_command()
{
    page()->setCurrentCommand(u"open  now"_s);
    QTextCursor place = page()->textCursor();
    place.movePosition(QTextCursor::End);
    place.movePosition(QTextCursor::Left, QTextCursor::MoveAnchor, 4);
    page()->moveCursor(QTextCursor::Start);
    QCOMPARE(drop_files(page()->viewport(), page()->cursorRect(place).center(), {u"/a"_s}, any_action),
             Qt::CopyAction);
    QCOMPARE(page()->currentCommand(), u"open /a  now"_s);
}

void TstFileDrops::names_are_literals_in_python_mode()
{
    auto* python = window().findChild<QPushButton*>(u"mPythonButton"_s);
    auto* commands = window().findChild<QPushButton*>(u"mFennarButton"_s);
    python->click();
    const auto back = qScopeGuard([&] { commands->click(); });
    QCOMPARE(drop_files(page()->viewport(), QPoint(2, 2), {u"/a b"_s, u"/it's"_s}, any_action),
             Qt::CopyAction);
    QCOMPARE(page()->currentCommand(), u"'/a b', '/it\\'s'"_s);
}

void TstFileDrops::read_only_page_takes_none()
{
    page()->setReadOnly(true);
    const auto back = qScopeGuard([&] { page()->setReadOnly(false); });
    QCOMPARE(drop_files(page()->viewport(), QPoint(2, 2), {u"/a"_s}, any_action), Qt::IgnoreAction);
    QCOMPARE(page()->currentCommand(), QString());
}

void TstFileDrops::text_is_dropped_as_ever()
{
    QVERIFY(drop_text(page()->viewport(), QPoint(2, 2), u"word"_s));
    QCOMPARE(page()->currentCommand(), u"word"_s);
    editor()->show();
    QVERIFY(drop_text(current_journal(), QPoint(2, 2), u"word"_s));
    auto* journal = qobject_cast<QPlainTextEdit*>(tabs()->currentWidget());
    QCOMPARE(journal->toPlainText(), u"word"_s);
    journal->clear();
    journal->document()->setModified(false);
}

void TstFileDrops::editor_opens_what_is_dropped_on_it_data()
{
    QTest::addColumn<bool>("on_a_journal");
    QTest::newRow("on a journal") << true;
    QTest::newRow("beside it") << false;
}

void TstFileDrops::editor_opens_what_is_dropped_on_it()
{
    QFETCH(const bool, on_a_journal);
    editor()->show();
    const QStringList files{write(u"first.jou"_s), write(u"second.py"_s)};
    QWidget* target = on_a_journal ? current_journal() : editor();
    QCOMPARE(drop_files(target, QPoint(2, 2), files, any_action), Qt::CopyAction);
    QTRY_COMPARE(tabs()->tabText(tabs()->currentIndex()), u"second.py"_s);
    QCOMPARE(tabs()->tabText(tabs()->currentIndex() - 1), u"first.jou"_s);
    for (const QString& file : files)
        QVERIFY(QFile::exists(file));
}

void TstFileDrops::center_opens_imports_and_edits()
{
    Models models;
    OstrelFileMenu* menu = window().file_menu();
    menu->set_open_save_handler(&models);
    QStringList done;
    Importer importer(u"Steps (*.step *.stp);;All Files (*.*)"_s, done);
    QVERIFY(menu->add_import(&importer));
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add({.name = u"open"_s,
                  .summary = u"Opens."_s,
                  .owner = u"test"_s,
                  .perform =
                      [&](CommandCall&, const CommandArguments& arguments) {
                          done << u"open "_s + QFileInfo(arguments.text("FILE"_L1)).fileName();
                      },
                  .forms = {{.clauses = {required_value({.name = u"FILE"_s})}}}});
    const auto back = qScopeGuard([&] {
        registry.remove(u"open"_s);
        menu->remove_component_items("test");
        menu->set_open_save_handler(nullptr);
    });
    const QStringList files{write(u"a model.mdl"_s), write(u"part.STP"_s), write(u"play.jou"_s)};
    QCOMPARE(drop_files(window().centralWidget(), QPoint(20, 20), files, any_action), Qt::CopyAction);
    // Not within the drop.
    QCOMPARE(done, QStringList());
    QTRY_COMPARE(done, QStringList({u"open a model.mdl"_s, u"part.STP as Steps (*.step *.stp)"_s}));
    QTRY_VERIFY(editor()->isVisible());
    QCOMPARE(tabs()->tabText(tabs()->currentIndex()), u"play.jou"_s);
}

void TstFileDrops::center_tells_of_a_file_that_nothing_is_for()
{
    QCOMPARE(drop_files(window().centralWidget(), QPoint(20, 20), {u"/a/letter.txt"_s}, any_action),
             Qt::CopyAction);
    QTRY_VERIFY(page()->toPlainText().contains(
        u"ERROR: \"/a/letter.txt\" is no model, no journal, and of no format for import"_s));
    QVERIFY(workbench().console()->error_page()->toPlainText().contains(u"letter.txt"_s));
}

void TstFileDrops::files_that_could_only_be_moved_are_refused_data()
{
    QTest::addColumn<QString>("target");
    for (const char* target : {"console", "editor", "center"})
        QTest::newRow(target) << QString::fromLatin1(target);
}

void TstFileDrops::files_that_could_only_be_moved_are_refused()
{
    QFETCH(const QString, target);
    editor()->show();
    QWidget* widget = target == "console"_L1  ? page()->viewport()
                      : target == "editor"_L1 ? current_journal()
                                              : window().centralWidget();
    const int journals = tabs()->count();
    QCOMPARE(drop_files(widget, QPoint(2, 2), {write(u"a.jou"_s)}, Qt::MoveAction), Qt::IgnoreAction);
    QCOMPARE(drop_files(widget, QPoint(2, 2), {write(u"a.jou"_s)}, Qt::MoveAction | Qt::LinkAction),
             Qt::LinkAction);
    if (target != "console"_L1)
        QTRY_COMPARE(tabs()->count(), journals + 1);
}

void TstFileDrops::text_is_not_dropped_on_the_center()
{
    QVERIFY(!drop_text(window().centralWidget(), QPoint(20, 20), u"word"_s));
}

OSTREL_TEST(TstFileDrops)
#include "tst_filedrops.moc"
