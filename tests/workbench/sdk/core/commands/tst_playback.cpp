// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace fennar;
using namespace Qt::StringLiterals;
using Outcome = Playback::Outcome;

namespace {

/** A session in a directory of its own, with a log of everything that playback does. */
struct PlaybackSession : CommandSession
{
    PlaybackSession()
    {
        register_builtin_commands(interpreter, playback, services);
        interpreter.set_error_output([this](const QString& text) {
            errors += text;
            log << u"error"_s;
        });
        add("step", [this](CommandCall& call) { log << u"step "_s + call.words().value(1).text; });
        add("halt", [this](CommandCall&) { playback.pause(); });
        add("stop", [this](CommandCall&) { playback.stop(); });
        add("cancel", [](CommandCall&) { request_interrupt(); });
        QDir::setCurrent(directory.path());
    }
    ~PlaybackSession() { QDir::setCurrent(before); }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(directory.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    Outcome play(const QByteArray& bytes)
    {
        write(u"a.jou"_s, bytes);
        return playback.play(u"a.jou"_s);
    }

    QStringList take_log() { return std::exchange(log, QStringList()); }

    QString before = QDir::currentPath();
    QTemporaryDir directory;
    Playback playback{interpreter};
    BuiltinServices services;
    QStringList log;
};

} // namespace

class TstPlayback : public TestCase
{
    Q_OBJECT

protected:
    void tear_down() override;

private slots:
    void commands_run_in_order();
    void file_forms_data();
    void file_forms();
    void file_faults_data();
    void file_faults();
    void file_that_cannot_be_opened_is_reported();
    void file_that_cannot_be_read_is_reported();
    void pipe_is_refused();
    void path_is_taken_from_the_current_directory();
    void change_directory_goes_there_and_back();
    void lines_are_echoed_ahead_of_their_command();
    void turn_comes_ahead_of_each_command();
    void first_error_ends_with_file_and_line_data();
    void first_error_ends_with_file_and_line();
    void interrupt_ends_between_commands_data();
    void interrupt_ends_between_commands();
    void interrupt_within_a_failing_command_is_told_behind_its_error();
    void interrupt_from_before_does_not_end_playback();
    void stop_ends_between_commands();
    void script_that_fails_behind_stop_has_failed();
    void stop_is_over_when_playback_ends();
    void paused_playback_waits_until_resumed();
    void paused_playback_can_be_stopped_and_interrupted();
    void pause_ahead_of_playback_waits_before_the_first_command();
    void pause_without_wait_goes_on();
    void pause_changes_are_told_once();
    void journal_plays_journals();
    void error_in_an_inner_journal_ends_all_and_tells_the_way();
    void stop_and_interrupt_in_an_inner_journal_end_all();
    void error_behind_an_inner_journal_is_its_own();
    void nesting_is_limited();
    void lines_are_played_like_a_file();
    void playing_is_known();
    void python_goes_whole_to_the_hook_data();
    void python_goes_whole_to_the_hook();
    void python_outcome_is_that_of_the_hook();
    void python_without_hook_is_an_error();
    void python_hook_may_throw();
    void python_script_can_be_interrupted_and_stopped();
    void script_tells_how_far_it_is();
    void script_waits_while_paused();
    void cancel_and_stop_end_the_pause_of_a_script_data();
    void cancel_and_stop_end_the_pause_of_a_script();
    void names_in_play_are_known_until_they_end();
    void playing_begins_with_a_line_data();
    void playing_begins_with_a_line();
    void line_that_cannot_be_the_first_is_an_error_data();
    void line_that_cannot_be_the_first_is_an_error();
    void way_on_is_told_if_asked_for_data();
    void way_on_is_told_if_asked_for();
    void way_on_leads_through_all_journals();
    void way_on_holds_from_the_first_directory();
    void lines_are_numbered_from_their_first();
    void lines_of_a_script_keep_their_numbers();
    void lines_play_in_their_directory();
    void directory_that_cannot_be_entered_is_an_error();
    void pause_says_ahead_of_what();
    void progress_is_told_of_the_outermost_journal();
    void callbacks_may_replace_themselves();
    void long_journal_plays_to_its_end();
};

void TstPlayback::tear_down()
{
    QVERIFY2(!interrupt_requested(), "the interrupt flag was left raised");
}

void TstPlayback::commands_run_in_order()
{
    PlaybackSession session;
    QCOMPARE(session.play("# start\n\nstep 1\nset a 2\nstep $a\nstep \\\n 3\n"), Outcome::Played);
    QCOMPARE(session.log, QStringList({u"step 1"_s, u"step 2"_s, u"step 3"_s}));
    QCOMPARE(session.errors, QString());
}

void TstPlayback::file_forms_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("empty file") << QByteArray() << QStringList();
    QTest::newRow("line ends only") << QByteArray("\n\r\n\n") << QStringList();
    QTest::newRow("no final line end")
        << QByteArray("step 1\nstep 2") << QStringList({u"step 1"_s, u"step 2"_s});
    QTest::newRow("line ends of Windows")
        << QByteArray("step 1\r\nstep \\\r\n2\r\n") << QStringList({u"step 1"_s, u"step 2"_s});
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfstep 1\n") << QStringList(u"step 1"_s);
    QTest::newRow("byte order mark alone") << QByteArray("\xef\xbb\xbf") << QStringList();
    QTest::newRow("UTF-8") << QByteArray("step \303\244\360\237\230\200\n")
                           << QStringList(u"step \u00e4\U0001F600"_s);
}

