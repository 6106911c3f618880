// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/builtin_commands.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <limits>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

CommandParameter number(const QString& name)
{
    return {.name = name, .kind = Kind::Number};
}

CommandParameter entity(const QString& name, int at_least)
{
    return {.name = name, .kind = Kind::Entity, .repeated = true, .at_least = at_least};
}

CommandParameter choice(const QStringList& choices)
{
    return {.name = u"IGNORED"_s, .kind = Kind::Choice, .choices = choices};
}

CommandParameter of_kind(Kind kind)
{
    return {.name = u"VALUE"_s, .kind = kind};
}

} // namespace

class TstCommandDescription : public TestCase
{
    Q_OBJECT

private slots:
    void usage_is_made_of_the_forms_data();
    void usage_is_made_of_the_forms();
    void range_of_numbers_is_told_data();
    void range_of_numbers_is_told();
    void message_without_words_is_in_no_catalog();
    void command_tells_its_usage();
    void line_is_made_of_the_values_data();
    void line_is_made_of_the_values();
    void clauses_left_out_leave_nothing();
    void values_come_back_from_the_line_data();
    void values_come_back_from_the_line();
    void empty_word_is_a_value();
    void variable_references_data();
    void variable_references();
    void entities_are_offered_and_withdrawn();
    void names_that_can_be_tested_are_not_listed();
    void entities_go_with_their_owner();
    void selection_is_shared_out_to_the_values();
    void selection_goes_with_its_kind();
    void declaration_that_cannot_be_is_told_data();
    void declaration_that_cannot_be_is_told();
    void commands_and_variables_are_entities();
};

void TstCommandDescription::usage_is_made_of_the_forms_data()
{
    QTest::addColumn<QList<CommandSyntax>>("forms");
    QTest::addColumn<QString>("usage");
    const CommandClause at{
        .keyword = u"at"_s, .parameters = {number(u"X"_s), number(u"Y"_s)}, .optional = true};
    QTest::newRow("no arguments") << QList<CommandSyntax>{{}} << u"do"_s;
    QTest::newRow("one value") << QList<CommandSyntax>{{{required_value(number(u"A"_s))}}} << u"do A"_s;
    QTest::newRow("optional value") << QList<CommandSyntax>{{{optional_value(number(u"A"_s))}}}
                                    << u"do [A]"_s;
    QTest::newRow("optional values in a row need each other")
        << QList<CommandSyntax>{{{optional_value(number(u"A"_s)), optional_value(number(u"B"_s)), at}}}
        << u"do [A [B]] [at X Y]"_s;
    QTest::newRow("keywords do not") << QList<CommandSyntax>{{{at, at, optional_value(number(u"A"_s))}}}
                                     << u"do [at X Y] [at X Y] [A]"_s;
    QTest::newRow("several") << QList<CommandSyntax>{{{required_value(entity(u"S"_s, 1))}}} << u"do S..."_s;
    QTest::newRow("two at least") << QList<CommandSyntax>{{{required_value(entity(u"S"_s, 2))}}}
                                  << u"do S S..."_s;
    QTest::newRow("words") << QList<CommandSyntax>{{{optional_value(of_kind(Kind::Words))}}}
                           << u"do [VALUE...]"_s;
    QTest::newRow("choice") << QList<CommandSyntax>{{{required_value(choice({u"on"_s, u"off"_s}))}}}
                            << u"do on|off"_s;
    QTest::newRow("a keyword alone") << QList<CommandSyntax>{{{{.keyword = u"fast"_s, .optional = true},
                                                               {.keyword = u"now"_s}}}}
                                     << u"do [fast] now"_s;
    QTest::newRow("several ways") << QList<CommandSyntax>{{{required_value(number(u"A"_s))}}, {}}
                                  << u"do A | do"_s;
}

void TstCommandDescription::usage_is_made_of_the_forms()
{
    QFETCH(const QList<CommandSyntax>, forms);
    QFETCH(const QString, usage);
    QCOMPARE(command_usage(u"do"_s, forms), usage);
}

