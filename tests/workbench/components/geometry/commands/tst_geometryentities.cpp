// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_arrays.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QDir>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;
using Reference = CommandValue::EntityReference;

/** What the commands return, and what can be asked of solids and meshes. */
class TstGeometryEntities : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override
    {
        mModel = std::make_unique<GeometryModel>();
        mSession = std::make_unique<CommandSession>();
        QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s,
                                           {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
    }
    void tear_down() override
    {
        mSession.reset();
        mModel.reset();
    }

private:
    CommandValue value(const QString& line)
    {
        const CommandInterpreter::Outcome outcome = mSession->interpreter.call(line);
        if (outcome.failure)
            mSession->errors += outcome.failure->message;
        return outcome.value;
    }
    /** The name of the solid that a line returns. */
    QString made(const QString& line) { return entities().name_of(std::get<Reference>(value(line).data)); }
    CommandEntities& entities() { return mSession->registry.entities(); }
    CommandValue property(const Reference& entity, const QString& name, const QStringList& arguments = {})
    {
        for (const EntityProperty& property : entities().properties(entity.kind)) {
            if (property.name != name)
                continue;
            const CommandValue value = property.value(entity.key, arguments);
            return property.type.fits(value) ? value : CommandValue{.data = u"of another type"_s};
        }
        return {};
    }
    QList<double> numbers(const CommandValue& value)
    {
        QList<double> numbers;
        if (const auto* number = std::get_if<double>(&value.data))
            return {std::round(*number * 1e4) / 1e4 + 0.0};
        if (const auto* list = std::get_if<CommandValue::List>(&value.data)) {
            for (const CommandValue& item : *list)
                numbers << this->numbers(item);
        }
        return numbers;
    }

    /** The volume of a tetrahedron, positive if its nodes are in the usual order. */
    static double tetrahedron(const std::vector<double>& nodes, const qint64* corners)
    {
        const auto at = [&](int corner) {
            const std::size_t i = std::size_t(corners[corner]) * 3;
            return Point3{nodes.at(i), nodes.at(i + 1), nodes.at(i + 2)};
        };
        const Point3 a = at(1) - at(0);
        const Point3 b = at(2) - at(0);
        const Point3 c = at(3) - at(0);
        return (c.x * (a.y * b.z - a.z * b.y) + c.y * (a.z * b.x - a.x * b.z) +
                c.z * (a.x * b.y - a.y * b.x)) /
               6;
    }

    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;

private slots:
    void results_are_of_the_declared_types()
    {
        GeometryModel other;
        QTemporaryFile file(QDir::temp().filePath(u"XXXXXX.brep"_s));
        QVERIFY(file.open() && file.write(other.shape(other.brick({1, 1, 1})).brep()) > 0 && file.flush());
        QStringList missing;
        for (const QString& name : mSession->registry.names())
            if (mSession->registry.find(name)->result.kind != CommandType::Kind::Nothing)
                missing << name;
        for (const QString& line :
             {u"brick 4"_s, u"cylinder 1 9"_s, u"sphere 1 at 50 0 0"_s, u"cone 3 2"_s,
              u"torus 3 1 at 20 0 0"_s, u"copy brick1 by 2 0 0"_s, u"unite brick1 brick6"_s,
              u"subtract cylinder2 from brick1"_s, u"intersect brick1 cone4"_s, u"list"_s, u"list all"_s,
              u"mesh sphere3 size 1"_s, u"statistics"_s, u"quality"_s, u"quality ICN"_s,
              u"import "_s + file.fileName()}) {
            const QString name = line.section(u' ', 0, 0);
            const CommandValue result = value(line);
            QVERIFY2(mSession->errors.isEmpty(), qPrintable(line + u": "_s + mSession->errors));
            QVERIFY2(mSession->registry.find(name)->result.fits(result), qPrintable(line));
            QVERIFY2(!result.is_nothing(), qPrintable(line));
            missing.removeAll(name);
        }
        QCOMPARE(missing, QStringList());
    }

    void commands_return_the_solids_that_they_make()
    {
        QCOMPARE(made(u"brick 2 name base"_s), u"base"_s);
        QCOMPARE(made(u"sphere 1 at 9 0 0"_s), u"sphere2"_s);
        QCOMPARE(made(u"unite sphere2 base"_s), u"sphere2"_s);
        QCOMPARE(std::get<CommandValue::List>(value(u"list"_s).data).size(), 1);
        value(u"delete all"_s);
        QVERIFY(std::get<CommandValue::List>(value(u"list"_s).data).isEmpty());
        QCOMPARE(mSession->errors, QString());
    }

    void solid_has_measures()
    {
        const auto brick = std::get<Reference>(value(u"brick 1 2 4 at 10 0 0"_s).data);
        QCOMPARE(numbers(property(brick, u"volume"_s)), QList<double>{8});
        QCOMPARE(numbers(property(brick, u"area"_s)), QList<double>{28});
        QCOMPARE(numbers(property(brick, u"center"_s)), (QList<double>{10, 0, 0}));
        QCOMPARE(numbers(property(brick, u"bounding_box"_s)), (QList<double>{9.5, -1, -2, 10.5, 1, 2}));
        QCOMPARE(std::get<qint64>(property(brick, u"pieces"_s).data), 1);
        QCOMPARE(std::get<qint64>(property(brick, u"id"_s).data), 1);
    }

    void faces_have_numbers_areas_and_centers()
    {
        const auto brick = std::get<Reference>(value(u"brick 1 2 4 at 10 0 0"_s).data);
        const auto faces = std::get<CommandValue::List>(property(brick, u"faces"_s).data);
        QCOMPARE(faces.size(), 6);
        QList<QList<double>> found;
        for (qsizetype i = 0; i < faces.size(); ++i) {
            const auto& fields = std::get<CommandValue::Record>(faces[i].data).fields;
            QCOMPARE(std::get<qint64>(fields[0].second.data), i + 1);
            found << numbers(fields[1].second) + numbers(fields[2].second);
        }
        std::sort(found.begin(), found.end());
        QCOMPARE(found, (QList<QList<double>>{{2, 10, 0, -2},
                                              {2, 10, 0, 2},
                                              {4, 10, -1, 0},
                                              {4, 10, 1, 0},
                                              {8, 9.5, 0, 0},
                                              {8, 10.5, 0, 0}}));
    }

    void mesh_has_nodes_and_elements()
    {
        value(u"brick 1 2 4"_s);
        const auto mesh = std::get<Reference>(value(u"mesh size 1"_s).data);
        const auto nodes = std::get<CommandValue::Array>(property(mesh, u"nodes"_s).data);
        const auto& points = *std::get<0>(nodes.numbers);
        QCOMPARE(nodes.columns, 3);
        QCOMPARE(qint64(points.size()), 3 * mModel->mesh()->nodes);
        const auto elements = std::get<CommandValue::Map>(property(mesh, u"elements"_s).data);
        QCOMPARE(elements.size(), mModel->mesh()->elements.size());
        double volume = 0;
        for (qsizetype i = 0; i < elements.size(); ++i) {
            QCOMPARE(elements[i].first, mModel->mesh()->elements[i].kind);
            const auto array = std::get<CommandValue::Array>(elements[i].second.data);
            const auto& corners = *std::get<1>(array.numbers);
            QCOMPARE(qint64(corners.size()), mModel->mesh()->elements[i].count * array.columns);
            for (std::size_t at = 0; array.columns == 4 && at < corners.size(); at += 4)
                volume += tetrahedron(points, &corners[at]);
        }
        QCOMPARE(std::round(volume * 1e6) / 1e6, 8);
        // Asked for again, they are where they were.
        QCOMPARE(std::get<0>(std::get<CommandValue::Array>(property(mesh, u"nodes"_s).data).numbers),
                 std::get<0>(nodes.numbers));
    }

    void damaged_mesh_is_an_error_of_the_property_data()
    {
        QTest::addColumn<QByteArray>("msh");
        QTest::newRow("no mesh") << QByteArray("not a mesh");
        QTest::newRow("cut off") << QByteArray("$MeshFormat\n4.1 1 8\n");
    }
    void damaged_mesh_is_an_error_of_the_property()
    {
        QFETCH(const QByteArray, msh);
        value(u"brick 1"_s);
        value(u"mesh size 1"_s);
        auto mesh = std::make_shared<Mesh>(*mModel->mesh());
        mesh->number = Mesh::new_number();
        mesh->msh = msh;
        mModel->set_mesh(mesh);
        const Reference entity{u"mesh"_s, QString::number(mesh->number)};
        QVERIFY_THROWS_EXCEPTION(CommandError, property(entity, u"elements"_s));
    }

    void user_can_end_what_a_property_waits_for()
    {
        value(u"brick 1"_s);
        const auto mesh = std::get<Reference>(value(u"mesh size 1"_s).data);
        Fennar::instance().application().turn = &request_interrupt;
        QVERIFY_THROWS_EXCEPTION(CommandError, property(mesh, u"nodes"_s));
        QVERIFY_THROWS_EXCEPTION(CommandError, property(mesh, u"quality"_s, {u"ICN"_s}));
        Fennar::instance().application().turn = nullptr;
        QVERIFY(!interrupt_requested());
        QCOMPARE(std::get<CommandValue::Array>(property(mesh, u"nodes"_s).data).columns, 3);
    }

    void unpacked_arrays_are_whole_data()
    {
        QTest::addColumn<QByteArray>("data");
        const auto bytes = [](const auto&... numbers) {
            QByteArray data;
            (data.append(reinterpret_cast<const char*>(&numbers), qsizetype(sizeof numbers)), ...);
            return data;
        };
        const QByteArray point = bytes(1.0, 2.0, 3.0);
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no numbers") << QByteArray("nodes 1\n\n");
        QTest::newRow("too many numbers") << "nodes 1\n\n" + point + 'x';
        QTest::newRow("no end of the lines") << QByteArray("nodes 0\n");
        QTest::newRow("below 0") << QByteArray("nodes -1\n\n");
        QTest::newRow("more than can be counted") << "nodes 9223372036854775807\n\n" + point;
        QTest::newRow("elements of no nodes") << "nodes 1\nelements 0 1 Point\n\n" + point;
        QTest::newRow("elements of too many nodes")
            << "nodes 1\nelements 9223372036854775807 2 Point\n\n" + point + bytes(qint64(0));
        QTest::newRow("node that is not there")
            << "nodes 1\nelements 1 1 Point\n\n" + point + bytes(qint64(1));
        QTest::newRow("node below 0") << "nodes 1\nelements 1 1 Point\n\n" + point + bytes(qint64(-1));
        QTest::newRow("other words") << "nodes 1\nvolumes 1 1 Point\n\n" + point + bytes(qint64(0));
    }
    void unpacked_arrays_are_whole()
    {
        QFETCH(const QByteArray, data);
        QVERIFY_THROWS_EXCEPTION(GeometryError, unpack_arrays(data));
    }

    void key_of_a_solid_outlives_its_name_and_undo()
    {
        const auto brick = std::get<Reference>(value(u"brick 1 name base"_s).data);
        QCOMPARE(entities().name_of(brick), u"base"_s);
        value(u"rename base ground"_s);
        value(u"brick 2 name base"_s);
        QCOMPARE(entities().name_of(brick), u"ground"_s);
        value(u"delete ground"_s);
        QCOMPARE(entities().name_of(brick), QString());
        mSession->registry.steps().undo(true);
        QCOMPARE(entities().name_of(brick), u"ground"_s);
    }

    void solid_of_a_model_before_is_gone()
    {
        const auto brick = std::get<Reference>(value(u"brick 1 name base"_s).data);
        const GeometryContents contents = mModel->contents();
        mModel->replace({});
        QCOMPARE(made(u"sphere 1"_s), u"sphere1"_s);
        QCOMPARE(entities().name_of(brick), QString());
        // Not the same one, though it has the same id and name.
        mModel->replace(contents);
        QCOMPARE(entities().find(u"solid"_s, u"1"_s), u"base"_s);
        QCOMPARE(entities().name_of(brick), QString());
    }

    void mesh_is_gone_when_another_takes_its_place()
    {
        value(u"brick 1"_s);
        const auto coarse = std::get<Reference>(value(u"mesh size 1"_s).data);
        QCOMPARE(entities().name_of(coarse), u"mesh"_s);
        QCOMPARE(numbers(property(coarse, u"size"_s)), QList<double>{1});
        QCOMPARE(std::get<qint64>(property(coarse, u"node_count"_s).data), mModel->mesh()->nodes);
        const auto quality = std::get<CommandValue::Map>(property(coarse, u"quality"_s, {u"ICN"_s}).data);
        QCOMPARE(quality.size(), 3);
        QCOMPARE(quality.first().first, u"min"_s);
        QCOMPARE(std::get<double>(quality.first().second.data), mModel->mesh()->quality->first().least);
        const auto counts = std::get<CommandValue::Map>(property(coarse, u"counts"_s).data);
        QCOMPARE(counts.size(), mModel->mesh()->elements.size() + 1);
        const auto solids = std::get<CommandValue::List>(property(coarse, u"solids"_s).data);
        QCOMPARE(std::get<QString>(solids.first().data), u"brick1"_s);

        const auto fine = std::get<Reference>(value(u"mesh size 0.5"_s).data);
        QVERIFY(fine != coarse);
        QCOMPARE(entities().name_of(coarse), QString());
        QCOMPARE(entities().name_of(fine), u"mesh"_s);
        mSession->registry.steps().undo(true);
        QCOMPARE(entities().name_of(coarse), u"mesh"_s);
        QCOMPARE(mSession->errors, QString());
    }
};

OSTREL_TEST(TstGeometryEntities)
#include "tst_geometryentities.moc"
