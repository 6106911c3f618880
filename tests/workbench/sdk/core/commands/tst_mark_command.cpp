// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/mark_command.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

constexpr auto letters = "CKNSEV#"_L1;

} // namespace

class TstMarkCommand : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void parts_are_marked_by_the_declaration_data();
    void parts_are_marked_by_the_declaration();
    void what_is_read_as_a_name_is_marked_as_one();
    void any_line_is_harmless();

private:
    /** @p line with a letter in place of each character that is marked, the last mark of it. */
    QString marked(const QString& line);

    std::unique_ptr<CommandRegistry> mRegistry;
};

void TstMarkCommand::set_up()
{
    mRegistry = std::make_unique<CommandRegistry>();
    const auto run = [](CommandCall&, const CommandArguments&) {};
    const CommandClause at{
        .keyword = u"at"_s,
        .parameters = {{.name = u"X"_s, .kind = Kind::Number}, {.name = u"Y"_s, .kind = Kind::Number}},
        .optional = true};
    const CommandClause name{.keyword = u"name"_s,
                             .parameters = {{.name = u"NAME"_s, .kind = Kind::NewName, .entity = u"solid"_s}},
                             .optional = true};
    const CommandClause solids = required_value({.name = u"SOLID"_s,
                                                 .kind = Kind::Entity,
                                                 .choices = {u"all"_s},
                                                 .entity = u"solid"_s,
                                                 .repeated = true});
    mRegistry->add(
        {.name = u"brick"_s,
         .perform = run,
         .forms = {{.clauses = {required_value({.name = u"WIDTH"_s, .kind = Kind::Number}), at, name}}}});
    mRegistry->add({.name = u"color"_s,
                    .perform = run,
                    .forms = {{.clauses = {required_value({.name = u"RED"_s, .kind = Kind::WholeNumber}),
                                           required_value({.name = u"FILE"_s, .kind = Kind::OutputFile})}},
                              {.clauses = {solids, {.keyword = u"by"_s, .optional = true}}}}});
    mRegistry->add(
        {.name = u"quality"_s,
         .perform = run,
         .forms = {{.clauses = {required_value(
                        {.name = u"KIND"_s, .kind = Kind::Choice, .choices = {u"ICN"_s, u"IGE"_s}})}}}});
    mRegistry->add({.name = u"set"_s,
                    .perform = run,
                    .forms = {{.clauses = {required_value({.name = u"NAME"_s, .kind = Kind::Variable}),
                                           optional_value({.name = u"VALUE"_s, .kind = Kind::Words})}}}});
}

QString TstMarkCommand::marked(const QString& line)
{
    QString shown = line;
    const QList<LineMark> marks = mark_command(line, *mRegistry);
    for (const LineMark& mark : marks)
        shown.replace(mark.start, mark.length, QString(mark.length, letters[int(mark.kind)]));
    return shown;
}

void TstMarkCommand::parts_are_marked_by_the_declaration_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& line, const QString& shown) {
        QTest::newRow(name) << line << shown;
    };
    row("nothing", {}, {});
    row("blanks", u"  "_s, u"  "_s);
    row("number, keyword, name", u"brick 2.5 at 0 -1 name part"_s, u"CCCCC NNN KK N NN KKKK EEEE"_s);
    row("keywords in another order", u" brick 1 name a at 1 2"_s, u" CCCCC N KKKK E KK N N"_s);
    row("keyword that is a name elsewhere", u"color name"_s, u"CCCCC EEEE"_s);
    row("what is missing is passed over", u"brick at 1"_s, u"CCCCC KK N"_s);
    row("word in the place of a number", u"brick wide name a"_s, u"CCCCC wide KKKK E"_s);
    row("more than fits", u"brick 1 2 \"a b\" x"_s, u"CCCCC N N SSSSS x"_s);
    row("choice", u"quality ICN"_s, u"CCCCCCC KKK"_s);
    row("no such choice", u"quality best"_s, u"CCCCCCC best"_s);
    row("choice in the place of names", u"color all by"_s, u"CCCCC KKK KK"_s);
    row("several names", u"color all2 'a b' by"_s, u"CCCCC EEEE EEEEE KK"_s);
    row("the form that fits", u"color 3 a.png"_s, u"CCCCC N SSSSS"_s);
    row("variable that is set", u"set width 3 \"x y\" z"_s, u"CCC VVVVV N SSSSS z"_s);
    row("variables", u"brick $w at ${x} 2"_s, u"CCCCC VV KK VVVV N"_s);
    row("variable in quotes", u"set a \"is $w.\""_s, u"CCC V SSSSVVSS"_s);
    row("no variable", u"set a '$w' 5$"_s, u"CCC V SSSS 5$"_s);
    row("comment", u"brick 1  # 2 at"_s, u"CCCCC N  ######"_s);
    row("comment alone", u"  #brick"_s, u"  ######"_s);
    row("no comment", u"color a#1"_s, u"CCCCC EEE"_s);
    row("no command", u"sing 1 \"b\" at"_s, u"sing N SSS at"_s);
    row("command in quotes", u"\"brick\" 1"_s, u"CCCCCCC N"_s);
    row("quotes that are open", u"color a \"b c"_s, u"CCCCC E SSSS"_s);
    row("quotes open within a word", u"set a x='b c"_s, u"CCC V x=SSSS"_s);
    row("no such escape", u"set a 1 \"b\\q\" 2"_s, u"CCC V N \"b\\q\" 2"_s);
}

