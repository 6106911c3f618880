// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/journal_parameters.h"

#include <QList>
#include <QString>

#include <functional>

namespace fennar {

class RunRecord;

/** What a batch run is to do. */
struct BatchJob
{
    /** A file or a pipe; CommandLine::standard_input is played once it has come to its end. */
    QString journal;
    /** The file of a model to open before; empty for none. */
    QString model = {};
    /** Values for the journal's parameters. */
    QList<JournalSetting> parameters = {};
    /** The absolute path of the file for the record, CommandLine::standard_output, or empty for none. */
    QString record = {};
};

/**
 * Opens the model, plays the journal and writes the record. With a record, the first signal that would end
 * the program cancels the journal, so that it is written; see TemporaryFolder::end_by_caught_signal().
 *
 * @param watching  is set, while the job runs, to its record, which is to be told of errors; null if there is
 * none.
 * @param report    tells the user of an error; whole lines.
 * @param quitting  tells whether the journal has asked for the end of the program.
 * @return the exit status, as Workbench::play_batch() has it.
 */
int play_job(const BatchJob& job, RunRecord*& watching, const std::function<void(const QString&)>& report,
             const std::function<bool()>& quitting);

} // namespace fennar