void TstPlayback::file_forms()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, log);
    PlaybackSession session;
    QCOMPARE(session.play(bytes), Outcome::Played);
    QCOMPARE(session.log, log);
    QCOMPARE(session.errors, QString());
}

void TstPlayback::file_faults_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("error");
    QTest::newRow("missing") << QByteArray() << u"b.jou"_s << u"\"b.jou\" does not exist"_s;
    QTest::newRow("empty path") << QByteArray() << u""_s << u"\"\" does not exist"_s;
    QTest::newRow("directory") << QByteArray() << u"."_s << u"\".\" is a directory"_s;
    QTest::newRow("binary") << QByteArray("step 1\nstep \0 2\n", 16) << u"a.jou"_s
                            << u"\"a.jou\" is not a text file: it has a NUL byte on line 2"_s;
    QTest::newRow("invalid UTF-8") << QByteArray("step 1\nstep \303\244\n# \344\n") << u"a.jou"_s
                                   << u"\"a.jou\" is not UTF-8 on line 3"_s;
    QTest::newRow("UTF-8 cut off at the end")
        << QByteArray("step 1\nstep \303") << u"a.jou"_s << u"\"a.jou\" is not UTF-8 on line 2"_s;
}

void TstPlayback::file_faults()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, path);
    QFETCH(QString, error);
    PlaybackSession session;
    session.write(u"a.jou"_s, bytes);
    QCOMPARE(session.playback.play(path), Outcome::Failed);
    QCOMPARE(session.take_errors(), u"ERROR: "_s + error + u'\n');
    QCOMPARE(session.take_log(), QStringList(u"error"_s)); // no line of it has run

    QCOMPARE(session.playback.play_lines({u"step"_s, u"play "_s + quote_word(path)}, u"outer"_s),
             Outcome::Failed);
    if (!path.isEmpty()) // an empty one is refused by the command itself
        QCOMPARE(session.take_errors(), u"ERROR: outer:2: play: "_s + error + u'\n');
}

void TstPlayback::file_that_cannot_be_opened_is_reported()
{
    PlaybackSession session;
    session.write(u"a.jou"_s, "step 1\n");
    // Works for root as well, whom no permission keeps from reading.
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 0;
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    const Outcome outcome = session.playback.play(u"a.jou"_s);
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(outcome, Outcome::Failed);
    QVERIFY2(session.errors.startsWith(u"ERROR: cannot read \"a.jou\": "_s), qPrintable(session.errors));
}

void TstPlayback::file_that_cannot_be_read_is_reported()
{
    PlaybackSession session;
    // It opens, and its first page cannot be read.
    QCOMPARE(session.playback.play(u"/proc/self/mem"_s), Outcome::Failed);
    QVERIFY2(session.errors.startsWith(u"ERROR: cannot read \"/proc/self/mem\": "_s),
             qPrintable(session.errors));
}

void TstPlayback::pipe_is_refused()
{
    PlaybackSession session;
    QCOMPARE(mkfifo(qPrintable(session.directory.filePath(u"pipe"_s)), 0600), 0);
    QCOMPARE(session.playback.play(u"pipe"_s), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: \"pipe\" is not a regular file\n"_s);
}

void TstPlayback::path_is_taken_from_the_current_directory()
{
    PlaybackSession session;
    QVERIFY(QDir().mkdir(u"sub"_s));
    session.write(u"inner.jou"_s, "step top");
    session.write(u"sub/inner.jou"_s, "step sub");
    session.write(u"sub/outer.jou"_s, "play inner.jou");
    QCOMPARE(session.playback.play(u"sub/outer.jou"_s), Outcome::Played);
    QCOMPARE(session.take_log(), QStringList(u"step top"_s));
    QVERIFY(QDir::setCurrent(u"sub"_s));
    QCOMPARE(session.playback.play(u"outer.jou"_s), Outcome::Played);
    QCOMPARE(session.take_log(), QStringList(u"step sub"_s));
}

void TstPlayback::change_directory_goes_there_and_back()
{
    PlaybackSession session;
    QVERIFY(QDir().mkdir(u"sub"_s));
    session.write(u"sub/inner.jou"_s, "step sub\nnix");
    session.write(u"sub/outer.jou"_s, "play inner.jou");
    const QString before = QDir::currentPath();
    bool change = true;
    session.playback.set_change_directory([&change] { return change; });
    QCOMPARE(session.playback.play(u"sub/outer.jou"_s), Outcome::Failed);
    QCOMPARE(session.take_log().first(), u"step sub"_s);
    QCOMPARE(QDir::currentPath(), before);
    session.take_errors();
    change = false;
    QCOMPARE(session.playback.play(u"sub/outer.jou"_s), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: sub/outer.jou:1: play: \"inner.jou\" does not exist\n"_s);
}

void TstPlayback::lines_are_echoed_ahead_of_their_command()
{
    PlaybackSession session;
    session.playback.set_echo([&session](const QString& line) { session.log << u"> "_s + line; });
    QCOMPARE(session.play("# note\r\n\r\nstep 1 # a\nstep \\\n  2\nnix\nstep 3\n"), Outcome::Failed);
    QCOMPARE(session.log, QStringList({u"> # note"_s, u"> "_s, u"> step 1 # a"_s, u"step 1"_s, u"> step \\"_s,
                                       u">   2"_s, u"step 2"_s, u"> nix"_s, u"error"_s}));
}

