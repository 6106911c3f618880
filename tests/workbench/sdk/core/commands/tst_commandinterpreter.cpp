// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QLocale>
#include <QScopeGuard>
#include <QTest>

#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;
using Result = CommandInterpreter::Result;

class TstCommandInterpreter : public TestCase
{
    Q_OBJECT

private slots:
    void line_runs_its_command();
    void line_without_command_is_done_data();
    void line_without_command_is_done();
    void continued_line_waits_for_the_rest();
    void continuation_joins_lines_data();
    void continuation_joins_lines();
    void reset_drops_a_pending_continuation();
    void failed_continuation_leaves_nothing_pending();
    void text_runs_line_by_line_to_its_end();
    void text_stops_at_the_first_error();
    void text_that_ends_in_a_continued_line_fails();
    void text_leaves_a_pending_continuation_alone();
    void text_stops_at_an_interrupt();
    void errors_are_one_line_with_command_and_column_data();
    void errors_are_one_line_with_command_and_column();
    void errors_in_a_file_begin_with_file_and_line();
    void whatever_a_command_throws_is_reported_data();
    void whatever_a_command_throws_is_reported();
    void failed_command_leaves_the_interpreter_usable();
    void reported_error_is_not_reported_again();
    void missing_outputs_drop_the_text();
    void output_may_be_replaced_while_it_is_called();
    void variables_are_expanded_when_the_line_runs();
    void commands_may_run_commands();
    void entered_line_may_enter_lines();
    void nesting_is_limited();
    void running_owners_are_known();
    void interrupt_from_before_is_not_for_this_command();
    void interrupt_is_seen_by_the_command_and_taken_back();
    void nested_command_leaves_the_interrupt_to_the_outer_one();
    void command_finds_its_words();
    void errors_of_a_command_stand_at_a_word_data();
    void errors_of_a_command_stand_at_a_word();
    void numbers_ignore_the_locale();
    void lines_of_ten_million_characters_run();
    void odd_characters_pass_through();
    void call_returns_what_the_command_has_set();
    void failed_call_tells_why_and_reports_nothing_data();
    void failed_call_tells_why_and_reports_nothing();
    void failed_call_of_a_command_that_reports_tells_the_inner_failure();
    void failure_that_was_reported_can_be_asked_for();
};

void TstCommandInterpreter::line_runs_its_command()
{
    CommandSession session;
    QCOMPARE(session.interpreter.enter(u"  note a 'b c'  # d"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"a|b c"_s));
    QCOMPARE(session.interpreter.enter(u"note e\r\n"_s), Result::Done);
    QCOMPARE(session.notes.last(), u"e"_s);
    QVERIFY(session.errors.isEmpty());
    QVERIFY(session.output.isEmpty());
}

void TstCommandInterpreter::line_without_command_is_done_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("blanks") << u" \t "_s;
    QTest::newRow("comment") << u"# note a"_s;
    QTest::newRow("comment behind blanks") << u"   #note a"_s;
}

void TstCommandInterpreter::line_without_command_is_done()
{
    QFETCH(QString, line);
    CommandSession session;
    QCOMPARE(session.interpreter.enter(line), Result::Done);
    QCOMPARE(session.interpreter.run(line), Result::Done);
    QVERIFY(session.notes.isEmpty());
    QVERIFY(session.errors.isEmpty());
}

void TstCommandInterpreter::continued_line_waits_for_the_rest()
{
    CommandSession session;
    QVERIFY(!session.interpreter.incomplete());
    QCOMPARE(session.interpreter.enter(u"note a \\"_s), Result::Incomplete);
    QVERIFY(session.interpreter.incomplete());
    QVERIFY(session.notes.isEmpty());
    QCOMPARE(session.interpreter.enter(u" b\\"_s), Result::Incomplete);
    QCOMPARE(session.interpreter.enter(u"c"_s), Result::Done);
    QVERIFY(!session.interpreter.incomplete());
    QCOMPARE(session.notes, QStringList(u"a|bc"_s));
}

