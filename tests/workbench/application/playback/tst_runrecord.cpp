// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/playback/RunRecord.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QJsonDocument>
#include <QTest>

#include <limits>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandType::Kind;

namespace {

CommandValue record(const QString& name, const CommandValue::Map& fields)
{
    return {.data = CommandValue::Record{name, fields}};
}

} // namespace

/** What programs are told of values and failures. The whole record is looked at in batch runs. */
class TstRunRecord : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override
    {
        mInterpreter.set_error_output([](const QString&) {});
    }

private slots:
    void values_as_json_data()
    {
        QTest::addColumn<CommandValue>("value");
        QTest::addColumn<QString>("json");
        const auto row = [](const char* name, const CommandValue& value, const char* json) {
            QTest::newRow(name) << value << QString::fromUtf8(json);
        };
        row("nothing", {}, "null");
        row("number", {.data = 0.1}, "0.1");
        row("infinity", {.data = std::numeric_limits<double>::infinity()}, "null");
        row("no number", {.data = std::numeric_limits<double>::quiet_NaN()}, "null");
        row("whole number of many digits", {.data = qint64(9007199254740993)}, "9007199254740993");
        row("text", {.data = u"a\n\u00fc\"\U0001f600"_s}, "\"a\\n\u00fc\\\"\U0001f600\"");
        row("list", {.data = CommandValue::List{{.data = qint64(1)}, {}}}, "[1,null]");
        row("map", {.data = CommandValue::Map{{u"b"_s, {.data = 1.5}}, {u""_s, {.data = u"x"_s}}}},
            "{\"\":\"x\",\"b\":1.5}");
        row("record", record(u"face"_s, {{u"number"_s, {.data = qint64(1)}}, {u"area"_s, {.data = 2.5}}}),
            "{\"area\":2.5,\"number\":1}");
        row("records in a list",
            {.data =
                 CommandValue::List{record(u"face"_s, {{u"center"_s, {.data = CommandValue::List{{}}}}})}},
            "[{\"center\":[null]}]");
        row("thing that is gone", {.data = CommandValue::EntityReference{u"thing"_s, u"7"_s}},
            "{\"kind\":\"thing\",\"name\":\"\"}");
    }
    void values_as_json()
    {
        QFETCH(const CommandValue, value);
        QFETCH(const QString, json);
        const QJsonArray array{json_of(value, mRegistry.entities())};
        QCOMPARE(QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact)), u'[' + json + u']');
    }

    void thing_is_told_with_all_properties_but_arrays_and_questions()
    {
        const CommandType part = record_type(u"part"_s, {{u"weight"_s, {.kind = Kind::Number}}});
        const auto tell = [](const CommandValue& value) {
            return [value](const QString&, const QStringList&) { return value; };
        };
        CommandEntities entities;
        entities.offer(u"thing"_s, u"test"_s, [] { return QStringList(u"lamp"_s); });
        entities.offer_properties(
            u"thing"_s,
            {{.name = u"part"_s,
              .type = part,
              .value = tell(record(u"part"_s, {{u"weight"_s, {.data = 2.0}}}))},
             {.name = u"parts"_s,
              .type = list_type(part),
              .value = tell({.data = CommandValue::List{record(u"part"_s, {{u"weight"_s, {.data = 3.0}}})}})},
             {.name = u"rows"_s,
              .type = map_type(array_type(Kind::Number)),
              .value = [](const QString&, const QStringList&) -> CommandValue {
                  throw std::logic_error("was asked for");
              }},
             {.name = u"nearest"_s,
              .type = {.kind = Kind::Number},
              .parameters = {{.name = u"PLACE"_s}},
              .value = [](const QString&, const QStringList&) -> CommandValue {
                  throw std::logic_error("was asked for");
              }}},
            [](const QString& key) { return key == u"1" ? u"lamp"_s : QString(); });
        const QJsonValue told =
            json_of({.data = CommandValue::EntityReference{u"thing"_s, u"1"_s}}, entities);
        const QJsonObject expected{{u"kind"_s, u"thing"_s},
                                   {u"name"_s, u"lamp"_s},
                                   {u"part"_s, QJsonObject{{u"weight"_s, 2}}},
                                   {u"parts"_s, QJsonArray{QJsonObject{{u"weight"_s, 3}}}}};
        QCOMPARE(told.toObject(), expected);
    }

    void failure_of_a_script_has_its_place()
    {
        RunRecord run(mInterpreter, u"a.py"_s);
        run.add_error(u"Traceback\nValueError: wrong\n"_s);
        run.add_script_failure(u"a.py"_s, {.message = u"ValueError: wrong"_s, .line = 3, .text = u"f()"_s});
        QCOMPARE(failure(run), (QJsonObject{{u"message"_s, u"ValueError: wrong"_s},
                                            {u"command"_s, QJsonValue()},
                                            {u"file"_s, u"a.py"_s},
                                            {u"line"_s, 3},
                                            {u"column"_s, QJsonValue()},
                                            {u"text"_s, u"f()"_s},
                                            {u"remedy"_s, QJsonValue()}}));
    }

    void failure_that_was_dealt_with_is_not_that_of_the_script()
    {
        mRegistry.add(
            plain_command(u"fail"_s, u"test"_s, [](CommandCall& call) { throw call.error(0, u"no"_s); }));
        RunRecord run(mInterpreter, u"a.py"_s);
        mInterpreter.call(u"fail"_s);
        run.add_script_failure(u"a.py"_s, {.message = u"ValueError: wrong"_s, .line = 3});
        QCOMPARE(failure(run)[u"message"_s], u"ValueError: wrong"_s);
        QCOMPARE(failure(run)[u"command"_s], QJsonValue());
        mRegistry.remove_owner(u"test"_s);
    }

    void place_within_what_the_script_has_played_stays()
    {
        const auto inner = [this](CommandCall&) {
            if (mInterpreter.run(u"fail"_s, u"inner.jou"_s, 7) == CommandInterpreter::Result::Failed)
                throw CommandError::reported();
        };
        mRegistry.add(
            plain_command(u"fail"_s, u"test"_s, [](CommandCall& call) { throw call.error(0, u"no"_s); }));
        mRegistry.add(plain_command(u"inner"_s, u"test"_s, inner));
        RunRecord run(mInterpreter, u"a.py"_s);
        const auto outcome = mInterpreter.call(u"inner"_s);
        QVERIFY(outcome.failure);
        const PythonScriptFailure same{
            .message = outcome.failure->message, .command = outcome.failure->command, .line = 2};
        run.add_script_failure(u"a.py"_s, same);
        QCOMPARE(failure(run)[u"file"_s], u"inner.jou"_s);
        QCOMPARE(failure(run)[u"line"_s], 7);
        // Another command, which did not come to run.
        run.add_script_failure(u"a.py"_s, {.message = u"wrong type"_s, .command = u"inner"_s, .line = 5});
        QCOMPARE(failure(run)[u"file"_s], u"a.py"_s);
        QCOMPARE(failure(run)[u"line"_s], 5);
        mRegistry.remove_owner(u"test"_s);
    }

    void command_without_a_place_has_that_of_the_one_that_runs_it()
    {
        mRegistry.add(
            plain_command(u"fail"_s, u"test"_s, [](CommandCall& call) { throw call.error(0, u"no"_s); }));
        mRegistry.add(plain_command(u"outer"_s, u"test"_s, [this](CommandCall& call) {
            mInterpreter.call(u"fail"_s);
            throw call.error(0, u"it failed"_s);
        }));
        RunRecord run(mInterpreter, u"a.jou"_s);
        mInterpreter.run(u"outer  1"_s, u"a.jou"_s, 4);
        const QJsonObject told = failure(run);
        QCOMPARE(told[u"message"_s], u"no"_s);
        QCOMPARE(told[u"command"_s], u"fail"_s);
        QCOMPARE(told[u"file"_s], u"a.jou"_s);
        QCOMPARE(told[u"line"_s], 4);
        QCOMPARE(told[u"text"_s], u"outer  1"_s);
        mRegistry.remove_owner(u"test"_s);
    }

private:
    static QJsonObject failure(const RunRecord& run)
    {
        return QJsonDocument::fromJson(run.text(u"failed"_s, {})).object()[u"failure"_s].toObject();
    }

    CommandRegistry mRegistry;
    CommandInterpreter mInterpreter{mRegistry};
};

OSTREL_TEST(TstRunRecord)
#include "tst_runrecord.moc"
