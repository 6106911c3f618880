// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/batch_job.h"

#include "workbench/application/ProgramStart.h"
#include "workbench/application/playback/RunRecord.h"
#include "workbench/application/playback/play_from_anywhere.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Outcome = Playback::Outcome;

Outcome play(const BatchJob& job, const std::function<void(const QString&)>& report)
{
    Fennar& fennar = Fennar::instance();
    if (!job.model.isEmpty() &&
        fennar.interpreter().run(u"open "_s + quote_word(job.model)) != CommandInterpreter::Result::Done) {
        report(not_played(job.journal));
        return interrupt_requested() ? Outcome::Interrupted : Outcome::Failed;
    }
    return play_from_anywhere(fennar.playback(), job.journal, job.parameters);
}

QString status_of(Outcome outcome, bool quitting)
{
    switch (outcome) {
    case Outcome::Failed:
        return u"failed"_s;
    case Outcome::Refused:
        return u"refused"_s;
    case Outcome::Interrupted:
        return u"cancelled"_s;
    case Outcome::Stopped:
        return quitting ? u"done"_s : u"cancelled"_s;
    case Outcome::Played:
        break;
    }
    return u"done"_s;
}

/** Why the record could not be written; empty if it was. */
QString write(const QString& file, const QByteArray& text)
{
    if (file != CommandLine::standard_output)
        return write_whole_file(file, {text});
    const bool written =
        std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout) == std::size_t(text.size()) &&
        std::fflush(stdout) == 0;
    return written ? QString() : qt_error_string(errno);
}

QString not_written(const QString& file, const QString& reason)
{
    return u"ERROR: the record %1 could not be written: %2\n"_s.arg(CommandError::shown(file, file.size()),
                                                                    reason);
}

} // namespace

int play_job(const BatchJob& job, BatchListener& listener, const std::function<void(const QString&)>& report,
             const std::function<bool()>& quitting)
{
    if (job.record.isEmpty()) {
        const Outcome outcome = play(job, report);
        return outcome == Outcome::Refused ? 2 : outcome == Outcome::Played ? 0 : 1;
    }
    Fennar& fennar = Fennar::instance();
    RunRecord record(fennar.interpreter(), job.journal);
    // What is left of an earlier run must not be taken for this one's, even if this one crashes.
    if (job.record != CommandLine::standard_output) {
        if (const QString reason = write(job.record, record.text(u"running"_s, {})); !reason.isEmpty()) {
            report(not_written(job.record, reason));
            return 1;
        }
    }
    listener = {[&record](const QString& text) { record.add_error(text); },
                [&record](const QString& script, const PythonScriptFailure& failure) {
                    record.add_script_failure(script, failure);
                }};
    TemporaryFolder::cancel_on_first_signal(&request_interrupt);
    const auto leave = qScopeGuard([&listener] {
        listener = {};
        TemporaryFolder::cancel_on_first_signal(nullptr);
    });
    const Outcome outcome = play(job, report);
    const QByteArray text = record.text(status_of(outcome, quitting()), fennar.playback().parameters());
    if (const QString reason = write(job.record, text); !reason.isEmpty()) {
        report(not_written(job.record, reason));
        return 1;
    }
    return outcome == Outcome::Refused ? 2 : outcome == Outcome::Played ? 0 : 1;
}

} // namespace fennar
