// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    int code;
    QString output;
};

Outcome run_with_display(const QStringList& command)
{
    QProcess script;
    script.start(QString::fromUtf8(OSTREL_WITH_DISPLAY), command);
    script.waitForFinished();
    return {script.exitStatus() == QProcess::NormalExit ? script.exitCode() : -1,
            QString::fromUtf8(script.readAllStandardOutput())};
}

} // namespace

/** The script that gives a command a display, and what it is for. */
class TstWithDisplay : public TestCase
{
    Q_OBJECT

private slots:
    void test_runs_on_a_real_window_system();
    void window_manager_moves_the_activity();
    void exit_code_is_the_commands_data();
    void exit_code_is_the_commands();
    void arguments_arrive_as_they_are();
    void each_command_has_a_display_of_its_own();
    void window_manager_is_ready_before_the_command();
    void missing_server_or_manager_is_told_data();
    void missing_server_or_manager_is_told();
    void failing_test_fails_under_the_script();
};

void TstWithDisplay::test_runs_on_a_real_window_system()
{
    QCOMPARE(QGuiApplication::platformName(), u"xcb"_s);
}

void TstWithDisplay::window_manager_moves_the_activity()
{
    QWidget one;
    QWidget two;
    QVERIFY(show_active(&one));
    QVERIFY(one.isActiveWindow());
    QVERIFY(show_active(&two));
    QVERIFY(two.isActiveWindow());
    QVERIFY(!one.isActiveWindow());
    QVERIFY(show_active(&one));
    QVERIFY(one.isActiveWindow());
}

void TstWithDisplay::exit_code_is_the_commands_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("success") << 0;
    QTest::newRow("failure") << 1;
    QTest::newRow("refusal") << 2;
    QTest::newRow("any other") << 77;
}

void TstWithDisplay::exit_code_is_the_commands()
{
    QFETCH(const int, code);
    QCOMPARE(run_with_display({u"sh"_s, u"-c"_s, u"exit %1"_s.arg(code)}).code, code);
}

void TstWithDisplay::arguments_arrive_as_they_are()
{
    const Outcome outcome =
        run_with_display({u"printf"_s, u"<%s>"_s, u"two words"_s, u""_s, u"$HOME"_s, u"a'b\"c"_s, u"-x"_s});
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.output, u"<two words><><$HOME><a'b\"c><-x>"_s);
}

void TstWithDisplay::each_command_has_a_display_of_its_own()
{
    const QString own = qEnvironmentVariable("DISPLAY");
    QVERIFY(!own.isEmpty());
    const Outcome outcome = run_with_display({u"sh"_s, u"-c"_s, u"printf %s \"$DISPLAY\""_s});
    QCOMPARE(outcome.code, 0);
    QVERIFY(outcome.output.startsWith(u':'));
    QVERIFY(outcome.output != own);
}

void TstWithDisplay::window_manager_is_ready_before_the_command()
{
    const Outcome outcome = run_with_display({u"xdotool"_s, u"get_desktop"_s});
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.output.trimmed(), u"0"_s);
}

void TstWithDisplay::missing_server_or_manager_is_told_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("no virtual server") << u"Xvfb"_s;
    QTest::newRow("no window manager") << u"openbox"_s;
}

void TstWithDisplay::missing_server_or_manager_is_told()
{
    QFETCH(const QString, missing);
    QTemporaryDir tools;
    for (const QString& tool :
         {u"mktemp"_s, u"mkfifo"_s, u"rm"_s, u"sleep"_s, u"xdotool"_s, u"Xvfb"_s, u"openbox"_s, u"echo"_s}) {
        const QString path = QStandardPaths::findExecutable(tool);
        QVERIFY2(!path.isEmpty(), qPrintable(tool));
        if (tool != missing)
            QVERIFY(QFile::link(path, tools.filePath(tool)));
    }
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(tools.path()));
    const Outcome outcome = run_with_display({u"echo"_s, u"ran"_s});
    qputenv("PATH", path);
    QCOMPARE(outcome.code, 3);
    QCOMPARE(outcome.output, QString());
}

void TstWithDisplay::failing_test_fails_under_the_script()
{
    QCOMPARE(run_with_display({QString::fromUtf8(OSTREL_SAMPLE), u"sample_testcase"_s, u"passes"_s}).code, 0);
    const Outcome outcome =
        run_with_display({QString::fromUtf8(OSTREL_SAMPLE), u"sample_testcase"_s, u"leaves_a_window_open"_s});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.output.contains(u"a window was left open: left over"_s), qPrintable(outcome.output));
}

OSTREL_TEST(TstWithDisplay)
#include "tst_withdisplay.moc"
