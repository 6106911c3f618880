// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/complete_command.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

} // namespace

class TstCompleteCommand : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void candidates_fit_the_place_data();
    void candidates_fit_the_place();
    void files_are_completed_with_quotes_data();
    void files_are_completed_with_quotes();
    void variables_are_completed_data();
    void variables_are_completed();
    void caret_within_the_line_looks_only_ahead_of_it();
    void command_without_a_fit_tells_its_usage();
    void completed_words_are_read_back_as_they_are();
    void any_line_and_caret_are_harmless();

private:
    /** "a|b" of the candidates at the end of @p line, or at the "^" in it. */
    QString candidates(const QString& line);
    /** @p line with the only candidate, or with what all of them have in common. */
    QString completed(const QString& line);
    LineCompletion complete(QString line, qsizetype& caret);

    std::unique_ptr<QTemporaryDir> mDirectory;
    QString mBefore;
    std::unique_ptr<CommandRegistry> mRegistry;
    CommandVariables mVariables;
};

void TstCompleteCommand::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mBefore = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mDirectory->path()));
    for (const auto& name : {u"plate.jou"_s, u"plate two.jou"_s, u"picture.png"_s, u"it's.jou"_s,
                             u"say \"x\".jou"_s, u".hidden"_s}) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QDir().mkpath(u"my parts/deep"_s));
    QFile deep(u"my parts/deep/gear"_s);
    QVERIFY(deep.open(QIODevice::WriteOnly));
    QFile numbered(u"my parts/deep/#1.jou"_s);
    QVERIFY(numbered.open(QIODevice::WriteOnly));
    QFile inner(u"my parts/gear wheel.jou"_s);
    QVERIFY(inner.open(QIODevice::WriteOnly));

    mVariables = {};
    mRegistry = std::make_unique<CommandRegistry>();
    const auto run = [](CommandCall&, const CommandArguments&) {};
    mRegistry->add({.name = u"brick"_s,
                    .perform = run,
                    .forms = {{.clauses = {required_value({.name = u"WIDTH"_s, .kind = Kind::Number}),
                                           {.keyword = u"at"_s,
                                            .parameters = {{.name = u"X"_s, .kind = Kind::Number},
                                                           {.name = u"Y"_s, .kind = Kind::Number}},
                                            .optional = true},
                                           {.keyword = u"name"_s,
                                            .parameters = {{.name = u"NAME"_s, .kind = Kind::NewName}},
                                            .optional = true}}}}});
    mRegistry->add({.name = u"mesh"_s,
                    .perform = run,
                    .forms = {{.clauses = {{.parameters = {{.name = u"SOLID"_s,
                                                            .kind = Kind::Entity,
                                                            .choices = {u"all"_s},
                                                            .entity = u"solid"_s,
                                                            .repeated = true}},
                                            .optional = true},
                                           {.keyword = u"size"_s,
                                            .parameters = {{.name = u"SIZE"_s, .kind = Kind::Number}}},
                                           {.keyword = u"verbose"_s, .optional = true}}}}});
    mRegistry->add({.name = u"unite"_s,
                    .perform = run,
                    .forms = {{.clauses = {required_value({.name = u"SOLID"_s,
                                                           .kind = Kind::Entity,
                                                           .entity = u"solid"_s,
                                                           .repeated = true,
                                                           .at_least = 2,
                                                           .distinct = true}),
                                           {.keyword = u"into"_s, .optional = true}}}}});
    mRegistry->add(
        {.name = u"quality"_s,
         .perform = run,
         .forms = {{.clauses = {optional_value(
                        {.name = u"KIND"_s, .kind = Kind::Choice, .choices = {u"ICN"_s, u"IGE"_s}})}}}});
    mRegistry->add(
        {.name = u"play"_s,
         .perform = run,
         .forms = {
             {.clauses = {required_value({.name = u"FILE"_s,
                                          .kind = Kind::InputFile,
                                          .filters =
                                              [] {
                                                  return QList<CommandFileFilter>{{u"Journals"_s, u".jou"_s}};
                                              }}),
                          optional_value({.name = u"LINE"_s, .kind = Kind::WholeNumber})}}}});
    mRegistry->add({.name = u"set"_s,
                    .perform = run,
                    .forms = {{},
                              {.clauses = {required_value(
                                   {.name = u"NAME"_s, .kind = Kind::Variable, .entity = u"variable"_s})}}}});
    mRegistry->entities().offer(u"solid"_s, u"test"_s, [] {
        return QStringList{u"plate"_s, u"pin 1"_s, u"drill"_s};
    });
    mRegistry->entities().offer(u"variable"_s, u"test"_s, [this] { return mVariables.names(); });
    mVariables.set(u"radius"_s, u"2"_s);
    mVariables.set(u"radial"_s, u"3"_s);
    mVariables.set(u"dir"_s, u"my parts"_s);
    mVariables.set(u"gear"_s, u"gear"_s);
    mVariables.set(u"inner"_s, u"deep/g"_s);
}

