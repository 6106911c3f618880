// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PythonCommandsTest.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <QMap>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;
using TypeKind = CommandType::Kind;

/** What functions of commands return, and the objects that stand for entities. */
class TstPythonEntities : public PythonCommandsTest
{
    Q_OBJECT

private:
    static CommandValue solid(const QString& key)
    {
        return {.data = CommandValue::EntityReference{u"solid"_s, key}};
    }

    /** The names of the solids by their keys. */
    QMap<QString, QString> mSolids;
    std::shared_ptr<const std::vector<qint64>> mPlaces =
        std::make_shared<const std::vector<qint64>>(std::vector<qint64>{0, 1, 1, 2});

protected:
    void set_up() override
    {
        PythonCommandsTest::set_up();
        mSolids = {{u"1"_s, u"base"_s}, {u"2"_s, u"lid"_s}};
    }

private slots:
    void initTestCase()
    {
        CommandEntities& entities = registry.entities();
        entities.offer(
            u"solid"_s, u"test"_s, [this] { return QStringList(mSolids.values()); },
            [this](const QString& word) { return mSolids.value(word); });
        CommandParameter measure{.name = u"MEASURE"_s, .kind = Kind::Choice, .choices = {u"a"_s, u"b"_s}};
        entities.offer_properties(
            u"solid"_s,
            {{.name = u"volume"_s,
              .summary = u"How much it holds"_s,
              .unit = u"mm³"_s,
              .type = {.kind = TypeKind::Number},
              .value = [](const QString& key,
                          const QStringList&) { return CommandValue{.data = 2.5 * key.toDouble()}; }},
             {.name = u"measured"_s,
              .summary = u"A measure of it"_s,
              .type = {.kind = TypeKind::Text},
              .parameters = {measure},
              .value = [](const QString& key, const QStringList& arguments) {
                  if (key == u"2")
                      throw CommandError(u"it cannot be measured"_s);
                  return CommandValue{.data = arguments.join(u'+')};
              }}});
        entities.offer(u"page"_s, u"test"_s, [] { return QStringList(u"first"_s); });

        add("brick", {{}}, "test", entity_type(u"solid"_s), solid(u"1"_s));
        add("lid", {{}}, "test", entity_type(u"solid"_s), solid(u"2"_s));
        add("page", {{}}, "test", entity_type(u"page"_s),
            {.data = CommandValue::EntityReference{u"page"_s, u"first"_s}});
        add("list", {{}}, "test", list_type(entity_type(u"solid"_s)),
            {.data = CommandValue::List{solid(u"2"_s), solid(u"1"_s)}});
        add("count", {{}}, "test", {.kind = TypeKind::WholeNumber}, {.data = qint64(1) << 60});
        add("measure", {{}}, "test", map_type({.kind = TypeKind::Number}),
            {.data = CommandValue::Map{{u"z"_s, {.data = 0.1}}, {u"a"_s, {.data = 2.0}}}});
        add("face", {{}}, "test",
            record_type(u"face"_s, {{u"number"_s, {.kind = TypeKind::WholeNumber}},
                                    {u"area"_s, {.kind = TypeKind::Number}}}),
            {.data = CommandValue::Record{u"face"_s,
                                          {{u"number"_s, {.data = qint64(3)}}, {u"area"_s, {.data = 2.5}}}}});
        add("numbers", {{}}, "test", array_type(TypeKind::Number),
            {.data = CommandValue::Array{
                 std::make_shared<const std::vector<double>>(std::vector{1.5, 2., 3., 4., 5., 6.}), 3}});
        add("places", {{}}, "test", map_type(array_type(TypeKind::WholeNumber)),
            {.data = CommandValue::Map{
                 {u"Line 2"_s, {.data = CommandValue::Array{mPlaces, 2}}},
                 {u"Point"_s,
                  {.data = CommandValue::Array{std::make_shared<const std::vector<qint64>>(), 1}}}}});
        add("text", {{}}, "test", {.kind = TypeKind::Text}, {.data = u"\u00fc \U0001f600"_s});
        const CommandParameter one{.name = u"SOLID"_s,
                                   .kind = Kind::Entity,
                                   .what = u"a solid"_s,
                                   .entity = u"solid"_s,
                                   .by_number = true};
        CommandParameter several = one;
        several.repeated = true;
        several.choices = {u"all"_s};
        add("move", {{.clauses = {required_value(several)}}});
        add("turn", {{.clauses = {{.keyword = u"solid"_s, .parameters = {one}}}}});
        start_python();
    }
    void cleanupTestCase() { PythonRuntime::stop(); }

    void values_become_pythons()
    {
        QCOMPARE(shown("print(fennar.count() == 2 ** 60, fennar.measure(), ascii(fennar.text()))"),
                 u"True {'z': 0.1, 'a': 2.0} '\\xfc \\U0001f600'\n"_s);
        QCOMPARE(shown("print(fennar.list(), fennar.move('all'))"),
                 u"[<solid 'lid'>, <solid 'base'>] None\n"_s);
    }

    void record_has_its_fields_by_name()
    {
        QCOMPARE(
            shown(
                "face = fennar.face()\nprint(face, face.area, face == (3, 2.5), type(face) is fennar.Face)"),
            u"Face(number=3, area=2.5) 2.5 True True\n"_s);
        QVERIFY(run("assert 'Face' in dir(fennar)"));
    }

