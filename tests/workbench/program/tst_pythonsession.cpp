// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "journal/JournalEditor.h"
#include "support/leftovers.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/sdk/component/journal_documents.h"

#include <QAction>
#include <QDir>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace fennar;
using namespace Qt::StringLiterals;

/** A session in the console's Python mode, as a journal and as a script. */
class TstPythonSession : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override;
    void set_up_class() override { QCOMPARE(workbench().components().load(u"geometry"_s), QString()); }
    void set_up() override;
    void tear_down() override;
    void after_workbench() override { QDir::setCurrent(mOldDirectory); }

private slots:
    void session_is_saved_as_a_journal_that_makes_the_same_model();
    void journal_is_translated_and_saved_from_the_console_again();
    void session_is_saved_as_a_script_of_what_was_typed();
    void cancel_button_ends_a_sweep_and_its_programs();

private:
    static JournalEditor& editor() { return *window().journal_editor(); }
    /** Takes the console's commands over into the editor and returns them. */
    static QString import_console();
    static void write(const QString& name, const QString& text);
    /** The solids as they are; the page is cleared. */
    QString model() { return enter(u"list"_s).section(u'\n', 1); }

    QTemporaryDir mDirectory;
    QString mOldDirectory;
};

void TstPythonSession::prepare(Workbench& workbench)
{
    workbench.leave_components_out();
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    mOldDirectory = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mDirectory.path()));
}

void TstPythonSession::set_up()
{
    enter(u"new discard"_s);
    write(u"inner.jou"_s, u"brick 2 name of_journal\n"_s);
    write(u"inner.py"_s, u"fennar.brick(1.5, name='of_script')\nfennar.cmd('brick 0.5 name of_line')\n"_s);
    page()->clearToPrompt();
    page()->setFocus();
}

void TstPythonSession::tear_down()
{
    python_mode(false);
    while (QPlainTextEdit* document = current_journal(&editor())) {
        document->document()->setModified(false);
        if (journal_tabs(&editor())->count() == 1)
            break;
        editor().fileClose();
    }
    editor().close();
    flush();
}

QString TstPythonSession::import_console()
{
    for (QAction* action : editor().findChildren<QAction*>(u"JournalImportAction"_s)) {
        if (action->text().contains(u"Commands"_s))
            action->trigger();
    }
    flush();
    return current_journal(&editor())->toPlainText();
}

void TstPythonSession::write(const QString& name, const QString& text)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
}

void TstPythonSession::session_is_saved_as_a_journal_that_makes_the_same_model()
{
    python_mode(true);
    for (const QString& line :
         {u"part = fennar.brick(10, 20, 5, at=(1, 2, 3), name='base')"_s,
          u"fennar.cmd('cylinder 2 30 name drill')"_s,
          u"fennar.cmd('# A sphere on two lines.\\nsphere \\\\\\n  3 at 0.25 0 0 name ball')"_s,
          u"fennar.subtract('drill', from_=part)"_s, u"fennar.play('inner.jou')"_s,
          u"fennar.play('inner.py')"_s, u"fennar.python('fennar.brick(3, name=\"of_python\")')"_s,
          u"fennar.set('label', 'a  $b \"c\" \\'')"_s, u"fennar.move(part, by=(1 / 3, 0, 0))"_s,
          u"copies = [fennar.copy(part, by=(x, 0, 0)) for x in (40, 80)]"_s, u"fennar.undo()"_s})
        type(line);
    python_mode(false);
    QVERIFY2(!text().contains(u"Error"_s), qPrintable(text()));
    const QString journal = import_console();
    QVERIFY2(journal.contains(u"\ncylinder 2 30 name drill\n"_s), qPrintable(journal));
    QVERIFY2(journal.contains(u"\nsphere \\\n  3 at 0.25 0 0 name ball\n"_s), qPrintable(journal));
    const QString made = model();
    for (const QString& name :
         {u"base"_s, u"ball"_s, u"of_journal"_s, u"of_script"_s, u"of_line"_s, u"of_python"_s})
        QVERIFY2(made.contains(name), qPrintable(made));

    enter(u"new discard"_s);
    write(u"session.jou"_s, journal);
    const QString played = enter(u"play session.jou"_s);
    QVERIFY2(!played.contains(u"ERROR"_s), qPrintable(played));
    QCOMPARE(model(), made);
}

void TstPythonSession::journal_is_translated_and_saved_from_the_console_again()
{
    const QString journal = u"# It's a plate.\nbrick 3 name plate\nmove plate \\\n  by 1 0 0\n"_s;
    editor().add_document(journal);
    editor().pythonizeFile();
    write(u"translated.py"_s, current_journal(&editor())->toPlainText());
    python_mode(true);
    type(u"exec(open('translated.py').read())"_s);
    python_mode(false);
    QVERIFY2(!text().contains(u"Error"_s), qPrintable(text()));
    // The translation joins continued lines.
    QCOMPARE(import_console(), u"# It's a plate.\nbrick 3 name plate\nmove plate   by 1 0 0\n"_s);
}

void TstPythonSession::session_is_saved_as_a_script_of_what_was_typed()
{
    python_mode(true);
    type(u"part = fennar.brick(1)"_s);
    type(u"fennar.play('inner.jou')"_s);
    QCOMPARE(import_console(), u"part = fennar.brick(1)\nfennar.play('inner.jou')\n"_s);
}

void TstPythonSession::cancel_button_ends_a_sweep_and_its_programs()
{
    // The program of a case that never ends.
    write(u"program"_s,
          u"#!/bin/sh\ntouch '%1'\nexec sleep 1000000\n"_s.arg(QDir().absoluteFilePath(u"begun"_s)));
    QVERIFY(QFile::setPermissions(u"program"_s, QFile::ReadOwner | QFile::ExeOwner));
    python_mode(true);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [] {
        if (QFile::exists(u"begun"_s))
            QTest::mouseClick(window().findChild<QToolButton*>(u"mCancel"_s), Qt::LeftButton);
    });
    timer.start(1);
    type(u"fennar.sweep('inner.jou', program='./program')"_s);
    timer.stop();
    QVERIFY2(text().endsWith(u"KeyboardInterrupt\n>>>"_s), qPrintable(text()));
    QCOMPARE(child_processes(), QList<int>());
}

OSTREL_TEST(TstPythonSession)
#include "tst_pythonsession.moc"
