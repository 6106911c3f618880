// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/** How a run of the program ended, and what it printed. */
struct Run
{
    QProcess::ExitStatus status = QProcess::CrashExit;
    int code = -1;
    QString output;
    QString errors;
};

/** Far longer than any run takes; a program that hangs is killed then. */
constexpr int patience_ms = 60'000;

Run run(const QStringList& arguments, const QHash<QString, QString>& environment = {},
        const QString& program = QStringLiteral(FENNAR), const QString& directory = {})
{
    QProcess process;
    if (!directory.isEmpty())
        process.setWorkingDirectory(directory);
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (auto it = environment.begin(); it != environment.end(); ++it)
        variables.insert(it.key(), it.value());
    process.setProcessEnvironment(variables);
    process.start(program, arguments);
    Run result;
    if (!process.waitForFinished(patience_ms)) {
        process.kill();
        process.waitForFinished();
        result.errors = u"did not end: "_s + QString::fromUtf8(process.readAllStandardError());
        return result;
    }
    result.status = process.exitStatus();
    result.code = process.exitCode();
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors = QString::fromUtf8(process.readAllStandardError());
    return result;
}

} // namespace

/** The program as it is started from a shell. */
class TstFennar : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void help_and_version_need_no_display();
    void missing_display_is_told_in_one_line();
    void wrong_argument_is_told_without_a_display_data();
    void wrong_argument_is_told_without_a_display();
    void check_tells_the_errors_and_runs_nothing();
    void check_of_what_is_no_journal_tells_no_column();
    void batch_run_reads_a_pipe_data();
    void batch_run_reads_a_pipe();
    void signal_ends_the_program_and_leaves_no_temporary_files_data();
    void signal_ends_the_program_and_leaves_no_temporary_files();
    void ignored_signal_stays_ignored();
    void output_that_cannot_be_written_fails_the_batch_run();
    void no_file_takes_the_place_of_a_closed_stream();
    void quit_ends_a_batch_run_without_a_word_data();
    void quit_ends_a_batch_run_without_a_word();
    void quit_hides_no_failure_behind_it_data();
    void quit_hides_no_failure_behind_it();
    void wrong_argument_is_named_with_the_usage();
    void batch_run_prints_and_succeeds();
    void batch_run_fails_with_file_and_line();
    void batch_run_of_python_tells_the_traceback_of_a_failure();
    void batch_run_of_a_missing_journal_fails();
    void batch_run_tells_the_line_that_fails_data();
    void batch_run_tells_the_line_that_fails();
    void batch_run_tells_the_way_to_a_line_that_fails();
    void batch_run_connects_to_no_display();
    void example_with_solids_plays_in_both_languages();
    void example_with_functions_shows_lines_that_play_as_a_journal();
    void model_that_fails_ends_a_batch_run_before_the_journal();
    void journal_is_of_the_directory_where_the_program_was_started();
    void window_run_plays_and_ends_with_quit();
    void numbers_have_a_point_in_a_german_system_data();
    void numbers_have_a_point_in_a_german_system();
    void python_of_the_environment_is_not_used();
    void command_that_crashes_the_program_is_in_the_history_after_it_data();
    void command_that_crashes_the_program_is_in_the_history_after_it();
    void navigation_files_that_are_missing_or_broken_keep_the_window_usable_data();
    void navigation_files_that_are_missing_or_broken_keep_the_window_usable();

private:
    QString write(const QString& name, const QByteArray& content);

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstFennar::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

QString TstFennar::write(const QString& name, const QByteArray& content)
{
    const QString path = mDirectory->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the file could not be written");
    return path;
}

void TstFennar::help_and_version_need_no_display()
{
    const QHash<QString, QString> no_display{{u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s}};
    const Run help = run({u"--help"_s}, no_display);
    QCOMPARE(help.code, 0);
    QVERIFY2(help.output.startsWith("Usage: fennar "_L1), qPrintable(help.output));
    const Run version = run({u"--version"_s}, no_display);
    QCOMPARE(version.code, 0);
    QVERIFY2(version.output.startsWith("fennar "_L1), qPrintable(version.output));
}

