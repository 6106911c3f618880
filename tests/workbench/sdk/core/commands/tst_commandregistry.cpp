// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CommandSession.h"
#include "support/TestCase.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;
using AddResult = CommandRegistry::AddResult;

namespace {

Command command(const QString& name, const QString& owner = u"test"_s)
{
    return {.name = name,
            .summary = u"Does "_s + name,
            .owner = owner,
            .perform = [](CommandCall&, const CommandArguments&) {}};
}

} // namespace

class TstCommandRegistry : public TestCase
{
    Q_OBJECT

private slots:
    void added_command_is_found_with_all_its_texts();
    void names_are_sorted_and_case_sensitive();
    void taken_name_is_refused_and_first_command_stays();
    void bad_names_are_refused_data();
    void bad_names_are_refused();
    void command_without_function_is_refused();
    void all_are_added_in_the_name_of_their_owner_or_none();
    void remove_takes_one_command_away();
    void remove_owner_takes_exactly_its_commands_away();
    void command_can_remove_itself_while_it_runs();
    void command_can_replace_itself_while_it_runs();
    void nearest_name_data();
    void nearest_name();
};

void TstCommandRegistry::added_command_is_found_with_all_its_texts()
{
    CommandRegistry registry;
    QVERIFY(!registry.find(u"box"_s));
    QCOMPARE(registry.add({.name = u"box"_s,
                           .summary = u"Makes a box."_s,
                           .help = u"More."_s,
                           .owner = u"solids"_s,
                           .perform = [](CommandCall&, const CommandArguments&) {},
                           .forms = {{.clauses = {required_value({.name = u"SIZE"_s})}}}}),
             AddResult::Added);
    const std::shared_ptr<const Command> found = registry.find(u"box"_s);
    QVERIFY(found);
    QCOMPARE(found->name, u"box"_s);
    QCOMPARE(found->usage(), u"box SIZE"_s);
    QCOMPARE(found->summary, u"Makes a box."_s);
    QCOMPARE(found->help, u"More."_s);
    QCOMPARE(found->owner, u"solids"_s);
}

void TstCommandRegistry::names_are_sorted_and_case_sensitive()
{
    CommandRegistry registry;
    for (const QString& name : {u"mesh"_s, u"box"_s, u"Box"_s})
        QCOMPARE(registry.add(command(name)), AddResult::Added);
    QCOMPARE(registry.names(), QStringList({u"Box"_s, u"box"_s, u"mesh"_s}));
    QVERIFY(!registry.find(u"BOX"_s));
    QCOMPARE(registry.find(u"Box"_s)->name, u"Box"_s);
}

void TstCommandRegistry::taken_name_is_refused_and_first_command_stays()
{
    CommandRegistry registry;
    QCOMPARE(registry.add(command(u"box"_s, u"first"_s)), AddResult::Added);
    QCOMPARE(registry.add(command(u"box"_s, u"second"_s)), AddResult::NameTaken);
    QCOMPARE(registry.find(u"box"_s)->owner, u"first"_s);
}

void TstCommandRegistry::bad_names_are_refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<AddResult>("result");
    QTest::newRow("letters, digits and marks") << u"_mesh-3d.v2"_s << AddResult::Added;
    QTest::newRow("empty") << u""_s << AddResult::BadName;
    QTest::newRow("two words") << u"make box"_s << AddResult::BadName;
    QTest::newRow("digit first") << u"3d"_s << AddResult::BadName;
    QTest::newRow("mark first") << u"-a"_s << AddResult::BadName;
    QTest::newRow("quote") << u"a\""_s << AddResult::BadName;
    QTest::newRow("letter outside ASCII") << u"gr\u00f6\u00dfe"_s << AddResult::BadName;
}

void TstCommandRegistry::bad_names_are_refused()
{
    QFETCH(QString, name);
    QFETCH(AddResult, result);
    CommandRegistry registry;
    QCOMPARE(registry.add(command(name)), result);
    QCOMPARE(registry.names().contains(name), result == AddResult::Added);
}

void TstCommandRegistry::command_without_function_is_refused()
{
    CommandRegistry registry;
    QCOMPARE(registry.add({u"box"_s, {}, {}, {}, {}, {}}), AddResult::NothingToRun);
    QVERIFY(registry.names().isEmpty());
}

