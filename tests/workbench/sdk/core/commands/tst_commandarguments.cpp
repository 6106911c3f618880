// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/check_journal.h"
#include "workbench/sdk/core/commands/complete_command.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

const QStringList things{u"plate"_s, u"pin"_s, u"drill"_s};

/** "make SIZE [A B] on|off [THING...]", then "at X Y", "name NAME" and "fast", or "make from FILE TEXT" */
QList<CommandSyntax> forms()
{
    const auto number = [](const QString& name, const QString& value = {}) {
        return CommandParameter{
            .name = name, .kind = Kind::Number, .default_value = value, .least = -10, .most = 10};
    };
    const CommandParameter thing{.name = u"THING"_s,
                                 .kind = Kind::Entity,
                                 .what = u"a thing"_s,
                                 .choices = {u"all"_s},
                                 .entity = u"thing"_s,
                                 .by_number = true,
                                 .repeated = true,
                                 .distinct = true};
    return {
        {.clauses =
             {required_value({.name = u"SIZE"_s, .kind = Kind::Number, .what = u"a size"_s, .least = 1}),
              {.parameters = {{.name = u"A"_s, .kind = Kind::WholeNumber, .least = 1, .most = 9},
                              {.name = u"B"_s, .kind = Kind::WholeNumber}},
               .optional = true},
              required_value({.name = u"STATE"_s, .kind = Kind::Choice, .choices = {u"on"_s, u"off"_s}}),
              optional_value(thing),
              {.keyword = u"at"_s,
               .parameters = {number(u"X"_s, u"1"_s), number(u"Y"_s, u"2"_s)},
               .optional = true,
               .not_zero = true},
              {.keyword = u"name"_s,
               .parameters = {{.name = u"NAME"_s,
                               .kind = Kind::NewName,
                               .what = u"a name"_s,
                               .entity = u"thing"_s,
                               .reserved = {u"at"_s, u"name"_s, u"fast"_s}}},
               .optional = true},
              {.keyword = u"fast"_s, .optional = true}}},
        {.clauses = {{.keyword = u"from"_s,
                      .parameters = {{.name = u"FILE"_s, .kind = Kind::InputFile, .what = u"a file"_s}}},
                     required_value({.name = u"TEXT"_s, .kind = Kind::Words})}},
    };
}

} // namespace

class TstCommandArguments : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override { mSession.reset(); }

private slots:
    void values_go_by_keyword_or_name();
    void keywords_come_in_any_order();
    void what_is_left_out_has_its_default();
    void several_values_are_told_in_their_order();
    void entities_may_be_told_by_number();
    void way_to_write_it_is_told();
    void words_tell_where_values_are();
    void errors_tell_column_and_remedy_data();
    void errors_tell_column_and_remedy();
    void command_that_is_wrong_is_not_performed();
    void command_needs_a_form_to_be_performed();
    void variable_in_a_form_stands_for_a_number();
    void random_lines_are_read_as_they_were_made();
    void random_texts_are_read_as_they_were_made();
    void way_that_was_meant_is_told_with_the_others();
    void value_behind_one_that_is_left_out_is_wrong();
    void names_that_nobody_offers_may_be_any();
    void word_may_stand_for_a_name();
    void names_that_cannot_be_told_are_none();
    void values_that_do_not_go_together_are_told_everywhere_data();
    void values_that_do_not_go_together_are_told_everywhere();
    void what_is_not_declared_cannot_be_asked_for();

private:
    /** The arguments of a line that is right. */
    CommandArguments read(const QString& line);

    std::unique_ptr<CommandSession> mSession;
    QList<CommandSyntax> mForms;
    CommandWords mWords;
};

void TstCommandArguments::set_up()
{
    mSession = std::make_unique<CommandSession>();
    mForms = forms();
    mSession->registry.entities().offer(
        u"thing"_s, u"test"_s, [] { return things; },
        [](const QString& word) { return things.value(word.toInt() - 1); });
}

CommandArguments TstCommandArguments::read(const QString& line)
{
    mWords = tokenize(line);
    return CommandArguments(mWords, mForms, &mSession->registry.entities());
}