void TstCompleteCommand::tear_down()
{
    QVERIFY(QDir::setCurrent(mBefore));
    mRegistry.reset();
}

LineCompletion TstCompleteCommand::complete(QString line, qsizetype& caret)
{
    caret = line.indexOf(u'^');
    if (caret < 0)
        caret = line.size();
    else
        line.remove(caret, 1);
    return complete_command(line, caret, *mRegistry, mVariables);
}

QString TstCompleteCommand::candidates(const QString& line)
{
    qsizetype caret = 0;
    QStringList shown;
    for (const LineCompletion::Candidate& candidate : complete(line, caret).candidates)
        shown << candidate.shown;
    return shown.join(u'|');
}

QString TstCompleteCommand::completed(const QString& line)
{
    qsizetype caret = 0;
    const LineCompletion found = complete(line, caret);
    QString result = line;
    result.remove(u'^');
    const bool one = found.candidates.size() == 1;
    const QString text = one ? found.candidates[0].inserted : found.common;
    return result.replace(found.start, caret - found.start, text + (one && found.followed ? u"_"_s : u""_s));
}

void TstCompleteCommand::candidates_fit_the_place_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QString& line, const QString& expected) {
        QTest::newRow(name) << line << expected;
    };
    row("empty line", QString(), u"brick|mesh|play|quality|set|unite"_s);
    row("command", u"b"_s, u"brick"_s);
    row("command behind blanks", u"  q"_s, u"quality"_s);
    row("command in quotes", u"\"me"_s, u"mesh"_s);
    row("letters as they are", u"B"_s, QString());
    row("number", u"brick "_s, QString());
    row("keywords behind it", u"brick 1 "_s, u"at|name"_s);
    row("keyword begun", u"brick 1 n"_s, u"name"_s);
    row("within a clause", u"brick 1 at 2 "_s, QString());
    row("behind a clause", u"brick 1 at 2 3 "_s, u"name"_s);
    row("in any order", u"brick 1 name x "_s, u"at"_s);
    row("behind all", u"brick 1 name x at 0 0 "_s, QString());
    row("behind all that stands alone", u"mesh all "_s, u"size|verbose"_s);
    row("new name", u"brick 1 name "_s, QString());
    row("wrong word ahead", u"brick one "_s, QString());
    row("variable as a number", u"brick $radius "_s, u"at|name"_s);
    row("entities, what stands for all, and a keyword", u"mesh "_s, u"all|drill|pin 1|plate|size|verbose"_s);
    row("more entities", u"mesh plate d"_s, u"drill"_s);
    row("what stands for all is alone", u"mesh plate "_s, u"drill|pin 1|plate|size|verbose"_s);
    row("keyword is no entity", u"mesh size "_s, QString());
    row("behind the keyword", u"mesh plate size 2 "_s, u"verbose"_s);
    row("too few for what follows", u"unite plate "_s, u"drill|pin 1"_s);
    row("enough", u"unite plate drill "_s, u"into|pin 1"_s);
    row("choice", u"quality I"_s, u"ICN|IGE"_s);
    row("variable names", u"set ra"_s, u"radial|radius"_s);
    row("files of that kind", u"play "_s, u"it's.jou|my parts/|plate two.jou|plate.jou|say \"x\".jou"_s);
    row("any file if there is none of the kind", u"play pic"_s, u"picture.png"_s);
    row("hidden files only for a dot", u"play ."_s, u".hidden"_s);
    row("slash of a variable", u"play ${dir}/${inner}"_s, QString());
    row("slash of a variable alone", u"play ${dir}${inner}"_s, QString());
    row("behind the file", u"play plate.jou "_s, QString());
    row("unknown command", u"nix pl"_s, u"plate two.jou|plate.jou"_s);
    row("comment", u"brick 1 # a"_s, QString());
    row("comment begins", u"brick 1 #"_s, QString());
    row("comment alone", u"#b"_s, QString());
    row("bad escape", u"play \"a\\xb"_s, QString());
}

