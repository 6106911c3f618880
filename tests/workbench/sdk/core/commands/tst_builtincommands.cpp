// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;
using Result = CommandInterpreter::Result;

namespace {

struct BuiltinSession : CommandSession
{
    BuiltinSession() { register_builtin_commands(interpreter, playback, services); }

    /** What a line prints; errors included. */
    QString printed(const QString& line)
    {
        result = interpreter.enter(line);
        return take_output() + take_errors();
    }

    Playback playback{interpreter};
    BuiltinServices services;
    Result result = Result::Done;
};

} // namespace

class TstBuiltinCommands : public TestCase
{
    Q_OBJECT

private slots:
    void all_are_registered_under_one_owner();
    void each_has_usage_and_summary();
    void taken_names_are_left_to_their_owner();
    void help_lists_commands_with_summaries();
    void help_explains_one_command();
    void help_tells_what_to_expect_of_a_command();
    void help_ends_a_long_text_with_one_line_end();
    void help_for_an_unknown_command_suggests_the_nearest();
    void echo_prints_words_with_one_blank();
    void set_sets_shows_and_lists();
    void set_output_can_be_run_again();
    void set_reports_bad_names_and_unknown_variables();
    void doubling_a_variable_ends_in_an_error();
    void history_lists_numbered_lines();
    void history_asks_its_source_each_time();
    void history_wants_a_positive_count();
    void play_plays_a_file();
    void play_reports_its_arguments();
    void quit_asks_the_application();
    void quit_without_application_is_an_error();
    void quit_stops_the_journal_that_says_it();
    void surplus_words_are_errors_data();
    void surplus_words_are_errors();
};

void TstBuiltinCommands::all_are_registered_under_one_owner()
{
    BuiltinSession session;
    QCOMPARE(session.registry.names(),
             QStringList({u"check"_s, u"echo"_s, u"help"_s, u"history"_s, u"note"_s, u"parameter"_s,
                          u"play"_s, u"quit"_s, u"redo"_s, u"set"_s, u"undo"_s}));
    QCOMPARE(session.registry.remove_owner(u"fennari19"_s), 10);
}

void TstBuiltinCommands::each_has_usage_and_summary()
{
    BuiltinSession session;
    session.registry.remove(u"note"_s);
    for (const QString& name : session.registry.names()) {
        const auto command = session.registry.find(name);
        QVERIFY2(command->usage() == name || command->usage().startsWith(name + u' '), qPrintable(name));
        QVERIFY2(command->summary.endsWith(u'.') && !command->summary.contains(u'\n'), qPrintable(name));
    }
}

void TstBuiltinCommands::taken_names_are_left_to_their_owner()
{
    CommandSession session;
    session.add("echo", [](CommandCall& call) { call.print(u"mine"_s); });
    Playback playback(session.interpreter);
    BuiltinServices services;
    register_builtin_commands(session.interpreter, playback, services);
    session.interpreter.enter(u"echo a"_s);
    QCOMPARE(session.output, u"mine"_s);
}

void TstBuiltinCommands::help_lists_commands_with_summaries()
{
    CommandSession session;
    Playback playback(session.interpreter);
    BuiltinServices services;
    register_builtin_commands(session.interpreter, playback, services);
    for (const QString& name : {u"check"_s, u"echo"_s, u"history"_s, u"note"_s, u"parameter"_s, u"play"_s,
                                u"quit"_s, u"redo"_s, u"set"_s, u"undo"_s})
        session.registry.remove(name);
    session.registry.add({.name = u"cylinder"_s,
                          .summary = u"Makes a cylinder."_s,
                          .perform = [](CommandCall&, const CommandArguments&) {}});
    session.interpreter.enter(u"help"_s);
    QCOMPARE(session.output, u"cylinder  Makes a cylinder.\n"
                             "help      Lists all commands, or explains one.\n"
                             "Type \"help COMMAND\" for more about a command.\n"_s);
}

void TstBuiltinCommands::help_explains_one_command()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"help quit"_s), u"Usage: quit\nEnds the application.\n\n"
                                              "A journal in play is stopped.\n"_s);
    session.registry.add({.name = u"box"_s,
                          .summary = u"Makes a box."_s,
                          .perform = [](CommandCall&, const CommandArguments&) {},
                          .forms = {{.clauses = {required_value({.name = u"SIZE"_s})}}}});
    QCOMPARE(session.printed(u"help box"_s), u"Usage: box SIZE\nMakes a box.\n"_s);
}

