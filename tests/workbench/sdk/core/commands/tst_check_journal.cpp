// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"
#include "workbench/sdk/core/commands/check_journal.h"

#include <QTest>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

class TstCheckJournal : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void faults_are_told_by_line_data();
    void faults_are_told_by_line();
    void nothing_runs();
    void variables_at_the_start_are_known();
    void command_tells_the_faults_of_a_file();
    void command_tells_that_there_are_none();
    void file_that_is_no_journal_is_told_data();
    void file_that_is_no_journal_is_told();

private:
    /** "LINE: MESSAGE" of each fault. */
    QStringList faults(const QString& text);

    std::unique_ptr<CommandSession> mSession;
    std::unique_ptr<Playback> mPlayback;
    BuiltinServices mServices;
    int mRuns = 0;
};

void TstCheckJournal::set_up()
{
    mRuns = 0;
    mSession = std::make_unique<CommandSession>();
    mPlayback = std::make_unique<Playback>(mSession->interpreter);
    register_builtin_commands(mSession->interpreter, *mPlayback, mServices);
    mSession->registry.add(
        {.name = u"ball"_s,
         .perform = [this](CommandCall&, const CommandArguments&) { ++mRuns; },
         .forms = {
             {.clauses = {required_value({.name = u"RADIUS"_s, .kind = Kind::Number, .least = 1}),
                          {.keyword = u"name"_s,
                           .parameters = {{.name = u"NAME"_s, .kind = Kind::NewName, .entity = u"ball"_s}},
                           .optional = true}}}}});
    mSession->registry.add(
        {.name = u"roll"_s,
         .perform = [this](CommandCall&, const CommandArguments&) { ++mRuns; },
         .forms = {
             {.clauses = {required_value(
                  {.name = u"BALL"_s, .kind = Kind::Entity, .entity = u"ball"_s, .repeated = true})}}}});
    const auto nothing = [](CommandCall&, const CommandArguments&) {};
    mSession->registry.add({.name = u"find"_s, .perform = nothing, .makes = {u"ball"_s}});
    mSession->registry.add(
        {.name = u"unlock"_s,
         .perform = nothing,
         .forms = {
             {.clauses = {required_value({.name = u"DOOR"_s, .kind = Kind::Entity, .entity = u"door"_s})}}}});
    mSession->registry.add({.name = u"burst"_s,
                            .perform = nothing,
                            .forms = {{.clauses = {required_value({.name = u"BALL"_s,
                                                                   .kind = Kind::Entity,
                                                                   .choices = {u"all"_s},
                                                                   .entity = u"ball"_s,
                                                                   .repeated = true})}}},
                            .changes_model = true});
    mSession->registry.add({.name = u"glue"_s,
                            .perform = nothing,
                            .forms = {{.clauses = {required_value({.name = u"BALL"_s,
                                                                   .kind = Kind::Entity,
                                                                   .choices = {u"all"_s},
                                                                   .all = u"all"_s,
                                                                   .entity = u"ball"_s,
                                                                   .repeated = true,
                                                                   .at_least = 2,
                                                                   .distinct = true}),
                                                   {.keyword = u"to"_s,
                                                    .parameters = {{.name = u"BALL"_s,
                                                                    .kind = Kind::Entity,
                                                                    .entity = u"ball"_s,
                                                                    .distinct = true}},
                                                    .optional = true}}}},
                            .changes_model = true});
    mSession->registry.add({.name = u"clear"_s, .perform = nothing, .changes_model = true});
    mSession->registry.add({.name = u"bring"_s,
                            .perform = nothing,
                            .forms = {{.clauses = {required_value({.name = u"WHAT"_s})}}},
                            .makes = {u"command"_s}});
    for (const QString& kind : {u"ball"_s, u"door"_s})
        mSession->registry.entities().offer(kind, u"test"_s, [] { return QStringList(u"here"_s); });
}

void TstCheckJournal::tear_down()
{
    mPlayback.reset();
    mSession.reset();
}

QStringList TstCheckJournal::faults(const QString& text)
{
    QStringList found;
    for (const JournalFault& fault :
         check_journal(text, mSession->registry, mSession->interpreter.variables()))
        found << u"%1: %2"_s.arg(fault.line).arg(fault.message);
    return found;
}