void TstPlayback::turn_comes_ahead_of_each_command()
{
    PlaybackSession session;
    session.playback.set_turn([&session] { session.log << u"turn"_s; });
    session.playback.set_echo([&session](const QString& line) { session.log << u"> "_s + line; });
    QCOMPARE(session.play("step 1\nstep \\\n2"), Outcome::Played);
    QCOMPARE(session.log, QStringList({u"turn"_s, u"> step 1"_s, u"step 1"_s, u"turn"_s, u"> step \\"_s,
                                       u"> 2"_s, u"step 2"_s}));
}

void TstPlayback::first_error_ends_with_file_and_line_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown command")
        << QByteArray("step 1\n\nnix 2\nstep 3\n")
        << u"ERROR: a.jou:3: nix: column 1: expected a command, found \"nix\"\n"_s;
    QTest::newRow("fault in a command") << QByteArray("step 1\nset = 5\nstep 3\n")
                                        << u"ERROR: a.jou:2: set: column 5: expected a name, found \"=\"\n"_s;
    QTest::newRow("fault on a continued line")
        << QByteArray("step 1\nset \\\r\n  = 5\r\nstep 3\n")
        << u"ERROR: a.jou:3: set: column 3: expected a name, found \"=\"\n"_s;
    QTest::newRow("file ends in a continued line")
        << QByteArray("step 1\nstep \\\nx\\")
        << u"ERROR: a.jou:3: column 2: expected another line behind the backslash, found the end of the text\n"_s;
    QTest::newRow("backslash and line end at the file's end")
        << QByteArray("step 1\nstep \\\n")
        << u"ERROR: a.jou:2: column 6: expected another line behind the backslash, found the end of the text\n"_s;
}

void TstPlayback::first_error_ends_with_file_and_line()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    PlaybackSession session;
    QCOMPARE(session.play(bytes), Outcome::Failed);
    QCOMPARE(session.errors, error);
    QCOMPARE(session.log, QStringList({u"step 1"_s, u"error"_s}));
}

void TstPlayback::interrupt_ends_between_commands_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("in the middle") << QByteArray("step 1\n\ncancel\nstep 2\n") << u"Interrupted: a.jou:3\n"_s;
    QTest::newRow("in the last command") << QByteArray("step 1\ncancel") << u"Interrupted: a.jou:2\n"_s;
    QTest::newRow("in a continued command")
        << QByteArray("step 1\ncancel\\\n \nstep 2") << u"Interrupted: a.jou:2\n"_s;
}

void TstPlayback::interrupt_ends_between_commands()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    PlaybackSession session;
    QCOMPARE(session.play(bytes), Outcome::Interrupted);
    QCOMPARE(session.errors, message);
    QCOMPARE(session.log, QStringList({u"step 1"_s, u"error"_s}));
    QVERIFY(!interrupt_requested());
    QCOMPARE(session.play("step 3"), Outcome::Played);
}

void TstPlayback::interrupt_within_a_failing_command_is_told_behind_its_error()
{
    PlaybackSession session;
    session.add("mesh", [](CommandCall&) {
        request_interrupt();
        throw CommandError(u"interrupted"_s);
    });
    QCOMPARE(session.play("step\nmesh\nstep"), Outcome::Interrupted);
    QCOMPARE(session.errors, u"ERROR: a.jou:2: mesh: interrupted\nInterrupted: a.jou:2\n"_s);
}

void TstPlayback::interrupt_from_before_does_not_end_playback()
{
    PlaybackSession session;
    request_interrupt();
    QCOMPARE(session.play("step 1"), Outcome::Played);
    QCOMPARE(session.log, QStringList(u"step 1"_s));
}

void TstPlayback::stop_ends_between_commands()
{
    PlaybackSession session;
    QCOMPARE(session.play("step 1\nstop\nstep 2"), Outcome::Stopped);
    QCOMPARE(session.errors, u"Stopped: a.jou:2\n"_s);
    QCOMPARE(session.take_log(), QStringList({u"step 1"_s, u"error"_s}));

    session.take_errors();
    session.playback.set_turn([&session] { session.playback.stop(); });
    QCOMPARE(session.play("\nstep 1"), Outcome::Stopped);
    QCOMPARE(session.errors, u"Stopped: a.jou:1\n"_s);
}

void TstPlayback::script_that_fails_behind_stop_has_failed()
{
    PlaybackSession session;
    session.playback.set_python_hook([&session](const Playback::PythonScript&) {
        session.playback.stop();
        return false;
    });
    session.write(u"a.py"_s, "1\n");
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Failed);
    QCOMPARE(session.play("play a.py\nstep 1"), Outcome::Failed);
    QCOMPARE(session.take_log(), QStringList({u"error"_s}));
}

void TstPlayback::stop_is_over_when_playback_ends()
{
    PlaybackSession session;
    session.playback.stop();
    QCOMPARE(session.play("step 1"), Outcome::Played);
    QCOMPARE(session.play("stop"), Outcome::Stopped);
    QCOMPARE(session.play("step 2"), Outcome::Played);
}