void TstCommandArguments::values_go_by_keyword_or_name()
{
    const CommandArguments arguments = read(u"make 2.5 3 -4 off plate at 5 6 name base fast"_s);
    QCOMPARE(arguments.number("SIZE"_L1), 2.5);
    QCOMPARE(arguments.integer("A"_L1), 3);
    QCOMPARE(arguments.integer("B"_L1), -4);
    QCOMPARE(arguments.text("STATE"_L1), u"off"_s);
    QCOMPARE(arguments.texts("THING"_L1), QStringList(u"plate"_s));
    QCOMPARE(arguments.number("at"_L1), 5.0);
    QCOMPARE(arguments.number("at"_L1, 1), 6.0);
    QCOMPARE(arguments.number("at"_L1, 2), 0.0);
    QCOMPARE(arguments.text("name"_L1), u"base"_s);
    QVERIFY(arguments.has("fast"_L1) && arguments.has("at"_L1) && arguments.has("A"_L1));
    QVERIFY(!arguments.has("from"_L1));
}

void TstCommandArguments::keywords_come_in_any_order()
{
    const CommandArguments arguments = read(u"make 1 on fast name base at 5 6"_s);
    QCOMPARE(arguments.text("name"_L1), u"base"_s);
    QCOMPARE(arguments.number("at"_L1, 1), 6.0);
    QVERIFY(arguments.has("fast"_L1));
}

void TstCommandArguments::what_is_left_out_has_its_default()
{
    const CommandArguments arguments = read(u"make 1 on"_s);
    QVERIFY(!arguments.has("at"_L1) && !arguments.has("A"_L1) && !arguments.has("fast"_L1));
    QCOMPARE(arguments.number("at"_L1, 0), 1.0);
    QCOMPARE(arguments.number("at"_L1, 1), 2.0);
    QCOMPARE(arguments.integer("A"_L1), 0);
    QCOMPARE(arguments.text("name"_L1), QString());
    QCOMPARE(arguments.texts("THING"_L1), QStringList());
}

void TstCommandArguments::several_values_are_told_in_their_order()
{
    QCOMPARE(read(u"make 1 on pin plate drill fast"_s).texts("THING"_L1),
             QStringList({u"pin"_s, u"plate"_s, u"drill"_s}));
    QCOMPARE(read(u"make 1 on all fast"_s).texts("THING"_L1), QStringList(u"all"_s));
    QCOMPARE(read(u"make from a.txt one 'two words'"_s).texts("TEXT"_L1),
             QStringList({u"one"_s, u"two words"_s}));
}

void TstCommandArguments::entities_may_be_told_by_number()
{
    QCOMPARE(read(u"make 1 on 2 plate"_s).texts("THING"_L1), QStringList({u"pin"_s, u"plate"_s}));
}

void TstCommandArguments::way_to_write_it_is_told()
{
    QCOMPARE(read(u"make 1 on"_s).form(), 0);
    const CommandArguments arguments = read(u"make from 'my file' x"_s);
    QCOMPARE(arguments.form(), 1);
    QCOMPARE(arguments.text("from"_L1), u"my file"_s);
    QCOMPARE(arguments.number("SIZE"_L1), 0.0);
}

void TstCommandArguments::words_tell_where_values_are()
{
    const CommandArguments arguments = read(u"make 1 on plate pin at 5 6"_s);
    QCOMPARE(arguments.word("SIZE"_L1), 1);
    QCOMPARE(arguments.word("THING"_L1, 1), 4);
    QCOMPARE(arguments.word("at"_L1, 1), 7);
    QCOMPARE(arguments.word("name"_L1), 8);
    QCOMPARE(arguments.word("THING"_L1, 2), 8);
}