void TstFennar::missing_display_is_told_in_one_line()
{
    const Run refused = run({}, {{u"QT_QPA_PLATFORM"_s, {}}, {u"DISPLAY"_s, {}}, {u"WAYLAND_DISPLAY"_s, {}}});
    QCOMPARE(refused.status, QProcess::NormalExit);
    QCOMPARE(refused.code, 1);
    QCOMPARE(refused.errors, u"fennar: there is no display; without one there is --batch --play FILE\n"_s);
}

void TstFennar::wrong_argument_is_told_without_a_display_data()
{
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QString>("display");
    QTest::newRow("none named") << QString() << QString();
    QTest::newRow("one that is gone") << QString() << u":9999"_s;
    QTest::newRow("a platform that needs one") << u"xcb"_s << QString();
}

void TstFennar::wrong_argument_is_told_without_a_display()
{
    QFETCH(const QString, platform);
    QFETCH(const QString, display);
    const Run wrong =
        run({u"--bogus"_s},
            {{u"QT_QPA_PLATFORM"_s, platform}, {u"DISPLAY"_s, display}, {u"WAYLAND_DISPLAY"_s, {}}});
    QCOMPARE(wrong.status, QProcess::NormalExit);
    QCOMPARE(wrong.code, 2);
    QVERIFY2(wrong.errors.startsWith("fennar: unknown argument \"--bogus\"\n"_L1), qPrintable(wrong.errors));
}

void TstFennar::check_tells_the_errors_and_runs_nothing()
{
    const QString wrong = write_temp(u"wrong.jou"_s, "echo printed\nset 1x\nsing\n");
    const QHash<QString, QString> no_display{
        {u"QT_QPA_PLATFORM"_s, {}}, {u"DISPLAY"_s, {}}, {u"WAYLAND_DISPLAY"_s, {}}};
    const Run found = run({u"--check"_s, wrong}, no_display);
    QCOMPARE(found.code, 1);
    QCOMPARE(found.output, QString());
    QCOMPARE(found.errors, u"ERROR: %1:2: set: column 5: expected a name, found \"1x\"\n"
                           "ERROR: %1:3: sing: column 1: expected a command, found \"sing\"\n"_s.arg(wrong));
    const QString right = write_temp(u"right.jou"_s, "echo printed\n");
    const Run none = run({u"--check"_s, right}, no_display);
    QCOMPARE(none.code, 0);
    QCOMPARE(none.output, u"No errors were found.\n"_s);
    QCOMPARE(none.errors, QString());
}

void TstFennar::check_of_what_is_no_journal_tells_no_column()
{
    const QString script = write_temp(u"script.py"_s, "x = 1\n");
    const QString text = write_temp(u"script.jou"_s, "#!python\nx = 1\n");
    for (const QString& file : {script, text}) {
        const Run refused = run({u"--check"_s, file});
        QCOMPARE(refused.code, 1);
        QCOMPARE(refused.errors, u"ERROR: \"%1\" is a Python script, which cannot be checked\n"_s.arg(file));
    }
    const QString missing = temp_path(u"missing.jou"_s);
    QCOMPARE(run({u"--check"_s, missing}).errors, u"ERROR: \"%1\" does not exist\n"_s.arg(missing));
}

void TstFennar::batch_run_reads_a_pipe_data()
{
    QTest::addColumn<QString>("pipeline");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("errors");
    const auto commands = u"printf 'echo one\\necho two\\n' | "_s;
    const QString both = u"one\ntwo"_s;
    QTest::newRow("standard input") << commands + u"\"$0\" --batch --play -"_s << 0 << both << QString();
    QTest::newRow("standard input by its file")
        << commands + u"\"$0\" --batch --play /dev/stdin"_s << 0 << both << QString();
    QTest::newRow("pipe with a name")
        << u"mkfifo pipe && { printf 'echo one\\necho two' >pipe & } && \"$0\" --batch --play pipe"_s << 0
        << both << QString();
    QTest::newRow("file as standard input")
        << u"printf 'echo one\\necho two' >file && \"$0\" --batch --play - <file"_s << 0 << both << QString();
    QTest::newRow("script") << u"printf '#!python\\nprint(\"one\\\\ntwo\")\\n' | \"$0\" --batch --play -"_s
                            << 0 << both << QString();
    QTest::newRow("nothing") << u"\"$0\" --batch --play - </dev/null"_s << 0 << QString() << QString();
    QTest::newRow("error") << u"printf 'echo one\\nnonsense\\n' | \"$0\" --batch --play -"_s << 1 << u"one"_s
                           << u"standard input:2"_s;
    QTest::newRow("no text") << u"printf 'echo \\377\\n' | \"$0\" --batch --play -"_s << 1 << QString()
                             << u"\"standard input\" is not UTF-8 on line 1"_s;
}