void TstBuiltinCommands::help_tells_what_to_expect_of_a_command()
{
    BuiltinSession session;
    session.registry.add({.name = u"fill"_s,
                          .summary = u"Fills it."_s,
                          .help = u"Slowly."_s,
                          .perform = [](CommandCall&, const CommandArguments&) {},
                          .changes_model = true,
                          .long_running = true});
    QCOMPARE(session.printed(u"help fill"_s),
             u"Usage: fill\nFills it.\nIt changes the model. It may take long, and can be cancelled.\n\n"
             "Slowly.\n"_s);
}

void TstBuiltinCommands::help_ends_a_long_text_with_one_line_end()
{
    BuiltinSession session;
    session.registry.add({.name = u"box"_s,
                          .summary = u"S."_s,
                          .help = u"One.\nTwo.\n"_s,
                          .perform = [](CommandCall&, const CommandArguments&) {}});
    QCOMPARE(session.printed(u"help box"_s), u"Usage: box\nS.\n\nOne.\nTwo.\n"_s);
}

void TstBuiltinCommands::help_for_an_unknown_command_suggests_the_nearest()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"help plya"_s),
             u"ERROR: help: column 6: expected a command, found \"plya\"; did you mean \"play\"?\n"_s);
    QCOMPARE(session.result, Result::Failed);
    QCOMPARE(session.printed(u"help cylinder"_s),
             u"ERROR: help: column 6: expected a command, found \"cylinder\"\n"_s);
}

void TstBuiltinCommands::echo_prints_words_with_one_blank()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"echo  a   'b  c' \"\\t\"  # d"_s), u"a b  c \t\n"_s);
    QCOMPARE(session.printed(u"echo"_s), u"\n"_s);
}

void TstBuiltinCommands::set_sets_shows_and_lists()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"set"_s), u""_s);
    QCOMPARE(session.printed(u"set size 1.5"_s), u""_s);
    QCOMPARE(session.printed(u"set name gear wheel"_s), u""_s);
    QCOMPARE(session.printed(u"set none ''"_s), u""_s);
    QCOMPARE(session.printed(u"set size"_s), u"set size 1.5\n"_s);
    QCOMPARE(session.printed(u"set"_s), u"set name \"gear wheel\"\nset none \"\"\nset size 1.5\n"_s);
    QCOMPARE(session.printed(u"echo $name ${size}mm '$size'"_s), u"gear wheel 1.5mm $size\n"_s);
    session.printed(u"set size $size$size"_s);
    QCOMPARE(session.printed(u"echo $size"_s), u"1.51.5\n"_s);
}

void TstBuiltinCommands::set_output_can_be_run_again()
{
    BuiltinSession first;
    const QString odd = u"a\n\"b\" $c \\ 'd' #e\r\t"_s;
    first.interpreter.variables().set(u"odd"_s, odd);
    first.interpreter.variables().set(u"plain"_s, u"1"_s);
    BuiltinSession second;
    QCOMPARE(second.interpreter.run(first.printed(u"set"_s)), Result::Done);
    QCOMPARE(second.interpreter.variables().value(u"odd"), std::optional<QString>(odd));
    QCOMPARE(second.interpreter.variables().value(u"plain"), std::optional<QString>(u"1"_s));
}

void TstBuiltinCommands::set_reports_bad_names_and_unknown_variables()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"set = 5"_s), u"ERROR: set: column 5: expected a name, found \"=\"\n"_s);
    QCOMPARE(session.printed(u"set 1a"_s), u"ERROR: set: column 5: expected a name, found \"1a\"\n"_s);
    QCOMPARE(session.printed(u"set nix"_s), u"ERROR: set: column 5: expected a variable that is set, found "
                                            "\"nix\"; a value behind it would set it\n"_s);
    QVERIFY(session.interpreter.variables().names().isEmpty());
    session.printed(u"set nixe 1"_s);
    QCOMPARE(session.printed(u"set nix"_s), u"ERROR: set: column 5: expected a variable that is set, found "
                                            "\"nix\"; did you mean \"nixe\"?\n"_s);
}

void TstBuiltinCommands::doubling_a_variable_ends_in_an_error()
{
    BuiltinSession session;
    session.printed(u"set a "_s + QString(1 << 20, u'x'));
    int doubled = 0;
    while (session.interpreter.enter(u"set a $a$a"_s) == Result::Done && doubled < 100)
        ++doubled;
    QCOMPARE(doubled, 6);
    QCOMPARE(session.errors, u"ERROR: set: column 9: the variables of this command expand to more than "
                             "67108864 characters\n"_s);
}