void TstCommandArguments::errors_tell_column_and_remedy_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QString& line, int column, const QString& message) {
        QTest::newRow(name) << line << column << message;
    };
    row("nothing", u"make"_s, 5,
        u"expected a size (a number from 1 on) or \"from\", found the end of the line"_s);
    row("too small", u"make 0.5 on"_s, 6,
        u"expected a size (a number from 1 on) or \"from\", found \"0.5\""_s);
    row("not in the range", u"make 1 10 1 on"_s, 8,
        u"expected A (a whole number from 1 to 9), found \"10\""_s);
    row("no whole number", u"make 1 1 1.5 on"_s, 10, u"expected B (a whole number), found \"1.5\""_s);
    row("too large for one", u"make 1 1 99999999999 on"_s, 10,
        u"expected B (a whole number up to 2147483647), found \"99999999999\""_s);
    row("too small for one", u"make 1 1 -99999999999 on"_s, 10,
        u"expected B (a whole number from -2147483647 on), found \"-99999999999\""_s);
    row("too large for any", u"make 1 1 1"_s + QString(400, u'0') + u" on"_s, 10,
        u"expected B (a whole number up to 2147483647), found \"1"_s + QString(59, u'0') + u"...\""_s);
    row("too large for one with limits of its own", u"make 1 99999999999 1 on"_s, 8,
        u"expected A (a whole number from 1 to 9), found \"99999999999\""_s);
    row("too large for a number", u"make 1e400 on"_s, 6,
        u"expected a size (a number from 1 to 1.7976931348623157e+308) or \"from\", found \"1e400\""_s);
    row("infinity", u"make inf on"_s, 6,
        u"expected a size (a number from 1 on) or \"from\", found \"inf\""_s);
    row("half a clause", u"make 1 1"_s, 9, u"expected B (a whole number), found the end of the line"_s);
    row("no choice", u"make 1"_s, 7,
        u"expected A (a whole number from 1 to 9), \"on\" or \"off\", found the end of the line"_s);
    row("unknown thing", u"make 1 on plat"_s, 11,
        u"expected a thing, found \"plat\"; did you mean \"plate\"?"_s);
    row("no such number", u"make 1 on 4"_s, 11,
        u"expected a thing, found \"4\"; there are \"plate\", \"pin\" and \"drill\""_s);
    row("twice", u"make 1 on plate pin plate"_s, 21, u"\"plate\" was named already"_s);
    row("twice, by number", u"make 1 on plate 1"_s, 17, u"\"plate\" was named already"_s);
    row("all and more", u"make 1 on all plate"_s, 15,
        u"expected \"at\", \"name\", \"fast\" or the end of the line, found \"plate\""_s);
    row("keyword twice", u"make 1 on at 1 1 at 2 2"_s, 18,
        u"expected \"name\", \"fast\" or the end of the line, found \"at\""_s);
    row("keyword in place of a value", u"make 1 on at 1 fast"_s, 16,
        u"expected Y (a number from -10 to 10), found \"fast\""_s);
    row("no direction", u"make 1 on at 0 0.0"_s, 14, u"a direction must not be 0 0 0"_s);
    row("no name", u"make 1 on name 5x"_s, 16,
        u"expected a name (a letter, then letters, digits, \"_\", \"-\" and \".\"), found \"5x\""_s);
    row("reserved name", u"make 1 on name fast"_s, 16,
        u"\"fast\" cannot name a thing: it is a word of the commands"_s);
    row("name of another", u"make 1 on name pin"_s, 16, u"there is a thing \"pin\" already"_s);
    row("first of two", u"make 1 on at 99 1 name 5x"_s, 14,
        u"expected X (a number from -10 to 10), found \"99\""_s);
    row("value before what is too much", u"make x on fast fast"_s, 6,
        u"expected a size (a number from 1 on) or \"from\", found \"x\""_s);
    row("other form", u"make from"_s, 10, u"expected a file, found the end of the line"_s);
    row("empty file", u"make from '' x"_s, 11, u"expected a file, found \"\""_s);
    row("no words", u"make from f"_s, 12, u"expected TEXT, found the end of the line"_s);
}

void TstCommandArguments::errors_tell_column_and_remedy()
{
    QFETCH(const QString, line);
    QFETCH(const int, column);
    QFETCH(const QString, message);
    try {
        read(line);
        QFAIL("nothing is wrong");
    } catch (const CommandError& error) {
        QCOMPARE(error.message(), message);
        QCOMPARE(error.column(), column);
    }
}