void TstCommandDescription::range_of_numbers_is_told_data()
{
    QTest::addColumn<CommandParameter>("parameter");
    QTest::addColumn<QString>("range");
    const auto row = [](const CommandParameter& parameter, const QString& range) {
        QTest::addRow("%s, at most %g", qPrintable(range), parameter.most) << parameter << range;
    };
    row({.name = u"N"_s, .kind = Kind::Number}, u"a number"_s);
    row({.name = u"N"_s, .kind = Kind::Number, .least = 0.5}, u"a number from 0.5 on"_s);
    row({.name = u"N"_s, .kind = Kind::Number, .most = -2}, u"a number up to -2"_s);
    row({.name = u"N"_s, .kind = Kind::Number, .least = 0.5, .most = 1e7}, u"a number from 0.5 to 1e+07"_s);
    row({.name = u"N"_s, .kind = Kind::WholeNumber}, u"a whole number"_s);
    row({.name = u"N"_s, .kind = Kind::WholeNumber, .least = 1}, u"a whole number from 1 on"_s);
    row({.name = u"N"_s, .kind = Kind::WholeNumber, .most = 9}, u"a whole number up to 9"_s);
    row({.name = u"N"_s, .kind = Kind::WholeNumber, .most = 1234567}, u"a whole number up to 1234567"_s);
    row({.name = u"N"_s, .kind = Kind::WholeNumber, .least = 1, .most = std::numeric_limits<int>::max()},
        u"a whole number from 1 on"_s);
}

void TstCommandDescription::range_of_numbers_is_told()
{
    QFETCH(const CommandParameter, parameter);
    QTEST(number_range(parameter).english, "range");
}

void TstCommandDescription::message_without_words_is_in_no_catalog()
{
    struct Catalog : QTranslator
    {
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* text, const char*, int) const override
        {
            if (qstrcmp(context, "CommandError") != 0)
                return {};
            asked << QString::fromUtf8(text);
            return u"eins: %1"_s;
        }
        mutable QStringList asked;
    };
    Catalog catalog;
    QVERIFY(QCoreApplication::installTranslator(&catalog));
    const CommandMessage joined("%1 (%2), ", {u"a"_s, CommandMessage("one: %1", {u"b"_s})});
    QCOMPARE(joined.english, u"a (one: b), "_s);
    QCOMPARE(joined.translated, u"a (eins: b), "_s);
    QCOMPARE(catalog.asked, QStringList{u"one: %1"_s});
}

void TstCommandDescription::command_tells_its_usage()
{
    CommandRegistry registry;
    const auto nothing = [](CommandCall&, const CommandArguments&) {};
    registry.add({.name = u"box"_s, .perform = nothing, .forms = {{{required_value(number(u"SIZE"_s))}}}});
    registry.add({.name = u"bare"_s, .perform = nothing});
    QCOMPARE(registry.find(u"box"_s)->usage(), u"box SIZE"_s);
    QCOMPARE(registry.find(u"bare"_s)->usage(), u"bare"_s);
}

void TstCommandDescription::line_is_made_of_the_values_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("line");
    QTest::newRow("number") << Kind::Number << u"2.5"_s << u"do 2.5"_s;
    QTest::newRow("number in a variable") << Kind::Number << u"$size"_s << u"do $size"_s;
    QTest::newRow("name in a variable") << Kind::Entity << u"${part}"_s << u"do ${part}"_s;
    QTest::newRow("a variable and more is text") << Kind::Entity << u"$part.x"_s << u"do \"\\$part.x\""_s;
    QTest::newRow("file") << Kind::InputFile << u"/tmp/a.jou"_s << u"do /tmp/a.jou"_s;
    QTest::newRow("text with a dollar sign") << Kind::Text << u"$x"_s << u"do \"\\$x\""_s;
    QTest::newRow("empty text") << Kind::Text << QString() << u"do \"\""_s;
    QTest::newRow("words") << Kind::Words << u"'a  b' $c"_s << u"do 'a  b' $c"_s;
}

void TstCommandDescription::line_is_made_of_the_values()
{
    QFETCH(const Kind, kind);
    QFETCH(const QString, value);
    QFETCH(const QString, line);
    const CommandSyntax form{{required_value(of_kind(kind))}};
    QCOMPARE(command_line(u"do"_s, form, {QList<QStringList>{{value}}}), line);
}

