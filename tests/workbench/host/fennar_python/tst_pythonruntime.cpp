// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PythonRecorder.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "support/TestCase.h"
#include "workbench/host/fennar_python/PythonConsole.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstPythonRuntime : public TestCase
{
    Q_OBJECT

private:
    bool run(const QByteArray& source) { return mUser->Run_SimpleString(source.constData()) == 0; }

    PythonRecorder mRecorder;
    std::unique_ptr<FennarPythonInterpreter> mUser;

protected:
    void set_up() override { mRecorder.clear(); }

private slots:
    void initTestCase()
    {
        QVERIFY(!PythonRuntime::running());
        QVERIFY2(PythonRuntime::start(mRecorder.hooks()), qPrintable(mRecorder.errors));
        QVERIFY(PythonRuntime::running());
        mUser = make_python_interpreter(PythonRuntime::user_namespace());
    }

    // Comes first: code that ran before could have left a turn behind, and this loop must get its own.
    void silent_endless_loop_is_interrupted_in_a_turn()
    {
        int turns = 0;
        mRecorder.onTurn = [&turns] {
            if (++turns == 2)
                PythonRuntime::request_interrupt();
        };
        QVERIFY(!run("while True: pass"));
        QCOMPARE(turns, 2);
        QVERIFY(mRecorder.errors.endsWith(u"KeyboardInterrupt\n"_s));
    }

    void output_and_errors_reach_their_hooks_in_order()
    {
        QVERIFY(run("import sys\nprint('a'); print('b', file=sys.stderr); print('c', end='')"));
        QCOMPARE(mRecorder.calls,
                 (QStringList{u"out:a"_s, u"out:\n"_s, u"err:b"_s, u"err:\n"_s, u"out:c"_s}));
    }

    void write_returns_the_number_of_characters()
    {
        QVERIFY(run("import sys\nprint(sys.stdout.write('a\\U0001f600b'))"));
        QCOMPARE(mRecorder.output, u"a\U0001f600b3\n"_s);
    }

    void write_refuses_what_is_no_string()
    {
        QVERIFY(!run("import sys\nsys.stdout.write(3)"));
        QVERIFY2(mRecorder.errors.endsWith(u"TypeError: write() argument must be str, not int\n"_s),
                 qPrintable(mRecorder.errors));
        QCOMPARE(mRecorder.output, QString());
    }

    void any_text_arrives_data()
    {
        QTest::addColumn<QByteArray>("expression");
        QTest::addColumn<QString>("arrived");
        QTest::newRow("Latin letters") << "'\\xfc'"_ba << u"\u00fc"_s;
        QTest::newRow("letters of two bytes") << "'\\u0394x'"_ba << u"\u0394x"_s;
        QTest::newRow("letters beyond the basic plane") << "'\\U0001f600'"_ba << u"\U0001f600"_s;
        QTest::newRow("a lone surrogate is replaced") << "'a\\udc80b'"_ba << u"a\ufffdb"_s;
        QTest::newRow("a lone surrogate beside a letter beyond the basic plane is replaced")
            << "'\\U0001f600\\ud800'"_ba << u"\U0001f600\ufffd"_s;
        QTest::newRow("a null character") << "'a\\0b'"_ba << QString::fromUtf16(u"a\0b", 3);
        QTest::newRow("ten million letters")
            << "'\\u0394' * 10_000_000"_ba << QString(10000000, QChar(0x394));
        QTest::newRow("nothing") << "''"_ba << QString();
    }
    void any_text_arrives()
    {
        QFETCH(QByteArray, expression);
        QFETCH(QString, arrived);
        QVERIFY(run("import sys\nsys.stdout.write(" + expression + ")"));
        QVERIFY(mRecorder.output == arrived);
        QVERIFY(run("sys.stderr.write(" + expression + ")"));
        QVERIFY(mRecorder.errors == arrived);
    }

    void bytes_written_to_the_buffer_are_read_as_utf8()
    {
        QVERIFY(run("import sys\n"
                    "print(sys.stdout.buffer.write(b'\\xc3'), sys.stdout.buffer.write(b'\\xbc\\xff'))"));
        QCOMPARE(mRecorder.output, u"\u00fc\ufffd1 2\n"_s);
    }

    void traceback_shows_no_step_of_the_streams()
    {
        QVERIFY(!run("import sys\nsys.stdout.buffer.write(3)"));
        QVERIFY2(mRecorder.errors.startsWith(u"Traceback (most recent call last):\n"
                                             "  File \"<string>\", line 2, in <module>\nTypeError: "_s),
                 qPrintable(mRecorder.errors));
    }

    void streams_have_the_face_of_files()
    {
        QVERIFY(run("import sys, io\n"
                    "for s in sys.stdout, sys.stderr:\n"
                    "    assert isinstance(s, io.TextIOBase)\n"
                    "    assert s.writable() and not s.readable() and not s.seekable() and not s.isatty()\n"
                    "    assert s.encoding == 'utf-8' and not s.closed\n"
                    "    s.flush(); s.writelines(['x', 'y']); s.reconfigure(encoding='latin-1')\n"
                    "    try: s.fileno()\n"
                    "    except OSError: pass\n"
                    "    else: assert False\n"
                    "assert sys.stdout is sys.__stdout__ and sys.stderr is sys.__stderr__\n"
                    "assert (sys.stdout.name, sys.stderr.name) == ('<stdout>', '<stderr>')"));
        QCOMPARE(mRecorder.output, u"xy"_s);
        QCOMPARE(mRecorder.errors, u"xy"_s);
    }

    void closing_the_streams_does_not_silence_them()
    {
        QVERIFY(
            run("import sys\nsys.stdout.close(); sys.stdout.buffer.close(); sys.stdin.close()\nprint('x')\n"
                "assert sys.stdin.read() == ''"));
        QCOMPARE(mRecorder.output, u"x\n"_s);
    }

    void a_redirection_goes_elsewhere_until_its_end()
    {
        QVERIFY(run("import contextlib, io\nheld = io.StringIO()\n"
                    "with contextlib.redirect_stdout(held): print('held')\n"
                    "print(held.getvalue().upper(), end='')"));
        QCOMPARE(mRecorder.output, u"HELD\n"_s);
    }

    void a_hook_that_throws_becomes_an_exception_of_python()
    {
        mRecorder.onOutput = [](const QString&) { throw std::runtime_error("console is gone"); };
        QVERIFY(!run("print('x')"));
        QVERIFY2(mRecorder.errors.endsWith(u"RuntimeError: console is gone\n"_s),
                 qPrintable(mRecorder.errors));
    }

    void name_spaces_are_separate()
    {
        const auto framework = make_python_interpreter(PythonRuntime::framework_namespace());
        QVERIFY(run("only_here = 1"));
        QCOMPARE(framework->Run_SimpleString("only_here"), -1);
        QVERIFY(mRecorder.errors.contains(u"NameError"_s));
        mRecorder.clear();
        QCOMPARE(framework->Run_SimpleString("print(__name__, __builtins__.len('ab'))"), 0);
        QVERIFY(run("print(__name__, __builtins__.len('ab'))"));
        QCOMPARE(mRecorder.output, u"__framework__ 2\n__main__ 2\n"_s);
        QVERIFY(PythonRuntime::user_namespace().dictionary() !=
                PythonRuntime::framework_namespace().dictionary());
    }

    void classes_of_either_name_space_can_be_pickled()
    {
        const auto framework = make_python_interpreter(PythonRuntime::framework_namespace());
        const char* const source = "import pickle\nclass Part: pass\n"
                                   "assert isinstance(pickle.loads(pickle.dumps(Part())), Part)";
        QVERIFY(run(source));
        QCOMPARE(framework->Run_SimpleString(source), 0);
    }

    void name_space_outlives_its_module()
    {
        QVERIFY(run("kept = 7\nimport sys\nmain = sys.modules.pop('__main__')\ndel main"));
        QVERIFY(run("import sys, types\nprint(kept)\n"
                    "sys.modules['__main__'] = types.ModuleType('__main__')"));
        QCOMPARE(mRecorder.output, u"7\n"_s);
    }

    void script_runs_in_the_users_name_space()
    {
        QVERIFY(PythonRuntime::run_file(u"/scripts/a.py"_s, u"made = 'by script'\nprint(__file__)\n"_s));
        QVERIFY(run("print(made, '__file__' in globals())"));
        QCOMPARE(mRecorder.output, u"/scripts/a.py\nby script False\n"_s);
    }

    void traceback_of_a_script_names_file_and_line_as_run()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(u"d\u00fcse.py"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("# older text\n# on the disk\n# of the script\n");
        file.close();
        QVERIFY(!PythonRuntime::run_file(path, u"def f():\n    return 1 / 0\nf()\n"_s));
        QVERIFY(mRecorder.errors.startsWith(
            u"Traceback (most recent call last):\n  File \"%1\", line 3, in <module>\n    f()\n"_s.arg(
                path)));
        QVERIFY(mRecorder.errors.contains(u"  File \"%1\", line 2, in f\n    return 1 / 0\n"_s.arg(path)));
        QVERIFY(mRecorder.errors.endsWith(u"ZeroDivisionError: division by zero\n"_s));
        QVERIFY2(!mRecorder.errors.contains(u"<fennar>"_s), qPrintable(mRecorder.errors));
    }

    void script_with_a_wrong_line_is_not_run()
    {
        QVERIFY(!PythonRuntime::run_file(u"b.py"_s, u"print('x')\nx = = 1\n"_s));
        QCOMPARE(mRecorder.output, QString());
        QVERIFY2(mRecorder.errors.startsWith(u"  File \"b.py\", line 2\n"_s), qPrintable(mRecorder.errors));
        QVERIFY(mRecorder.errors.endsWith(u"SyntaxError: invalid syntax\n"_s));
    }

    void failure_of_a_script_is_told_to_programs_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QStringList>("told");
        const auto row = [](const char* name, const QString& source, const QStringList& told) {
            QTest::newRow(name) << source << told;
        };
        row("within a function", u"def f():\n    return 1 / 0\nf()\n"_s,
            {u"ZeroDivisionError: division by zero"_s, {}, {}, u"2"_s, u"return 1 / 0"_s});
        row("within a module", u"import json\njson.loads('{')\n"_s,
            {u"json.decoder.JSONDecodeError: Expecting property name enclosed in double quotes: line 1 column 2 (char 1)"_s,
             {},
             {},
             u"2"_s,
             u"json.loads('{')"_s});
        row("of a command",
            u"import fennar\nraise fennar.CommandError('no such; try it', 'brick', 7, 'try it')"_s,
            {u"no such; try it"_s, u"brick"_s, u"try it"_s, u"2"_s,
             u"raise fennar.CommandError('no such; try it', 'brick', 7, 'try it')"_s});
        row("that is no Python", u"x = 1\nx = = 1\n"_s,
            {u"SyntaxError: invalid syntax"_s, {}, {}, u"2"_s, u"x = = 1"_s});
        row("without a text", u"raise KeyError"_s, {u"KeyError"_s, {}, {}, u"1"_s, u"raise KeyError"_s});
        row("whose text cannot be told",
            u"class Odd(Exception):\n    def __str__(self): raise ValueError\nraise Odd"_s,
            {u"Odd: <exception str() failed>"_s, {}, {}, u"3"_s, u"raise Odd"_s});
    }
    void failure_of_a_script_is_told_to_programs()
    {
        QFETCH(const QString, source);
        QFETCH(const QStringList, told);
        PythonScriptFailure failure;
        QVERIFY(!PythonRuntime::run_file(u"f.py"_s, source, false, &failure));
        QCOMPARE((QStringList{failure.message, failure.command, failure.remedy, QString::number(failure.line),
                              failure.text}),
                 told);
        QVERIFY(mRecorder.errors.contains(u"Error"_s) || mRecorder.errors.contains(u"Odd"_s));
    }

    void odd_scripts_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<bool>("runs");
        QTest::newRow("empty") << QString() << true;
        QTest::newRow("byte order mark") << u"\ufeffx = 1"_s << true;
        QTest::newRow("line ends of two characters") << u"if 1:\r\n    x = 1\r\n"_s << true;
        QTest::newRow("claims another coding")
            << u"# -*- coding: latin-1 -*-\nassert '\u00fc' == '\\xfc'\n"_s << true;
        QTest::newRow("null character") << QString::fromUtf16(u"x = 1\0", 6) << false;
        QTest::newRow("lone surrogate") << QString(u"x = '"_s + QChar(0xdc80) + u'\'') << false;
    }
    void odd_scripts()
    {
        QFETCH(QString, source);
        QFETCH(bool, runs);
        QCOMPARE(PythonRuntime::run_file(u"c.py"_s, source), runs);
        QCOMPARE(mRecorder.errors.isEmpty(), runs);
    }

    void script_that_exits_tells_so_and_has_failed()
    {
        QVERIFY(!PythonRuntime::run_file(u"d.py"_s, u"import sys\nsys.exit(3)\nprint('not reached')"_s));
        QCOMPARE(mRecorder.errors, u"SystemExit: 3\n"_s);
        QCOMPARE(mRecorder.output, QString());
    }

    void excepthook_of_the_user_is_asked()
    {
        QVERIFY(run("import sys\nsys.excepthook = lambda kind, value, trace: print('seen', kind.__name__)"));
        QVERIFY(!run("1 / 0"));
        QCOMPARE(mRecorder.output, u"seen ZeroDivisionError\n"_s);
        QCOMPARE(mRecorder.errors, QString());
        QVERIFY(run("print(sys.last_type.__name__)\nsys.excepthook = sys.__excepthook__"));
        QVERIFY(mRecorder.output.endsWith(u"ZeroDivisionError\n"_s));
    }

    void excepthook_that_exits_does_not_end_the_process()
    {
        QVERIFY(run("import sys\ndef hook(*_): sys.exit(4)\nsys.excepthook = hook"));
        QVERIFY(!run("1 / 0"));
        QVERIFY(run("sys.excepthook = sys.__excepthook__"));
        QVERIFY(mRecorder.errors.startsWith(u"Error in sys.excepthook:\n"_s));
        QVERIFY(mRecorder.errors.contains(u"SystemExit: 4\n"_s));
        QVERIFY2(mRecorder.errors.contains(u"\nOriginal exception was:\nTraceback"_s),
                 qPrintable(mRecorder.errors));
        QVERIFY(mRecorder.errors.endsWith(u"ZeroDivisionError: division by zero\n"_s));
    }

    void exception_that_cannot_be_shown_is_told_by_type()
    {
        QVERIFY(run("import sys\nsys.stderr = None"));
        QVERIFY(!run("1 / 0"));
        QVERIFY(run("sys.stderr = sys.__stderr__"));
        // print() drops text for a missing stream without a word, like Python itself.
        QCOMPARE(mRecorder.errors, QString());
        QVERIFY(run("sys.stderr = 5"));
        QVERIFY(!run("1 / 0"));
        QVERIFY(run("sys.stderr = sys.__stderr__"));
        QCOMPARE(mRecorder.errors, u"An exception of type ZeroDivisionError cannot be shown.\n"_s);
    }

    void fennar_is_imported_for_the_user_and_documented()
    {
        QVERIFY(run("print(fennar.__name__, bool(fennar.__doc__), fennar.cmd.__doc__.splitlines()[0],"
                    " bool(fennar.CommandError.__doc__), issubclass(fennar.CommandError, Exception))"));
        QCOMPARE(mRecorder.output, u"fennar True cmd(text) True True\n"_s);
    }

    void command_reaches_the_application()
    {
        QVERIFY(run("print(fennar.cmd('brick x 10 # \u00fc \\U0001f600'))"));
        QCOMPARE(mRecorder.commands, QStringList(u"brick x 10 # \u00fc \U0001f600"_s));
        QCOMPARE(mRecorder.output, u"None\n"_s);
    }

    void failed_command_raises_command_error()
    {
        mRecorder.onCommand = [](const QString&) { return false; };
        QVERIFY(run("try:\n    fennar.cmd('no such')\nexcept fennar.CommandError as e:\n    print(e)"));
        QCOMPARE(mRecorder.output, u"command failed: no such\n"_s);
        QVERIFY(!run("fennar.cmd('no such')"));
        QVERIFY2(mRecorder.errors.endsWith(u"fennar.CommandError: command failed: no such\n"_s),
                 qPrintable(mRecorder.errors));
    }

    void command_error_tells_what_the_application_tells()
    {
        mRecorder.onCommand = [](const QString&) { return false; };
        mRecorder.failure = {u"no \u00fc; try x"_s, u"brick"_s, 7, u"try x"_s};
        QVERIFY2(run("try:\n    fennar.cmd('brick u')\nexcept fennar.CommandError as error:\n    e = error\n"
                     "print(e)\nprint([e.message, e.command, e.column, e.remedy])\n"
                     "import pickle\nprint(pickle.loads(pickle.dumps(e)).column)"),
                 qPrintable(mRecorder.errors));
        QCOMPARE(mRecorder.output, u"brick: column 7: no \u00fc; try x\n"
                                   "['no \u00fc; try x', 'brick', 7, 'try x']\n7\n"_s);
    }

    void command_that_throws_raises_runtime_error()
    {
        mRecorder.onCommand = [](const QString&) -> bool { throw std::runtime_error("engine failed"); };
        QVERIFY(!run("fennar.cmd('x')"));
        QVERIFY(mRecorder.errors.endsWith(u"RuntimeError: engine failed\n"_s));
    }

    void wrong_arguments_of_cmd_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<QString>("error");
        QTest::newRow("a number") << "fennar.cmd(3)"_ba << u"TypeError"_s;
        QTest::newRow("bytes") << "fennar.cmd(b'x')"_ba << u"TypeError"_s;
        QTest::newRow("none") << "fennar.cmd(None)"_ba << u"TypeError"_s;
        QTest::newRow("no argument") << "fennar.cmd()"_ba << u"TypeError"_s;
        QTest::newRow("two arguments") << "fennar.cmd('a', 'b')"_ba << u"TypeError"_s;
        QTest::newRow("a lone surrogate") << "fennar.cmd('\\udc80')"_ba << u"UnicodeEncodeError"_s;
    }
    void wrong_arguments_of_cmd()
    {
        QFETCH(QByteArray, call);
        QFETCH(QString, error);
        QVERIFY(run("try:\n    " + call + "\nexcept Exception as e:\n    print(type(e).__name__)"));
        QCOMPARE(mRecorder.output, error + u'\n');
        QVERIFY(mRecorder.commands.isEmpty());
    }

    void command_may_run_python_again()
    {
        mRecorder.onCommand = [this](const QString& text) {
            const int depth = text.toInt();
            const QByteArray inner = depth == 0 ? "print('deepest')"_ba
                                                : "fennar.cmd('" + QByteArray::number(depth - 1) +
                                                      "'); print('back in " + text.toLatin1() + "')";
            return mUser->Run_SimpleString(inner.constData()) == 0;
        };
        QVERIFY(run("fennar.cmd('3'); print('done')"));
        QCOMPARE(mRecorder.output, u"deepest\nback in 1\nback in 2\nback in 3\ndone\n"_s);
    }

    void endless_loop_is_interrupted_from_the_output_hook()
    {
        int count = 0;
        mRecorder.onOutput = [&count](const QString&) {
            if (++count == 4)
                QVERIFY(PythonRuntime::request_interrupt());
        };
        QVERIFY(!run("while True:\n    print('x')"));
        QVERIFY2(mRecorder.errors.endsWith(u"KeyboardInterrupt\n"_s), qPrintable(mRecorder.errors));
        QVERIFY2(count <= 6, "the loop went on after the request");
    }

    void turn_that_throws_becomes_an_exception_of_python()
    {
        mRecorder.onTurn = [] { throw std::runtime_error("no more turns"); };
        QVERIFY(!run("while True: pass"));
        QVERIFY(mRecorder.errors.endsWith(u"RuntimeError: no more turns\n"_s));
    }

    void turn_may_run_python()
    {
        int turns = 0;
        mRecorder.onTurn = [this, &turns] {
            if (++turns == 1)
                run("waiting = False");
        };
        QVERIFY(run("waiting = True\nwhile waiting: pass"));
        QCOMPARE(turns, 1);
    }

    void interrupt_in_an_idle_moment_does_not_hit_the_next_run()
    {
        QVERIFY(!PythonRuntime::request_interrupt());
        QVERIFY(run("for i in range(100000): pass"));
    }

    void interrupt_that_comes_too_late_does_not_hit_the_next_run()
    {
        // Between showing the value and the end of the run Python does not look for interrupts.
        PythonConsole console(PythonRuntime::user_namespace());
        mRecorder.onOutput = [](const QString&) { PythonRuntime::request_interrupt(); };
        QVERIFY(!console.enter(u"1"_s).failed);
        mRecorder.onOutput = nullptr;
        QVERIFY(run("for i in range(100000): pass"));
    }

    void interrupt_while_an_exception_is_shown_does_not_spoil_it()
    {
        QVERIFY(run("import sys"));
        bool taken = true;
        mRecorder.onError = [&taken](const QString&) { taken = PythonRuntime::request_interrupt(); };
        QVERIFY(!run("1 / 0"));
        QVERIFY(!taken);
        QVERIFY2(mRecorder.errors.endsWith(u"ZeroDivisionError: division by zero\n"_s),
                 qPrintable(mRecorder.errors));
    }

    void excepthook_of_the_user_can_be_interrupted()
    {
        QVERIFY(run("import sys\ndef hook(*_):\n    while True: print('x')\nsys.excepthook = hook"));
        mRecorder.onOutput = [](const QString&) { PythonRuntime::request_interrupt(); };
        QVERIFY(!run("1 / 0"));
        mRecorder.onOutput = nullptr;
        QVERIFY(run("sys.excepthook = sys.__excepthook__"));
        QVERIFY2(mRecorder.errors.contains(u"KeyboardInterrupt\n"_s), qPrintable(mRecorder.errors));
        QVERIFY(mRecorder.errors.endsWith(u"ZeroDivisionError: division by zero\n"_s));
    }

    void interrupt_can_be_caught()
    {
        mRecorder.onOutput = [](const QString& text) {
            if (text == u"x"_s)
                PythonRuntime::request_interrupt();
        };
        QVERIFY(run("try:\n    while True: print('x')\nexcept KeyboardInterrupt:\n    print('caught')"));
        QVERIFY(mRecorder.output.endsWith(u"caught\n"_s));
    }

    void reading_from_the_terminal_ends_at_once()
    {
        QVERIFY(run("import sys\nprint(repr(sys.stdin.read()), repr(sys.stdin.buffer.read()))"));
        QCOMPARE(mRecorder.output, u"'' b''\n"_s);
        QVERIFY(!run("input('name? ')"));
        QVERIFY(mRecorder.output.endsWith(u"name? "_s));
        QVERIFY2(mRecorder.errors.contains(u"EOFError"_s), qPrintable(mRecorder.errors));
    }

    void second_start_is_refused()
    {
        PythonRecorder other;
        QVERIFY(!PythonRuntime::start(other.hooks()));
        QCOMPARE(other.errors, u"Python cannot be started: it runs already.\n"_s);
        QVERIFY(run("print('still here')"));
        QCOMPARE(mRecorder.output, u"still here\n"_s);
    }

    void stop_ends_python()
    {
        QVERIFY(run("import atexit\natexit.register(print, 'at exit')"));
        PythonRuntime::stop();
        QCOMPARE(mRecorder.output, u"at exit\n"_s);
        QVERIFY(!PythonRuntime::running());
        QVERIFY(!PythonRuntime::user_namespace().dictionary());
        QVERIFY(!PythonRuntime::request_interrupt());
        QVERIFY(!PythonRuntime::run_file(u"e.py"_s, QString()));
        PythonRuntime::deliver_output();
        PythonRuntime::stop();
        PythonRecorder other;
        QVERIFY(!PythonRuntime::start(other.hooks()));
        QCOMPARE(other.errors,
                 u"Python cannot be started: it has been stopped, and a process can start it only once.\n"_s);
    }
};

OSTREL_TEST(TstPythonRuntime)
#include "tst_pythonruntime.moc"