void TstPlayback::paused_playback_waits_until_resumed()
{
    PlaybackSession session;
    session.playback.set_wait([&session, waits = 0]() mutable {
        session.log << u"wait"_s;
        if (++waits == 3)
            session.playback.resume();
    });
    QCOMPARE(session.play("step 1\nhalt\nstep 2\nstep 3"), Outcome::Played);
    QCOMPARE(session.log,
             QStringList({u"step 1"_s, u"wait"_s, u"wait"_s, u"wait"_s, u"step 2"_s, u"step 3"_s}));
    QVERIFY(!session.playback.is_paused());
}

void TstPlayback::paused_playback_can_be_stopped_and_interrupted()
{
    PlaybackSession session;
    session.playback.set_wait([&session] { session.playback.stop(); });
    QCOMPARE(session.play("step 1\nhalt\nstep 2"), Outcome::Stopped);
    QVERIFY2(!session.playback.is_paused(), "stopping ends the pause");
    QCOMPARE(session.take_errors(), u"Stopped: a.jou:2\n"_s);

    session.playback.set_wait([] { request_interrupt(); });
    QCOMPARE(session.play("step 1\nhalt\nstep 2"), Outcome::Interrupted);
    QCOMPARE(session.take_errors(), u"Interrupted: a.jou:2\n"_s);
}

void TstPlayback::pause_ahead_of_playback_waits_before_the_first_command()
{
    PlaybackSession session;
    session.playback.pause();
    session.playback.set_wait([&session] {
        session.log << u"wait"_s;
        session.playback.resume();
    });
    QCOMPARE(session.play("step 1"), Outcome::Played);
    QCOMPARE(session.log, QStringList({u"wait"_s, u"step 1"_s}));
}

void TstPlayback::pause_without_wait_goes_on()
{
    PlaybackSession session;
    QCOMPARE(session.play("halt\nstep 1"), Outcome::Played);
    QCOMPARE(session.log, QStringList(u"step 1"_s));
    QVERIFY(session.playback.is_paused());
}

void TstPlayback::pause_changes_are_told_once()
{
    PlaybackSession session;
    QList<bool> told;
    session.playback.set_pause_changed([&told](bool paused) { told << paused; });
    session.playback.resume();
    session.playback.stop();
    QCOMPARE(told, QList<bool>());
    session.playback.pause();
    session.playback.pause();
    session.playback.resume();
    session.playback.pause();
    session.playback.stop();
    QCOMPARE(told, QList<bool>({true, false, true, false}));
}

void TstPlayback::journal_plays_journals()
{
    PlaybackSession session;
    session.write(u"b.jou"_s, "step b1\nplay c.jou\nstep b2\n");
    session.write(u"c.jou"_s, "step c\n");
    QCOMPARE(session.play("step 1\nplay b.jou\nplay c.jou\nstep 2"), Outcome::Played);
    QCOMPARE(session.log,
             QStringList({u"step 1"_s, u"step b1"_s, u"step c"_s, u"step b2"_s, u"step c"_s, u"step 2"_s}));
}

void TstPlayback::error_in_an_inner_journal_ends_all_and_tells_the_way()
{
    PlaybackSession session;
    session.write(u"b.jou"_s, "\nplay c.jou\nstep b2\n");
    session.write(u"c.jou"_s, "\n\nset = 1\nstep c\n");
    QCOMPARE(session.play("play b.jou\nstep 2"), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: c.jou:3: set: column 5: expected a name, found \"=\"\n"
                             "  played from b.jou:2\n"
                             "  played from a.jou:1\n"_s);
    QVERIFY(!session.log.contains(u"step 2"_s));
}

void TstPlayback::stop_and_interrupt_in_an_inner_journal_end_all()
{
    PlaybackSession session;
    session.write(u"b.jou"_s, "step b1\nstop\nstep b2\n");
    session.write(u"c.jou"_s, "step c1\ncancel\nstep c2\n");
    QCOMPARE(session.play("play b.jou\nstep 2"), Outcome::Stopped);
    QCOMPARE(session.take_errors(), u"Stopped: b.jou:2\n  played from a.jou:1\n"_s);
    QCOMPARE(session.play("play c.jou\nstep 2"), Outcome::Interrupted);
    QCOMPARE(session.take_errors(), u"Interrupted: c.jou:2\n  played from a.jou:1\n"_s);
    QCOMPARE(session.log.filter(u"step"_s), QStringList({u"step b1"_s, u"step c1"_s}));
}

void TstPlayback::error_behind_an_inner_journal_is_its_own()
{
    PlaybackSession session;
    session.write(u"b.jou"_s, "nix\n");
    session.add("try", [&session](CommandCall&) { session.playback.play(u"b.jou"_s); });
    QCOMPARE(session.play("try\nnix"), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: b.jou:1: nix: column 1: expected a command, found \"nix\"\n"
                             "ERROR: a.jou:2: nix: column 1: expected a command, found \"nix\"\n"_s);
}

void TstPlayback::nesting_is_limited()
{
    PlaybackSession session;
    QCOMPARE(session.play("step 1\nplay a.jou\nstep 2"), Outcome::Failed);
    QCOMPARE(session.log.count(u"step 1"_s), 16);
    QVERIFY(!session.log.contains(u"step 2"_s));
    QVERIFY2(session.errors.startsWith(u"ERROR: a.jou:2: play: journals are nested deeper than 16\n"_s),
             qPrintable(session.errors));
    QCOMPARE(session.errors.count(u"  played from a.jou:2\n"_s), 15);
    QCOMPARE(session.play("step 3"), Outcome::Played);
}

