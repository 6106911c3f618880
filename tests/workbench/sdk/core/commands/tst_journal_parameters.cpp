// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"
#include "workbench/sdk/core/commands/check_journal.h"
#include "workbench/sdk/core/commands/complete_command.h"
#include "workbench/sdk/core/commands/journal_parameters.h"

#include <QTest>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;
using Outcome = Playback::Outcome;

namespace {

struct ParameterSession : CommandSession
{
    ParameterSession() { register_builtin_commands(interpreter, playback, services); }

    Playback playback{interpreter};
    BuiltinServices services;
};

const QByteArray part = "# A part.\n"
                        "parameter size number 2 min 0.1 max 10 unit mm about 'Length of an edge'\n"
                        "parameter count whole 3 min 1\n"
                        "\n"
                        "parameter label text 'gear wheel'\n"
                        "parameter method choice fine of 'fine coarse'\n"
                        "parameter twice number $size\n"
                        "note $size $count $label $method $twice\n";

} // namespace

/** Journals that declare parameters, and values for them. */
class TstJournalParameters : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override { mSession = std::make_unique<ParameterSession>(); }
    void tear_down() override { mSession.reset(); }

private slots:
    void journal_plays_with_its_defaults();
    void values_take_the_place_of_defaults();
    void default_is_not_what_was_set_before();
    void wrong_values_are_refused_before_any_line_runs_data();
    void wrong_values_are_refused_before_any_line_runs();
    void values_for_a_script_are_refused();
    void parameters_are_told_with_their_values();
    void play_takes_values_data();
    void play_takes_values();
    void inner_journal_has_parameters_of_its_own();
    void wrong_declarations_are_errors_data();
    void wrong_declarations_are_errors();
    void wrong_declaration_refuses_values();
    void declaration_runs_on_the_console();
    void lines_that_are_played_declare_parameters();
    void settings_are_read_data();
    void settings_are_read();
    void completion_knows_declaration_and_parameters_data();
    void completion_knows_declaration_and_parameters();

private:
    std::unique_ptr<ParameterSession> mSession;
};

void TstJournalParameters::journal_plays_with_its_defaults()
{
    QCOMPARE(mSession->playback.play(write_temp(u"part.jou"_s, part)), Outcome::Played);
    QCOMPARE(mSession->take_errors(), QString());
    QCOMPARE(mSession->take_notes(), QStringList(u"2|3|gear wheel|fine|2"_s));
}

void TstJournalParameters::values_take_the_place_of_defaults()
{
    const QString path = write_temp(u"part.jou"_s, part);
    QCOMPARE(mSession->playback.play(path, 1,
                                     {{u"method"_s, u"coarse"_s},
                                      {u"size"_s, u"0.5"_s},
                                      {u"label"_s, u"a $b \" c"_s},
                                      {u"count"_s, u"7"_s}}),
             Outcome::Played);
    QCOMPARE(mSession->take_errors(), QString());
    QCOMPARE(mSession->take_notes(), QStringList(u"0.5|7|a $b \" c|coarse|0.5"_s));
}

void TstJournalParameters::default_is_not_what_was_set_before()
{
    const QString path = write_temp(u"part.jou"_s, "parameter size number 2\nnote $size\nset size 9\n");
    QCOMPARE(mSession->playback.play(path, 1, {{u"size"_s, u"5"_s}}), Outcome::Played);
    QCOMPARE(mSession->playback.play(path), Outcome::Played);
    QCOMPARE(mSession->take_notes(), (QStringList{u"5"_s, u"2"_s}));
}