void TstCompleteCommand::candidates_fit_the_place()
{
    QFETCH(const QString, line);
    QFETCH(const QString, expected);
    QCOMPARE(candidates(line), expected);
}

void TstCompleteCommand::files_are_completed_with_quotes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QString& line, const QString& expected) {
        QTest::newRow(name) << line << expected;
    };
    row("plain", u"play plate.j"_s, u"play plate.jou_"_s);
    row("common part", u"play pl"_s, u"play plate"_s);
    row("a blank wants quotes", u"play 'plate t"_s, u"play \"plate two.jou\"_"_s);
    row("within quotes", u"play \"plate t"_s, u"play \"plate two.jou\"_"_s);
    row("apostrophe", u"play it"_s, u"play \"it's.jou\"_"_s);
    row("quotes", u"play sa"_s, u"play \"say \\\"x\\\".jou\"_"_s);
    row("directory stays open", u"play my"_s, u"play \"my parts/"_s);
    row("in the directory", u"play \"my parts/g"_s, u"play \"my parts/gear wheel.jou\"_"_s);
    row("in single quotes", u"play 'my parts/g"_s, u"play 'my parts/gear wheel.jou'_"_s);
    row("behind closed quotes", u"play \"my parts\"/g"_s, u"play \"my parts\"/\"gear wheel.jou\"_"_s);
    row("variable ahead stays", u"play $dir/g"_s, u"play $dir/\"gear wheel.jou\"_"_s);
    row("variable behind the slash", u"play my' parts'/${gear}"_s, u"play my' parts'/\"gear wheel.jou\"_"_s);
    row("plain directory", u"play \"my parts/d"_s, u"play \"my parts/deep/"_s);
    row("no comment behind a slash", u"play $dir/deep/#"_s, u"play $dir/deep/\"#1.jou\"_"_s);
    row("entity with a blank", u"mesh pin"_s, u"mesh \"pin 1\"_"_s);
    row("quote behind the caret", u"play \"plate t^\""_s, u"play \"plate two.jou_\""_s);
}

void TstCompleteCommand::files_are_completed_with_quotes()
{
    QFETCH(const QString, line);
    QFETCH(const QString, expected);
    QCOMPARE(completed(line), expected);
}

void TstCompleteCommand::variables_are_completed_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("expected");
    QTest::newRow("common part") << u"brick $r"_s << u"radial|radius"_s << u"brick $radi"_s;
    QTest::newRow("one") << u"brick $radiu"_s << u"radius"_s << u"brick $radius"_s;
    QTest::newRow("braces") << u"brick ${radiu"_s << u"radius"_s << u"brick ${radius}"_s;
    QTest::newRow("all") << u"brick $"_s << u"dir|gear|inner|radial|radius"_s << u"brick $"_s;
    QTest::newRow("within a word") << u"old x$di"_s << u"dir"_s << u"old x$dir"_s;
    QTest::newRow("within double quotes") << u"old \"a $di"_s << u"dir"_s << u"old \"a $dir"_s;
    QTest::newRow("not in single quotes") << u"old 'a $di"_s << QString() << u"old 'a $di"_s;
    QTest::newRow("not escaped") << u"old \"\\$di"_s << QString() << u"old \"\\$di"_s;
    QTest::newRow("of no such name") << u"old $nix"_s << QString() << u"old $nix"_s;
}