void TstPlayback::lines_are_played_like_a_file()
{
    PlaybackSession session;
    session.playback.set_echo([&session](const QString& line) { session.log << u"> "_s + line; });
    QCOMPARE(session.playback.play_lines({u""_s, u"step \\"_s, u" 1"_s, u"nix"_s}, u"journal"_s),
             Outcome::Failed);
    QCOMPARE(session.log,
             QStringList({u"> "_s, u"> step \\"_s, u">  1"_s, u"step 1"_s, u"> nix"_s, u"error"_s}));
    QCOMPARE(session.errors, u"ERROR: journal:4: nix: column 1: expected a command, found \"nix\"\n"_s);
    QCOMPARE(session.playback.play_lines({}, u"journal"_s), Outcome::Played);
}

void TstPlayback::playing_is_known()
{
    PlaybackSession session;
    bool inside = false;
    session.add("look", [&](CommandCall&) { inside = session.playback.is_playing(); });
    QVERIFY(!session.playback.is_playing());
    QCOMPARE(session.play("look"), Outcome::Played);
    QVERIFY(inside);
    QVERIFY(!session.playback.is_playing());
}

void TstPlayback::python_goes_whole_to_the_hook_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("python");
    QTest::newRow("by its name") << u"a.py"_s << QByteArray("step 1\nx = '\\\n'\n") << true;
    QTest::newRow("by its name, empty") << u"a.py"_s << QByteArray() << true;
    QTest::newRow("by its first line") << u"a.jou"_s << QByteArray("#!python\nstep 1\n") << true;
    QTest::newRow("by its only line") << u"a.jou"_s << QByteArray("#!python") << true;
    QTest::newRow("by its first line, Windows") << u"a.jou"_s << QByteArray("#!python\r\nstep 1\r\n") << true;
    QTest::newRow("behind empty lines") << u"a.jou"_s << QByteArray("\n \n#!python\nstep 1\n") << true;
    QTest::newRow("not behind a command") << u"a.jou"_s << QByteArray("step 1\n#!python\n") << false;
    QTest::newRow("not by a longer word") << u"a.jou"_s << QByteArray("#!python3\nstep 1\n") << false;
    QTest::newRow("not by a name within") << u"a.py.jou"_s << QByteArray("step 1\n") << false;
}

void TstPlayback::python_goes_whole_to_the_hook()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, python);
    PlaybackSession session;
    QStringList seen;
    session.playback.set_python_hook([&seen](const Playback::PythonScript& script) {
        seen << script.path << script.source;
        return true;
    });
    session.write(name, "\xef\xbb\xbf" + bytes);
    QCOMPARE(session.playback.play(name), Outcome::Played);
    QCOMPARE(seen, python ? QStringList({name, QString::fromUtf8(bytes)}) : QStringList());
    QCOMPARE(session.log, python ? QStringList() : QStringList(u"step 1"_s));
}

void TstPlayback::python_outcome_is_that_of_the_hook()
{
    PlaybackSession session;
    session.playback.set_python_hook([&session](const Playback::PythonScript& script) {
        if (script.source == u"nested"_s)
            return session.interpreter.run(u"step p"_s) == CommandInterpreter::Result::Done;
        session.interpreter.print_error(u"Traceback\n"_s);
        return false;
    });
    session.write(u"good.py"_s, "nested");
    session.write(u"bad.py"_s, "fails");
    QCOMPARE(session.play("play good.py\nplay bad.py\nstep 2"), Outcome::Failed);
    QCOMPARE(session.errors, u"Traceback\n  played from a.jou:2\n"_s);
    QCOMPARE(session.log.filter(u"step"_s), QStringList(u"step p"_s));
}

void TstPlayback::python_without_hook_is_an_error()
{
    PlaybackSession session;
    session.write(u"a.py"_s, "pass");
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: \"a.py\" is a Python script, and there is no Python here\n"_s);
}

void TstPlayback::python_hook_may_throw()
{
    PlaybackSession session;
    session.write(u"a.py"_s, "pass");
    session.playback.set_python_hook(
        [](const Playback::PythonScript&) -> bool { throw std::runtime_error("bad"); });
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Failed);
    session.playback.set_python_hook([](const Playback::PythonScript&) -> bool { throw 42; });
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: bad\nERROR: \"a.py\" failed for an unknown reason\n"_s);
    QVERIFY(!session.playback.is_playing());
}

void TstPlayback::python_script_can_be_interrupted_and_stopped()
{
    PlaybackSession session;
    session.write(u"a.py"_s, "pass");
    session.playback.set_python_hook([](const Playback::PythonScript&) {
        request_interrupt();
        return false;
    });
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Interrupted);
    QCOMPARE(session.take_errors(), u"Interrupted: a.py\n"_s);

    session.playback.set_turn([&session] { session.playback.stop(); });
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Stopped);
    QCOMPARE(session.take_errors(), u"Stopped: a.py\n"_s);
}