    void array_shows_the_numbers_where_they_are()
    {
        const long kept_places = mPlaces.use_count();
        QCOMPARE(shown("import sys, types\n"
                       "before = sys.modules.get('numpy')\n"
                       "sys.modules['numpy'] = types.SimpleNamespace(asarray=memoryview)\n"
                       "rows, places = fennar.numbers(), fennar.places()\n"
                       "print(rows.tolist(), rows.format, rows.readonly)\n"
                       "print({kind: (part.shape, part.readonly) for kind, part in places.items()}, "
                       "places['Line 2'].tolist())"),
                 u"[[1.5, 2.0, 3.0], [4.0, 5.0, 6.0]] d True\n"
                 "{'Line 2': ((2, 2), True), 'Point': ((0, 1), True)} [[0, 1], [1, 2]]\n"_s);
        // Python holds them for as long as it looks at them.
        QCOMPARE(mPlaces.use_count(), kept_places + 1);
        QVERIFY(run("del places"));
        QCOMPARE(mPlaces.use_count(), kept_places);
        QVERIFY(run("sys.modules['numpy'] = None"));
        QVERIFY(last_line("fennar.numbers()")
                    .startsWith(u"ImportError: nodes and elements are arrays of NumPy"_s));
        QVERIFY(run("sys.modules.pop('numpy')\nif before: sys.modules['numpy'] = before"));
    }

    void entity_has_a_name_a_kind_and_properties()
    {
        QCOMPARE(shown("part = fennar.brick()\nprint(part, part.name, part.kind, part.volume,"
                       " part.measured('b'), part.measured(measure='a'))"),
                 u"<solid 'base'> base solid 2.5 b a\n"_s);
        QVERIFY(run("assert isinstance(part, fennar.Solid) and issubclass(fennar.Solid, fennar.Entity)\n"
                    "assert type(fennar.lid()) is fennar.Solid\n"
                    "assert {'name', 'kind', 'volume', 'measured'} <= set(dir(part))\n"
                    "assert 'Solid' in dir(fennar)\n"
                    "assert fennar.Solid.volume.__doc__ == 'How much it holds (mm\\u00b3)'\n"
                    "import inspect\nassert str(inspect.signature(part.measured)) == '(measure)'\n"
                    "assert 'volume: How much it holds' in fennar.Solid.__doc__"));
        QCOMPARE(shown("print(fennar.page(), fennar.page().name)"), u"<page 'first'> first\n"_s);
    }

    void entity_is_what_it_was_under_another_name()
    {
        QVERIFY(run("part = fennar.brick()"));
        mSolids[u"1"_s] = u"ground"_s;
        mSolids[u"2"_s] = u"base"_s;
        QCOMPARE(shown("print(part.name, part.volume)"), u"ground 2.5\n"_s);
        QVERIFY(run("fennar.move(part)"));
        QCOMPARE(performed.last(), u"move|ground"_s);
    }

    void entities_are_equal_if_they_are_the_same()
    {
        QVERIFY(run("part = fennar.brick()\nassert part == fennar.brick() and part != fennar.lid()\n"
                    "assert len({part, fennar.brick(), fennar.lid()}) == 2 and part != 'base'"));
    }

    void entity_as_an_argument_writes_its_name()
    {
        QVERIFY2(run("part = fennar.brick()\nfennar.move(part, 'lid', 1)\nfennar.move(fennar.list())\n"
                     "fennar.turn(solid=part)"),
                 qPrintable(mRecorder.errors));
        lines.removeAll(u"brick"_s);
        lines.removeAll(u"list"_s);
        QCOMPARE(lines, QStringList({u"move base lid 1"_s, u"move lid base"_s, u"turn solid base"_s}));
    }

    void entity_of_another_kind_is_refused()
    {
        QCOMPARE(last_line("fennar.move(fennar.page())"),
                 u"fennar.ArgumentError: move: solid: expected a solid, found <page 'first'>"_s);
        QCOMPARE(performed, QStringList(u"page"_s));
    }

    void entity_that_is_gone_raises()
    {
        QVERIFY(run("part = fennar.brick()"));
        mSolids.remove(u"1"_s);
        performed.clear();
        for (const QByteArray& use :
             {"part.name"_ba, "part.volume"_ba, "part.measured('a')"_ba, "fennar.move(part)"_ba})
            QCOMPARE(last_line(use), u"fennar.CommandError: the solid \"base\" is gone"_s);
        QCOMPARE(shown("print(part)"), u"<solid 'base', gone>\n"_s);
        QVERIFY(performed.isEmpty());
        // As after an undo.
        mSolids[u"1"_s] = u"base"_s;
        QCOMPARE(shown("print(part.volume)"), u"2.5\n"_s);
    }

    void property_that_fails_raises()
    {
        QCOMPARE(last_line("fennar.lid().measured('a')"),
                 u"fennar.CommandError: measured: it cannot be measured"_s);
        QCOMPARE(last_line("fennar.brick().measured('c')"),
                 u"fennar.ArgumentError: measured: measure: expected \"a\" or \"b\", found 'c'"_s);
        QCOMPARE(last_line("fennar.brick().measured()"),
                 u"fennar.ArgumentError: measured: missing a required argument: 'measure'"_s);
        QCOMPARE(last_line("fennar.brick().weight"),
                 u"AttributeError: 'Solid' object has no attribute 'weight'"_s);
        QVERIFY(last_line("fennar.brick().volume = 3").startsWith(u"AttributeError"_s));
    }

    void entities_are_not_made_by_hand()
    {
        QCOMPARE(last_line("fennar.Solid()"), u"TypeError: entities are made by commands"_s);
    }
};

OSTREL_TEST(TstPythonEntities)
#include "tst_python_entities.moc"