void TstFennar::batch_run_reads_a_pipe()
{
    QFETCH(const QString, pipeline);
    QFETCH(const int, code);
    QFETCH(const QString, output);
    QFETCH(const QString, errors);
    const Run done = run({u"-c"_s, pipeline, QStringLiteral(FENNAR)}, {}, u"/bin/sh"_s, mDirectory->path());
    QVERIFY2(done.code == code, qPrintable(done.errors));
    QStringList lines = done.output.split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString& line) { return line.startsWith("Fennar>"_L1); });
    QCOMPARE(lines.join(u'\n'), output);
    QVERIFY2(done.errors.contains(errors) && done.errors.isEmpty() == errors.isEmpty(),
             qPrintable(done.errors));
}

void TstFennar::signal_ends_the_program_and_leaves_no_temporary_files_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("batch");
    const QByteArray mesh = "brick 10\nmesh size 0.05\n";
    const QByteArray loop = "#!python\nwhile True: pass\n";
    QTest::newRow("interrupt, meshing") << SIGINT << mesh << true;
    QTest::newRow("end, meshing") << SIGTERM << mesh << true;
    QTest::newRow("end, meshing in a window") << SIGTERM << mesh << false;
    QTest::newRow("interrupt, script") << SIGINT << loop << true;
    QTest::newRow("end, window that waits") << SIGTERM << QByteArray("echo one\n") << false;
    QTest::newRow("lost terminal, window that waits") << SIGHUP << QByteArray("echo one\n") << false;
}

void TstFennar::signal_ends_the_program_and_leaves_no_temporary_files()
{
    QFETCH(const int, signal);
    QFETCH(const QByteArray, content);
    QFETCH(const bool, batch);
    const QString temporary = mDirectory->filePath(u"tmp"_s);
    QVERIFY(QDir().mkdir(temporary));
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"TMPDIR"_s, temporary);
    variables.insert(u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS));
    process.setProcessEnvironment(variables);
    // The way to the settings is a temporary folder, too.
    QStringList arguments{u"--settings"_s, mDirectory->filePath(u"settings.ini"_s), u"--play"_s,
                          write(u"long.jou"_s, content)};
    if (batch)
        arguments << u"--batch"_s;
    process.start(QStringLiteral(FENNAR), arguments);
    const qsizetype folders = content.startsWith("brick") ? 2 : 1;
    QTRY_VERIFY_WITH_TIMEOUT(QDir(temporary).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size() >= folders,
                             patience_ms);
    QCOMPARE(process.state(), QProcess::Running);
    QCOMPARE(kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(patience_ms));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), signal);
    QCOMPARE(QDir(temporary).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void TstFennar::ignored_signal_stays_ignored()
{
    // As "nohup" does.
    const QString journal = write(u"hup.py"_s, "import os, signal\nos.kill(os.getpid(), signal.SIGHUP)\n"
                                               "fennar.cmd('echo alive')\n");
    const Run done =
        run({u"-c"_s, u"trap '' HUP; exec \"$0\" --batch --play \"$1\""_s, QStringLiteral(FENNAR), journal},
            {}, u"/bin/sh"_s);
    QVERIFY2(done.code == 0, qPrintable(done.errors));
    QVERIFY2(done.output.contains("alive\n"_L1), qPrintable(done.output));
}

void TstFennar::output_that_cannot_be_written_fails_the_batch_run()
{
    const QString journal = write(u"good.jou"_s, "echo one\n");
    const Run full =
        run({u"-c"_s, u"exec \"$0\" --batch --play \"$1\" >/dev/full"_s, QStringLiteral(FENNAR), journal}, {},
            u"/bin/sh"_s);
    QCOMPARE(full.code, 1);
    QCOMPARE(full.errors, u"ERROR: the output could not be written\n"_s);
}

void TstFennar::no_file_takes_the_place_of_a_closed_stream()
{
    const QString journal =
        write(u"closed.jou"_s, "#!python\n"
                               "import os\n"
                               "with open('streams', 'w') as streams:\n"
                               "    for stream in range(3):\n"
                               "        streams.write(os.readlink(f'/proc/self/fd/{stream}') + ' ')\n"
                               "print('one')\n");
    const Run closed =
        run({u"-c"_s, u"exec \"$0\" --batch --play \"$1\" <&- >&- 2>&-"_s, QStringLiteral(FENNAR), journal},
            {}, u"/bin/sh"_s, mDirectory->path());
    QCOMPARE(closed.code, 1);
    QFile streams(mDirectory->filePath(u"streams"_s));
    QVERIFY(streams.open(QIODevice::ReadOnly));
    QCOMPARE(streams.readAll(), "/dev/null /dev/null /dev/null ");
}

void TstFennar::quit_ends_a_batch_run_without_a_word_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("journal") << QByteArray("echo one\nquit\necho never\n");
    QTest::newRow("journal within") << QByteArray("play inner.jou\necho never\n");
    QTest::newRow("script") << QByteArray("#!python\nfennar.quit()\n");
    QTest::newRow("journal within a script")
        << QByteArray("#!python\nfennar.play('inner.jou')\nprint('never')\n");
}