void TstCompleteCommand::variables_are_completed()
{
    QFETCH(const QString, line);
    QFETCH(const QString, shown);
    QFETCH(const QString, expected);
    QCOMPARE(candidates(line), shown);
    if (!shown.isEmpty())
        QCOMPARE(completed(line), expected);
}

void TstCompleteCommand::caret_within_the_line_looks_only_ahead_of_it()
{
    QCOMPARE(candidates(u"b^ 1 at 2 3"_s), u"brick"_s);
    QCOMPARE(completed(u"b^ 1 at 2 3"_s), u"brick_ 1 at 2 3"_s);
    QCOMPARE(candidates(u"mesh ^ size 2"_s), u"all|drill|pin 1|plate|size|verbose"_s);
    QCOMPARE(completed(u"me^sh"_s), u"mesh_sh"_s);
}

void TstCompleteCommand::command_without_a_fit_tells_its_usage()
{
    qsizetype caret = 0;
    QCOMPARE(complete(u"brick "_s, caret).hint, u"Usage: brick WIDTH [at X Y] [name NAME]"_s);
    QCOMPARE(complete(u"nix nothing-of-that-name"_s, caret).hint, QString());
    QCOMPARE(complete(u"brick 1 n"_s, caret).hint, QString());
}

void TstCompleteCommand::completed_words_are_read_back_as_they_are()
{
    // What is put into the line means what was shown, whatever the name and the quotes that it begins in.
    const QStringList names{u"plain"_s, u"two words"_s, u"dollar$x"_s, u"back\\slash"_s, u"#hash"_s,
                            u"it's"_s,  u"say \"x\""_s, u"größe"_s,    u"😀 face"_s,      u"end\\"_s};
    for (const QString& name : names) {
        mRegistry->entities().offer(u"solid"_s, u"test"_s, [name] { return QStringList{name}; });
        for (const QString& open : {u""_s, u"\""_s, u"'"_s}) {
            const QString line = u"unite "_s + open;
            const LineCompletion found = complete_command(line, line.size(), *mRegistry, mVariables);
            QCOMPARE(found.candidates.size(), 1);
            const QString whole = line.first(found.start) + found.candidates[0].inserted;
            const CommandWords words = tokenize(whole);
            QVERIFY2(!words.error, qPrintable(whole));
            QCOMPARE(words.words.size(), 2);
            QCOMPARE(words.words[1].text, name);
        }
    }
}

void TstCompleteCommand::any_line_and_caret_are_harmless()
{
    QRandomGenerator random(random_seed());
    const QString letters = u"mesh play/.$\"'\\# {}1pl\u00e4\t"_s;
    for (int i = 0; i < 5000; ++i) {
        QString line = i % 2 ? u"play "_s : QString();
        for (int n = random.bounded(12); n > 0; --n)
            line += letters[random.bounded(int(letters.size()))];
        const qsizetype caret = random.bounded(int(line.size()) + 1);
        const LineCompletion found = complete_command(line, caret, *mRegistry, mVariables);
        QVERIFY2(found.start >= 0 && found.start <= caret, qPrintable(line));
        QVERIFY2(found.candidates.isEmpty() || found.hint.isEmpty(), qPrintable(line));
    }
    QCOMPARE(complete_command(u"me"_s, 99, *mRegistry, mVariables).candidates.size(), 1);
    QCOMPARE(complete_command(u"me"_s, -1, *mRegistry, mVariables).start, 0);
}

OSTREL_TEST(TstCompleteCommand)
#include "tst_complete_command.moc"