void TstCommandArguments::command_that_is_wrong_is_not_performed()
{
    QList<double> sizes;
    mSession->registry.add({.name = u"make"_s,
                            .perform =
                                [&](CommandCall& call, const CommandArguments& arguments) {
                                    sizes << arguments.number("SIZE"_L1);
                                    call.print(u"made\n"_s);
                                },
                            .forms = mForms});
    QCOMPARE(mSession->interpreter.run(u"make 3 on"_s), CommandInterpreter::Result::Done);
    QCOMPARE(mSession->take_output(), u"made\n"_s);
    QCOMPARE(mSession->interpreter.run(u"make 3 up"_s), CommandInterpreter::Result::Failed);
    QCOMPARE(sizes, QList<double>{3.0});
    QCOMPARE(
        mSession->take_errors(),
        u"ERROR: make: column 8: expected A (a whole number from 1 to 9), \"on\" or \"off\", found \"up\"\n"_s);
}

void TstCommandArguments::command_needs_a_form_to_be_performed()
{
    const auto nothing = [](CommandCall&, const CommandArguments&) {};
    QCOMPARE(mSession->registry.add({.name = u"a"_s, .perform = nothing, .forms = {}}),
             CommandRegistry::AddResult::BadForms);
    QCOMPARE(mSession->registry.add({.name = u"a"_s, .perform = nothing}), CommandRegistry::AddResult::Added);
}

void TstCommandArguments::variable_in_a_form_stands_for_a_number()
{
    const auto values = read_values(mForms[0], {u"5"_s, u"${a}"_s, u"$b"_s, u"on"_s});
    QVERIFY(values && values->at(1));
    QCOMPARE(values->at(1)->at(0), QStringList(u"${a}"_s));
    QCOMPARE(values->at(1)->at(1), QStringList(u"$b"_s));
}

// A line made of the declaration is read as it was made, a form gets the same values, completion offers each
// of its words, and a word that can be nothing is the one that is told.
void TstCommandArguments::random_lines_are_read_as_they_were_made()
{
    QRandomGenerator random(random_seed());
    mForms.removeLast();
    mSession->registry.add(
        {.name = u"make"_s, .perform = [](CommandCall&, const CommandArguments&) {}, .forms = mForms});
    const CommandVariables variables;
    for (int round = 0; round < 2000; ++round) {
        QStringList words{u"make"_s};
        const QString size = QString::number(random.bounded(1, 100) / 4.0 + 1);
        words << size;
        const bool numbers = random.bounded(2);
        if (numbers)
            words << QString::number(random.bounded(1, 10)) << QString::number(random.bounded(-5, 5));
        const QString state = random.bounded(2) ? u"on"_s : u"off"_s;
        words << state;
        QStringList named = things;
        std::shuffle(named.begin(), named.end(), random);
        named = named.first(random.bounded(4));
        words << named;
        QList<QStringList> clauses;
        const bool at = random.bounded(2);
        const bool name = random.bounded(2);
        const bool fast = random.bounded(2);
        if (at)
            clauses << QStringList{u"at"_s, u"-3"_s, QString::number(random.bounded(11))};
        if (name)
            clauses << QStringList{u"name"_s, u"base"_s};
        if (fast)
            clauses << QStringList{u"fast"_s};
        std::shuffle(clauses.begin(), clauses.end(), random);
        for (const QStringList& clause : std::as_const(clauses))
            words << clause;

        const QString line = words.join(u' ');
        const CommandArguments arguments = read(line);
        QCOMPARE(arguments.number("SIZE"_L1), size.toDouble());
        QCOMPARE(arguments.has("A"_L1), numbers);
        QCOMPARE(arguments.text("STATE"_L1), state);
        QCOMPARE(arguments.texts("THING"_L1), named);
        QCOMPARE(arguments.number("at"_L1), at ? -3.0 : 1.0);
        QCOMPARE(arguments.text("name"_L1), name ? u"base"_s : QString());
        QCOMPARE(arguments.has("fast"_L1), fast);

        const auto values = read_values(mForms[0], words.sliced(1));
        QVERIFY2(values, qPrintable(line));
        const CommandArguments again = read(command_line(u"make"_s, mForms[0], *values));
        QCOMPARE(again.texts("THING"_L1), named);
        QCOMPARE(again.texts("at"_L1), arguments.texts("at"_L1));

        const qsizetype place = random.bounded(1, int(words.size()));
        const QString before = words.first(place).join(u' ') + u' ';
        const LineCompletion offered = complete_command(before, before.size(), mSession->registry, variables);
        const bool word = things.contains(words[place]) || words[place].front().isLower();
        const bool offers = std::any_of(
            offered.candidates.begin(), offered.candidates.end(),
            [&](const LineCompletion::Candidate& candidate) { return candidate.shown == words[place]; });
        QVERIFY2(offers || !word || words[place] == "base"_L1, qPrintable(before + u"| "_s + words[place]));

        words[place] = u"?!"_s;
        try {
            read(words.join(u' '));
            QFAIL(qPrintable(words.join(u' ')));
        } catch (const CommandError& error) {
            QVERIFY2(error.column() == before.size() + 1, qPrintable(words.join(u' ') + error.message()));
        }
    }
}