void TstFennar::quit_ends_a_batch_run_without_a_word()
{
    QFETCH(const QByteArray, text);
    write(u"inner.jou"_s, "quit\necho never\n");
    const QString journal = write(u"quit.jou"_s, text);
    const Run ended =
        run({u"--batch"_s, u"--play"_s, journal}, {}, QStringLiteral(FENNAR), mDirectory->path());
    QCOMPARE(ended.code, 0);
    QCOMPARE(ended.errors, QString());
    QVERIFY(!ended.output.contains("never"_L1));
}

void TstFennar::quit_hides_no_failure_behind_it_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("script") << QByteArray("#!python\nfennar.quit()\n1 / 0\n") << QString()
                            << u"ZeroDivisionError: division by zero\n"_s;
    QTest::newRow("statement")
        << QByteArray("python 'fennar.quit(); 1 / 0'\n") << QString()
        << u"quit.jou:1: python: column 8: the Python statement failed: ZeroDivisionError: division by zero\n"_s;
    QTest::newRow("record") << QByteArray("quit\n") << u"--json - >/dev/full"_s
                            << u"the record \"-\" could not be written"_s;
}

void TstFennar::quit_hides_no_failure_behind_it()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, arguments);
    QFETCH(const QString, error);
    const QString journal = write(u"quit.jou"_s, text);
    const Run ended =
        run({u"-c"_s, u"exec \"$0\" --batch --play \"$1\" "_s + arguments, QStringLiteral(FENNAR), journal},
            {}, u"/bin/sh"_s);
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.contains(error), qPrintable(ended.errors));
}

void TstFennar::wrong_argument_is_named_with_the_usage()
{
    const Run wrong = run({u"--batch"_s, u"--fast"_s});
    QCOMPARE(wrong.code, 2);
    QVERIFY2(wrong.errors.contains("unknown argument \"--fast\""_L1), qPrintable(wrong.errors));
    QVERIFY2(wrong.errors.contains("Usage: fennar "_L1), qPrintable(wrong.errors));
}

void TstFennar::batch_run_prints_and_succeeds()
{
    const QString journal = write(u"good.jou"_s, "set a 1.5\necho a is $a\npython print(2.5)\n");
    const Run good =
        run({u"--batch"_s, u"--play"_s, journal}, {{u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s}});
    QCOMPARE(good.code, 0);
    QCOMPARE(good.errors, QString());
    QVERIFY2(good.output.contains("a is 1.5\n"_L1), qPrintable(good.output));
    QVERIFY2(good.output.contains("2.5\n"_L1), qPrintable(good.output));
}