void TstCommandDescription::clauses_left_out_leave_nothing()
{
    const CommandSyntax form{
        {required_value(entity(u"SOLID"_s, 1)),
         {.keyword = u"at"_s, .parameters = {number(u"X"_s), number(u"Y"_s)}, .optional = true},
         {.keyword = u"verbose"_s, .optional = true}}};
    const QList<QStringList> solids{{u"a"_s, u"b"_s}};
    QCOMPARE(command_line(u"do"_s, form, {solids, QList<QStringList>{{u"1"_s}, {u"2"_s}}, std::nullopt}),
             u"do a b at 1 2"_s);
    QCOMPARE(command_line(u"do"_s, form, {solids, std::nullopt, QList<QStringList>()}), u"do a b verbose"_s);
    QCOMPARE(command_line(u"do"_s, form, {solids}), u"do a b"_s);
    QCOMPARE(command_line(u"do"_s, form, {}), u"do"_s);
}

void TstCommandDescription::values_come_back_from_the_line_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("blanks") << u"/tmp/my parts/a b.jou"_s;
    QTest::newRow("double quotes") << u"a\"b\".jou"_s;
    QTest::newRow("single quote") << u"it's.jou"_s;
    QTest::newRow("both quotes and a dollar") << u"'\"$x"_s;
    QTest::newRow("backslashes") << u"C:\\my parts\\"_s;
    QTest::newRow("comment sign") << u"#1.jou"_s;
    QTest::newRow("line end") << u"a\nb"_s;
    QTest::newRow("like a variable") << u"$part"_s;
}

void TstCommandDescription::values_come_back_from_the_line()
{
    QFETCH(const QString, file);
    const CommandSyntax form{{required_value(of_kind(Kind::OutputFile)), required_value(number(u"N"_s))}};
    CommandSession session;
    const QString line =
        command_line(u"note"_s, form, {QList<QStringList>{{file}}, QList<QStringList>{{u"3"_s}}});
    QCOMPARE(session.interpreter.enter(line), CommandInterpreter::Result::Done);
    QCOMPARE(session.notes, QStringList(file + u"|3"_s));
}

void TstCommandDescription::empty_word_is_a_value()
{
    const CommandSyntax form{{required_value(of_kind(Kind::NewName)),
                              required_value(of_kind(Kind::NewName)),
                              {.keyword = u"now"_s, .optional = true}}};
    const auto values = read_values(form, {QString(), u"b"_s});
    QVERIFY(values.has_value());
    QVERIFY(values->at(0) && values->at(1) && !values->at(2));
    QCOMPARE(values->at(0)->at(0), QStringList(QString()));
    QCOMPARE(values->at(1)->at(0), QStringList(u"b"_s));
}

void TstCommandDescription::variable_references_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("reference");
    QTest::newRow("name") << u"$radius"_s << true;
    QTest::newRow("braces") << u"${radius}"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("sign alone") << u"$"_s << false;
    QTest::newRow("empty braces") << u"${}"_s << false;
    QTest::newRow("open brace") << u"${radius"_s << false;
    QTest::newRow("one brace") << u"${"_s << false;
    QTest::newRow("more behind") << u"$radius mm"_s << false;
    QTest::newRow("digit") << u"$5"_s << false;
    QTest::newRow("two") << u"$a$b"_s << false;
}

void TstCommandDescription::variable_references()
{
    QFETCH(const QString, text);
    QTEST(is_variable_reference(text), "reference");
}

void TstCommandDescription::entities_are_offered_and_withdrawn()
{
    CommandEntities entities;
    const QSignalSpy changes(&entities, &CommandEntities::changed);
    QStringList solids{u"b"_s, u"a"_s};
    entities.offer(u"solid"_s, u"geometry"_s, [&] { return solids; });
    QCOMPARE(entities.names(u"solid"_s), QStringList({u"b"_s, u"a"_s}));
    QCOMPARE(changes.size(), 1);
    solids << u"c"_s;
    entities.tell_changed(u"solid"_s);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes[1], QVariantList{u"solid"_s});
    QCOMPARE(entities.names(u"solid"_s), solids);
    QCOMPARE(entities.names(u"page"_s), QStringList());
    entities.offer(u"page"_s, u"other"_s, {});
    QCOMPARE(entities.names(u"page"_s), QStringList());
    QCOMPARE(entities.kinds(), QStringList({u"page"_s, u"solid"_s}));
    entities.withdraw(u"geometry"_s);
    QCOMPARE(entities.kinds(), QStringList(u"page"_s));
    QCOMPARE(entities.names(u"solid"_s), QStringList());
    QCOMPARE(changes.size(), 4);
    QCOMPARE(changes[3], QVariantList{u"solid"_s});
}

