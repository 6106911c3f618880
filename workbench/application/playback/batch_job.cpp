// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/batch_job.h"

#include "workbench/application/ProgramStart.h"
#include "workbench/application/playback/RunRecord.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QFile>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Outcome = Playback::Outcome;

/** Whether reading from the file has to wait for others. */
bool is_pipe(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 &&
           (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

Outcome play(const BatchJob& job, const std::function<void(const QString&)>& report)
{
    Fennar& fennar = Fennar::instance();
    if (!job.model.isEmpty() &&
        fennar.interpreter().run(u"open "_s + quote_word(job.model)) != CommandInterpreter::Result::Done) {
        report(not_played(job.journal));
        return interrupt_requested() ? Outcome::Interrupted : Outcome::Failed;
    }
    // What comes from another program is read to its end first. A window would wait for that, and takes none.
    Playback& playback = fennar.playback();
    QFile file(job.journal);
    if (job.journal == CommandLine::standard_input && file.open(stdin, QIODevice::ReadOnly))
        return playback.play_device(file, u"standard input"_s, job.parameters);
    if (is_pipe(job.journal) && file.open(QIODevice::ReadOnly))
        return playback.play_device(file, job.journal, job.parameters);
    return playback.play(job.journal, 1, job.parameters);
}

int exit_status_of(Outcome outcome)
{
    return outcome == Outcome::Refused ? 2 : outcome == Outcome::Played ? 0 : 1;
}

QString status_of(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Failed:
        return u"failed"_s;
    case Outcome::Refused:
        return u"refused"_s;
    case Outcome::Interrupted:
    case Outcome::Stopped:
        return u"cancelled"_s;
    case Outcome::Played:
        break;
    }
    return u"done"_s;
}

/** Returns whether the record is written; if not, the user is told why. */
bool write(const QString& file, const QByteArray& text, const std::function<void(const QString&)>& report)
{
    QString reason;
    if (file != CommandLine::standard_output)
        reason = write_whole_file(file, {text});
    else if (std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout) != std::size_t(text.size()) ||
             std::fflush(stdout) != 0)
        reason = qt_error_string(errno);
    if (!reason.isEmpty())
        report(u"ERROR: the record %1 could not be written: %2\n"_s.arg(
            CommandError::shown(file, file.size()), reason));
    return reason.isEmpty();
}

} // namespace

int play_job(const BatchJob& job, RunRecord*& watching, const std::function<void(const QString&)>& report,
             const std::function<bool()>& quitting)
{
    const auto played = [&] {
        const Outcome outcome = play(job, report);
        return outcome == Outcome::Stopped && quitting() ? Outcome::Played : outcome;
    };
    if (job.record.isEmpty())
        return exit_status_of(played());
    Fennar& fennar = Fennar::instance();
    RunRecord record(fennar.interpreter(), job.journal);
    // What is left of an earlier run must not be taken for this one's, even if this one crashes.
    if (job.record != CommandLine::standard_output &&
        !write(job.record, record.text(u"running"_s, {}), report))
        return 1;
    watching = &record;
    TemporaryFolder::cancel_on_first_signal(&request_interrupt);
    const auto leave = qScopeGuard([&watching] {
        watching = nullptr;
        TemporaryFolder::cancel_on_first_signal(nullptr);
    });
    const Outcome outcome = played();
    const QByteArray text = record.text(status_of(outcome), fennar.playback().parameters());
    return write(job.record, text, report) ? exit_status_of(outcome) : 1;
}

} // namespace fennar
