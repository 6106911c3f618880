// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/RunRecord.h"

#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Whether values of the type are told: arrays are large, and not asked for. */
bool is_told(const CommandType& type)
{
    using Kind = CommandType::Kind;
    return type.kind != Kind::Nothing && type.kind != Kind::Array &&
           std::all_of(type.of.begin(), type.of.end(), is_told);
}

QJsonObject json_of_entity(const CommandValue::EntityReference& entity, const CommandEntities& entities,
                           bool properties)
{
    QJsonObject object{{u"kind"_s, entity.kind}, {u"name"_s, entities.name_of(entity)}};
    if (!properties)
        return object;
    for (const EntityProperty& property : entities.properties(entity.kind)) {
        if (!property.parameters.isEmpty() || !is_told(property.type))
            continue;
        try {
            object.insert(property.name, json_of(property.value(entity.key, {}), entities, false));
        } catch (const CommandError&) {
            object.insert(property.name, QJsonValue());
        }
    }
    return object;
}

QJsonValue text_or_null(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonValue place_or_null(qsizetype place)
{
    return place > 0 ? QJsonValue(place) : QJsonValue();
}

double seconds(qint64 nanoseconds)
{
    constexpr double in_a_second = 1e9;
    return double(nanoseconds) / in_a_second;
}

/** Why and where a run has failed. */
QJsonObject json_of(const CommandFailure& failure, const CommandRun& run)
{
    return {{u"message"_s, failure.message},
            {u"command"_s, text_or_null(failure.command)},
            {u"file"_s, text_or_null(run.file)},
            {u"line"_s, place_or_null(run.failure_line)},
            {u"column"_s, place_or_null(run.failure_column)},
            {u"text"_s, text_or_null(run.text)},
            {u"remedy"_s, text_or_null(failure.remedy)}};
}

QJsonValue json_of(const CommandParameter& parameter, const QString& value)
{
    if (parameter.kind == CommandParameter::Kind::WholeNumber)
        return parse_integer(value).value_or(0);
    if (parameter.kind == CommandParameter::Kind::Number)
        return parse_number(value).value_or(0);
    return value;
}

} // namespace

QJsonValue json_of(const CommandValue& value, const CommandEntities& entities, bool properties)
{
    // JSON knows neither infinity nor what is not a number.
    if (const auto* number = std::get_if<double>(&value.data))
        return std::isfinite(*number) ? QJsonValue(*number) : QJsonValue();
    if (const auto* whole = std::get_if<qint64>(&value.data))
        return *whole;
    if (const auto* text = std::get_if<QString>(&value.data))
        return *text;
    if (const auto* list = std::get_if<CommandValue::List>(&value.data)) {
        QJsonArray array;
        for (const CommandValue& item : *list)
            array.append(json_of(item, entities, properties));
        return array;
    }
    const auto* record = std::get_if<CommandValue::Record>(&value.data);
    if (const auto* map = record ? &record->fields : std::get_if<CommandValue::Map>(&value.data)) {
        QJsonObject object;
        for (const auto& [key, item] : *map)
            object.insert(key, json_of(item, entities, properties));
        return object;
    }
    if (const auto* entity = std::get_if<CommandValue::EntityReference>(&value.data))
        return json_of_entity(*entity, entities, properties);
    return {};
}

RunRecord::RunRecord(CommandInterpreter& interpreter, const QString& journal)
    : mInterpreter(interpreter), mJournal(journal)
{
    mClock.start();
    mInterpreter.set_observer(
        {[this](const CommandRun& run) { begin(run); }, [this](const CommandRun& run) { end(run); }});
}

RunRecord::~RunRecord()
{
    mInterpreter.set_observer({});
}

void RunRecord::add_error(const QString& text)
{
    const QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
    if (lines.isEmpty())
        return;
    mLastError = lines.last().trimmed();
    if (mLastError.startsWith("ERROR: "_L1))
        mLastError = mLastError.sliced(7);
}

void RunRecord::add_script_failure(const QString& script, const PythonScriptFailure& failure)
{
    // What the script has called may have told a place that is further inside.
    const bool of_command =
        failure.command == mLastFailure.command && failure.message == mLastFailure.message;
    if (of_command && mFailure.value(u"file"_s).isString())
        return;
    const QString message = failure.message.isEmpty() ? mLastError : failure.message;
    mFailure = json_of(
        CommandFailure{message, failure.command, 0, failure.remedy},
        CommandRun{.command = {}, .text = failure.text, .file = script, .failure_line = failure.line});
}

QByteArray RunRecord::text(const QString& status,
                           const QList<std::pair<CommandParameter, QString>>& parameters) const
{
    QJsonObject values;
    for (const auto& [parameter, value] : parameters)
        values.insert(parameter.name, json_of(parameter, value));
    QJsonValue failure;
    const bool failed = status != "done"_L1 && status != "running"_L1;
    if (failed && !mFailure.isEmpty())
        failure = mFailure;
    else if (failed)
        failure = json_of(CommandFailure{mLastError, {}, 0, {}}, {});
    const QJsonObject object{{u"format"_s, u"fennar-run"_s},
                             {u"version"_s, 1},
                             {u"program"_s, QCoreApplication::applicationVersion()},
                             {u"journal"_s, mJournal},
                             {u"status"_s, status},
                             {u"parameters"_s, values},
                             {u"seconds"_s, seconds(mClock.nsecsElapsed())},
                             {u"commands"_s, mCommands},
                             {u"failure"_s, failure}};
    return QJsonDocument(object).toJson();
}

void RunRecord::add_failure(const CommandRun& run)
{
    mLastFailure = *run.failure;
    if (mFailure.isEmpty()) {
        mFailure = json_of(mLastFailure, run);
    } else if (!run.file.isEmpty() && !mFailure.value(u"file"_s).isString()) {
        // A command that Python runs has no place of its own.
        mFailure[u"file"_s] = run.file;
        mFailure[u"line"_s] = place_or_null(run.line);
        mFailure[u"column"_s] = QJsonValue();
        mFailure[u"text"_s] = run.text;
    }
}

void RunRecord::begin(const CommandRun& run)
{
    // Nothing runs behind a failure unless a script has dealt with it.
    mFailure = {};
    mCommands.append(QJsonObject{{u"command"_s, text_or_null(run.command)},
                                 {u"text"_s, run.text},
                                 {u"file"_s, text_or_null(run.file)},
                                 {u"line"_s, place_or_null(run.line)},
                                 {u"depth"_s, run.depth}});
    mBegun.append({mCommands.size() - 1, mClock.nsecsElapsed() - mOwnTime});
}

void RunRecord::end(const CommandRun& run)
{
    if (mBegun.isEmpty())
        return;
    const qint64 now = mClock.nsecsElapsed();
    const Begun begun = mBegun.takeLast();
    QJsonObject command = mCommands[begun.index].toObject();
    command.insert(u"seconds"_s, seconds(now - mOwnTime - begun.at));
    command.insert(u"failed"_s, run.failure.has_value());
    command.insert(u"result"_s, json_of(run.value, mInterpreter.registry().entities()));
    mCommands[begun.index] = command;
    if (run.failure)
        add_failure(run);
    else
        mFailure = {};
    mOwnTime += mClock.nsecsElapsed() - now;
}

} // namespace fennar