void TstPlayback::playing_begins_with_a_line_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("the first") << 1 << QStringList({u"step 1"_s, u"step 3"_s, u"error"_s});
    QTest::newRow("an empty one") << 2 << QStringList({u"step 3"_s, u"error"_s});
    QTest::newRow("behind a continued one") << 5 << QStringList(u"error"_s);
}

void TstPlayback::playing_begins_with_a_line()
{
    QFETCH(int, from);
    QFETCH(QStringList, log);
    PlaybackSession session;
    session.write(u"a.jou"_s, "step 1\r\n\r\nstep \\\r\n3\r\nnix");
    QCOMPARE(session.playback.play(u"a.jou"_s, from), Outcome::Failed);
    QCOMPARE(session.log, log);
    QCOMPARE(session.errors, u"ERROR: a.jou:5: nix: column 1: expected a command, found \"nix\"\n"_s);
}

void TstPlayback::line_that_cannot_be_the_first_is_an_error_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("error");
    QTest::newRow("behind the last") << u"a.jou"_s << 4 << u"\"a.jou\" has no line 4"_s;
    QTest::newRow("far behind the last")
        << u"a.jou"_s << 2'000'000'000 << u"\"a.jou\" has no line 2000000000"_s;
    QTest::newRow("zero") << u"a.jou"_s << 0 << u"\"a.jou\" has no line 0"_s;
    QTest::newRow("below zero") << u"a.jou"_s << -1 << u"\"a.jou\" has no line -1"_s;
    QTest::newRow("within a command")
        << u"a.jou"_s << 3 << u"line 3 of \"a.jou\" continues the line before it"_s;
    QTest::newRow("Python") << u"a.py"_s << 2
                            << u"\"a.py\" is a Python script, which is only run as a whole"_s;
}

void TstPlayback::line_that_cannot_be_the_first_is_an_error()
{
    QFETCH(QString, file);
    QFETCH(int, from);
    QFETCH(QString, error);
    PlaybackSession session;
    session.write(file, "step 1\nstep \\\n2\n");
    QCOMPARE(session.playback.play(file, from), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: "_s + error + u'\n');
    QCOMPARE(session.log, QStringList(u"error"_s));
}

void TstPlayback::way_on_is_told_if_asked_for_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("way");
    QTest::newRow("error") << QByteArray("step 1\nnix\nstep") << u"play a.jou 2"_s;
    QTest::newRow("error on a continued line") << QByteArray("set \\\n= 1\nstep") << u"play a.jou 1"_s;
    QTest::newRow("error in the last command") << QByteArray("step 1\nnix") << u"play a.jou 2"_s;
    QTest::newRow("stopped behind a command") << QByteArray("stop\\\n\nstep 1\n") << u"play a.jou 3"_s;
    QTest::newRow("cancelled behind a command") << QByteArray("step 1\ncancel\nstep 2") << u"play a.jou 3"_s;
    QTest::newRow("cancelled command") << QByteArray("step 1\ngive_up\nstep 2") << u"play a.jou 2"_s;
    QTest::newRow("nothing is left") << QByteArray("step 1\ncancel\n") << QString();
}

void TstPlayback::way_on_is_told_if_asked_for()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, way);
    PlaybackSession session;
    session.add("give_up", [](CommandCall&) {
        request_interrupt();
        throw CommandError(u"interrupted"_s);
    });
    QVERIFY(session.play(bytes) != Outcome::Played);
    QVERIFY(!session.take_errors().contains(u"play on"_s));
    session.playback.set_hints(true);
    QVERIFY(session.play(bytes) != Outcome::Played);
    QCOMPARE(session.errors.section(u"  play on with: "_s, 1), way.isEmpty() ? way : way + u'\n');
}

void TstPlayback::way_on_leads_through_all_journals()
{
    PlaybackSession session;
    session.playback.set_hints(true);
    session.write(u"b.jou"_s, "step b\nplay c.jou\nstep b2\n");
    session.write(u"c.jou"_s, "\nset = 1\nstep c\n");
    QCOMPARE(session.play("play b.jou"), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: c.jou:2: set: column 5: expected a name, found \"=\"\n"
                             "  play on with: play c.jou 2\n"
                             "  played from b.jou:2\n"
                             "  play on with: play b.jou 3\n"
                             "  played from a.jou:1\n"_s);
    // A script can only be run anew.
    session.take_errors();
    session.playback.set_python_hook([](const Playback::PythonScript&) { return false; });
    session.write(u"d.py"_s, "pass");
    QCOMPARE(session.play("step 1\nplay d.py\nstep 2"), Outcome::Failed);
    QCOMPARE(session.errors, u"  played from a.jou:2\n  play on with: play a.jou 2\n"_s);
}

void TstPlayback::way_on_holds_from_the_first_directory()
{
    PlaybackSession session;
    session.playback.set_hints(true);
    session.playback.set_change_directory([] { return true; });
    QVERIFY(QDir().mkdir(u"sub"_s));
    session.write(u"sub/outer.jou"_s, "play inner.jou");
    session.write(u"sub/inner.jou"_s, "nix");
    QCOMPARE(session.playback.play(u"sub/outer.jou"_s), Outcome::Failed);
    const QString inner = QFileInfo(u"sub/inner.jou"_s).absoluteFilePath();
    QVERIFY2(session.errors.contains(u"play on with: play %1 1\n"_s.arg(inner)), qPrintable(session.errors));
}