void TstJournalParameters::wrong_values_are_refused_before_any_line_runs_data()
{
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("error");
    QTest::newRow("no number") << QStringList{u"size=big"_s}
                               << u"size: expected size (a number from 0.1 to 10), found \"big\""_s;
    QTest::newRow("empty") << QStringList{u"size="_s}
                           << u"size: expected size (a number from 0.1 to 10), found \"\""_s;
    QTest::newRow("below the range") << QStringList{u"size=0"_s}
                                     << u"size: expected size (a number from 0.1 to 10), found \"0\""_s;
    QTest::newRow("above the range") << QStringList{u"size=10.5"_s}
                                     << u"size: expected size (a number from 0.1 to 10), found \"10.5\""_s;
    QTest::newRow("not whole") << QStringList{u"count=1.5"_s}
                               << u"count: expected count (a whole number from 1 on), found \"1.5\""_s;
    QTest::newRow("not a choice") << QStringList{u"method=rough"_s}
                                  << u"method: expected \"fine\" or \"coarse\", found \"rough\""_s;
    QTest::newRow("unknown") << QStringList{u"sise=2"_s}
                             << u"\"part.jou\" has no parameter \"sise\"; did you mean \"size\"?"_s;
    QTest::newRow("a variable, not a parameter")
        << QStringList{u"free=2"_s} << u"\"part.jou\" has no parameter \"free\""_s;
    QTest::newRow("twice") << QStringList{u"size=2"_s, u"count=2"_s, u"size=2"_s}
                           << u"a value for \"size\" is given twice"_s;
    QTest::newRow("one of several") << QStringList{u"count=2"_s, u"label=x"_s, u"size=-1"_s}
                                    << u"size: expected size (a number from 0.1 to 10), found \"-1\""_s;
}

void TstJournalParameters::wrong_values_are_refused_before_any_line_runs()
{
    QFETCH(const QStringList, settings);
    QFETCH(const QString, error);
    QList<JournalSetting> values;
    for (const QString& setting : settings)
        values << read_setting(setting).value();
    mSession->interpreter.variables().set(u"free"_s, u"1"_s);
    QByteArray text = part;
    text.replace("# A part.\n", "parameter begun text yes\n");
    const QString other = write_temp(u"part.jou"_s, text);
    QCOMPARE(mSession->playback.play(other, 1, values), Outcome::Refused);
    QVERIFY2(mSession->errors.startsWith("ERROR: "_L1), qPrintable(mSession->errors));
    QString told = mSession->take_errors();
    told.replace(other, u"part.jou"_s);
    QVERIFY2(told.contains(error), qPrintable(told));
    QCOMPARE(mSession->take_notes(), QStringList());
    QVERIFY(!mSession->interpreter.variables().value(u"begun"));
}

void TstJournalParameters::values_for_a_script_are_refused()
{
    bool ran = false;
    mSession->playback.set_python_hook([&ran](const Playback::PythonScript&) { return ran = true; });
    const QString path = write_temp(u"part.py"_s, "parameter size number 2\n");
    QCOMPARE(mSession->playback.play(path, 1, {{u"size"_s, u"2"_s}}), Outcome::Refused);
    QCOMPARE(mSession->take_errors(),
             u"ERROR: \"%1\" is a Python script, which has no parameters\n"_s.arg(path));
    QVERIFY(!ran);
    QCOMPARE(mSession->playback.play(path), Outcome::Played);
    QVERIFY(ran);
}

void TstJournalParameters::parameters_are_told_with_their_values()
{
    mSession->playback.play(write_temp(u"part.jou"_s, part), 1, {{u"count"_s, u"5"_s}});
    QStringList told;
    for (const auto& [parameter, value] : mSession->playback.parameters())
        told << parameter.name + u'=' + value;
    QCOMPARE(told,
             (QStringList{u"size=2"_s, u"count=5"_s, u"label=gear wheel"_s, u"method=fine"_s, u"twice=2"_s}));
    QCOMPARE(mSession->playback.parameters()[0].first.unit, u"mm"_s);
    mSession->playback.play(write_temp(u"none.jou"_s, "note\n"));
    QCOMPARE(mSession->playback.parameters().size(), 0);
}

void TstJournalParameters::play_takes_values_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("notes");
    QTest::addColumn<QString>("error");
    const QStringList none;
    QTest::newRow("none") << u"play %1"_s << QStringList(u"2|a b"_s) << QString();
    QTest::newRow("one") << u"play %1 with size=3"_s << QStringList(u"3|a b"_s) << QString();
    QTest::newRow("two, quoted") << u"play %1 with 'label=x  y' size=4"_s << QStringList(u"4|x  y"_s)
                                 << QString();
    QTest::newRow("from a variable") << u"play %1 with size=$big"_s << QStringList(u"8|a b"_s) << QString();
    QTest::newRow("wrong value") << u"play %1 with size=x"_s << none
                                 << u"inner.jou:1: size: expected size (a number), found \"x\""_s;
    QTest::newRow("not a setting") << u"play %1 with size=1 fast"_s << none
                                   << u"expected a parameter and its value as NAME=VALUE, found \"fast\""_s;
    QTest::newRow("no name") << u"play %1 with =1"_s << none << u"as NAME=VALUE, found \"=1\""_s;
    QTest::newRow("line and value") << u"play %1 3 with size=1"_s << none
                                    << u"column %1: only a journal that is played from line 1 takes values"_s;
}

