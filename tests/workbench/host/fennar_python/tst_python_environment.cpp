// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ChildProcess.h"
#include "PythonRecorder.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "support/TestCase.h"
#include "workbench/host/fennar_python/PythonConsole.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <thread>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

int show(const PythonRecorder& recorder, int code)
{
    std::fputs(recorder.output.toUtf8().constData(), stdout);
    std::fputs(recorder.errors.toUtf8().constData(), stderr);
    return code;
}

/** Starts Python, runs the source in the variable OSTREL_TEST_SOURCE and shows what it wrote. */
int play_source()
{
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return show(recorder, 2);
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    const int result = user->Run_SimpleString(qgetenv("OSTREL_TEST_SOURCE").constData());
    PythonRuntime::stop();
    return show(recorder, result == 0 ? 0 : 3);
}

/** Python that runs a command that runs Python that forks: only the parent comes back. */
int play_nested_fork()
{
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return show(recorder, 2);
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    recorder.onCommand = [&user](const QString& text) {
        return user->Run_SimpleString(text.toUtf8().constData()) == 0;
    };
    const int result = user->Run_SimpleString(
        "import os, warnings\n"
        "warnings.simplefilter('ignore', DeprecationWarning)\n"
        "fennar.cmd('child = os.fork()\\n'\n"
        "           'if child: print(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]))')\n"
        "print('back')");
    PythonRuntime::stop();
    return show(recorder, result == 0 ? 0 : 3);
}

/** Starts Python from the folder in OSTREL_TEST_HOME. */
int play_start()
{
    PythonRecorder recorder;
    const bool started = PythonRuntime::start(recorder.hooks(), qEnvironmentVariable("OSTREL_TEST_HOME"));
    return show(recorder, started == PythonRuntime::running() ? (started ? 0 : 1) : 2);
}

/** A start that could not find its installation may be tried again with a right one. */
int play_second_try()
{
    PythonRecorder recorder;
    if (PythonRuntime::start(recorder.hooks(), u"/nonexistent"_s))
        return 2;
    recorder.clear();
    if (!PythonRuntime::start(recorder.hooks()))
        return show(recorder, 3);
    PythonRuntime::stop();
    return show(recorder, 0);
}

/** Shows the locale before and behind a run of Python, in the locale of the environment but for the numbers.
 */
int play_locale()
{
    const auto state = [] {
        char number[16] = {};
        std::snprintf(number, sizeof number, "%.1f", 1.5);
        return QByteArray(std::setlocale(LC_ALL, nullptr)) + ' ' + number;
    };
    // "own" is what the program finds at its start: Python must not go and look at the environment.
    if (qgetenv("OSTREL_TEST_LOCALE") == "environment") {
        if (!std::setlocale(LC_ALL, ""))
            return 4;
        std::setlocale(LC_NUMERIC, "C");
    }
    const QByteArray before = state();
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return show(recorder, 2);
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    user->Run_SimpleString("import locale\nprint(float('2.5'), locale.localeconv()['decimal_point'])");
    const QByteArray behind = state();
    PythonRuntime::stop();
    std::printf("%s\n%s\n%s\n", before.constData(), behind.constData(), state().constData());
    return show(recorder, 0);
}

void own_handler(int) {}

/** The dispositions of the signals that Python usually takes, before and behind the start. */
int play_signals()
{
    const auto handler = [](int number) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        return action.sa_handler;
    };
    if (qEnvironmentVariableIsSet("OSTREL_TEST_OWN_HANDLER"))
        std::signal(SIGPIPE, &own_handler);
    const auto pipe = handler(SIGPIPE);
    const auto interrupt = handler(SIGINT);
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return show(recorder, 2);
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    user->Run_SimpleString("import os\nr, w = os.pipe()\nos.close(r)\n"
                           "try: os.write(w, b'x')\nexcept BrokenPipeError: print('told')");
    const bool interruptKept = handler(SIGINT) == interrupt;
    const bool pipeRight = handler(SIGPIPE) == (pipe == SIG_DFL ? SIG_IGN : pipe);
    PythonRuntime::stop();
    return show(recorder, !interruptKept ? 3 : !pipeRight ? 4 : 0);
}

int play_stop_without_start()
{
    PythonRuntime::stop();
    return PythonRuntime::running() ? 2 : 0;
}

