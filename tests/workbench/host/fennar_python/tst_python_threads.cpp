// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ChildProcess.h"
#include "PythonRecorder.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "support/TestCase.h"
#include "support/patience.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QTest>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <thread>

using namespace fennar;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** The parts that a process of its own plays, because it stops Python: the source that runs before the stop.
 */
struct StopPart
{
    const char* name;
    const char* source;
    /** What must have been shown, and whether Python is expected to end, or else to be left to its threads.
     */
    const char* output;
    bool ends;
};

constexpr StopPart stop_parts[] = {
    {"no thread", "pass", "at exit\n", true},
    {"looping thread",
     "def work():\n"
     "    try:\n"
     "        started.set()\n"
     "        while True: pass\n"
     "    finally: print('cleaned up')\n"
     "start(work)",
     "cleaned up\nat exit\n", true},
    {"looping daemon",
     "def work():\n"
     "    started.set()\n"
     "    while True: pass\n"
     "start(work, daemon=True)",
     "at exit\n", true},
    {"writing thread",
     "def work():\n"
     "    started.set()\n"
     "    while True: print('', end='')\n"
     "start(work)",
     "at exit\n", true},
    {"sleeping thread",
     "def work():\n"
     "    started.set()\n"
     "    time.sleep(3600)\n"
     "start(work)",
     "at exit\n", false},
    {"sleeping daemon",
     "def work():\n"
     "    started.set()\n"
     "    time.sleep(3600)\n"
     "start(work, daemon=True)",
     "at exit\n", false},
    {"deaf thread",
     "def work():\n"
     "    while True:\n"
     "        try:\n"
     "            started.set()\n"
     "            while True: pass\n"
     "        except BaseException: pass\n"
     "start(work)",
     "at exit\n", false},
    {"idle pool",
     "from concurrent.futures import ThreadPoolExecutor\n"
     "pool = ThreadPoolExecutor(2)\n"
     "print(pool.submit(lambda: 'pooled').result())",
     "pooled\nat exit\n", false},
    {"text that waits",
     "def work():\n"
     "    print('waited')\n"
     "    started.set()\n"
     "start(work).join()",
     "waited\nat exit\n", true},
};

int play_stop(const StopPart& part)
{
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return 2;
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    const QByteArray preamble = "import atexit, os, sys, threading, time\n"
                                "atexit.register(print, 'at exit')\n"
                                // Goes with Python itself, when nothing else is shown any more.
                                "class End:\n"
                                "    def __del__(self, write=os.write): write(1, b'ended\\n')\n"
                                "sys.end = End()\n"
                                "started = threading.Event()\n"
                                "def start(work, **settings):\n"
                                "    thread = threading.Thread(target=work, **settings)\n"
                                "    thread.start()\n"
                                "    started.wait()\n"
                                "    return thread\n";
    if (user->Run_SimpleString((preamble + part.source).constData()) != 0)
        return 3;
    // For those that stay there is no need to wait, and those that end may take their time.
    PythonRuntime::stop(part.ends ? 10s : 50ms);
    std::fputs(qPrintable(recorder.output), stdout);
    std::fputs(qPrintable(recorder.errors), stderr);
    return PythonRuntime::running() ? 4 : 0;
}

/** stop() comes from a hook while Python code waits for that hook. */
int play_stop_within()
{
    PythonRecorder recorder;
    if (!PythonRuntime::start(recorder.hooks()))
        return 2;
    const auto user = make_python_interpreter(PythonRuntime::user_namespace());
    recorder.onCommand = [&](const QString& text) {
        if (text == u"inner"_s)
            return user->Run_SimpleString("fennar.cmd('exit')\nwhile True: pass") == 0;
        PythonRuntime::stop();
        return !PythonRuntime::running() && user->Run_SimpleString("pass") == -1;
    };
    // The command that stops is called two runs deep: both have to end.
    const int result = user->Run_SimpleString("import atexit\natexit.register(print, 'dropped')\n"
                                              "print('before')\n"
                                              "try: fennar.cmd('inner')\nexcept fennar.CommandError: pass\n"
                                              "while True: print('after')");
    std::fputs(qPrintable(recorder.output), stdout);
    std::fputs(qPrintable(recorder.errors), stderr);
    return result == -1 && !PythonRuntime::running() &&
                   recorder.commands == QStringList{u"inner"_s, u"exit"_s}
               ? 0
               : 3;
}

} // namespace

class TstPythonThreads : public TestCase
{
    Q_OBJECT

private:
    bool run(const QByteArray& source) { return mUser->Run_SimpleString(source.constData()) == 0; }

