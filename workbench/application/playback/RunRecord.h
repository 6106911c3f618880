// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>

#include <utility>

namespace fennar {

class CommandEntities;
struct PythonScriptFailure;

/** What a command has returned, for another program: an entity is an object with its kind, its name and its
 * properties that take no arguments; of an entity within these, or without @p properties, only kind and name
 * are told. */
QJsonValue json_of(const CommandValue& value, const CommandEntities& entities, bool properties = true);

/**
 * What the commands of a run have returned, how long they took, and why the run has failed, as JSON;
 * docs/batch.md tells what is in it. It watches the interpreter from its making to its end.
 */
class RunRecord
{
public:
    /**
     * @param interpreter  not owned; outlives the record.
     * @param journal      what is played, for the record.
     */
    RunRecord(CommandInterpreter& interpreter, const QString& journal);
    ~RunRecord();
    RunRecord(const RunRecord&) = delete;
    RunRecord& operator=(const RunRecord&) = delete;

    /** Takes an error that the user is told; the last one stands for the failure if no command has failed. */
    void add_error(const QString& text);

    /** Takes why a Python script has ended; @p script is its name as played. */
    void add_script_failure(const QString& script, const PythonScriptFailure& failure);

    /** The record as it is now: JSON in UTF-8, with a line end. */
    QByteArray text(const QString& status,
                    const QList<std::pair<CommandParameter, QString>>& parameters) const;

private:
    /** A command that has begun. */
    struct Begun
    {
        qsizetype index;
        qint64 at;
    };

    void begin(const CommandRun& run);
    void end(const CommandRun& run);
    void add_failure(const CommandRun& run);

    CommandInterpreter& mInterpreter;
    const QString mJournal;
    QElapsedTimer mClock;
    QJsonArray mCommands;
    /** Those that have not ended, the outermost one first. */
    QList<Begun> mBegun;
    /** Of the innermost command that has failed last, or of the script that has, if none has begun since. */
    QJsonObject mFailure;
    /** Of the outermost command that has failed last. */
    CommandFailure mLastFailure;
    QString mLastError;
    /** How much of the time was spent for the record. */
    qint64 mOwnTime = 0;
};

} // namespace fennar
