// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennari19/FennarInterface.h"
#include "host/ostrelfw/Framework.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/Workbench.h"
#include "workbench/console/ConsoleOwner.h"

#include <QDockWidget>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/**
 * The whole application on its real host: what a user types goes in at the keyboard and what is checked is
 * the text that he then reads. Python can be started once in a process, so all functions share one workbench.
 */
class TstWorkbench : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void window_has_a_black_area_a_command_panel_and_a_console();
    void typed_command_is_answered_above_the_next_prompt();
    void continued_command_gets_a_second_prompt();
    void error_names_command_and_column_and_warns_on_the_errors_tab();
    void python_statement_runs_in_python_mode();
    void python_loop_over_several_lines_runs_at_the_empty_line();
    void python_traceback_stands_on_the_console();
    void python_exit_ends_nothing();
    void mode_buttons_switch_prompt_and_interpreter();
    void snippet_runs_in_python_mode();
    void snippet_is_an_unknown_command_in_command_mode();
    void command_runs_from_python_and_its_failure_raises();
    void python_runs_from_a_command();
    void prints_of_a_python_thread_arrive_in_order();
    void user_and_framework_names_are_apart();
    void pasted_lines_run_in_order();
    void journal_plays_line_by_line();
    void failing_journal_stops_with_file_and_line();
    void history_command_lists_what_was_entered();
    void picture_command_writes_the_window();
    void picture_that_cannot_be_written_is_an_error();
    void output_with_odd_characters_does_no_harm();
    void quit_closes_the_window_and_ends_the_loop();

private:
    CommandWidget* page() const { return mWorkbench->console()->command_page(); }
    QString text() const { return page()->toPlainText(); }
    void enter(const QString& line)
    {
        QTest::keyClicks(page(), line);
        QTest::keyClick(page(), Qt::Key_Return);
    }
    void python_mode(bool on)
    {
        QTest::keyClick(Ostrel::instance(), on ? Qt::Key_P : Qt::Key_C, Qt::AltModifier);
    }
    QString write_journal(const QString& name, const QByteArray& content);

    std::unique_ptr<Workbench> mWorkbench;
    QTemporaryDir mDirectory;
};

void TstWorkbench::initTestCase()
{
    TestCase::init();
    mWorkbench = std::make_unique<Workbench>();
    QVERIFY(mWorkbench->load());
    QVERIFY(show_active(Ostrel::instance()));
}

void TstWorkbench::init()
{
    // One window serves all functions, so the checks of the base class wait for the last.
    Ostrel::instance()->command_line()->set_focus();
    page()->clearToPrompt();
}

void TstWorkbench::cleanup()
{
    if (Ostrel::instance() && FennarInterface::command_is_python_mode())
        python_mode(false);
}

void TstWorkbench::cleanupTestCase()
{
    mWorkbench->unload();
    QVERIFY(!Ostrel::instance());
    mWorkbench.reset();
    TestCase::cleanup();
}

QString TstWorkbench::write_journal(const QString& name, const QByteArray& content)
{
    const QString path = mDirectory.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the journal could not be written");
    return path;
}

void TstWorkbench::window_has_a_black_area_a_command_panel_and_a_console()
{
    const Ostrel* window = Ostrel::instance();
    const QWidget* area = window->findChild<QWidget*>(u"mDefaultWidget"_s);
    QVERIFY(area && area->isVisible());
    QCOMPARE(const_cast<QWidget*>(area)->grab().toImage().pixelColor(area->rect().center()),
             QColor(Qt::black));
    for (const QString& name : {u"FennarCommandPanel"_s, u"OstrelCommandWindow"_s}) {
        const auto* dock = window->findChild<QDockWidget*>(name);
        QVERIFY2(dock && dock->isVisible(), qPrintable(name));
    }
    QVERIFY(page()->isVisible());
    QCOMPARE(window->windowTitle(), u"Fennar"_s);
}

void TstWorkbench::typed_command_is_answered_above_the_next_prompt()
{
    enter(u"echo one 'two three'"_s);
    QCOMPARE(text(), u"Fennar>echo one 'two three'\none two three\nFennar>"_s);
}