void TstCommandInterpreter::continuation_joins_lines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("notes");
    QTest::newRow("nothing comes in between") << u"note a\\\nb"_s << QStringList(u"ab"_s);
    QTest::newRow("blanks of the next line stay") << u"note a\\\n  b"_s << QStringList(u"a|b"_s);
    QTest::newRow("inside quotes") << u"note 'a\\\n b'"_s << QStringList(u"a b"_s);
    QTest::newRow("empty line ends the command") << u"note a\\\n\nnote b"_s << QStringList({u"a"_s, u"b"_s});
    QTest::newRow("two backslashes continue as well") << u"note a\\\\\nb"_s << QStringList(u"a\\b"_s);
    QTest::newRow("blank behind the backslash does not continue")
        << u"note a\\ \nnote b"_s << QStringList({u"a\\"_s, u"b"_s});
    QTest::newRow("comment continues, too") << u"# a\\\nnote b\nnote c"_s << QStringList(u"c"_s);
    QTest::newRow("line ends of Windows")
        << u"note a\\\r\nb\r\nnote c\r\n"_s << QStringList({u"ab"_s, u"c"_s});
}

void TstCommandInterpreter::continuation_joins_lines()
{
    QFETCH(QString, text);
    QFETCH(QStringList, notes);
    CommandSession session;
    QCOMPARE(session.interpreter.run(text), Result::Done);
    QCOMPARE(session.take_notes(), notes);
    for (const QString& line : text.split(u'\n'))
        session.interpreter.enter(line);
    QCOMPARE(session.take_notes(), notes);
    QCOMPARE(session.errors, QString());
}

void TstCommandInterpreter::reset_drops_a_pending_continuation()
{
    CommandSession session;
    session.interpreter.enter(u"note a\\"_s);
    session.interpreter.reset();
    QVERIFY(!session.interpreter.incomplete());
    QCOMPARE(session.interpreter.enter(u"note b"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"b"_s));
}

void TstCommandInterpreter::failed_continuation_leaves_nothing_pending()
{
    CommandSession session;
    session.interpreter.enter(u"note 'a\\"_s);
    QCOMPARE(session.interpreter.enter(u"b"_s), Result::Failed);
    QVERIFY(!session.interpreter.incomplete());
    QCOMPARE(session.interpreter.enter(u"note c"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"c"_s));
}

void TstCommandInterpreter::text_runs_line_by_line_to_its_end()
{
    CommandSession session;
    QCOMPARE(session.interpreter.run(u"note a\n\n# b\nnote c\nnote d"_s), Result::Done);
    QCOMPARE(session.notes, QStringList({u"a"_s, u"c"_s, u"d"_s}));
    QCOMPARE(session.interpreter.run(u""_s), Result::Done);
}

void TstCommandInterpreter::text_stops_at_the_first_error()
{
    CommandSession session;
    QCOMPARE(session.interpreter.run(u"note a\nnoet b\nnote c\n"_s), Result::Failed);
    QCOMPARE(session.notes, QStringList(u"a"_s));
    QCOMPARE(
        session.errors,
        u"ERROR: noet: line 2, column 1: expected a command, found \"noet\"; did you mean \"note\"?\n"_s);
}

void TstCommandInterpreter::text_that_ends_in_a_continued_line_fails()
{
    CommandSession session;
    QCOMPARE(session.interpreter.run(u"note a\nnote b\\\n c\\"_s), Result::Failed);
    QCOMPARE(session.notes, QStringList(u"a"_s));
    QCOMPARE(session.errors, u"ERROR: line 3, column 3: expected another line behind the backslash, found "
                             "the end of the text\n"_s);
    QVERIFY(!session.interpreter.incomplete());
}

void TstCommandInterpreter::text_leaves_a_pending_continuation_alone()
{
    CommandSession session;
    session.interpreter.enter(u"note a\\"_s);
    QCOMPARE(session.interpreter.run(u"note b"_s), Result::Done);
    QVERIFY(session.interpreter.incomplete());
    QCOMPARE(session.interpreter.enter(u" c"_s), Result::Done);
    QCOMPARE(session.notes, QStringList({u"b"_s, u"a|c"_s}));
}

void TstCommandInterpreter::text_stops_at_an_interrupt()
{
    CommandSession session;
    session.add("cancel", [](CommandCall&) { request_interrupt(); });
    QCOMPARE(session.interpreter.run(u"note a\ncancel\nnote b"_s), Result::Failed);
    QCOMPARE(session.notes, QStringList(u"a"_s));
    QCOMPARE(session.errors, u"ERROR: interrupted before line 3\n"_s);
    QVERIFY(!interrupt_requested());
}