void TstCommandDescription::names_that_can_be_tested_are_not_listed()
{
    CommandEntities entities;
    int lists = 0;
    entities.offer(u"solid"_s, u"geometry"_s, [&lists] {
        ++lists;
        return QStringList{u"a"_s, u"b"_s};
    });
    QVERIFY(entities.is_name(u"solid"_s, u"b"_s));
    QVERIFY(!entities.is_name(u"solid"_s, u"c"_s));
    QVERIFY(!entities.is_name(u"page"_s, u"b"_s));
    lists = 0;

    entities.offer_test(u"solid"_s, [](const QString& word) { return word == "c"_L1; });
    QVERIFY(!entities.is_name(u"solid"_s, u"b"_s));
    QVERIFY(entities.is_name(u"solid"_s, u"c"_s));
    QCOMPARE(entities.find(u"solid"_s, u"c"_s), u"c"_s);
    QCOMPARE(entities.find(u"solid"_s, u"b"_s), QString());
    const QList<CommandSyntax> forms{
        {.clauses = {required_value(
             {.name = u"NAME"_s, .kind = CommandParameter::Kind::NewName, .entity = u"solid"_s})}}};
    const CommandArguments arguments(tokenize(u"brick b"_s), forms, &entities);
    QVERIFY_THROWS_EXCEPTION(CommandError, CommandArguments(tokenize(u"brick c"_s), forms, &entities));
    QCOMPARE(lists, 0);

    entities.withdraw(u"geometry"_s);
    QVERIFY(!entities.is_name(u"solid"_s, u"c"_s));
}

void TstCommandDescription::entities_go_with_their_owner()
{
    CommandRegistry registry;
    registry.entities().offer(u"solid"_s, u"geometry"_s, [] { return QStringList(u"a"_s); });
    QCOMPARE(registry.remove_owner(u"geometry"_s), 0);
    QCOMPARE(registry.entities().kinds(), QStringList(u"command"_s));
    QCOMPARE(registry.remove_owner({}), 0);
    QCOMPARE(registry.entities().kinds(), QStringList(u"command"_s));
}

void TstCommandDescription::commands_and_variables_are_entities()
{
    CommandSession session;
    Playback playback(session.interpreter);
    const BuiltinServices services;
    register_builtin_commands(session.interpreter, playback, services);
    CommandEntities& entities = session.registry.entities();
    QCOMPARE(entities.names(u"command"_s), session.registry.names());
    QVERIFY(entities.names(u"command"_s).contains(u"set"_s));
    const QSignalSpy changes(&entities, &CommandEntities::changed);
    QCOMPARE(session.interpreter.run(u"set radius 5"_s), CommandInterpreter::Result::Done);
    QCOMPARE(entities.names(u"variable"_s), QStringList(u"radius"_s));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0], QVariantList{u"variable"_s});
    session.add("new", [](CommandCall&) {});
    session.registry.remove(u"new"_s);
    session.registry.remove(u"new"_s);
    QCOMPARE(changes.size(), 3);
    QCOMPARE(changes[2], QVariantList{u"command"_s});
}

void TstCommandDescription::selection_is_shared_out_to_the_values()
{
    CommandEntities entities;
    QStringList selected;
    entities.offer(u"solid"_s, u"test"_s, [] { return QStringList{u"a"_s, u"b"_s, u"c"_s}; });
    entities.offer_selection(u"solid"_s, [&selected] { return selected; });
    CommandParameter one = entity(u"SOLID"_s, 1);
    one.entity = u"solid"_s;
    const CommandParameter several = one;
    one.repeated = false;
    CommandParameter other = one;
    other.entity = u"command"_s;
    const CommandParameter name{.name = u"NAME"_s, .kind = Kind::NewName, .entity = u"solid"_s};
    const CommandSyntax form{{required_value(several),
                              {.keyword = u"from"_s, .parameters = {one}},
                              {.keyword = u"as"_s, .parameters = {other}},
                              {.keyword = u"name"_s, .parameters = {name}, .optional = true},
                              {.keyword = u"now"_s, .optional = true}}};
    const auto line = [&] { return command_line(u"cut"_s, form, selected_values(form, entities)); };
    QCOMPARE(line(), u"cut"_s);
    selected = {u"a"_s};
    QCOMPARE(line(), u"cut from a"_s);
    selected = {u"a"_s, u"b"_s, u"c"_s};
    QCOMPARE(line(), u"cut b c from a"_s);
}

