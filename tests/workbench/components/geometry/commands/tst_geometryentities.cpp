// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelSteps.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"

#include <QTest>

#include <cmath>

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
        QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s, *mModel, mServices,
                                           QDir(QStringLiteral(FENNAR_PROGRAMS))));
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

    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;

private slots:
    void results_are_of_the_declared_types()
    {
        QStringList missing;
        for (const QString& name : mSession->registry.names())
            if (mSession->registry.find(name)->result.kind != CommandType::Kind::Nothing)
                missing << name;
        for (const QString& line :
             {u"brick 4"_s, u"cylinder 1 9"_s, u"sphere 1 at 50 0 0"_s, u"cone 3 2"_s,
              u"torus 3 1 at 20 0 0"_s, u"copy brick1 by 2 0 0"_s, u"unite brick1 brick6"_s,
              u"subtract cylinder2 from brick1"_s, u"intersect brick1 cone4"_s, u"list"_s, u"list all"_s,
              u"mesh sphere3 size 1"_s, u"statistics"_s, u"quality"_s, u"quality ICN"_s}) {
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

    void key_of_a_solid_outlives_its_name_and_undo()
    {
        const auto brick = std::get<Reference>(value(u"brick 1 name base"_s).data);
        QCOMPARE(entities().name_of(brick), u"base"_s);
        value(u"rename base ground"_s);
        value(u"brick 2 name base"_s);
        QCOMPARE(entities().name_of(brick), u"ground"_s);
        value(u"delete ground"_s);
        QCOMPARE(entities().name_of(brick), QString());
        mModel->steps().undo(true);
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
        mModel->steps().undo(true);
        QCOMPARE(entities().name_of(coarse), u"mesh"_s);
        QCOMPARE(mSession->errors, QString());
    }
};

OSTREL_TEST(TstGeometryEntities)
#include "tst_geometryentities.moc"