// What takes any word: a command line made of values, what completion and forms read of it, the check of a
// journal, and the command itself find the same ones, and the same fault.
void TstCommandArguments::random_texts_are_read_as_they_were_made()
{
    QRandomGenerator random(random_seed());
    const auto text = [&random] {
        QString word;
        for (int i = random.bounded(1, 6); i > 0; --i)
            word += u"aZ9 \"'$#\\{}=\t\u00e4"_s[random.bounded(13)];
        // What looks like a variable is one to a form.
        return is_variable_reference(word) ? word + u'!' : word;
    };
    const CommandSyntax form{
        .clauses = {
            required_value({.name = u"NAME"_s, .kind = Kind::Variable, .entity = u"variable"_s}),
            {.keyword = u"to"_s,
             .parameters = {{.name = u"FILE"_s, .kind = Kind::OutputFile}},
             .optional = true},
            {.keyword = u"note"_s, .parameters = {{.name = u"NOTE"_s, .kind = Kind::Text}}, .optional = true},
            optional_value({.name = u"WORD"_s, .kind = Kind::Words})}};
    QList<QStringList> performed;
    mSession->registry.add({.name = u"keep"_s,
                            .perform =
                                [&](CommandCall&, const CommandArguments& arguments) {
                                    performed = {arguments.texts("NAME"_L1), arguments.texts("to"_L1),
                                                 arguments.texts("note"_L1), arguments.texts("WORD"_L1)};
                                },
                            .forms = {form}});
    const auto column_of_fault = [](const QString& message) {
        static const QRegularExpression column(u"column (\\d+): expected "_s);
        return column.match(message).captured(1).toLongLong();
    };
    for (int round = 0; round < 1000; ++round) {
        const QList<QStringList> made{{u"radius"_s},
                                      random.bounded(2) ? QStringList{text()} : QStringList(),
                                      random.bounded(2) ? QStringList{text()} : QStringList(),
                                      QStringList(random.bounded(3), text())};
        QStringList words{u"keep"_s, u"radius"_s};
        if (!made[1].isEmpty())
            words << u"to"_s << made[1];
        if (!made[2].isEmpty())
            words << u"note"_s << made[2];
        words << made[3];
        QStringList quoted;
        for (const QString& word : std::as_const(words))
            quoted << quote_word(word);
        const QString line = quoted.join(u' ');

        QVERIFY2(mSession->interpreter.run(line) == CommandInterpreter::Result::Done, qPrintable(line));
        QCOMPARE(performed, made);
        QVERIFY2(check_journal(line, mSession->registry, {}).isEmpty(), qPrintable(line));
        const auto values = read_values(form, words.sliced(1));
        QVERIFY2(values, qPrintable(line));
        const QString again = command_line(u"keep"_s, form, *values);
        QVERIFY2(mSession->interpreter.run(again) == CommandInterpreter::Result::Done, qPrintable(again));
        QCOMPARE(performed, made);
        const QString begun = quoted.first(2).join(u' ') + u' ';
        QCOMPARE(complete_command(begun, begun.size(), mSession->registry, {}).candidates.size(), 2);

        // A name that is none, or a file without a name.
        const bool file = !made[1].isEmpty() && random.bounded(2);
        const qsizetype wrong = file ? 3 : 1;
        quoted[wrong] = file ? u"''"_s : u"1x"_s;
        const qsizetype column = quoted.first(wrong).join(u' ').size() + 2;
        mSession->take_errors();
        QCOMPARE(mSession->interpreter.run(quoted.join(u' ')), CommandInterpreter::Result::Failed);
        QCOMPARE(column_of_fault(mSession->take_errors()), column);
        const QList<JournalFault> faults = check_journal(quoted.join(u' '), mSession->registry, {});
        QCOMPARE(faults.size(), 1);
        QCOMPARE(column_of_fault(faults[0].message), column);
    }
}