void TstCommandDescription::selection_goes_with_its_kind()
{
    CommandEntities entities;
    const auto names = [] { return QStringList{u"a"_s}; };
    entities.offer_selection(u"solid"_s, names);
    QCOMPARE(entities.selected(u"solid"_s), QStringList()); // nobody offers any
    entities.offer(u"solid"_s, u"test"_s, names);
    QCOMPARE(entities.selected(u"solid"_s), QStringList());
    entities.offer_selection(u"solid"_s, names);
    QCOMPARE(entities.selected(u"solid"_s), QStringList(u"a"_s));
    entities.withdraw(u"test"_s);
    QCOMPARE(entities.selected(u"solid"_s), QStringList());
}

void TstCommandDescription::declaration_that_cannot_be_is_told_data()
{
    QTest::addColumn<QList<CommandClause>>("clauses");
    QTest::addColumn<QString>("fault");
    const auto values = [](const QList<CommandParameter>& parameters) {
        return QList<CommandClause>{{.parameters = parameters}};
    };
    const double none = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("nothing at all") << QList<CommandClause>{} << QString();
    QTest::newRow("one number only") << values(
                                            {{.name = u"A"_s, .kind = Kind::Number, .least = 2, .most = 2}})
                                     << QString();
    QTest::newRow("empty range") << values({{.name = u"A"_s, .kind = Kind::Number, .least = 5, .most = 1}})
                                 << u"the value \"A\" has a least number that is not below the greatest"_s;
    QTest::newRow("limit that is not a number")
        << values({{.name = u"A"_s, .kind = Kind::WholeNumber, .least = none}})
        << u"the value \"A\" has a least number that is not below the greatest"_s;
    QTest::newRow("no choices") << values({choice({})}) << u"the value \"IGNORED\" has no choices"_s;
    QTest::newRow("no kind of entities")
        << values({entity(u"A"_s, 1)}) << u"the value \"A\" has no kind of entities"_s;
    QTest::newRow("fewer than none") << values({{.name = u"A"_s, .repeated = true, .at_least = -2}})
                                     << u"the value \"A\" wants fewer than no values"_s;
    const QString bad_name = u"the value \"%1\" is not named by capital letters, digits and \"_\""_s;
    QTest::newRow("no name") << values({{}}) << bad_name.arg(QString());
    QTest::newRow("name of two words") << values({{.name = u"A B"_s}}) << bad_name.arg(u"A B"_s);
    QTest::newRow("keyword of two words")
        << QList<CommandClause>{{.keyword = u"a b"_s}} << u"the keyword \"a b\" is not one plain word"_s;
    QTest::newRow("neither keyword nor value")
        << QList<CommandClause>{{}} << u"a clause has neither a keyword nor a value"_s;
    const QString twice = u"two of its keywords or values have the same name"_s;
    QTest::newRow("value twice") << values({{.name = u"A"_s}, {.name = u"A"_s}}) << twice;
    QTest::newRow("keyword twice") << QList<CommandClause>{{.keyword = u"a"_s}, {.keyword = u"a"_s}} << twice;
    QTest::newRow("values of keywords")
        << QList<CommandClause>{{.keyword = u"a"_s, .parameters = {{.name = u"X"_s}}},
                                {.keyword = u"b"_s, .parameters = {{.name = u"X"_s}}}}
        << QString();
}

void TstCommandDescription::declaration_that_cannot_be_is_told()
{
    QFETCH(const QList<CommandClause>, clauses);
    QFETCH(const QString, fault);
    const QList<CommandSyntax> forms{CommandSyntax{.clauses = clauses}};
    QCOMPARE(declaration_fault(forms), fault);
    CommandRegistry registry;
    const Command command{
        .name = u"make"_s, .perform = [](CommandCall&, const CommandArguments&) {}, .forms = forms};
    QCOMPARE(registry.add(command) == CommandRegistry::AddResult::Added, fault.isEmpty());
}

OSTREL_TEST(TstCommandDescription)
#include "tst_commanddescription.moc"