/** Prepares a start and lets what OSTREL_TEST_NEED names need Python. */
int play_start_when_needed()
{
    const QString need = qEnvironmentVariable("OSTREL_TEST_NEED");
    PythonRecorder recorder;
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    PythonConsole console(PythonRuntime::user_namespace());
    PythonRuntime::start_when_needed(recorder.hooks(), qEnvironmentVariable("OSTREL_TEST_HOME"));
    if (PythonRuntime::running())
        return 10;
    // What does not need it does not start it.
    PythonRuntime::deliver_output();
    if (PythonRuntime::request_interrupt() || PythonRuntime::running() || !recorder.calls.isEmpty())
        return 11;

    bool done = false;
    if (need == "interpreter"_L1) {
        done = user->Run_SimpleString("print(6 * 7)") == 0;
    } else if (need == "question"_L1) {
        done = user->IsInitialized() && user->Run_SimpleString("print(6 * 7)") == 0;
    } else if (need == "console"_L1) {
        done = !console.enter(u"print(6 * 7)"_s).failed;
    } else if (need == "script"_L1) {
        done = PythonRuntime::run_file(u"a.py"_s, u"print(6 * 7)"_s);
    } else if (need == "thread"_L1) {
        bool started = true;
        std::thread([&] { started = PythonRuntime::is_ready(); }).join();
        done = !started && PythonRuntime::is_ready() && user->Run_SimpleString("print(6 * 7)") == 0;
    } else if (need == "stop"_L1) {
        PythonRuntime::stop();
        done = !PythonRuntime::is_ready() && !PythonRuntime::running();
    } else if (need == "start"_L1) {
        PythonRecorder other;
        done = PythonRuntime::start(other.hooks()) && PythonRuntime::is_ready() &&
               user->Run_SimpleString("print(6 * 7)") == 0 && other.output == "42\n"_L1;
    } else if (need == "once"_L1) {
        PythonRuntime::is_ready();
        done = !PythonRuntime::is_ready();
    }
    PythonRuntime::stop();
    return show(recorder, done ? 0 : 3);
}

ChildResult run_source(const QString& source,
                       QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
{
    environment.insert(u"OSTREL_TEST_SOURCE"_s, source);
    return run_part(u"source"_s, environment);
}

} // namespace

class TstPythonEnvironment : public TestCase
{
    Q_OBJECT

private slots:
    void environment_does_not_reach_python()
    {
        // A folder that comes first in PATH with a Python of its own, as virtual environments make them.
        QTemporaryDir misleading;
        QVERIFY(QDir(misleading.path()).mkpath(u"bin"_s));
        QVERIFY(QFile::link(u"/bin/false"_s, misleading.filePath(u"bin/python3"_s)));
        QFile marker(misleading.filePath(u"pyvenv.cfg"_s));
        QVERIFY(marker.open(QIODevice::WriteOnly));
        marker.write("home = /nonexistent\n");
        marker.close();
        QTemporaryDir home;

        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, misleading.filePath(u"bin"_s) + u':' + environment.value(u"PATH"_s));
        environment.insert(u"PYTHONHOME"_s, u"/nonexistent"_s);
        environment.insert(u"PYTHONPATH"_s, u"/tmp/x"_s);
        environment.insert(u"PYTHONSTARTUP"_s, u"/tmp/x/startup.py"_s);
        environment.insert(u"PYTHONEXECUTABLE"_s, u"/tmp/x/python"_s);
        environment.insert(u"PYTHONWARNINGS"_s, u"error"_s);
        environment.insert(u"PYTHONOPTIMIZE"_s, u"2"_s);
        environment.insert(u"VIRTUAL_ENV"_s, misleading.path());
        environment.insert(u"HOME"_s, home.path());
        const ChildResult wanted = run_source(u"import sys; print('python%d.%d' % sys.version_info[:2])"_s);
        const QString version = wanted.output.trimmed();
        QVERIFY(QDir(home.path()).mkpath(u".local/lib/%1/site-packages"_s.arg(version)));