void TstCommandInterpreter::errors_are_one_line_with_command_and_column_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("word of the wrong kind")
        << u"move x"_s << u"ERROR: move: column 6: expected a distance (a number), found \"x\"\n"_s;
    QTest::newRow("word missing")
        << u"move  # to"_s
        << u"ERROR: move: column 5: expected a distance (a number), found the end of the line\n"_s;
    QTest::newRow("word too many") << u"move 1 '2'"_s
                                   << u"ERROR: move: column 8: expected the end of the line, found \"2\"\n"_s;
    QTest::newRow("fault of the line itself")
        << u"move \"1"_s
        << u"ERROR: move: column 6: expected a closing double quote, found the end of the line\n"_s;
    QTest::newRow("fault ahead of any word")
        << u"$move"_s << u"ERROR: column 1: unknown variable \"move\"\n"_s;
    QTest::newRow("fault behind an unknown command")
        << u"mvoe \"1"_s
        << u"ERROR: mvoe: column 6: expected a closing double quote, found the end of the line\n"_s;
    QTest::newRow("unknown command")
        << u" cylinder"_s << u"ERROR: cylinder: column 2: expected a command, found \"cylinder\"\n"_s;
    QTest::newRow("word that names no command")
        << u"=5 x"_s << u"ERROR: column 1: expected a command, found \"=5\"\n"_s;
    QTest::newRow("word too long to be repeated")
        << QString(61, u'x')
        << QString(u"ERROR: column 1: expected a command, found \""_s + QString(60, u'x') + u"...\"\n"_s);
    QTest::newRow("other case")
        << u"Move 1"_s
        << u"ERROR: Move: column 1: expected a command, found \"Move\"; did you mean \"move\"?\n"_s;
    QTest::newRow("empty command name") << u"''"_s << u"ERROR: column 1: expected a command, found \"\"\n"_s;
    QTest::newRow("long word is cut")
        << QString(u"move "_s + QString(100, u'x'))
        << QString(u"ERROR: move: column 6: expected a distance (a number), found \""_s + QString(60, u'x') +
                   u"...\"\n"_s);
    QTest::newRow("control characters are escaped")
        << QString(u"move '\t\u001b[2J\u2028'"_s)
        << uR"(ERROR: move: column 6: expected a distance (a number), found "\t\u001b[2J\u2028")"_s + u"\n"_s;
    QTest::newRow("wide characters count once")
        << u"move '\U0001F600\U0001F600'$x"_s << u"ERROR: move: column 10: unknown variable \"x\"\n"_s;
    QTest::newRow("fault on a continued line")
        << u"move \\\n  \\\n  x"_s
        << u"ERROR: move: line 3, column 3: expected a distance (a number), found \"x\"\n"_s;
    QTest::newRow("fault at the start of a continued line")
        << u"move \\\nx"_s
        << u"ERROR: move: line 2, column 1: expected a distance (a number), found \"x\"\n"_s;
    QTest::newRow("line end behind the only line")
        << u"move x\n"_s << u"ERROR: move: column 6: expected a distance (a number), found \"x\"\n"_s;
}

void TstCommandInterpreter::errors_are_one_line_with_command_and_column()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    CommandSession session;
    const CommandParameter distance{
        .name = u"DISTANCE"_s, .kind = CommandParameter::Kind::Number, .what = u"a distance"_s};
    session.registry.add({.name = u"move"_s,
                          .perform = [](CommandCall&, const CommandArguments&) {},
                          .forms = {{.clauses = {required_value(distance)}}}});
    QCOMPARE(session.interpreter.run(text), Result::Failed);
    QCOMPARE(session.take_errors(), error);

    QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
    const QString last = lines.takeLast();
    for (const QString& line : lines)
        QCOMPARE(session.interpreter.enter(line), Result::Incomplete);
    QCOMPARE(session.interpreter.enter(last), Result::Failed);
    QCOMPARE(session.take_errors(), error);
    QVERIFY(session.output.isEmpty());
}

