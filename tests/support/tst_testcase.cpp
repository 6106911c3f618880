// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    QProcess::ExitStatus status;
    int code;
    QString output;
    QString errors;
};

/** Runs @p functions of the sample as a child process with @p environment. */
Outcome run_sample(const QStringList& functions,
                   const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess sample;
    sample.setProcessEnvironment(environment);
    sample.start(QString::fromUtf8(OSTREL_SAMPLE), QStringList{u"sample_testcase"_s} + functions);
    // However busy the machine is: one that never ends is ended by the watch over this function.
    sample.waitForFinished(-1);
    return {sample.exitStatus(), sample.exitCode(), QString::fromUtf8(sample.readAllStandardOutput()),
            QString::fromUtf8(sample.readAllStandardError())};
}

} // namespace

/** That a TestCase fails when it should, seen from outside: a sample of it runs as a child process. */
class TstTestCase : public TestCase
{
    Q_OBJECT

private slots:
    void function_that_keeps_the_rules_passes_data();
    void function_that_keeps_the_rules_passes();
    void function_that_breaks_a_rule_fails_data();
    void function_that_breaks_a_rule_fails();
    void each_failed_function_counts();
    void settings_of_one_function_do_not_reach_the_next();
    void start_outside_of_a_sandbox_is_refused_data();
    void start_outside_of_a_sandbox_is_refused();
    void start_without_a_temporary_directory_fails();
    void hung_function_is_ended();
    void environment_is_the_tests_own();
};

void TstTestCase::function_that_keeps_the_rules_passes_data()
{
    QTest::addColumn<QString>("function");
    QTest::newRow("nothing at all") << u"passes"_s;
    QTest::newRow("announced warning") << u"warns_as_announced"_s;
    QTest::newRow("what the offscreen platform cannot do") << u"warns_as_the_platform_does"_s;
    QTest::newRow("hidden window") << u"leaves_a_hidden_window"_s;
    QTest::newRow("window that waits to be deleted") << u"leaves_a_window_to_be_deleted_later"_s;
    QTest::newRow("own settings") << u"writes_a_setting"_s;
    QTest::newRow("application made for tests") << u"tells_of_the_application"_s;
}

void TstTestCase::function_that_keeps_the_rules_passes()
{
    QFETCH(const QString, function);
    const Outcome outcome = run_sample({function});
    QCOMPARE(outcome.status, QProcess::NormalExit);
    QVERIFY2(outcome.code == 0, qPrintable(outcome.output));
    QVERIFY(outcome.output.contains(u"PASS   : SampleTestCase::%1()"_s.arg(function)));
}

void TstTestCase::function_that_breaks_a_rule_fails_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("reason");
    QTest::newRow("verification") << u"breaks_a_verification"_s << u"returned FALSE"_s;
    QTest::newRow("warning") << u"warns"_s << u"out of the blue"_s;
    QTest::newRow("announced warning that does not come")
        << u"announces_and_does_not_warn"_s << u"Did not receive message"_s;
    QTest::newRow("warning other than announced")
        << u"announces_another_text"_s << u"foreseen, but different"_s;
    QTest::newRow("platform's words inside a warning")
        << u"warns_with_the_platforms_words_inside"_s << u"Why?"_s;
    QTest::newRow("Qt's own warning") << u"warns_of_a_connection_by_a_wrong_name"_s << u"No such signal"_s;
    QTest::newRow("open window") << u"leaves_a_window_open"_s << u"a window was left open: left over"_s;
    QTest::newRow("open dialog") << u"leaves_a_dialog_open"_s << u"a modal dialog was left open"_s;
    QTest::newRow("missed dialog") << u"misses_an_expected_dialog"_s << u"did not come: QFileDialog"_s;
    QTest::newRow("missed dialog, asked for")
        << u"misses_an_expected_dialog_and_says_when"_s << u"did not come: QFileDialog"_s;
    QTest::newRow("unexpected dialog")
        << u"shows_an_unexpected_dialog"_s << u"unexpected: QMessageBox: Title: Surprise"_s;
    QTest::newRow("another dialog") << u"shows_another_dialog_than_expected"_s
                                    << u"QMessageBox: Title: Surprise; did not come: QFileDialog"_s;
    QTest::newRow("unexpected dialog that blocks nobody")
        << u"shows_an_unexpected_dialog_that_blocks_nobody"_s << u"unexpected: QDialog: Title"_s;
    QTest::newRow("unexpected dialog that refuses to close")
        << u"shows_a_dialog_that_refuses_to_close"_s << u"unexpected: QDialog: Title"_s;
    QTest::newRow("unexpected dialog that asks before it closes")
        << u"shows_a_dialog_that_asks_before_it_closes"_s
        << u"unexpected: QDialog: : ; unexpected: QMessageBox: Close: Really?"_s;
    QTest::newRow("modal window that is no dialog")
        << u"shows_a_modal_window_that_is_no_dialog"_s << u"unexpected: QWidget: Title"_s;
    QTest::newRow("dialog left open by its action")
        << u"leaves_an_expected_dialog_open"_s << u"left open: QMessageBox: Title: Lasting"_s;
    QTest::newRow("missing standard button")
        << u"presses_a_missing_standard_button"_s << u"no button 262144 to press in QMessageBox: Title"_s;
    QTest::newRow("missing button") << u"presses_a_missing_button"_s << u"no button go to press in QDialog"_s;
    QTest::newRow("disabled button") << u"presses_a_disabled_button"_s
                                     << u"no button go to press in QDialog"_s;
    QTest::newRow("missing filter") << u"chooses_a_filter_that_is_not_offered"_s
                                    << u"no filter None (*) among All (*)"_s;
    QTest::newRow("open menu") << u"leaves_a_menu_open"_s << u"a menu was left open"_s;
}