        const ChildResult result =
            run_source(u"import sys, json\n"
                       "print(json.dumps({'path': sys.path, 'argv': sys.argv, 'prefix': sys.prefix,\n"
                       "    'executable': sys.executable, 'warnings': sys.warnoptions,\n"
                       "    'optimize': sys.flags.optimize, 'isolated': sys.flags.isolated,\n"
                       "    'library': json.__file__}))"_s,
                       environment);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
        const QJsonObject found = QJsonDocument::fromJson(result.output.toUtf8()).object();
        const QJsonArray path = found[u"path"].toArray();
        QVERIFY(!path.isEmpty());
        for (const auto& entry : path) {
            const QString folder = entry.toString();
            QVERIFY2(folder.startsWith(u"/usr/"_s), qPrintable(folder));
        }
        QCOMPARE(found[u"argv"].toArray(), QJsonArray{QString()});
        QCOMPARE(found[u"prefix"].toString(), u"/usr"_s);
        QCOMPARE(found[u"executable"].toString(), u"/usr/bin/"_s + version);
        QCOMPARE(found[u"warnings"].toArray(), QJsonArray());
        QCOMPARE(found[u"optimize"].toInt(), 0);
        QCOMPARE(found[u"isolated"].toInt(), 1);
        QCOMPARE(found[u"library"].toString(), u"/usr/lib/%1/json/__init__.py"_s.arg(version));
    }

    void installation_that_is_not_there_is_told_data()
    {
        QTest::addColumn<bool>("half");
        QTest::newRow("missing folder") << false;
        QTest::newRow("folder without most of the library") << true;
    }
    void installation_that_is_not_there_is_told()
    {
        QFETCH(bool, half);
        QTemporaryDir home;
        const ChildResult version =
            run_source(u"import sys; print('lib/python%d.%d' % sys.version_info[:2], end='')"_s);
        const QString library = home.filePath(version.output);
        if (half) {
            QVERIFY(QDir().mkpath(library));
            QFile file(library + u"/os.py"_s);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"OSTREL_TEST_HOME"_s, home.path());
        const ChildResult result = run_part(u"start"_s, environment);
        QCOMPARE(result.code, 1);
        if (half) {
            QVERIFY2(result.errors.contains(u"Python cannot be started: "_s), qPrintable(result.errors));
            QVERIFY2(result.errors.endsWith(u".\n"_s), qPrintable(result.errors));
        } else {
            QCOMPARE(result.errors,
                     u"Python cannot be started: its standard library is not in \"%1\".\n"_s.arg(library));
        }
    }

    void start_can_be_tried_again_with_the_right_installation()
    {
        const ChildResult result = run_part(u"second try"_s);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
    }

    void prepared_start_is_made_by_what_needs_it_data()
    {
        QTest::addColumn<QString>("need");
        QTest::addColumn<QString>("output");
        QTest::newRow("an interpreter that runs something") << u"interpreter"_s << u"42\n"_s;
        QTest::newRow("an interpreter that is asked") << u"question"_s << u"42\n"_s;
        QTest::newRow("a console") << u"console"_s << u"42\n"_s;
        QTest::newRow("a script") << u"script"_s << u"42\n"_s;
        QTest::newRow("not another thread") << u"thread"_s << u"42\n"_s;
        QTest::newRow("not after a stop") << u"stop"_s << QString();
        QTest::newRow("not after a start with other hooks") << u"start"_s << QString();
    }
    void prepared_start_is_made_by_what_needs_it()
    {
        QFETCH(QString, need);
        QFETCH(QString, output);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"OSTREL_TEST_NEED"_s, need);
        const ChildResult result = run_part(u"when needed"_s, environment);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
        QCOMPARE(result.output, output);
    }

    void prepared_start_that_fails_is_told_once_when_it_is_made()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"OSTREL_TEST_NEED"_s, u"once"_s);
        environment.insert(u"OSTREL_TEST_HOME"_s, u"/nonexistent"_s);
        const ChildResult result = run_part(u"when needed"_s, environment);
        QCOMPARE(result.code, 0);
        QCOMPARE(result.errors.count(u"Python cannot be started: its standard library is not in"_s), 1);
    }

    void locale_stays_as_it_was_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("untouched by the program") << u"C.UTF-8"_s << u"own"_s;
        QTest::newRow("set from the environment") << u"C.UTF-8"_s << u"environment"_s;
#ifdef OSTREL_TEST_LOCALES
        QTest::newRow("set from an environment with a comma in numbers")
            << u"de_DE.UTF-8"_s << u"environment"_s;