void TstFennar::batch_run_fails_with_file_and_line()
{
    const QString journal = write(u"bad.jou"_s, "echo one\nnonsense\necho never\n");
    const Run bad = run({u"--batch"_s, u"--play"_s, journal});
    QCOMPARE(bad.code, 1);
    QVERIFY2(bad.errors.contains(journal + u":2"_s), qPrintable(bad.errors));
    QVERIFY(!bad.output.contains("never"_L1));
}

void TstFennar::batch_run_of_python_tells_the_traceback_of_a_failure()
{
    const QString journal = write(u"bad.py"_s, "print('one')\nraise ValueError('wrong')\n");
    const Run bad = run({u"--batch"_s, u"--play"_s, journal});
    QCOMPARE(bad.code, 1);
    QVERIFY2(bad.output.contains("one\n"_L1), qPrintable(bad.output));
    QVERIFY2(bad.errors.contains("line 2"_L1), qPrintable(bad.errors));
    QVERIFY2(bad.errors.contains("ValueError: wrong"_L1), qPrintable(bad.errors));
}

void TstFennar::batch_run_of_a_missing_journal_fails()
{
    const Run missing = run({u"--batch"_s, u"--play"_s, u"/no/such/journal.jou"_s});
    QCOMPARE(missing.code, 1);
    QVERIFY2(missing.errors.contains("/no/such/journal.jou"_L1), qPrintable(missing.errors));
}

void TstFennar::window_run_plays_and_ends_with_quit()
{
    const QString picture = mDirectory->filePath(u"window.png"_s);
    const QString journal = write(u"short.jou"_s, "echo one\npicture \"" + picture.toUtf8() + "\"\nquit\n");
    const Run ended = run({u"--play"_s, journal});
    QCOMPARE(ended.status, QProcess::NormalExit);
    QCOMPARE(ended.code, 0);
    QVERIFY(QFileInfo::exists(picture));
}

void TstFennar::numbers_have_a_point_in_a_german_system_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("without a window") << QStringList{u"--batch"_s};
    QTest::newRow("with a window") << QStringList();
}

void TstFennar::numbers_have_a_point_in_a_german_system()
{
    QFETCH(QStringList, arguments);
    const QString result = mDirectory->filePath(u"result"_s);
    // The C library's own formatting is asked through ctypes, so that Python's does not hide it.
    write(u"numbers.py"_s,
          "import ctypes, fennar, locale\n"
          "libc = ctypes.CDLL(None)\n"
          "buffer = ctypes.create_string_buffer(20)\n"
          "libc.snprintf(buffer, 20, b'%.2f', ctypes.c_double(1.5))\n"
          "libc.strtod.restype = ctypes.c_double\n"
          "fennar.cmd('set a 2.25')\n"
          "with open('" +
              result.toUtf8() +
              "', 'w') as file:\n"
              "    print(locale.setlocale(locale.LC_CTYPE), file=file)\n"
              "    print(locale.setlocale(locale.LC_NUMERIC), file=file)\n"
              "    print(buffer.value.decode(), libc.strtod(b'2.5', None), 3.5, file=file)\n");
    const QString journal =
        write(u"numbers.jou"_s, "play \"" + mDirectory->filePath(u"numbers.py"_s).toUtf8() + "\"\nquit\n");
    const Run german =
        run(arguments + QStringList{u"--play"_s, journal},
            {{u"LC_ALL"_s, u"de_DE.UTF-8"_s}, {u"LANG"_s, u"de_DE.UTF-8"_s}, {u"LANGUAGE"_s, u"de"_s}});
    QVERIFY2(german.code == 0, qPrintable(german.errors));
    QFile file(result);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArrayList lines = file.readAll().split('\n');
    QCOMPARE(lines.value(0), "de_DE.UTF-8");
    QCOMPARE(lines.value(1), "C");
    QCOMPARE(lines.value(2), "1.50 2.5 3.5");
}