void TstCommandInterpreter::errors_in_a_file_begin_with_file_and_line()
{
    CommandSession session;
    session.add("fail", [](CommandCall&) { throw CommandError(u"no volume"_s); });
    session.interpreter.run(u"fail"_s, u"a.jou"_s, 7);
    QCOMPARE(session.take_errors(), u"ERROR: a.jou:7: fail: no volume\n"_s);
    session.interpreter.run(u"note\nnote \\\n  $x"_s, u"a.jou"_s, 7);
    QCOMPARE(session.take_errors(), u"ERROR: a.jou:9: note: column 3: unknown variable \"x\"\n"_s);
}

void TstCommandInterpreter::whatever_a_command_throws_is_reported_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("error");
    QTest::newRow("command error") << 0 << u"ERROR: fail: no volume\n"_s;
    QTest::newRow("exception of the standard library") << 1 << u"ERROR: fail: b\u00e4d value\n"_s;
    QTest::newRow("text of several lines") << 2 << u"ERROR: fail: one two three\n"_s;
    QTest::newRow("anything else") << 3 << u"ERROR: fail: failed for an unknown reason\n"_s;
    QTest::newRow("out of memory") << 4 << u"ERROR: fail: out of memory\n"_s;
}

void TstCommandInterpreter::whatever_a_command_throws_is_reported()
{
    QFETCH(int, kind);
    QFETCH(QString, error);
    CommandSession session;
    session.add("fail", [kind](CommandCall& call) {
        call.print(u"before\n"_s);
        switch (kind) {
        case 0:
            throw CommandError(u"no volume"_s);
        case 1:
            throw std::runtime_error("b\303\244d value");
        case 2:
            throw std::runtime_error("one\ntwo\r\nthree\n");
        case 3:
            throw 42;
        default:
            throw std::bad_alloc();
        }
    });
    QCOMPARE(session.interpreter.enter(u"fail"_s), Result::Failed);
    QCOMPARE(session.errors, error);
    QCOMPARE(session.output, u"before\n"_s);
}

void TstCommandInterpreter::failed_command_leaves_the_interpreter_usable()
{
    CommandSession session;
    session.add("fail", [](CommandCall&) { throw 42; });
    session.interpreter.variables().set(u"a"_s, u"1"_s);
    for (int i = 0; i < 2 * CommandInterpreter::depth_limit; ++i)
        QCOMPARE(session.interpreter.enter(u"fail"_s), Result::Failed);
    QVERIFY(!session.interpreter.is_running());
    QCOMPARE(session.interpreter.enter(u"note $a"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"1"_s));
}

void TstCommandInterpreter::reported_error_is_not_reported_again()
{
    CommandSession session;
    session.add("fail", [&session](CommandCall&) {
        session.interpreter.report(u"two\nlines"_s);
        throw CommandError::reported();
    });
    QCOMPARE(session.interpreter.enter(u"fail"_s), Result::Failed);
    QCOMPARE(session.take_errors(), u"ERROR: fail: two lines\n"_s);
    session.interpreter.report(u"outside"_s);
    QCOMPARE(session.take_errors(), u"ERROR: outside\n"_s);
}

void TstCommandInterpreter::missing_outputs_drop_the_text()
{
    CommandSession session;
    session.add("say", [](CommandCall& call) { call.print(u"a"_s); });
    session.interpreter.set_output(nullptr);
    session.interpreter.set_error_output(nullptr);
    QCOMPARE(session.interpreter.run(u"say\nnote b"_s), Result::Done);
    QCOMPARE(session.interpreter.enter(u"nix"_s), Result::Failed);
    QCOMPARE(session.notes, QStringList(u"b"_s));
}

void TstCommandInterpreter::output_may_be_replaced_while_it_is_called()
{
    CommandSession session;
    QStringList seen;
    session.interpreter.set_output([&, own = u"first"_s](const QString& text) {
        session.interpreter.set_output([&](const QString& next) { seen << u"second "_s + next; });
        seen << own + u' ' + text; // a captured value: gone if the function were destroyed by now
    });
    session.interpreter.print(u"a"_s);
    session.interpreter.print(u"b"_s);
    QCOMPARE(seen, QStringList({u"first a"_s, u"second b"_s}));
}