void TstWorkbench::continued_command_gets_a_second_prompt()
{
    enter(u"echo one \\"_s);
    QCOMPARE(text(), u"Fennar>echo one \\\nFennar>"_s);
    enter(u"two"_s);
    QVERIFY2(text().endsWith(u"two\none two\nFennar>"_s), qPrintable(text()));
}

void TstWorkbench::error_names_command_and_column_and_warns_on_the_errors_tab()
{
    auto* tabs = Ostrel::instance()->findChild<QTabWidget*>(u"mCommandTab"_s);
    enter(u"set 1x 5"_s);
    QVERIFY2(text().contains(u"ERROR: set: column 5: expected "_s), qPrintable(text()));
    QVERIFY(mWorkbench->console()->error_page()->toPlainText().contains(
        u"Fennar>set 1x 5\nERROR: set: column 5"_s));
    const int errors = tabs->indexOf(mWorkbench->console()->error_page());
    QVERIFY(!tabs->tabIcon(errors).isNull());
    tabs->setCurrentIndex(errors);
    QVERIFY(tabs->tabIcon(errors).isNull());
    tabs->setCurrentIndex(0);
}

void TstWorkbench::python_statement_runs_in_python_mode()
{
    python_mode(true);
    enter(u"6 * 7"_s);
    QCOMPARE(text(), u">>>6 * 7\n42\n>>>"_s);
}