void TstFennar::python_of_the_environment_is_not_used()
{
    const QString journal = write(u"paths.py"_s, "import sys\nprint('\\n'.join(sys.path))\nimport json\n");
    const Run isolated = run({u"--batch"_s, u"--play"_s, journal}, {{u"PYTHONHOME"_s, u"/no/such/python"_s},
                                                                    {u"PYTHONPATH"_s, u"/no/such/path"_s},
                                                                    {u"PATH"_s, u"/no/such/programs"_s}});
    QVERIFY2(isolated.code == 0, qPrintable(isolated.errors));
    QVERIFY2(!isolated.output.contains("/no/such"_L1), qPrintable(isolated.output));
}

void TstFennar::command_that_crashes_the_program_is_in_the_history_after_it_data()
{
    QTest::addColumn<QByteArray>("crash");
    QTest::addColumn<bool>("by_signal");
    QTest::newRow("ends at once") << QByteArray("os._exit(7)") << false;
    QTest::newRow("aborts") << QByteArray("os.abort()") << true;
    QTest::newRow("is killed") << QByteArray("os.kill(os.getpid(), 9)") << true;
}

void TstFennar::command_that_crashes_the_program_is_in_the_history_after_it()
{
    QFETCH(const QByteArray, crash);
    QFETCH(const bool, by_signal);
    const QString data = mDirectory->filePath(u"data"_s);
    const QString journal = write(u"crash.py"_s, "import os\n" + crash + '\n');
    const Run crashed = run({u"--play"_s, journal}, {{u"XDG_DATA_HOME"_s, data}});
    QCOMPARE(crashed.status, by_signal ? QProcess::CrashExit : QProcess::NormalExit);
    QVERIFY2(!crashed.errors.contains("did not end"_L1), qPrintable(crashed.errors));
    QFile history(data + u"/ostrel/fennar/history"_s);
    QVERIFY(history.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(history.readAll()).contains(journal));
}

void TstFennar::navigation_files_that_are_missing_or_broken_keep_the_window_usable_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no directory") << QByteArray();
    QTest::newRow("broken file") << QByteArray("<navigation version=\"1\"><page title=");
    QTest::newRow("binary file") << QByteArray("\x7f"
                                               "ELF\0\0\xff\xfe",
                                               8);
}

void TstFennar::navigation_files_that_are_missing_or_broken_keep_the_window_usable()
{
    QFETCH(QByteArray, content);
    // The program looks beside itself for the files.
    const QString program = mDirectory->filePath(u"fennar"_s);
    QVERIFY(QFile::copy(QStringLiteral(FENNAR), program));
    if (!content.isNull()) {
        QVERIFY(QDir(mDirectory->path()).mkpath(u"xml/action-based-xml"_s));
        write(u"xml/action-based-xml/a.xml"_s, content);
    }
    const QString picture = mDirectory->filePath(u"window.png"_s);
    const QString journal = write(u"short.jou"_s, "picture \"" + picture.toUtf8() + "\"\nquit\n");
    const Run ended = run({u"--play"_s, journal}, {}, program);
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(QFileInfo::exists(picture));
}

void TstFennar::batch_run_tells_the_line_that_fails_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("told");
    QTest::newRow("command") << QByteArray("bad.jou") << QByteArray("echo one\n\nset 1\n")
                             << u"bad.jou:3: "_s;
    QTest::newRow("unknown command") << QByteArray("bad.jou") << QByteArray("nonsense") << u"bad.jou:1: "_s;
    QTest::newRow("continued command")
        << QByteArray("bad.jou") << QByteArray("echo one\necho \\\n \\\n \"two\n") << u"bad.jou:4: "_s;
    QTest::newRow("end of a continued line")
        << QByteArray("bad.jou") << QByteArray("echo one\necho two\\") << u"bad.jou:2: "_s;
    QTest::newRow("statement of Python")
        << QByteArray("bad.jou") << QByteArray("echo one\npython 1/0\n") << u"bad.jou:2: "_s;
    QTest::newRow("script") << QByteArray("bad.py") << QByteArray("x = 1\n\nraise OSError\n")
                            << u"bad.py\", line 3"_s;
    QTest::newRow("command of a script")
        << QByteArray("bad.py") << QByteArray("fennar.cmd('echo one')\nfennar.cmd('nonsense')\n")
        << u"bad.py\", line 2"_s;
    QTest::newRow("syntax of a script")
        << QByteArray("bad.py") << QByteArray("x = 1\ny = (\n") << u"bad.py\", line 2"_s;
}