void TstMarkCommand::parts_are_marked_by_the_declaration()
{
    QFETCH(const QString, line);
    QFETCH(const QString, shown);
    QCOMPARE(marked(line), shown);
}

void TstMarkCommand::what_is_read_as_a_name_is_marked_as_one()
{
    QRandomGenerator random(random_seed());
    const QStringList words = {u"brick"_s, u"color"_s, u"at"_s,    u"name"_s, u"by"_s,   u"all"_s, u"1"_s,
                               u"2"_s,     u"a"_s,     u"'b c'"_s, u"by"_s,   u"name"_s, u"-3e1"_s};
    int accepted = 0;
    for (int i = 0; i < 20000; ++i) {
        QString line = words[random.bounded(2)];
        for (int n = random.bounded(7); n > 0; --n)
            line += u' ' + words[random.bounded(int(words.size()))];
        QStringList read;
        try {
            const CommandWords found = tokenize(line);
            const CommandArguments arguments(found, mRegistry->find(found.words[0].text)->forms, nullptr);
            read = arguments.texts(Kind::Entity) + arguments.texts(Kind::NewName);
        } catch (const CommandError&) {
            continue;
        }
        ++accepted;
        QStringList names;
        for (const LineMark& mark : mark_command(line, *mRegistry)) {
            if (mark.kind == LineMark::Kind::Name)
                names << tokenize(line.sliced(mark.start, mark.length)).words[0].text;
        }
        // One word says that it stands for all, or is a name that is given.
        read.removeAll(u"all"_s);
        names.removeAll(u"all"_s);
        names.sort();
        read.sort();
        QVERIFY2(names == read, qPrintable(line));
    }
    QVERIFY(accepted > 500);
}

void TstMarkCommand::any_line_is_harmless()
{
    QRandomGenerator random(random_seed());
    const QString some = u"brick color 1.$\"'\\# {}set\u00e4\t\u00a0"_s;
    for (int i = 0; i < 20000; ++i) {
        QString line = i % 2 ? u"color "_s : QString();
        for (int n = random.bounded(16); n > 0; --n)
            line += some[random.bounded(int(some.size()))];
        qsizetype end = 0;
        for (const LineMark& mark : mark_command(line, *mRegistry)) {
            QVERIFY2(mark.start >= 0 && mark.length > 0 && mark.start + mark.length <= line.size(),
                     qPrintable(line));
            if (mark.kind == LineMark::Kind::Variable)
                continue;
            QVERIFY2(mark.start >= end, qPrintable(line));
            end = mark.start + mark.length;
            QVERIFY2(!is_command_blank(line[mark.start]), qPrintable(line));
            QVERIFY2(mark.kind == LineMark::Kind::Comment || mark.kind == LineMark::Kind::String ||
                         !is_command_blank(line[end - 1]),
                     qPrintable(line));
        }
    }
}

OSTREL_TEST(TstMarkCommand)
#include "tst_mark_command.moc"