void TstJournalParameters::play_takes_values()
{
    QFETCH(const QString, line);
    QFETCH(const QStringList, notes);
    QFETCH(const QString, error);
    mSession->interpreter.variables().set(u"big"_s, u"8"_s);
    const QString path = write_temp(
        u"inner.jou"_s, "parameter size number 2\nparameter label text 'a b'\nnote $size $label\n");
    const auto result = mSession->interpreter.enter(line.arg(path));
    QCOMPARE(result == CommandInterpreter::Result::Done, error.isEmpty());
    QCOMPARE(mSession->take_notes(), notes);
    const QString expected = error.contains("%1"_L1) ? error.arg(path.size() + 9) : error;
    QVERIFY2(mSession->errors.contains(expected), qPrintable(mSession->errors));
    QCOMPARE(mSession->take_errors().isEmpty(), error.isEmpty());
}

void TstJournalParameters::inner_journal_has_parameters_of_its_own()
{
    const QString inner = write_temp(u"inner.jou"_s, "parameter size number 1\nnote inner $size\n");
    const QString outer = write_temp(
        u"outer.jou"_s, u"parameter size number 2\nplay %1\nplay %1 with size=$size\n"_s.arg(inner).toUtf8());
    QCOMPARE(mSession->playback.play(outer, 1, {{u"size"_s, u"7"_s}}), Outcome::Played);
    // The variable is one for all journals.
    QCOMPARE(mSession->take_notes(), (QStringList{u"inner|1"_s, u"inner|1"_s}));
    QCOMPARE(mSession->playback.parameters()[0].second, u"7"_s);
}

void TstJournalParameters::wrong_declarations_are_errors_data()
{
    QTest::addColumn<QByteArray>("journal");
    QTest::addColumn<QString>("error");
    QTest::newRow("behind a command")
        << QByteArray("note\nparameter size number 2\n")
        << u"2: parameter: column 1: parameters are declared at the beginning of a journal, "
           "ahead of other commands"_s;
    QTest::newRow("twice") << QByteArray("parameter size number 2\n\nparameter size text 2\n")
                           << u"3: parameter: column 11: \"size\" is declared already"_s;
    QTest::newRow("no name") << QByteArray("parameter 2size number 2\n")
                             << u"1: parameter: column 11: expected a name, found \"2size\""_s;
    QTest::newRow("no type")
        << QByteArray("parameter size 2\n")
        << u"1: parameter: column 16: expected \"number\", \"whole\", \"text\" or \"choice\", found \"2\""_s;
    QTest::newRow("no default")
        << QByteArray("parameter size number\n")
        << u"1: parameter: column 22: expected a default (a number), found the end of the line"_s;
    QTest::newRow("default of another type")
        << QByteArray("parameter size number big\n")
        << u"1: parameter: column 23: expected a default (a number), found \"big\""_s;
    QTest::newRow("default out of range")
        << QByteArray("parameter size number 2 min 3\n")
        << u"1: parameter: column 23: expected size (a number from 3 on), found \"2\""_s;
    QTest::newRow("default that is no choice")
        << QByteArray("parameter method choice rough of 'fine coarse'\n")
        << u"1: parameter: column 25: expected \"fine\" or \"coarse\", found \"rough\""_s;
    QTest::newRow("no choices") << QByteArray("parameter method choice fine of ''\n")
                                << u"1: parameter: column 33: there is nothing to choose from"_s;
    QTest::newRow("range without numbers")
        << QByteArray("parameter size number 2 max 1 min 3\n")
        << u"1: parameter: column 29: the maximum is less than the minimum"_s;
    QTest::newRow("range of a text")
        << QByteArray("parameter name text a min 1\n")
        << u"1: parameter: column 23: expected \"about\" or the end of the line"_s;
}

void TstJournalParameters::wrong_declarations_are_errors()
{
    QFETCH(const QByteArray, journal);
    QFETCH(const QString, error);
    const QString path = write_temp(u"part.jou"_s, journal);
    QCOMPARE(mSession->playback.play(path), Outcome::Failed);
    const QString told = mSession->take_errors();
    QVERIFY2(told.startsWith(u"ERROR: "_s + path + u':' + error), qPrintable(told));
    QStringList faults;
    for (const JournalFault& fault :
         check_journal(QString::fromUtf8(journal), mSession->registry, CommandVariables()))
        faults << QString::number(fault.line) + ": "_L1 + fault.message;
    QCOMPARE(faults.size(), 1);
    QVERIFY2(faults.first().startsWith(error), qPrintable(faults.first()));
}