    PythonRecorder mRecorder;
    std::unique_ptr<FennarPythonInterpreter> mUser;

protected:
    void set_up() override { mRecorder.clear(); }
    void tear_down() override
    {
        QVERIFY2(run("assert threading.active_count() == 1, 'a test left a thread'"),
                 qPrintable(mRecorder.errors));
        PythonRuntime::deliver_output();
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(PythonRuntime::start(mRecorder.hooks()), qPrintable(mRecorder.errors));
        mUser = make_python_interpreter(PythonRuntime::user_namespace());
        QVERIFY(run("import threading, sys, time"));
    }
    void cleanupTestCase() { PythonRuntime::stop(); }

    void text_of_another_thread_waits_to_be_delivered()
    {
        QVERIFY(run("def work():\n    print('a'); print('b', file=sys.stderr); print('c')\n"
                    "t = threading.Thread(target=work); t.start(); t.join()"));
        QCOMPARE(mRecorder.calls, QStringList());
        QCOMPARE(mRecorder.wakes.load(), 1);
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.calls, (QStringList{u"out:a\n"_s, u"err:b\n"_s, u"out:c\n"_s}));
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.calls.size(), 3);
    }

    void waiting_text_is_announced_again_after_a_delivery()
    {
        const QByteArray source = "t = threading.Thread(target=print, args=('x',)); t.start(); t.join()";
        QVERIFY(run(source));
        QVERIFY(run(source));
        QCOMPARE(mRecorder.wakes.load(), 1);
        PythonRuntime::deliver_output();
        QVERIFY(run(source));
        QCOMPARE(mRecorder.wakes.load(), 2);
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.output, u"x\nx\nx\n"_s);
    }

    void text_written_on_the_gui_thread_comes_behind_what_waits()
    {
        QVERIFY(run("t = threading.Thread(target=print, args=('first',)); t.start(); t.join()\n"
                    "print('second')"));
        QCOMPARE(mRecorder.output, u"first\nsecond\n"_s);
    }

    void threads_run_while_the_gui_thread_idles()
    {
        QVERIFY(run("def work():\n    time.sleep(0.01); print('worked')\n"
                    "t = threading.Thread(target=work); t.start()"));
        QTRY_COMPARE(mRecorder.wakes.load(), 1);
        QVERIFY(run("t.join()"));
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.output, u"worked\n"_s);
    }

    void hook_may_wait_for_another_python_thread()
    {
        // The thread could not write if the hook were called with Python's lock held.
        mRecorder.onOutput = [this](const QString& text) {
            if (text == u"go"_s) {
                QVERIFY(run("go.set()"));
                QTRY_VERIFY(mRecorder.wakes > 0);
            }
        };
        QVERIFY(run("go = threading.Event()\n"
                    "def work():\n    go.wait(); print('signal')\n"
                    "t = threading.Thread(target=work); t.start()\n"
                    "print('go', end=''); t.join()"));
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.output, u"gosignal\n"_s);
    }

    void command_may_wait_for_another_python_thread()
    {
        mRecorder.onCommand = [this](const QString&) {
            return repeat_until([this] { return mRecorder.wakes > 0; }, &QThread::yieldCurrentThread);
        };
        QVERIFY(run("t = threading.Thread(target=lambda: (time.sleep(0.01), print('x'))); t.start()\n"
                    "try: fennar.cmd('wait')\n"
                    "finally: t.join()"));
    }

    void delivery_within_a_delivery_keeps_the_order()
    {
        QVERIFY(run("def work():\n"
                    "    for i in range(3): print(i); print(i, file=sys.stderr)\n"
                    "t = threading.Thread(target=work); t.start(); t.join()"));
        mRecorder.onOutput = [](const QString&) { PythonRuntime::deliver_output(); };
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.calls, (QStringList{u"out:0\n"_s, u"err:0\n"_s, u"out:1\n"_s, u"err:1\n"_s,
                                               u"out:2\n"_s, u"err:2\n"_s}));
    }

    void delivery_shows_what_waited_at_its_beginning()
    {
        const QByteArray source = "t = threading.Thread(target=print, args=('x',)); t.start(); t.join()";
        QVERIFY(run(source));
        int calls = 0;
        mRecorder.onOutput = [&](const QString&) {
            if (++calls < 20)
                QVERIFY(run(source));
        };
        PythonRuntime::deliver_output();
        QCOMPARE(calls, 1);
        QCOMPARE(mRecorder.wakes.load(), 2);
        mRecorder.onOutput = nullptr;
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.output, u"x\nx\n"_s);
    }

    void delivery_ends_though_a_thread_goes_on_writing()
    {
        QVERIFY(run("going = True\n"
                    "def work():\n"
                    "    while going: print('x'); print('y', file=sys.stderr)\n"
                    "t = threading.Thread(target=work); t.start()"));
        QTRY_VERIFY(mRecorder.wakes > 0);
        const int wakes = mRecorder.wakes;
        PythonRuntime::deliver_output();
        // A line is written in two pieces, and the word that text waits comes with the first.
        QVERIFY(mRecorder.output.startsWith(u'x'));
        QTRY_VERIFY(mRecorder.wakes > wakes);
        QVERIFY(run("going = False\nt.join()"));
    }

    void no_text_of_many_threads_is_lost_or_turned_around()
    {
        constexpr int threads = 6;
        constexpr int lines = 400;
        QVERIFY(run("def work(name):\n"
                    "    for i in range(400): print(f'{name} {i}')\n"
                    "ts = [threading.Thread(target=work, args=(n,)) for n in range(1, 6)]\n"
                    "for t in ts: t.start()\n"
                    "work(0)\n"
                    "for t in ts: t.join()"));
        PythonRuntime::deliver_output();
        const QString text = mRecorder.output;
        QCOMPARE(text.count(u'\n'), threads * lines);
        QString shown;
        for (const QString& call : mRecorder.calls)
            shown += QStringView(call).mid(4);
        QCOMPARE(shown.size(), text.size());
        // print() writes the line and its end apart, so lines of several threads may be mixed, but not a name
        // and its number. Where two pieces met without an end between them, a digit of the one touches the
        // other.
        for (int name = 0; name < threads; ++name) {
            qsizetype from = 0;
            for (int i = 0; i < lines; ++i) {
                const qsizetype at = text.indexOf(u"%1 %2"_s.arg(name).arg(i), from);
                QVERIFY2(at >= 0, qPrintable(u"%1 %2 is missing or too early"_s.arg(name).arg(i)));
                from = at + 1;
            }
        }
    }

    void exception_in_a_thread_is_shown()
    {
        QVERIFY(run("t = threading.Thread(target=lambda: 1 / 0, name='dividing'); t.start(); t.join()"));
        PythonRuntime::deliver_output();
        QVERIFY(mRecorder.errors.startsWith(u"Exception in thread dividing"_s));
        QVERIFY(mRecorder.errors.endsWith(u"ZeroDivisionError: division by zero\n"_s));
    }

    void command_in_another_thread_is_refused()
    {
        QVERIFY(run("def work():\n"
                    "    try: fennar.cmd('x')\n"
                    "    except RuntimeError as e: print(e)\n"
                    "t = threading.Thread(target=work); t.start(); t.join()"));
        PythonRuntime::deliver_output();
        QCOMPARE(mRecorder.output,
                 u"fennar.cmd() can only be called in the main thread of the application\n"_s);
        QCOMPARE(mRecorder.commands, QStringList());
    }

    void loop_is_interrupted_from_another_thread()
    {
        std::atomic<bool> asked = false;
        std::thread other([&asked] {
            while (!PythonRuntime::request_interrupt())
                std::this_thread::yield();
            asked = true;
        });
        const bool done = run("while True: pass");
        other.join();
        QVERIFY(asked);
        QVERIFY(!done);
        QVERIFY(mRecorder.errors.endsWith(u"KeyboardInterrupt\n"_s));
    }

    void interrupt_spares_the_other_threads()
    {
        mRecorder.onOutput = [](const QString&) { PythonRuntime::request_interrupt(); };
        QVERIFY(run("going = True\nended = []\n"
                    "def work():\n"
                    "    try:\n"
                    "        while going: pass\n"
                    "    except KeyboardInterrupt: ended.append('interrupted')\n"
                    "t = threading.Thread(target=work); t.start()"));
        QVERIFY(!run("while True: print('x')"));
        mRecorder.onOutput = nullptr;
        QVERIFY(run("alive = t.is_alive()\ngoing = False\nt.join()\nassert alive and not ended"));
    }

    void the_gui_thread_is_pythons_main_thread()
    {
        QVERIFY(run("assert threading.current_thread() is threading.main_thread()"));
    }

    void stop_ends_or_leaves_the_threads_data()
    {
        QTest::addColumn<QString>("output");
        for (const StopPart& part : stop_parts)
            QTest::newRow(part.name) << (part.ends ? u"ended\n"_s : QString()) +
                                            QString::fromLatin1(part.output);
    }
    void stop_ends_or_leaves_the_threads()
    {
        QFETCH(QString, output);
        const ChildResult result = run_part(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, output);
        QCOMPARE(result.code, 0);
    }

    void stop_within_python_code_ends_that_code_first()
    {
        const ChildResult result = run_part(u"within"_s);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output, u"before\n"_s);
        QCOMPARE(result.code, 0);
    }
};

namespace {

/** Plays a part as a child process; -1 if none is asked for. */
int play_part()
{
    const QString played = child_part();
    if (played == u"within"_s)
        return play_stop_within();
    for (const StopPart& part : stop_parts) {
        if (played == QLatin1StringView(part.name))
            return play_stop(part);
    }
    return -1;
}

} // namespace

OSTREL_TEST(TstPythonThreads, play_part)
#include "tst_python_threads.moc"