void TstCommandInterpreter::variables_are_expanded_when_the_line_runs()
{
    CommandSession session;
    session.add("let", [&session](CommandCall& call) {
        session.interpreter.variables().set(call.words()[1].text, call.words()[2].text);
    });
    QCOMPARE(session.interpreter.run(u"let a 1\nlet b \"$a 2\"\nlet a 3\nnote $a ${b} '$a'"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"3|1 2|$a"_s));
    QVERIFY(!session.interpreter.variables().set(u"1a"_s, u"x"_s));
    session.interpreter.variables().remove(u"a"_s);
    QCOMPARE(session.interpreter.variables().names(), QStringList(u"b"_s));
}

void TstCommandInterpreter::commands_may_run_commands()
{
    CommandSession session;
    session.add("twice", [&session](CommandCall& call) {
        const QString text = call.words()[1].text;
        QCOMPARE(session.interpreter.run(text), Result::Done);
        QCOMPARE(session.interpreter.run(text), Result::Done);
        call.print(call.words()[1].text); // the words of the outer call are still there
    });
    QCOMPARE(session.interpreter.enter(u"twice 'note a'"_s), Result::Done);
    QCOMPARE(session.notes, QStringList({u"a"_s, u"a"_s}));
    QCOMPARE(session.output, u"note a"_s);

    session.add("try", [&session](CommandCall&) {
        QCOMPARE(session.interpreter.run(u"nix"_s), Result::Failed);
        throw CommandError(u"tried"_s);
    });
    QCOMPARE(session.interpreter.enter(u"try"_s), Result::Failed);
    QCOMPARE(session.errors,
             u"ERROR: nix: column 1: expected a command, found \"nix\"\nERROR: try: tried\n"_s);
}

void TstCommandInterpreter::entered_line_may_enter_lines()
{
    CommandSession session;
    session.add("more", [&session](CommandCall&) {
        QVERIFY(!session.interpreter.incomplete());
        QCOMPARE(session.interpreter.enter(u"note a\\"_s), Result::Incomplete);
        QCOMPARE(session.interpreter.enter(u"b"_s), Result::Done);
    });
    session.interpreter.enter(u"more\\"_s);
    QCOMPARE(session.interpreter.enter(u" x"_s), Result::Done);
    QCOMPARE(session.notes, QStringList(u"ab"_s));
}

void TstCommandInterpreter::nesting_is_limited()
{
    CommandSession session;
    int deepest = 0;
    int depth = 0;
    session.add("again", [&](CommandCall&) {
        deepest = std::max(deepest, ++depth);
        const Result result = session.interpreter.run(u"again"_s);
        --depth;
        if (result == Result::Failed)
            throw CommandError::reported();
    });
    QCOMPARE(session.interpreter.enter(u"again"_s), Result::Failed);
    QCOMPARE(deepest, 64);
    QCOMPARE(session.errors, u"ERROR: again: commands are nested deeper than 64\n"_s);
    QCOMPARE(session.interpreter.enter(u"note a"_s), Result::Done);
}

void TstCommandInterpreter::running_owners_are_known()
{
    CommandSession session;
    QList<bool> seen;
    const auto look = [&] {
        seen << session.interpreter.is_running(u"solids"_s) << session.interpreter.is_running(u"other"_s)
             << session.interpreter.is_running();
    };
    session.add(
        "look", [&](CommandCall&) { look(); }, "inner");
    session.add(
        "box", [&](CommandCall&) { session.interpreter.run(u"look"_s); }, "solids");
    session.interpreter.enter(u"box"_s);
    look();
    QCOMPARE(seen, QList<bool>({true, false, true, false, false, false}));
}

void TstCommandInterpreter::interrupt_from_before_is_not_for_this_command()
{
    CommandSession session;
    bool seen = true;
    session.add("look", [&seen](CommandCall& call) { seen = call.interrupted(); });
    request_interrupt();
    session.interpreter.enter(u"look"_s);
    QVERIFY(!seen);
}

void TstCommandInterpreter::interrupt_is_seen_by_the_command_and_taken_back()
{
    CommandSession session;
    bool seen = false;
    session.add("look", [&seen](CommandCall& call) {
        request_interrupt();
        seen = call.interrupted();
        throw CommandError(u"interrupted"_s);
    });
    QCOMPARE(session.interpreter.enter(u"look"_s), Result::Failed);
    QVERIFY(seen);
    QVERIFY(!interrupt_requested());
}