void TstBuiltinCommands::history_lists_numbered_lines()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"history"_s), u""_s);
    session.services.history = [] { return QStringList({u"box 1"_s, u"mesh"_s, u"quit"_s}); };
    QCOMPARE(session.printed(u"history"_s), u"1  box 1\n2  mesh\n3  quit\n"_s);
    QCOMPARE(session.printed(u"history 2"_s), u"2  mesh\n3  quit\n"_s);
    QCOMPARE(session.printed(u"history 99"_s), u"1  box 1\n2  mesh\n3  quit\n"_s);
}

void TstBuiltinCommands::history_asks_its_source_each_time()
{
    BuiltinSession session;
    QStringList lines(9, u"x"_s);
    session.services.history = [&lines] { return lines; };
    session.printed(u"history"_s);
    lines << u"y"_s;
    QCOMPARE(session.printed(u"history 2"_s), u" 9  x\n10  y\n"_s);
}

void TstBuiltinCommands::history_wants_a_positive_count()
{
    BuiltinSession session;
    const QString expected =
        u"ERROR: history: column 9: expected how many lines (a whole number from 1 on) or "_s;
    QCOMPARE(session.printed(u"history 0"_s), expected + u"\"steps\", found \"0\"\n"_s);
    QCOMPARE(session.printed(u"history all"_s), u"ERROR: history: column 9: expected how many lines (a whole "
                                                u"number from 1 on), \"steps\" or the end of the "
                                                "line, found \"all\"\n"_s);
}

void TstBuiltinCommands::play_plays_a_file()
{
    BuiltinSession session;
    QTemporaryDir directory;
    QFile file(directory.filePath(u"my tour.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("note a\nnote b\n");
    file.close();
    QCOMPARE(session.printed(u"play "_s + quote_word(file.fileName())), u""_s);
    QCOMPARE(session.result, Result::Done);
    QCOMPARE(session.notes, QStringList({u"a"_s, u"b"_s}));
}

void TstBuiltinCommands::play_reports_its_arguments()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"play"_s),
             u"ERROR: play: column 5: expected a file, found the end of the line\n"_s);
    QCOMPARE(session.printed(u"play ''"_s), u"ERROR: play: column 6: expected a file, found \"\"\n"_s);
    QCOMPARE(session.printed(u"play /no/such.jou"_s), u"ERROR: play: \"/no/such.jou\" does not exist\n"_s);
    QCOMPARE(session.result, Result::Failed);
}

void TstBuiltinCommands::quit_asks_the_application()
{
    BuiltinSession session;
    int asked = 0;
    session.services.quit = [&asked] { ++asked; };
    QCOMPARE(session.printed(u"quit"_s), u""_s);
    QCOMPARE(asked, 1);
    QCOMPARE(session.result, Result::Done);
}

void TstBuiltinCommands::quit_without_application_is_an_error()
{
    BuiltinSession session;
    QCOMPARE(session.printed(u"quit"_s), u"ERROR: quit: there is no application to end\n"_s);
}

void TstBuiltinCommands::quit_stops_the_journal_that_says_it()
{
    BuiltinSession session;
    session.services.quit = [] {};
    QCOMPARE(session.playback.play_lines({u"note a"_s, u"quit"_s, u"note b"_s}, u"x.jou"_s),
             Playback::Outcome::Stopped);
    QCOMPARE(session.notes, QStringList(u"a"_s));
}

void TstBuiltinCommands::surplus_words_are_errors_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const QString end = u"the end of the line"_s;
    QTest::newRow("help") << u"help echo !"_s << end;
    QTest::newRow("history") << u"history 1 !"_s << end;
    QTest::newRow("play") << u"play a.jou 1 !"_s << u"\"with\" or the end of the line"_s;
    QTest::newRow("quit") << u"quit !"_s << end;
}

void TstBuiltinCommands::surplus_words_are_errors()
{
    QFETCH(QString, line);
    QFETCH(QString, expected);
    BuiltinSession session;
    bool quitted = false;
    session.services.quit = [&quitted] { quitted = true; };
    const QString printed = session.printed(line);
    QVERIFY2(printed.endsWith(u": column %1: expected %2, found \"!\"\n"_s.arg(line.size()).arg(expected)),
             qPrintable(printed));
    QCOMPARE(printed.count(u'\n'), 1);
    QVERIFY(!quitted);
}

OSTREL_TEST(TstBuiltinCommands)
#include "tst_builtincommands.moc"