void TstCommandArguments::way_that_was_meant_is_told_with_the_others()
{
    const auto fault = [](const QString& line) {
        const CommandParameter number{.name = u"NUMBER"_s, .kind = Kind::WholeNumber, .what = u"a number"_s};
        const QList<CommandSyntax> ways{
            {.clauses = {required_value({.name = u"FILE"_s, .kind = Kind::InputFile})}},
            {.clauses = {{.keyword = u"line"_s, .parameters = {number}}}}};
        try {
            CommandArguments(tokenize(line), ways, nullptr);
        } catch (const CommandError& error) {
            return error.message();
        }
        return QString();
    };
    QCOMPARE(fault(u"edit"_s), u"expected FILE or \"line\", found the end of the line"_s);
    QCOMPARE(fault(u"edit line x"_s),
             u"expected a number (a whole number) or the end of the line, found \"x\""_s);
    // Right for longer as the second way.
    QCOMPARE(fault(u"edit line 5 6"_s), u"expected the end of the line, found \"6\""_s);
}

void TstCommandArguments::value_behind_one_that_is_left_out_is_wrong()
{
    mForms = {
        {.clauses = {optional_value({.name = u"COLORS"_s, .kind = Kind::Choice, .choices = {u"dark"_s}}),
                     optional_value({.name = u"TIME"_s, .kind = Kind::Choice, .choices = {u"once"_s}})}}};
    QVERIFY(read(u"make dark once"_s).has("TIME"_L1));
    QVERIFY(!read(u"make dark"_s).has("TIME"_L1));
    QVERIFY_THROWS_EXCEPTION(CommandError, read(u"make once"_s));
}

void TstCommandArguments::names_that_nobody_offers_may_be_any()
{
    mForms = {{.clauses = {required_value({.name = u"PAGE"_s, .kind = Kind::Entity, .entity = u"page"_s})}}};
    QCOMPARE(read(u"make nothing"_s).text("PAGE"_L1), u"nothing"_s);
    mSession->registry.entities().offer(u"page"_s, u"test"_s, [] { return QStringList(u"first"_s); });
    QVERIFY_THROWS_EXCEPTION(CommandError, read(u"make nothing"_s));
}

void TstCommandArguments::word_may_stand_for_a_name()
{
    mForms = {{.clauses = {required_value({.name = u"FORMAT"_s, .kind = Kind::Entity, .entity = u"format"_s}),
                           {.keyword = u"fast"_s, .optional = true}}}};
    mSession->registry.entities().offer(
        u"format"_s, u"test"_s, [] { return QStringList(u"STL"_s); },
        [](const QString& word) { return word.toUpper() == u"STL"_s ? u"STL"_s : QString(); });
    const CommandArguments arguments = read(u"make stl fast"_s);
    QCOMPARE(arguments.text("FORMAT"_L1), u"STL"_s);
    QCOMPARE(arguments.word("fast"_L1), 2);
}

void TstCommandArguments::names_that_cannot_be_told_are_none()
{
    const auto broken = [](const auto&...) -> QString { throw std::runtime_error("no file"); };
    const auto broken_names = []() -> QStringList { throw std::runtime_error("no file"); };
    CommandEntities& entities = mSession->registry.entities();
    entities.offer(u"thing"_s, u"test"_s, broken_names, broken, broken);
    entities.offer_possible(u"thing"_s, broken_names);
    entities.offer_selection(u"thing"_s, broken_names);
    entities.offer_properties(u"thing"_s, {}, broken);
    const QRegularExpression told(uR"(^The entities of kind "thing" cannot be told: no file$)"_s);
    const auto expect = [&told](int times) {
        for (int i = 0; i < times; ++i)
            QTest::ignoreMessage(QtWarningMsg, told);
    };
    expect(6);
    QCOMPARE(entities.names(u"thing"_s), QStringList());
    QCOMPARE(entities.possible(u"thing"_s), QStringList());
    QCOMPARE(entities.selected(u"thing"_s), QStringList());
    QCOMPARE(entities.remedy(u"thing"_s, u"plate"_s), QString());
    QCOMPARE(entities.name_of({.kind = u"thing"_s, .key = u"1"_s}), QString());
    expect(1);
    QCOMPARE(entities.find(u"thing"_s, u"plate"_s), QString());
}