void TstCheckJournal::faults_are_told_by_line_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QString& text, const QStringList& expected) {
        QTest::newRow(name) << text << expected;
    };
    const QString radius = u"expected RADIUS (a number from 1 on), found "_s;
    const QString taken = u"%1: ball: column 13: there is a ball \"b\" already"_s;
    row("empty", {}, {});
    row("all right", u"# a comment\n\nball 5 name b\r\nroll b # it\n"_s, {});
    row("each wrong line", u"ball\nball 2\nball x"_s,
        {u"1: ball: column 5: "_s + radius + u"the end of the line"_s,
         u"3: ball: column 6: "_s + radius + u"\"x\""_s});
    row("no such command", u"\nbal 2\n"_s,
        {u"2: bal: column 1: expected a command, found \"bal\"; did you mean \"ball\"?"_s});
    row("nothing for names", u"roll\n"_s, {u"1: roll: column 5: expected BALL, found the end of the line"_s});
    const QString there = u"; there are \"here\" and \"b\""_s;
    row("name of nothing", u"roll here\nroll nobody\n"_s,
        {u"2: roll: column 6: expected BALL, found \"nobody\"; there is \"here\""_s});
    row("names are followed", u"ball 1 name b\nroll b here\nroll c\n"_s,
        {u"3: roll: column 6: expected BALL, found \"c\""_s + there});
    row("numbers are not known", u"roll 7\n"_s, {});
    row("number of nothing", u"roll 0\n"_s,
        {u"1: roll: column 6: expected BALL, found \"0\"; there is \"here\""_s});
    row("name is there", u"ball 1 name here\nball 1 name b\nball 1 name b\n"_s, {taken.arg(3)});
    row("name may be free again", u"ball 1 name b\nroll b\nburst b\nball 1 name b\n"_s, {});
    row("name of another is not", u"ball 1 name b\nball 1 name c\nburst c\nball 1 name b\n"_s,
        {taken.arg(4)});
    row("number may be any", u"ball 1 name b\nburst 7\nball 1 name b\n"_s, {});
    row("all may be free again", u"ball 1 name b\nburst all\nball 1 name b\n"_s, {});
    row("all without a word may be free again", u"ball 1 name b\nclear\nball 1 name b\n"_s, {});
    row("others may have freed a name", u"ball 1 name b\nplay other.jou\nball 1 name b\n"_s, {});
    row("wrong line may have freed a name", u"ball 1 name b\nburst b c\nball 1 name b\n"_s,
        {u"2: burst: column 9: expected BALL, found \"c\"; there are \"here\" and \"b\""_s});
    row("what has no name may have any", u"ball 1\nroll nobody\n"_s, {});
    row("others may be found", u"find\nroll nobody\n"_s, {});
    row("others may be made", u"play other.jou\nroll nobody\n"_s, {});
    row("wrong line may have given a name", u"ball x name b\nroll b\n"_s,
        {u"1: ball: column 6: "_s + radius + u"\"x\""_s});
    row("unknown line may have given a name", u"boll 1 name b\nroll b\n"_s,
        {u"1: boll: column 1: expected a command, found \"boll\"; did you mean \"ball\"?"_s});
    row("wrong line that gives no names", u"roll\nroll b\n"_s,
        {u"1: roll: column 5: expected BALL, found the end of the line"_s,
         u"2: roll: column 6: expected BALL, found \"b\"; there is \"here\""_s});
    row("names of kinds that are not given", u"help echa\nunlock nobody\nunlock here\n"_s,
        {u"1: help: column 6: expected a command, found \"echa\"; did you mean \"echo\"?"_s,
         u"2: unlock: column 8: expected DOOR, found \"nobody\"; there is \"here\""_s});
    row("commands may come", u"bring balls\nthrow 1\nhelp throw\nball x\n"_s,
        {u"4: ball: column 6: "_s + radius + u"\"x\""_s});
    row("wrong line may have brought commands", u"bring\nthrow 1\n"_s,
        {u"1: bring: column 6: expected WHAT, found the end of the line"_s});
    row("no commands come by a journal", u"play other.jou\nbal 1\n"_s,
        {u"2: bal: column 1: expected a command, found \"bal\"; did you mean \"ball\"?"_s});
    row("what is no name", u"ball 1 name 5x\n"_s,
        {u"1: ball: column 13: expected NAME (a letter, then letters, digits, \"_\", \"-\" and \".\"), found \"5x\""_s});
    row("quotes", u"ball 'x\nball 1\n"_s,
        {u"1: ball: column 6: expected a closing single quote, found the end of the line"_s});
    row("continued", u"ball \\\n  1 name \\\n  b c\n"_s,
        {u"3: ball: column 5: expected the end of the line, found \"c\""_s});
    row("last line is continued", u"ball 1 \\\n"_s,
        {u"1: column 8: expected another line behind the backslash, found the end of the text"_s});
    row("variables are followed", u"set r 5\nball $r\nset r x\nball $r\n"_s,
        {u"4: ball: column 6: "_s + radius + u"\"x\""_s});
    row("unknown variable", u"ball $r\n"_s, {u"1: ball: column 6: unknown variable \"r\""_s});
    const QString unset = u"%1: set: column 5: expected a variable that is set, found \"r\"; %2"_s;
    row("unset variable to be shown", u"set q 1\nset q\nset r\nset r 1\nset r\nset\n"_s,
        {unset.arg(3).arg(u"there is \"q\""_s)});
    row("no variable to be shown", u"set r\n"_s, {unset.arg(1).arg(u"a value behind it would set it"_s)});
    row("others may set the variable that is shown", u"play other.jou\nset r\n"_s, {});
    row("parameter that is shown", u"parameter r number 1\nset r\n"_s, {});
    const QString few = u"%1: glue: column 6: at least 2 are needed, and \"all\" stands for 1"_s;
    row("all are too few", u"glue all\n"_s, {few.arg(1)});
    row("all are enough", u"ball 1 name b\nglue all\n"_s, {});
    row("all may be enough without a name", u"ball 1\nglue all\n"_s, {});
    row("all may be enough by others", u"play other.jou\nglue all\n"_s, {});
    row("named by another value", u"ball 1 name b\nglue here b to here\n"_s,
        {u"2: glue: column 16: \"here\" was named already"_s});
    row("values that do not go together", u"play a.jou 2 with b=1\nplay a.jou with b\ncheck a.py\n"_s,
        {u"1: play: column 14: only a journal that is played from line 1 takes values"_s,
         u"2: play: column 17: expected a parameter and its value as NAME=VALUE, found \"b\""_s,
         u"3: check: column 7: a Python script cannot be checked"_s});
    row("others may set variables", u"play other.jou\nball $r\nball x\n"_s,
        {u"3: ball: column 6: "_s + radius + u"\"x\""_s});
}

