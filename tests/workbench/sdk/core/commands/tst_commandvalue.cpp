// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandValue.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandType::Kind;

class TstCommandValue : public TestCase
{
    Q_OBJECT

private slots:
    void value_fits_its_own_type_only()
    {
        const QList<CommandValue> values{
            {},
            {.data = 1.5},
            {.data = qint64(1)},
            {.data = u"a"_s},
            {.data = CommandValue::List{{.data = 1.5}}},
            {.data = CommandValue::Map{{u"a"_s, {.data = 1.5}}}},
            {.data = CommandValue::EntityReference{u"solid"_s, u"1"_s}},
            {.data = CommandValue::Record{u"face"_s, {{u"number"_s, {.data = qint64(1)}}}}},
            {.data = CommandValue::Array{std::make_shared<const std::vector<double>>(6), 3}},
            {.data = CommandValue::Array{std::make_shared<const std::vector<qint64>>(6), 3}},
        };
        const CommandType number{.kind = Kind::Number};
        const QList<CommandType> types{
            {},
            number,
            {.kind = Kind::WholeNumber},
            {.kind = Kind::Text},
            list_type(number),
            map_type(number),
            entity_type(u"solid"_s),
            record_type(u"face"_s, {{u"number"_s, {.kind = Kind::WholeNumber}}}),
            array_type(Kind::Number),
            array_type(Kind::WholeNumber),
        };
        for (qsizetype i = 0; i < values.size(); ++i)
            for (qsizetype j = 0; j < types.size(); ++j)
                QVERIFY2(types[j].fits(values[i]) == (i == j), qPrintable(u"%1 %2"_s.arg(i).arg(j)));
    }

    void inner_values_count()
    {
        const CommandValue texts{.data = CommandValue::List{{.data = u"a"_s}}};
        QVERIFY(!list_type({.kind = Kind::Number}).fits(texts));
        QVERIFY(list_type({.kind = Kind::Text}).fits(texts));
        QVERIFY(list_type({.kind = Kind::Number}).fits({.data = CommandValue::List()}));
        QVERIFY(
            !map_type(list_type({.kind = Kind::Number})).fits({.data = CommandValue::Map{{u"a"_s, texts}}}));
        const CommandValue face{.data =
                                    CommandValue::Record{u"face"_s, {{u"number"_s, {.data = qint64(1)}}}}};
        for (const CommandType& type :
             {record_type(u"edge"_s, {{u"number"_s, {.kind = Kind::WholeNumber}}}),
              record_type(u"face"_s, {{u"id"_s, {.kind = Kind::WholeNumber}}}), record_type(u"face"_s, {}),
              record_type(u"face"_s, {{u"number"_s, {.kind = Kind::Number}}})})
            QVERIFY(!type.fits(face));
        QVERIFY(!entity_type(u"mesh"_s).fits({.data = CommandValue::EntityReference{u"solid"_s, u"1"_s}}));
    }

    void properties_come_and_go_with_their_kind()
    {
        CommandEntities entities;
        const QList<EntityProperty> properties{{.name = u"volume"_s}};
        entities.offer_properties(u"solid"_s, properties);
        QVERIFY(entities.properties(u"solid"_s).isEmpty());
        entities.offer(u"solid"_s, u"geometry"_s, [] { return QStringList(); });
        entities.offer_properties(u"solid"_s, properties);
        QCOMPARE(entities.properties(u"solid"_s).size(), 1);
        QCOMPARE(entities.properties(u"solid"_s).first().name, u"volume"_s);
        entities.withdraw(u"geometry"_s);
        QVERIFY(entities.properties(u"solid"_s).isEmpty());
    }
};

OSTREL_TEST(TstCommandValue)
#include "tst_commandvalue.moc"