void TstFennar::batch_run_tells_the_line_that_fails()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, told);
    write(QString::fromUtf8(name), content);
    // By its plain name, from the directory that it is in.
    const Run bad = run({u"--batch"_s, u"--play"_s, QString::fromUtf8(name)}, {}, QStringLiteral(FENNAR),
                        mDirectory->path());
    QCOMPARE(bad.status, QProcess::NormalExit);
    QCOMPARE(bad.code, 1);
    QVERIFY2(bad.errors.contains(told), qPrintable(bad.errors));
}

void TstFennar::batch_run_tells_the_way_to_a_line_that_fails()
{
    write(u"inner.jou"_s, "echo one\nnonsense\n");
    write(u"outer.jou"_s, "echo zero\nplay inner.jou\necho never\n");
    const Run bad =
        run({u"--batch"_s, u"--play"_s, u"outer.jou"_s}, {}, QStringLiteral(FENNAR), mDirectory->path());
    QCOMPARE(bad.code, 1);
    QVERIFY2(bad.errors.contains(u"inner.jou:2: "_s), qPrintable(bad.errors));
    QVERIFY2(bad.errors.contains(u"  played from "_s), qPrintable(bad.errors));
    QVERIFY2(bad.errors.contains(u"outer.jou:2\n"_s), qPrintable(bad.errors));
    QVERIFY(!bad.output.contains("never"_L1));
}

void TstFennar::batch_run_connects_to_no_display()
{
    // Whatever the environment says, neither a platform plugin of Qt nor a library of a window system is
    // loaded.
    const QString journal =
        write(u"maps.py"_s, "with open('/proc/self/maps') as file:\n"
                            "    print(file.read())\n"
                            "import os\n"
                            "for name in os.listdir('/proc/self/fd'):\n"
                            "    try:\n"
                            "        print('open', os.readlink('/proc/self/fd/' + name))\n"
                            "    except OSError:\n"
                            "        pass\n");
    for (const QHash<QString, QString>& environment :
         {QHash<QString, QString>{{u"DISPLAY"_s, u":77"_s}, {u"QT_QPA_PLATFORM"_s, u"xcb"_s}},
          QHash<QString, QString>{
              {u"DISPLAY"_s, {}}, {u"QT_QPA_PLATFORM"_s, {}}, {u"WAYLAND_DISPLAY"_s, {}}}}) {
        QHash<QString, QString> with_components = environment;
        with_components.insert(u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS));
        const Run done = run({u"--batch"_s, u"--play"_s, journal}, with_components);
        QVERIFY2(done.code == 0, qPrintable(done.errors));
        QVERIFY2(done.output.contains("libQt6Core"_L1), qPrintable(done.output));
        QVERIFY(done.output.contains("/components/"_L1));
        QVERIFY2(!done.output.contains("/platforms/"_L1), qPrintable(done.output));
        QVERIFY2(!done.output.contains("X11-unix"_L1), qPrintable(done.output));
        QVERIFY2(!done.output.contains("open socket:"_L1), qPrintable(done.output));
    }
}

void TstFennar::example_with_solids_plays_in_both_languages()
{
    const QHash<QString, QString> environment{{u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS)},
                                              {u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s}};
    QStringList outputs;
    for (const auto& name : {u"plate.jou"_s, u"plate.py"_s}) {
        const Run done = run({u"--batch"_s, u"--play"_s, QStringLiteral(JOURNALS) + u'/' + name}, environment,
                             QStringLiteral(FENNAR), mDirectory->path());
        QVERIFY2(done.code == 0, qPrintable(done.errors));
        QCOMPARE(done.errors, QString());
        // A journal shows its lines, a script does not.
        QStringList lines = done.output.split(u'\n', Qt::SkipEmptyParts);
        lines.removeIf([](const QString& line) { return line.startsWith("Fennar>"_L1); });
        outputs << lines.join(u'\n');
    }
    QVERIFY2(outputs[0].endsWith("\nThe plate is done."_L1), qPrintable(outputs[0]));
    // A plate of 60 x 40 x 8 less four holes of radius 4: 19200 - 4 pi 16 8.
    QVERIFY2(outputs[0].contains("plate: volume 17591.5\n"_L1), qPrintable(outputs[0]));
    QVERIFY(outputs[0].contains("Tetrahedron 4"_L1));
    QCOMPARE(outputs[1], outputs[0]);
}