void TstPlayback::lines_are_numbered_from_their_first()
{
    PlaybackSession session;
    session.playback.set_hints(true);
    Playback::Origin origin;
    origin.first_line = 10;
    origin.go_on = [](qsizetype line) { return u"line %1"_s.arg(line); };
    QCOMPARE(session.playback.play_lines({u"step 1"_s, u"nix"_s}, u"x"_s, origin), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: x:11: nix: column 1: expected a command, found \"nix\"\n"
                             "  play on with: line 11\n"_s);
    session.take_errors();
    QCOMPARE(session.playback.play_lines({u"nix"_s}, u"x"_s), Outcome::Failed);
    QVERIFY(!session.errors.contains(u"play on"_s));
}

void TstPlayback::lines_of_a_script_keep_their_numbers()
{
    PlaybackSession session;
    QString seen;
    session.playback.set_python_hook([&seen](const Playback::PythonScript& script) {
        seen = script.source;
        return true;
    });
    Playback::Origin origin;
    origin.first_line = 3;
    origin.python = true;
    QCOMPARE(session.playback.play_lines({u"a"_s, u"b"_s}, u"x"_s, origin), Outcome::Played);
    QCOMPARE(seen, u"\n\na\nb"_s);
}

void TstPlayback::lines_play_in_their_directory()
{
    PlaybackSession session;
    QStringList seen;
    session.add("look", [&seen](CommandCall&) { seen << QDir::current().dirName(); });
    QVERIFY(QDir().mkdir(u"sub"_s));
    const QString before = QDir::currentPath();
    Playback::Origin origin;
    origin.directory = session.directory.filePath(u"sub"_s);
    QCOMPARE(session.playback.play_lines({u"look"_s}, u"x"_s, origin), Outcome::Played);
    session.playback.set_change_directory([] { return true; });
    QCOMPARE(session.playback.play_lines({u"look"_s}, u"x"_s, origin), Outcome::Played);
    QCOMPARE(session.playback.play_lines({u"look"_s}, u"x"_s), Outcome::Played);
    const QString outer = QDir(before).dirName();
    QCOMPARE(seen, QStringList({outer, u"sub"_s, outer}));
    for (const char* end : {"stop", "cancel", "nix"}) {
        QVERIFY(session.playback.play_lines({QLatin1StringView(end)}, u"x"_s, origin) != Outcome::Played);
        QCOMPARE(QDir::currentPath(), before);
    }
}

void TstPlayback::directory_that_cannot_be_entered_is_an_error()
{
    PlaybackSession session;
    session.playback.set_change_directory([] { return true; });
    Playback::Origin origin;
    origin.directory = u"/no/such"_s;
    QCOMPARE(session.playback.play_lines({u"step 1"_s}, u"x"_s, origin), Outcome::Failed);
    QCOMPARE(session.errors, u"ERROR: cannot change to the directory \"/no/such\" of \"x\"\n"_s);
    QCOMPARE(session.log, QStringList(u"error"_s));
    QVERIFY(!session.playback.is_playing());
}

void TstPlayback::pause_says_ahead_of_what()
{
    PlaybackSession session;
    session.playback.set_wait([&session, waits = 0]() mutable {
        if (++waits == 3)
            session.playback.resume();
    });
    QCOMPARE(session.play("step 1\nhalt\n\nstep 2"), Outcome::Played);
    QCOMPARE(session.output, u"Paused ahead of a.jou:3\n"_s);
}

void TstPlayback::progress_is_told_of_the_outermost_journal()
{
    PlaybackSession session;
    QStringList told;
    session.playback.set_progress(
        [&told](const QString& name, int percent) { told << name + u' ' + QString::number(percent); });
    session.write(u"b.jou"_s, "step\nstep\nstep\n");
    QCOMPARE(session.play("step 1234\nplay b.jou\nstep 1234\nstep 123"), Outcome::Played);
    QCOMPARE(told, QStringList({u"a.jou 0"_s, u"a.jou 25"_s, u"a.jou 53"_s, u"a.jou 79"_s, u"a.jou 100"_s}));
    told.clear();
    QCOMPARE(session.play("nix\nstep"), Outcome::Failed);
    QCOMPARE(told, QStringList({u"a.jou 0"_s, u"a.jou 100"_s}));
    told.clear();
    QCOMPARE(session.play(QByteArray("step\n").repeated(1000)), Outcome::Played);
    QCOMPARE(told.size(), 101);
}

void TstPlayback::callbacks_may_replace_themselves()
{
    PlaybackSession session;
    session.playback.set_echo([&session, own = u"echo"_s](const QString&) {
        session.playback.set_echo(nullptr);
        session.log << own; // a captured value: gone if the function were destroyed by now
    });
    session.playback.set_turn([&session, own = u"turn"_s] {
        session.playback.set_turn(nullptr);
        session.log << own;
    });
    QCOMPARE(session.play("step 1\nstep 2"), Outcome::Played);
    QCOMPARE(session.log, QStringList({u"turn"_s, u"echo"_s, u"step 1"_s, u"step 2"_s}));
}