void TstCommandInterpreter::nested_command_leaves_the_interrupt_to_the_outer_one()
{
    CommandSession session;
    bool seen = false;
    session.add("cancel", [](CommandCall&) { request_interrupt(); });
    session.add("outer", [&](CommandCall& call) {
        session.interpreter.run(u"cancel"_s);
        seen = call.interrupted();
    });
    session.interpreter.enter(u"outer"_s);
    QVERIFY(seen);
    QVERIFY(!interrupt_requested());
}

void TstCommandInterpreter::command_finds_its_words()
{
    CommandSession session;
    bool ran = false;
    session.add("all", [&](CommandCall& call) {
        QCOMPARE(call.count(), 3);
        QCOMPARE(call.words()[0].text, u"all"_s);
        QCOMPARE(call.words()[1].text, u"a b"_s);
        QCOMPARE(call.column(2), 12);
        QCOMPARE(call.column(3), 14);
        QCOMPARE(&call.interpreter(), &session.interpreter);
        ran = true;
    });
    QCOMPARE(session.interpreter.enter(u"all 'a b'  \"\""_s), Result::Done);
    QVERIFY(ran);
}

void TstCommandInterpreter::errors_of_a_command_stand_at_a_word_data()
{
    QTest::addColumn<std::function<void(CommandCall&)>>("run");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const std::function<void(CommandCall&)>& run,
                        const QString& error) { QTest::newRow(name) << run << error; };
    // Every row runs: all x 12
    row(
        "behind the last word", [](CommandCall& c) { throw c.error(3, u"more is needed"_s); },
        u"column 9: more is needed"_s);
    row(
        "at a word", [](CommandCall& c) { throw c.error(2, u"there is no volume 12"_s); },
        u"column 7: there is no volume 12"_s);
}

void TstCommandInterpreter::errors_of_a_command_stand_at_a_word()
{
    QFETCH(std::function<void(CommandCall&)>, run);
    QFETCH(QString, error);
    CommandSession session;
    session.add("all", run);
    QCOMPARE(session.interpreter.enter(u"all x 12"_s), Result::Failed);
    QCOMPARE(session.errors, u"ERROR: all: "_s + error + u'\n');
}