void TstTestCase::function_that_breaks_a_rule_fails()
{
    QFETCH(const QString, function);
    QFETCH(const QString, reason);
    const Outcome outcome = run_sample({function});
    QCOMPARE(outcome.status, QProcess::NormalExit);
    QVERIFY2(outcome.code == 1, qPrintable(outcome.output));
    QVERIFY2(outcome.output.contains(u"FAIL!  : SampleTestCase::%1()"_s.arg(function)),
             qPrintable(outcome.output));
    QVERIFY2(outcome.output.contains(reason), qPrintable(outcome.output));
}

void TstTestCase::each_failed_function_counts()
{
    const Outcome outcome = run_sample({u"warns"_s, u"passes"_s, u"breaks_a_verification"_s});
    QVERIFY2(outcome.code == 2, qPrintable(outcome.output));
    QVERIFY(outcome.output.contains(u"PASS   : SampleTestCase::passes()"_s));
}

void TstTestCase::settings_of_one_function_do_not_reach_the_next()
{
    const Outcome outcome = run_sample({u"writes_a_setting"_s, u"finds_no_setting"_s});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.output));
    QVERIFY(outcome.output.contains(u"PASS   : SampleTestCase::finds_no_setting()"_s));
}

void TstTestCase::start_outside_of_a_sandbox_is_refused_data()
{
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("config");
    const QString home = QDir::homePath();
    QTest::newRow("home elsewhere") << u"/"_s << u"/config"_s;
    QTest::newRow("home elsewhere, settings in the sandbox") << u"/"_s << home + u"/config"_s;
    QTest::newRow("home above the sandbox")
        << QFileInfo(home).path() << QFileInfo(home).path() + u"/config"_s;
    QTest::newRow("settings elsewhere") << home << u"/config"_s;
    QTest::newRow("settings in another test's home") << home << home + u"-other/config"_s;
}

void TstTestCase::start_outside_of_a_sandbox_is_refused()
{
    QFETCH(const QString, home);
    QFETCH(const QString, config);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_CONFIG_HOME"_s, config);
    const Outcome outcome = run_sample({u"passes"_s}, environment);
    QCOMPARE(outcome.status, QProcess::NormalExit);
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.errors.contains(u"start them through ctest"_s), qPrintable(outcome.errors));
    // Nothing has run.
    QCOMPARE(outcome.output, QString());
}

void TstTestCase::start_without_a_temporary_directory_fails()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // A file stands where the directory should be.
    environment.insert(u"TMPDIR"_s, QString::fromUtf8(OSTREL_SAMPLE));
    const Outcome outcome = run_sample({u"passes"_s}, environment);
    QVERIFY2(outcome.code == 1, qPrintable(outcome.output));
    QVERIFY2(outcome.output.contains(u"no directory for the settings"_s), qPrintable(outcome.output));
}

void TstTestCase::hung_function_is_ended()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QTEST_FUNCTION_TIMEOUT"_s, u"200"_s);
    // For the stack Qt Test runs a debugger, where there is one, and waits for it. That takes seconds, on a
    // busy machine many.
    environment.insert(u"QTEST_DISABLE_STACK_DUMP"_s, u"1"_s);
    const Outcome outcome = run_sample({u"hangs"_s}, environment);
    QCOMPARE(outcome.status, QProcess::CrashExit);
    QVERIFY2(outcome.output.contains(u"Test function timed out"_s), qPrintable(outcome.output));
}

void TstTestCase::environment_is_the_tests_own()
{
    const QString home = QDir::homePath();
    QVERIFY2(home.endsWith(u"/sandbox/tst_testcase"_s), qPrintable(home));
    for (const char* name :
         {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        const QFileInfo directory(qEnvironmentVariable(name));
        QVERIFY2(directory.filePath().startsWith(home + u'/'), name);
        QVERIFY2(directory.isDir() && directory.isWritable(), name);
    }
    QCOMPARE(qEnvironmentVariable("LC_ALL"), u"C.UTF-8"_s);
#ifdef OSTREL_SANITIZED
    QCOMPARE(qEnvironmentVariable("QTEST_FUNCTION_TIMEOUT"), u"324000"_s);
#else
    QCOMPARE(qEnvironmentVariable("QTEST_FUNCTION_TIMEOUT"), u"108000"_s);
#endif
}

OSTREL_TEST(TstTestCase)
#include "tst_testcase.moc"