void TstCommandRegistry::all_are_added_in_the_name_of_their_owner_or_none()
{
    CommandRegistry registry;
    QVERIFY(registry.add_all(u"owner"_s, {command(u"box"_s), command(u"ball"_s)}));
    QCOMPARE(registry.find(u"ball"_s)->owner, u"owner"_s);
    QVERIFY(registry.has_owner(u"owner"_s));
    QVERIFY(!registry.has_owner(u"another"_s));
    // That of the owner itself stays, too.
    QVERIFY(!registry.add_all(u"owner"_s, {command(u"cone"_s), command(u"box"_s), command(u"ring"_s)}));
    QCOMPARE(registry.names(), (QStringList{u"ball"_s, u"box"_s}));
    QVERIFY(registry.add_all(u"owner"_s, {}));
}

void TstCommandRegistry::remove_takes_one_command_away()
{
    CommandRegistry registry;
    registry.add(command(u"a"_s));
    registry.add(command(u"b"_s));
    QVERIFY(registry.remove(u"a"_s));
    QVERIFY(!registry.remove(u"a"_s));
    QCOMPARE(registry.names(), QStringList(u"b"_s));
    QCOMPARE(registry.add(command(u"a"_s)), AddResult::Added);
}

void TstCommandRegistry::remove_owner_takes_exactly_its_commands_away()
{
    CommandRegistry registry;
    registry.add(command(u"a"_s, u"one"_s));
    registry.add(command(u"b"_s, u"two"_s));
    registry.add(command(u"c"_s, u"one"_s));
    registry.add(command(u"d"_s, u"One"_s));
    QCOMPARE(registry.remove_owner(u"one"_s), 2);
    QCOMPARE(registry.names(), QStringList({u"b"_s, u"d"_s}));
    QCOMPARE(registry.remove_owner(u"one"_s), 0);
}

void TstCommandRegistry::command_can_remove_itself_while_it_runs()
{
    CommandSession session;
    const auto alive = std::make_shared<QString>(u"still here"_s);
    session.add("once", [&session, alive](CommandCall& call) {
        session.registry.remove_owner(u"test"_s);
        call.print(*alive); // a captured value: gone if the function were destroyed by now
    });
    QCOMPARE(session.interpreter.enter(u"once"_s), CommandInterpreter::Result::Done);
    QCOMPARE(session.output, u"still here"_s);
    QVERIFY(session.registry.names().isEmpty());
    QCOMPARE(alive.use_count(), 1); // and it is destroyed afterwards
}

void TstCommandRegistry::command_can_replace_itself_while_it_runs()
{
    CommandSession session;
    session.add("state", [&session, word = u"first"_s](CommandCall& call) {
        session.registry.remove(u"state"_s);
        session.add("state", [](CommandCall& next) { next.print(u"second "_s); });
        QCOMPARE(session.interpreter.run(u"state"_s), CommandInterpreter::Result::Done);
        call.print(word);
    });
    QCOMPARE(session.interpreter.enter(u"state"_s), CommandInterpreter::Result::Done);
    QCOMPARE(session.output, u"second first"_s);
}

void TstCommandRegistry::nearest_name_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("nearest");
    QTest::newRow("letters swapped") << u"paly"_s << u"play"_s;
    QTest::newRow("letter left out") << u"pla"_s << u"play"_s;
    QTest::newRow("letter put in") << u"plaay"_s << u"play"_s;
    QTest::newRow("letter changed") << u"plax"_s << u"play"_s;
    QTest::newRow("wrong case") << u"Play"_s << u"play"_s;
    QTest::newRow("two slips in a long word") << u"hystori"_s << u"history"_s;
    QTest::newRow("two slips in a short word") << u"paxy"_s << u""_s;
    QTest::newRow("the nearer one wins") << u"sett"_s << u"set"_s;
    QTest::newRow("the nearer one wins, though not the last") << u"hystory"_s << u"history"_s;
    QTest::newRow("nothing near") << u"cylinder"_s << u""_s;
    QTest::newRow("another single letter") << u"y"_s << u""_s;
    QTest::newRow("pasted paragraph") << QString(100, u'x') << u""_s;
}

void TstCommandRegistry::nearest_name()
{
    QFETCH(QString, typed);
    QFETCH(QString, nearest);
    const QStringList names{u"history"_s, u"mystery"_s, u"play"_s,        u"set"_s,
                            u"settle"_s,  u"x"_s,       QString(99, u'x')};
    QCOMPARE(::nearest_name(typed, names), nearest);
}

OSTREL_TEST(TstCommandRegistry)
#include "tst_commandregistry.moc"