#endif
    }
    void locale_stays_as_it_was()
    {
        QFETCH(QString, name);
        QFETCH(QString, chosen);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
#ifdef OSTREL_TEST_LOCALES
        if (name == u"de_DE.UTF-8"_s)
            environment.insert(u"LOCPATH"_s, QStringLiteral(OSTREL_TEST_LOCALES));
#endif
        environment.insert(u"LC_ALL"_s, name);
        environment.insert(u"OSTREL_TEST_LOCALE"_s, chosen);
        const ChildResult result = run_part(u"locale"_s, environment);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
        const QStringList lines = result.output.split(u'\n');
        QCOMPARE(lines.size(), 5);
        QVERIFY2(lines[0].endsWith(u" 1.5"_s), qPrintable(lines[0]));
        if (chosen == u"environment"_s)
            QVERIFY2(lines[0].contains(name), qPrintable(lines[0]));
        QCOMPARE(lines[1], lines[0]);
        QCOMPARE(lines[2], lines[0]);
        QCOMPARE(lines[3], u"2.5 ."_s);
    }

    void files_are_utf8_in_any_locale()
    {
        QTemporaryDir directory;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, u"C"_s);
        const ChildResult result =
            run_source(u"import sys\n"
                       "with open('%1/d\u00fcse.txt', 'w') as file: file.write('\u0394')\n"
                       "print(sys.getfilesystemencoding(), ascii(open('%1/d\u00fcse.txt').read()))"_s.arg(
                           directory.path()),
                       environment);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, u"utf-8 '\\u0394'\n"_s);
        QFile file(directory.filePath(u"d\u00fcse.txt"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "\xce\x94"_ba);
    }

    void reading_from_an_open_terminal_does_not_wait()
    {
        const ChildResult result = run_source(u"try: input()\nexcept EOFError: print('end')"_s);
        QCOMPARE(result.output, u"end\n"_s);
        QCOMPARE(result.code, 0);
    }

    void processes_can_be_started()
    {
        const ChildResult result = run_source(
            u"import subprocess, sys\n"
            "print(subprocess.run([sys.executable, '-I', '-c', 'print(6 * 7)'], capture_output=True,"
            " text=True, stdin=subprocess.DEVNULL).stdout, end='')"_s);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, u"42\n"_s);
    }

    void forked_process_does_not_touch_the_application_data()
    {
        QTest::addColumn<QString>("child");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("errors");
        QTest::newRow("prints to standard output") << u"print('child')"_s << u"child\n0\n"_s << QString();
        QTest::newRow("prints errors to standard error")
            << u"sys.stderr.write('told\\n')"_s << u"0\n"_s << u"told\n"_s;
        QTest::newRow("fails with the error") << u"raise ValueError"_s << u"1\n"_s << u"ValueError\n"_s;
        QTest::newRow("cannot run commands")
            << u"fennar.cmd('x')"_s << u"1\n"_s
            << u"fennar.cmd() cannot be called in another process than the application's\n"_s;
        QTest::newRow("prints from its threads")
            << u"t = threading.Thread(target=print, args=('t',)); t.start(); t.join()"_s << u"t\n0\n"_s
            << QString();
        QTest::newRow("ends itself") << u"print('child'); os._exit(5)"_s << u"child\n5\n"_s << QString();
    }
    void forked_process_does_not_touch_the_application()
    {
        QFETCH(QString, child);
        QFETCH(QString, output);
        QFETCH(QString, errors);
        // What the parent writes is shown by the recorder, at the end; what the child writes is there before.
        const ChildResult result =
            run_source(u"import fennar, os, sys, threading, warnings\n"
                       "warnings.simplefilter('ignore', DeprecationWarning) # of forking beside threads\n"
                       "child = os.fork()\n"
                       "if not child:\n"
                       "    %1\n"
                       "else:\n"
                       "    print(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]))"_s.arg(child));
        QCOMPARE(result.output, output);
        QVERIFY2(errors.isEmpty() ? result.errors.isEmpty() : result.errors.endsWith(errors),
                 qPrintable(result.errors));
        QCOMPARE(result.code, 0);
    }

    void forked_worker_can_print()
    {
        const ChildResult result =
            run_source(u"import multiprocessing, warnings\n"
                       "warnings.simplefilter('ignore', DeprecationWarning)\n"
                       "worker = multiprocessing.get_context('fork').Process(target=print, args=('child',))\n"
                       "worker.start(); worker.join(); print(worker.exitcode)"_s);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, u"child\n0\n"_s);
        QCOMPARE(result.code, 0);
    }

    void forked_process_ends_with_the_innermost_call()
    {
        const ChildResult result = run_part(u"nested fork"_s);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, u"0\nback\n"_s);
        QCOMPARE(result.code, 0);
    }

    void signals_keep_their_handlers_data()
    {
        QTest::addColumn<bool>("own");
        QTest::newRow("default") << false;
        QTest::newRow("handler of the application") << true;
    }
    void signals_keep_their_handlers()
    {
        QFETCH(bool, own);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (own)
            environment.insert(u"OSTREL_TEST_OWN_HANDLER"_s, u"1"_s);
        const ChildResult result = run_part(u"signals"_s, environment);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
        QCOMPARE(result.output, u"told\n"_s);
    }

    void stop_without_start_does_nothing()
    {
        QCOMPARE(run_part(u"stop"_s).code, 0);
    }
};

namespace {

/** Plays a part as a child process; -1 if none is asked for. */
int play_part()
{
    const QString part = child_part();
    if (part == u"source"_s)
        return play_source();
    if (part == u"start"_s)
        return play_start();
    if (part == u"second try"_s)
        return play_second_try();
    if (part == u"when needed"_s)
        return play_start_when_needed();
    if (part == u"nested fork"_s)
        return play_nested_fork();
    if (part == u"locale"_s)
        return play_locale();
    if (part == u"signals"_s)
        return play_signals();
    if (part == u"stop"_s)
        return play_stop_without_start();
    return -1;
}

} // namespace

OSTREL_TEST(TstPythonEnvironment, play_part)
#include "tst_python_environment.moc"
