// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PythonRecorder.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "support/TestCase.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstPythonInterpreter : public TestCase
{
    Q_OBJECT

private:
    PythonRecorder mRecorder;
    std::unique_ptr<FennarPythonInterpreter> mInterpreter =
        make_python_interpreter(PythonRuntime::user_namespace());

protected:
    void set_up() override { mRecorder.clear(); }

private slots:
    // The first function: the ones behind it find Python running.
    void before_the_start_nothing_runs()
    {
        QVERIFY(!mInterpreter->IsInitialized());
        QCOMPARE(mInterpreter->Run_SimpleString("print('x')"), -1);
        QVERIFY(mInterpreter->version_major() >= 3);
        QVERIFY2(PythonRuntime::start(mRecorder.hooks()), qPrintable(mRecorder.errors));
        QVERIFY(mInterpreter->IsInitialized());
        QCOMPARE(mRecorder.output, QString());
    }

    void version_is_that_of_the_running_python()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("import sys\nprint(*sys.version_info[:3])"), 0);
        QCOMPARE(mRecorder.output, u"%1 %2 %3\n"_s.arg(mInterpreter->version_major())
                                       .arg(mInterpreter->version_minor())
                                       .arg(mInterpreter->version_micro()));
    }

    void names_stay_from_run_to_run()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("value = 3"), 0);
        QCOMPARE(make_python_interpreter(PythonRuntime::user_namespace())->Run_SimpleString("print(value)"),
                 0);
        QCOMPARE(mRecorder.output, u"3\n"_s);
    }

    void value_of_an_expression_is_not_shown()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("40 + 2"), 0);
        QCOMPARE(mRecorder.output, QString());
    }

    void source_is_utf8()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("print('\u0394\U0001f600')"), 0);
        QCOMPARE(mRecorder.output, u"\u0394\U0001f600\n"_s);
    }

    void nothing_to_run_is_a_success_data()
    {
        QTest::addColumn<bool>("null");
        QTest::newRow("null") << true;
        QTest::newRow("empty") << false;
    }
    void nothing_to_run_is_a_success()
    {
        QFETCH(bool, null);
        QCOMPARE(mInterpreter->Run_SimpleString(null ? nullptr : ""), 0);
        QCOMPARE(mRecorder.errors, QString());
    }

    void exception_is_printed_and_told()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("\nundefined_name"), -1);
        QCOMPARE(mRecorder.errors, u"Traceback (most recent call last):\n"
                                   "  File \"<string>\", line 2, in <module>\n"
                                   "NameError: name 'undefined_name' is not defined\n"_s);
    }

    void chained_exceptions_are_printed_whole()
    {
        QCOMPARE(mInterpreter->Run_SimpleString("try:\n    1 / 0\nexcept Exception as e:\n"
                                                "    raise ValueError('outer') from e"),
                 -1);
        QVERIFY(mRecorder.errors.contains(u"ZeroDivisionError: division by zero\n"_s));
        QVERIFY(mRecorder.errors.contains(u"direct cause"_s));
        QVERIFY(mRecorder.errors.endsWith(u"ValueError: outer\n"_s));
    }

    void wrong_source_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("error");
        QTest::newRow("syntax") << "x = = 1"_ba << u"SyntaxError"_s;
        QTest::newRow("indentation") << "  x = 1"_ba << u"IndentationError"_s;
        QTest::newRow("unfinished") << "def f(:"_ba << u"SyntaxError"_s;
        QTest::newRow("not UTF-8") << "x = '\xff'"_ba << u"UnicodeDecodeError"_s;
    }
    void wrong_source()
    {
        QFETCH(QByteArray, source);
        QFETCH(QString, error);
        QCOMPARE(mInterpreter->Run_SimpleString(source.constData()), -1);
        QVERIFY2(mRecorder.errors.contains(error), qPrintable(mRecorder.errors));
        QVERIFY2(!mRecorder.errors.contains(u"<fennar>"_s), qPrintable(mRecorder.errors));
    }

    void exit_is_told_and_does_not_end_the_process_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("told");
        QTest::newRow("without a code") << "import sys; sys.exit()"_ba << u"SystemExit\n"_s;
        QTest::newRow("with a number") << "import sys; sys.exit(2)"_ba << u"SystemExit: 2\n"_s;
        QTest::newRow("with zero") << "import sys; sys.exit(0)"_ba << u"SystemExit: 0\n"_s;
        QTest::newRow("with a text") << "import sys; sys.exit('enough')"_ba << u"SystemExit: enough\n"_s;
        QTest::newRow("exit of the site module") << "exit()"_ba << u"SystemExit\n"_s;
        QTest::newRow("quit of the site module") << "quit(5)"_ba << u"SystemExit: 5\n"_s;
        QTest::newRow("raised") << "raise SystemExit"_ba << u"SystemExit\n"_s;
        QTest::newRow("with an object that has no text")
            << "class C:\n    def __str__(self): return 5\nraise SystemExit(C())"_ba
            << u"An exception of type SystemExit cannot be shown.\n"_s;
    }
    void exit_is_told_and_does_not_end_the_process()
    {
        QFETCH(QByteArray, source);
        QFETCH(QString, told);
        QCOMPARE(mInterpreter->Run_SimpleString(source.constData()), -1);
        QCOMPARE(mRecorder.errors, told);
        QCOMPARE(mInterpreter->Run_SimpleString("print('on')"), 0);
        QCOMPARE(mRecorder.output, u"on\n"_s);
    }

    void stopped_python_runs_nothing()
    {
        PythonRuntime::stop();
        QVERIFY(!mInterpreter->IsInitialized());
        QCOMPARE(mInterpreter->Run_SimpleString("print('x')"), -1);
        QCOMPARE(mRecorder.output, QString());
    }
};

OSTREL_TEST(TstPythonInterpreter)
#include "tst_pythoninterpreter.moc"