void TstJournalParameters::wrong_declaration_refuses_values()
{
    const QString path = write_temp(u"part.jou"_s, "parameter a number 1\nparameter b number x\nnote\n");
    QCOMPARE(mSession->playback.play(path, 1, {{u"a"_s, u"2"_s}}), Outcome::Refused);
    QCOMPARE(mSession->take_errors(),
             u"ERROR: %1:2: expected a default (a number), found \"x\"\n"_s.arg(path));
    QVERIFY(!mSession->interpreter.variables().value(u"a"));
}

void TstJournalParameters::declaration_runs_on_the_console()
{
    QCOMPARE(mSession->interpreter.enter(u"parameter size number 2"_s), CommandInterpreter::Result::Done);
    QCOMPARE(mSession->interpreter.enter(u"parameter size number 3"_s), CommandInterpreter::Result::Done);
    QCOMPARE(mSession->interpreter.variables().value(u"size"), u"3"_s);
}

void TstJournalParameters::lines_that_are_played_declare_parameters()
{
    QCOMPARE(mSession->playback.play_lines({u"parameter size number 2"_s, u"note $size"_s}, u"a.jou"_s),
             Outcome::Played);
    QCOMPARE(mSession->take_notes(), QStringList(u"2"_s));
}

void TstJournalParameters::settings_are_read_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("right");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << u"size=2"_s << true << u"size"_s << u"2"_s;
    QTest::newRow("empty value") << u"size="_s << true << u"size"_s << QString();
    QTest::newRow("equal sign in the value") << u"a=b=c"_s << true << u"a"_s << u"b=c"_s;
    QTest::newRow("no sign") << u"size"_s << false << QString() << QString();
    QTest::newRow("no name") << u"=2"_s << false << QString() << QString();
    QTest::newRow("no variable") << u"2a=2"_s << false << QString() << QString();
}

void TstJournalParameters::settings_are_read()
{
    QFETCH(const QString, text);
    QFETCH(const bool, right);
    QFETCH(const QString, name);
    QFETCH(const QString, value);
    const std::optional<JournalSetting> setting = read_setting(text);
    QCOMPARE(setting.has_value(), right);
    QCOMPARE(setting.value_or(JournalSetting()).name, name);
    QCOMPARE(setting.value_or(JournalSetting()).value, value);
}

void TstJournalParameters::completion_knows_declaration_and_parameters_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("candidates");
    QTest::newRow("types") << u"parameter size "_s
                           << QStringList{u"choice"_s, u"number"_s, u"text"_s, u"whole"_s};
    QTest::newRow("what a number may have")
        << u"parameter size number 2 m"_s << QStringList{u"max"_s, u"min"_s};
    QTest::newRow("keyword of values") << u"play %1 w"_s << QStringList{u"with"_s};
    QTest::newRow("parameters") << u"play %1 with "_s
                                << QStringList{u"count="_s, u"label="_s, u"method="_s, u"size="_s,
                                               u"twice="_s};
    QTest::newRow("parameters that have no value")
        << u"play %1 with count=2 size=1 "_s << QStringList{u"label="_s, u"method="_s, u"twice="_s};
    QTest::newRow("one that was begun") << u"play %1 with si"_s << QStringList{u"size="_s};
    QTest::newRow("no such journal") << u"play none.jou with "_s << QStringList();
}

void TstJournalParameters::completion_knows_declaration_and_parameters()
{
    QFETCH(const QString, line);
    QFETCH(const QStringList, candidates);
    const QString path = write_temp(u"part.jou"_s, part);
    const QString typed = line.contains("%1"_L1) ? line.arg(path) : line;
    const LineCompletion completion =
        complete_command(typed, typed.size(), mSession->registry, mSession->interpreter.variables());
    QStringList shown;
    for (const LineCompletion::Candidate& candidate : completion.candidates)
        shown << candidate.shown;
    QCOMPARE(shown, candidates);
    // The value is to follow.
    QVERIFY(!completion.followed || !shown.value(0).endsWith(u'='));
}

OSTREL_TEST(TstJournalParameters)
#include "tst_journal_parameters.moc"