void TstCommandInterpreter::numbers_ignore_the_locale()
{
    const QLocale before;
    const auto restore = qScopeGuard([&before] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CommandSession session;
    double value = 0;
    session.registry.add(
        {.name = u"size"_s,
         .perform = [&](CommandCall&,
                        const CommandArguments& arguments) { value = arguments.number("SIZE"_L1); },
         .forms = {
             {.clauses = {required_value({.name = u"SIZE"_s, .kind = CommandParameter::Kind::Number})}}}});
    QCOMPARE(session.interpreter.enter(u"size 1.5"_s), Result::Done);
    QCOMPARE(value, 1.5);
    QCOMPARE(session.interpreter.enter(u"size 1,5"_s), Result::Failed);
    // Nor do the numbers in messages get group marks.
    QCOMPARE(session.interpreter.run(QString(12344, u'\n') + u"size"_s), Result::Failed);
    QVERIFY2(session.errors.contains(u"line 12345,"_s), qPrintable(session.errors));
}

void TstCommandInterpreter::lines_of_ten_million_characters_run()
{
    // How long such lines take is a row of bench_workbench.
    const qsizetype size = 10'000'000;
    CommandSession session;
    QCOMPARE(session.interpreter.enter(QString(size, u'x')), Result::Failed);
    QVERIFY2(session.take_errors().size() < 200, "a long word is not printed in full");
    QCOMPARE(session.interpreter.enter(u"note "_s + QString(size, u'x')), Result::Done);
    QCOMPARE(session.take_notes().first().size(), size);
    QCOMPARE(session.interpreter.enter(u"note "_s + QString(size, u'"') + u'"'), Result::Failed);
    QCOMPARE(session.interpreter.enter(QString(size, u'#')), Result::Done);
    QCOMPARE(session.interpreter.run(QString(size, u'\n')), Result::Done);
    QCOMPARE(session.interpreter.run(u"\\\n"_s.repeated(size / 2)), Result::Failed);
}

void TstCommandInterpreter::odd_characters_pass_through()
{
    CommandSession session;
    const QString odd = u"a"_s + QChar(u'\0') + QChar(0xd800) + u"b"_s + QChar(0xdc00) + QChar(0xffff);
    QCOMPARE(session.interpreter.enter(u"note "_s + odd), Result::Done);
    QCOMPARE(session.notes, QStringList(odd));
    QCOMPARE(session.interpreter.enter(odd), Result::Failed);
    QCOMPARE(session.errors.count(u'\n'), 1);
}

void TstCommandInterpreter::call_returns_what_the_command_has_set()
{
    CommandSession session;
    session.add("answer", [](CommandCall& call) { call.set_result({.data = qint64(42)}); });
    const CommandInterpreter::Outcome outcome = session.interpreter.call(u"answer"_s);
    QVERIFY(!outcome.failure);
    QVERIFY(std::holds_alternative<qint64>(outcome.value.data));
    QCOMPARE(std::get<qint64>(outcome.value.data), 42);
    QVERIFY(session.interpreter.call(u"note a"_s).value.is_nothing());
    QVERIFY(session.interpreter.call(u""_s).value.is_nothing());
    QCOMPARE(session.notes, QStringList(u"a"_s));
}

void TstCommandInterpreter::failed_call_tells_why_and_reports_nothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("command");
    QTest::addColumn<qsizetype>("column");
    QTest::addColumn<QString>("remedy");
    QTest::newRow("no such command") << u" nota a"_s
                                     << u"expected a command, found \"nota\"; did you mean \"note\"?"_s
                                     << u"nota"_s << qsizetype(2) << u"did you mean \"note\"?"_s;
    QTest::newRow("open quote") << u"note 'a"_s
                                << u"expected a closing single quote, found the end of the line"_s
                                << u"note"_s << qsizetype(6) << u""_s;
    QTest::newRow("continued") << u"note a\\"_s
                               << u"expected another line behind the backslash, found the end of the text"_s
                               << u""_s << qsizetype(7) << u""_s;
    QTest::newRow("thrown") << u"fail"_s << u"no good"_s << u"fail"_s << qsizetype(0) << u""_s;
}

void TstCommandInterpreter::failed_call_tells_why_and_reports_nothing()
{
    QFETCH(const QString, line);
    CommandSession session;
    session.add("fail", [](CommandCall& call) {
        call.set_result({.data = 1.0});
        throw std::runtime_error("no good");
    });
    const CommandInterpreter::Outcome outcome = session.interpreter.call(line);
    QVERIFY(outcome.failure);
    QTEST(outcome.failure->message, "message");
    QTEST(outcome.failure->command, "command");
    QTEST(outcome.failure->column, "column");
    QTEST(outcome.failure->remedy, "remedy");
    QVERIFY(outcome.value.is_nothing());
    QCOMPARE(session.errors, QString());
    QVERIFY(session.notes.isEmpty());
}

void TstCommandInterpreter::failed_call_of_a_command_that_reports_tells_the_inner_failure()
{
    CommandSession session;
    session.add("outer", [](CommandCall& call) {
        if (call.interpreter().run(u"nota"_s) == Result::Failed)
            throw CommandError::reported();
    });
    session.add("silent", [](CommandCall&) { throw CommandError::reported(); });
    CommandInterpreter::Outcome outcome = session.interpreter.call(u"outer"_s);
    QVERIFY(outcome.failure);
    QCOMPARE(outcome.failure->command, u"nota"_s);
    QCOMPARE(session.take_errors(),
             u"ERROR: nota: column 1: expected a command, found \"nota\"; did you mean \"note\"?\n"_s);
    outcome = session.interpreter.call(u"silent"_s);
    QVERIFY(outcome.failure);
    QCOMPARE(outcome.failure->command, u"silent"_s);
    QVERIFY(!outcome.failure->message.isEmpty());
}

void TstCommandInterpreter::failure_that_was_reported_can_be_asked_for()
{
    CommandSession session;
    QCOMPARE(session.interpreter.run(u"note a\nnota"_s), Result::Failed);
    QCOMPARE(session.interpreter.last_failure().command, u"nota"_s);
    QCOMPARE(session.interpreter.last_failure().column, 1);
}

OSTREL_TEST(TstCommandInterpreter)
#include "tst_commandinterpreter.moc"