void TstWorkbench::python_loop_over_several_lines_runs_at_the_empty_line()
{
    python_mode(true);
    enter(u"for i in range(3):"_s);
    QCOMPARE(page()->currentCommand(), u"    "_s);
    enter(u"print('i =', i)"_s);
    QCOMPARE(page()->currentCommand(), u"    "_s);
    QTest::keyClick(page(), Qt::Key_U, Qt::ControlModifier);
    enter({});
    QVERIFY2(text().endsWith(u"\ni = 0\ni = 1\ni = 2\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::python_traceback_stands_on_the_console()
{
    python_mode(true);
    enter(u"1 / 0"_s);
    QVERIFY2(text().contains(u"Traceback"_s), qPrintable(text()));
    QVERIFY2(text().endsWith(u"ZeroDivisionError: division by zero\n>>>"_s), qPrintable(text()));
    QVERIFY(mWorkbench->console()->error_page()->toPlainText().contains(u">>>1 / 0\nTraceback"_s));
}

void TstWorkbench::python_exit_ends_nothing()
{
    python_mode(true);
    enter(u"import sys"_s);
    enter(u"sys.exit(3)"_s);
    QVERIFY2(text().contains(u"SystemExit"_s), qPrintable(text()));
    enter(u"'still ' + 'here'"_s);
    QVERIFY2(text().endsWith(u"\n'still here'\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::mode_buttons_switch_prompt_and_interpreter()
{
    python_mode(true);
    QVERIFY(FennarInterface::command_is_python_mode());
    QCOMPARE(text(), u">>>"_s);
    python_mode(false);
    QVERIFY(!FennarInterface::command_is_python_mode());
    QCOMPARE(text(), u"Fennar>"_s);
}

void TstWorkbench::snippet_runs_in_python_mode()
{
    python_mode(true);
    QTest::keyClick(page(), Qt::Key_T, Qt::ControlModifier);
    enter(u"'echo from python'"_s);
    QVERIFY2(text().startsWith(u">>>fennar.cmd('echo from python')\nfrom python\n"_s), qPrintable(text()));
}

void TstWorkbench::snippet_is_an_unknown_command_in_command_mode()
{
    QTest::keyClick(page(), Qt::Key_T, Qt::ControlModifier);
    enter({});
    QVERIFY2(text().startsWith(u"Fennar>fennar.cmd()\nERROR: "_s), qPrintable(text()));
}

void TstWorkbench::command_runs_from_python_and_its_failure_raises()
{
    python_mode(true);
    enter(u"fennar.cmd('no_such_command')"_s);
    QVERIFY2(text().contains(u"no_such_command"_s), qPrintable(text()));
    QVERIFY2(text().contains(u"CommandError"_s), qPrintable(text()));
}

void TstWorkbench::python_runs_from_a_command()
{
    enter(u"python print(1.5 + 1)"_s);
    QCOMPARE(text(), u"Fennar>python print(1.5 + 1)\n2.5\nFennar>"_s);
}

void TstWorkbench::prints_of_a_python_thread_arrive_in_order()
{
    python_mode(true);
    enter(u"import threading"_s);
    enter(u"t = threading.Thread(target=lambda: [print('line', n) for n in range(200)])"_s);
    enter(u"t.start()"_s);
    QTRY_VERIFY(text().contains(u"line 199\n"_s));
    QString expected;
    for (int n = 0; n < 200; ++n)
        expected += u"line %1\n"_s.arg(n);
    QString printed = text();
    printed = printed.mid(printed.indexOf(u"line 0\n"_s), expected.size());
    QCOMPARE(printed, expected);
    enter(u"t.join()"_s);
}

void TstWorkbench::user_and_framework_names_are_apart()
{
    QVERIFY(Framework::python_interpreter() != Framework::user_python_interpreter());
    QCOMPARE(Framework::python_interpreter()->Run_SimpleString("shared = 1"), 0);
    QCOMPARE(Framework::user_python_interpreter()->Run_SimpleString("own = 2"), 0);
    QCOMPARE(Framework::user_python_interpreter()->Run_SimpleString("shared"), -1);
    QCOMPARE(Framework::python_interpreter()->Run_SimpleString("own"), -1);
    // What the user types goes to the user's names.
    python_mode(true);
    enter(u"own"_s);
    QVERIFY2(text().endsWith(u">>>own\n2\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::pasted_lines_run_in_order()
{
    emit page()->commandsEntered({u"set a 1"_s, u"echo $a"_s, {}});
    QCOMPARE(text(), u"Fennar>set a 1\nFennar>echo $a\n1\nFennar>"_s);
}

void TstWorkbench::journal_plays_line_by_line()
{
    const QString path = write_journal(u"good.jou"_s, "# a comment\necho one\necho two\n");
    enter(u"play \"%1\""_s.arg(path));
    QVERIFY2(text().contains(u"Fennar>echo one\none\nFennar>echo two\ntwo\nFennar>"_s), qPrintable(text()));
}

void TstWorkbench::failing_journal_stops_with_file_and_line()
{
    const QString path = write_journal(u"bad.jou"_s, "echo one\nnonsense 5\necho never\n");
    enter(u"play \"%1\""_s.arg(path));
    QVERIFY2(text().contains(path + u":2"_s), qPrintable(text()));
    QVERIFY(!text().contains(u"never"_s));
    QVERIFY(text().endsWith(u"\nFennar>"_s));
}

void TstWorkbench::history_command_lists_what_was_entered()
{
    enter(u"echo remember me"_s);
    enter(u"history 2"_s);
    QVERIFY2(text().section(u"history 2\n"_s, 1).contains(u"echo remember me"_s), qPrintable(text()));
}

void TstWorkbench::picture_command_writes_the_window()
{
    const QString path = mDirectory.filePath(u"window.png"_s);
    enter(u"picture \"%1\""_s.arg(path));
    const QImage picture(path);
    QCOMPARE(picture.size(), Ostrel::instance()->size());
}

void TstWorkbench::picture_that_cannot_be_written_is_an_error()
{
    enter(u"picture /no/such/directory/window.png"_s);
    QVERIFY2(text().contains(u"ERROR: picture: column 9: "_s), qPrintable(text()));
}

void TstWorkbench::output_with_odd_characters_does_no_harm()
{
    python_mode(true);
    enter(u"print('a\\0b\\udc80c')"_s);
    enter(u"import sys; _ = sys.stdout.write('x' * 1000000 + chr(10))"_s);
    enter(u"1 + 1"_s);
    QVERIFY(text().endsWith(u">>>1 + 1\n2\n>>>"_s));
    QVERIFY(text().contains(QString(1000000, u'x')));
}

void TstWorkbench::quit_closes_the_window_and_ends_the_loop()
{
    QTimer::singleShot(0, page(), [this] { enter(u"quit"_s); });
    mWorkbench->run();
    QVERIFY(!Ostrel::instance()->isVisible());
}

OSTREL_TEST_MAIN(TstWorkbench)
#include "tst_workbench.moc"