void TstCommandArguments::values_that_do_not_go_together_are_told_everywhere_data()
{
    using Verify = std::function<void(const CommandArguments&, const CommandEntities&)>;
    QTest::addColumn<Verify>("verify");
    QTest::addColumn<QString>("message");

    QTest::newRow("an error of commands")
        << Verify([](const CommandArguments& arguments, const CommandEntities&) {
               if (arguments.number("MOST"_L1) < arguments.number("LEAST"_L1))
                   throw arguments.error(arguments.word("MOST"_L1), u"there is nothing between"_s);
           })
        << u"column 8: there is nothing between"_s;
    QTest::newRow("an exception of another kind")
        << Verify([](const CommandArguments& arguments, const CommandEntities&) {
               if (arguments.number("MOST"_L1) < arguments.number("LEAST"_L1))
                   throw std::runtime_error("the table is broken");
           })
        << u"the table is broken"_s;
    QTest::newRow("no exception") << Verify([](const CommandArguments& arguments, const CommandEntities&) {
        if (arguments.number("MOST"_L1) < arguments.number("LEAST"_L1))
            throw 1;
    }) << u"failed for an unknown reason"_s;
}

void TstCommandArguments::values_that_do_not_go_together_are_told_everywhere()
{
    QFETCH(const std::function<void(const CommandArguments&, const CommandEntities&)>, verify);
    QFETCH(const QString, message);
    int performed = 0;
    mSession->registry.add({.name = u"fill"_s,
                            .owner = u"test"_s,
                            .perform = [&](CommandCall&, const CommandArguments&) { ++performed; },
                            .forms = {{.clauses = {required_value({.name = u"LEAST"_s, .kind = Kind::Number}),
                                                   required_value({.name = u"MOST"_s, .kind = Kind::Number}),
                                                   {.keyword = u"fast"_s, .optional = true}},
                                       .verify = verify}}});

    QCOMPARE(mSession->interpreter.run(u"fill 1 2"_s), CommandInterpreter::Result::Done);
    QCOMPARE(performed, 1);
    QCOMPARE(mSession->interpreter.run(u"fill 2 1"_s), CommandInterpreter::Result::Failed);
    QCOMPARE(performed, 1);
    QCOMPARE(mSession->take_errors(), u"ERROR: fill: %1\n"_s.arg(message));

    QCOMPARE(check_journal(u"fill 1 2"_s, mSession->registry, {}).size(), 0);
    const QList<JournalFault> faults = check_journal(u"fill 2 1\nfill 1 2"_s, mSession->registry, {});
    QCOMPARE(faults.size(), 1);
    QCOMPARE(faults[0].message, u"fill: "_s + message);

    // What is wrong already gets no worse.
    for (const QString& line : {u"fill 1 2 "_s, u"fill 2 1 "_s})
        QCOMPARE(complete_command(line, line.size(), mSession->registry, {}).candidates.size(), 1);
}

void TstCommandArguments::what_is_not_declared_cannot_be_asked_for()
{
    mSession->registry.add(
        {.name = u"slip"_s,
         .perform = [](CommandCall&, const CommandArguments& arguments) { arguments.text("SIZES"_L1); },
         .forms = {{.clauses = {required_value({.name = u"SIZE"_s})}}}});
    const CommandInterpreter::Outcome outcome = mSession->interpreter.call(u"slip 1"_s);
    QVERIFY(outcome.failure);
    QCOMPARE(outcome.failure->message, u"the command asks for an argument that it has not declared: SIZES"_s);
}

OSTREL_TEST(TstCommandArguments)
#include "tst_commandarguments.moc"