void TstFennar::example_with_functions_shows_lines_that_play_as_a_journal()
{
    const QHash<QString, QString> environment{{u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS)},
                                              {u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s}};
    const Run done = run({u"--batch"_s, u"--play"_s, QStringLiteral(JOURNALS) + u"/plate_functions.py"_s},
                         environment, QStringLiteral(FENNAR), mDirectory->path());
    QVERIFY2(done.code == 0, qPrintable(done.errors));
    QCOMPARE(done.errors, QString());
    QVERIFY2(done.output.contains("\nplate: volume 17591.5, from -30 to 30 along x\n"_L1),
             qPrintable(done.output));
    QVERIFY2(done.output.contains("\nthe solid \"cylinder2\" is gone\n"_L1), qPrintable(done.output));
    QVERIFY2(done.output.contains("\ncolumn 7: expected a width ("_L1), qPrintable(done.output));

    QStringList lines;
    for (const QString& line : done.output.split(u'\n')) {
        if (line.startsWith("Fennar>"_L1))
            lines << line.sliced(7);
    }
    QCOMPARE(lines.takeLast(), u"brick 0"_s);
    QCOMPARE(lines.value(2), u"cylinder 4 20 at 20 12 0"_s);
    QCOMPARE(lines.value(6), u"subtract cylinder2 cylinder3 cylinder4 cylinder5 from plate"_s);
    const QString journal = write(u"saved.jou"_s, lines.join(u'\n').toUtf8() + '\n');
    const Run again = run({u"--batch"_s, u"--play"_s, journal}, environment);
    QVERIFY2(again.code == 0, qPrintable(again.errors));
    QVERIFY2(again.output.contains("plate: volume 17591.5\n"_L1), qPrintable(again.output));
}

void TstFennar::model_that_fails_ends_a_batch_run_before_the_journal()
{
    const QString journal = write(u"after.jou"_s, "echo was played\n");
    const Run failed = run({u"--batch"_s, u"--play"_s, journal, mDirectory->filePath(u"missing.model"_s)},
                           {{u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS)}});
    QCOMPARE(failed.code, 1);
    QVERIFY(!failed.output.contains("was played"_L1));
    QVERIFY2(failed.errors.contains("missing.model"_L1), qPrintable(failed.errors));
    QVERIFY2(failed.errors.endsWith(
                 u"ERROR: \"%1\" is not played, since the model could not be opened\n"_s.arg(journal)),
             qPrintable(failed.errors));
}

void TstFennar::journal_is_of_the_directory_where_the_program_was_started()
{
    // The window goes to the directory of the run before.
    const QString other = mDirectory->filePath(u"other"_s);
    QVERIFY(QDir().mkdir(other));
    const QString settings =
        write(u"settings.ini"_s,
              "[ostrelgui]\nostrel\\restoreWorkingDir=true\nostrel\\workingdir=" + other.toUtf8() + '\n');
    const QString result = mDirectory->filePath(u"result"_s);
    write(u"here.py"_s,
          "import os\nopen('" + result.toUtf8() + "', 'w').write(os.getcwd())\nfennar.cmd('quit')\n");
    const Run again = run({u"--settings"_s, settings, u"--play"_s, u"here.py"_s}, {}, QStringLiteral(FENNAR),
                          mDirectory->path());
    QVERIFY2(again.code == 0, qPrintable(again.errors));
    QFile file(result);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QFileInfo(QString::fromUtf8(file.readAll())).canonicalFilePath(),
             QFileInfo(other).canonicalFilePath());
}

OSTREL_TEST(TstFennar)
#include "tst_fennar.moc"