void TstCheckJournal::faults_are_told_by_line()
{
    QFETCH(const QString, text);
    QTEST(faults(text), "expected");
}

void TstCheckJournal::nothing_runs()
{
    QCOMPARE(faults(u"ball 1\nroll b\nset q 1\n"_s), QStringList());
    QCOMPARE(mRuns, 0);
    QVERIFY(!mSession->interpreter.variables().value(u"q"_s));
}

void TstCheckJournal::variables_at_the_start_are_known()
{
    mSession->interpreter.run(u"set r 7"_s);
    QCOMPARE(faults(u"ball $r\n"_s), QStringList());
}

void TstCheckJournal::command_tells_the_faults_of_a_file()
{
    const QString file = write_temp(u"part.jou"_s, "ball 1\nball\n\nroll\n");
    QCOMPARE(mSession->interpreter.run(u"check "_s + quote_word(file)), CommandInterpreter::Result::Failed);
    QCOMPARE(mSession->take_errors(),
             u"ERROR: %1:2: ball: column 5: expected RADIUS (a number from 1 on), found the end of the line\n"
             "ERROR: %1:4: roll: column 5: expected BALL, found the end of the line\n"_s.arg(file));
    QCOMPARE(mRuns, 0);
}

void TstCheckJournal::command_tells_that_there_are_none()
{
    const QString file = write_temp(u"part.jou"_s, "ball 1\n");
    QCOMPARE(mSession->interpreter.run(u"check "_s + quote_word(file)), CommandInterpreter::Result::Done);
    QCOMPARE(mSession->take_output(), u"No errors were found.\n"_s);
}

void TstCheckJournal::file_that_is_no_journal_is_told_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    QTest::newRow("python by name") << u"a.py"_s << QByteArray("x = 1\n")
                                    << u"a Python script cannot be checked"_s;
    QTest::newRow("python by its first line")
        << u"a.jou"_s << QByteArray("#!python\n") << u"a.jou\" is a Python script, which cannot be checked"_s;
    QTest::newRow("binary") << u"a.jou"_s << QByteArray("a\0b", 3) << u"is not a text file"_s;
    QTest::newRow("not UTF-8") << u"a.jou"_s << QByteArray("ball 1\n\xff\n") << u"is not UTF-8 on line 2"_s;
    QTest::newRow("missing") << u""_s << QByteArray() << u"does not exist"_s;
}

void TstCheckJournal::file_that_is_no_journal_is_told()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, message);
    const QString file = name.isEmpty() ? temp_path(u"missing.jou"_s) : write_temp(name, content);
    QCOMPARE(mSession->interpreter.run(u"check "_s + quote_word(file)), CommandInterpreter::Result::Failed);
    const QString errors = mSession->take_errors();
    QVERIFY2(errors.startsWith("ERROR: check: "_L1) && errors.contains(message), qPrintable(errors));
}

OSTREL_TEST(TstCheckJournal)
#include "tst_check_journal.moc"