void TstPlayback::long_journal_plays_to_its_end()
{
    PlaybackSession session;
    int ran = 0;
    session.registry.add(
        {.name = u"count"_s,
         .perform = [&ran](CommandCall&, const CommandArguments&) { ++ran; },
         .forms = {{.clauses = {required_value({.name = u"N"_s, .kind = CommandParameter::Kind::Number})}}}});
    // How long such journals take is a row of bench_workbench.
    QCOMPARE(session.play(QByteArray("count 12.5 # x\n").repeated(200'000)), Outcome::Played);
    QCOMPARE(ran, 200'000);
    QCOMPARE(session.play("count '1\\\n" + QByteArray("0\\\n").repeated(200'000) + "'"), Outcome::Failed);
}

void TstPlayback::script_tells_how_far_it_is()
{
    PlaybackSession session;
    QStringList told;
    session.playback.set_progress(
        [&told](const QString& name, int percent) { told << name + u' ' + QString::number(percent); });
    session.playback.set_python_hook([&session](const Playback::PythonScript&) {
        for (const qsizetype line : {1, 2, 3, 2, 4, 0, 99, -5})
            session.playback.script_reached(line);
        return true;
    });
    session.write(u"a.py"_s, "1\n2\n3\n4");
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Played);
    // A loop goes back, the progress does not.
    QCOMPARE(told, QStringList({u"a.py 0"_s, u"a.py 25"_s, u"a.py 50"_s, u"a.py 75"_s, u"a.py 100"_s}));
    told.clear();
    // A piece of a document counts its own lines.
    Playback::Origin origin{11, true, true, {}, {}};
    session.playback.set_python_hook([&session](const Playback::PythonScript& script) {
        session.playback.script_reached(12);
        return script.piece;
    });
    QCOMPARE(session.playback.play_lines({u"a"_s, u"b"_s}, u"x"_s, origin), Outcome::Played);
    QCOMPARE(told, QStringList({u"x 0"_s, u"x 50"_s, u"x 100"_s}));
    told.clear();
    // In a journal, it is that journal's progress that counts.
    QCOMPARE(session.play("play a.py"), Outcome::Failed);
    QCOMPARE(told, QStringList({u"a.jou 0"_s, u"a.jou 100"_s}));
    session.playback.script_reached(1); // nothing plays
    QCOMPARE(told.size(), 2);
}

void TstPlayback::script_waits_while_paused()
{
    PlaybackSession session;
    session.playback.set_wait([&session, waits = 0]() mutable {
        session.log << u"wait"_s;
        if (++waits == 2)
            session.playback.resume();
    });
    session.playback.set_python_hook([&session](const Playback::PythonScript&) {
        session.playback.script_reached(1);
        session.log << u"first"_s;
        session.playback.pause();
        session.playback.script_reached(2);
        session.log << u"second"_s;
        session.playback.script_reached(3);
        return true;
    });
    session.write(u"a.py"_s, "1\n2\n3\n");
    QCOMPARE(session.playback.play(u"a.py"_s), Outcome::Played);
    QCOMPARE(session.log, QStringList({u"first"_s, u"wait"_s, u"wait"_s, u"second"_s}));
    QCOMPARE(session.output, u"Paused in a.py:2\n"_s);
}

void TstPlayback::cancel_and_stop_end_the_pause_of_a_script_data()
{
    QTest::addColumn<bool>("cancel");
    QTest::newRow("cancel") << true;
    QTest::newRow("stop") << false;
}

void TstPlayback::cancel_and_stop_end_the_pause_of_a_script()
{
    QFETCH(const bool, cancel);
    PlaybackSession session;
    session.playback.set_wait([&session, cancel] {
        if (cancel)
            request_interrupt();
        else
            session.playback.stop();
    });
    session.playback.set_python_hook([&session, cancel](const Playback::PythonScript&) {
        session.playback.pause();
        session.playback.script_reached(0);
        session.log << u"goes on"_s;
        return !cancel; // which raises an exception; the end of a pause does not
    });
    session.write(u"a.py"_s, "1\n");
    QCOMPARE(session.playback.play(u"a.py"_s), cancel ? Outcome::Interrupted : Outcome::Stopped);
    QVERIFY(session.log.contains(u"goes on"_s));
    QCOMPARE(session.output, u"Paused in a.py\n"_s);
    session.playback.resume();
}

void TstPlayback::names_in_play_are_known_until_they_end()
{
    PlaybackSession session;
    QVERIFY(QDir().mkdir(u"sub"_s));
    session.write(u"sub/b.py"_s, "1\n");
    session.write(u"b.py"_s, "1\n");
    QStringList seen;
    session.playback.set_change_directory([] { return true; });
    session.playback.set_python_hook([&](const Playback::PythonScript&) {
        seen << session.playback.script_in_play() << session.playback.file_in_play(u"sub/b.py"_s)
             << session.playback.file_in_play(u"a.jou"_s) << session.playback.file_in_play(u"other"_s)
             << session.playback.file_in_play(u"lines"_s);
        return true;
    });
    session.add("look", [&](CommandCall&) { seen << session.playback.script_in_play(); });
    QCOMPARE(session.play("play sub/b.py\nlook"), Outcome::Played);
    const QString here = QDir::currentPath() + u'/';
    QCOMPARE(seen, QStringList({u"sub/b.py"_s, here + u"sub/b.py"_s, here + u"a.jou"_s, QString(), QString(),
                                QString()}));
    QCOMPARE(session.playback.script_in_play(), QString());
    QCOMPARE(session.playback.file_in_play(u"a.jou"_s), QString());
}

OSTREL_TEST(TstPlayback)
#include "tst_playback.moc"
