// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/Playback.h"

#include "workbench/fennar_util/Interrupt.h"
#include "workbench/fennari19/CommandError.h"
#include "workbench/fennari19/CommandInterpreter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QStringDecoder>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool is_python(QStringView text)
{
    while (!text.isEmpty()) {
        const qsizetype end = text.indexOf(u'\n');
        const QStringView line = (end < 0 ? text : text.first(end)).trimmed();
        if (!line.isEmpty())
            return line == "#!python"_L1;
        text = end < 0 ? QStringView() : text.sliced(end + 1);
    }
    return false;
}

struct Text
{
    QString text;
    /** What is wrong with the file; null if nothing. */
    QString error;
};

/** Names the line, so that it can be found and mended. */
qsizetype first_bad_line(const QByteArray& bytes)
{
    qsizetype number = 1;
    for (const QByteArray& line : bytes.split('\n')) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString decoded = decoder.decode(line);
        if (decoder.hasError())
            break;
        ++number;
    }
    return number;
}

Text read_text(const QString& path)
{
    const QString shown = CommandError::shown(path, path.size());
    const QFileInfo info(path);
    if (!info.exists())
        return {{}, u"%1 does not exist"_s.arg(shown)};
    if (info.isDir())
        return {{}, u"%1 is a directory"_s.arg(shown)};
    // A device or a pipe might never end.
    if (!info.isFile())
        return {{}, u"%1 is no regular file"_s.arg(shown)};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, u"cannot read %1: %2"_s.arg(shown, file.errorString())};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {{}, u"cannot read %1: %2"_s.arg(shown, file.errorString())};

    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0)
        return {{},
                u"%1 is no text file: it holds a NUL byte on line %2"_s.arg(shown).arg(
                    bytes.first(nul).count('\n') + 1)};
    // Stateless, so that a character cut off at the end is an error as well.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return {{}, u"%1 is not UTF-8 on line %2"_s.arg(shown).arg(first_bad_line(bytes))};
    return {text, {}};
}

} // namespace

Playback::Playback(CommandInterpreter& interpreter) : mInterpreter(interpreter) {}

Playback::Outcome Playback::play(const QString& path)
{
    if (mDepth >= depth_limit)
        return fail(u"journals are nested deeper than %1"_s.arg(depth_limit));
    const Text read = read_text(path);
    if (!read.error.isNull())
        return fail(read.error);

    const QString directory = QDir::currentPath();
    const bool change = mChangeDirectory();
    if (change)
        QDir::setCurrent(QFileInfo(path).absolutePath());
    const auto go_back = qScopeGuard([&] {
        if (change)
            QDir::setCurrent(directory);
    });
    return play_text(read.text, path, path.endsWith(".py"_L1) || is_python(read.text));
}

Playback::Outcome Playback::play_lines(const QStringList& lines, const QString& name)
{
    if (mDepth >= depth_limit)
        return fail(u"journals are nested deeper than %1"_s.arg(depth_limit));
    const QString text = lines.join(u'\n');
    return play_text(text, name, is_python(text));
}

void Playback::pause()
{
    set_paused(true);
}

void Playback::resume()
{
    set_paused(false);
}

void Playback::stop()
{
    mStop = is_playing();
    set_paused(false);
}

Playback::Outcome Playback::play_text(const QString& text, const QString& name, bool python)
{
    const InterruptScope scope;
    ++mDepth;
    const auto leave = qScopeGuard([this] {
        if (--mDepth == 0)
            mStop = false;
    });
    const Outcome outcome = python ? play_python(text, name) : play_journal(text, name);
    mInnerEnded = outcome != Outcome::Played;
    return outcome;
}

Playback::Outcome Playback::play_journal(QStringView text, const QString& name)
{
    // The commands that run may play journals themselves: nothing of this walk is a member.
    qsizetype line = 1;
    qsizetype last_command = 1;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype command_start = start;
        const qsizetype first_line = line;
        QStringList echoed;
        for (bool continued = true; continued && start < text.size(); ++line) {
            const qsizetype found = text.indexOf(u'\n', start);
            const qsizetype end = found < 0 ? text.size() : found;
            QStringView one = text.sliced(start, end - start);
            if (one.endsWith(u'\r'))
                one.chop(1);
            continued = one.endsWith(u'\\');
            echoed.append(one.toString());
            start = std::min(end + 1, text.size());
        }

        if (const Outcome outcome = turn_and_wait(); outcome != Outcome::Played)
            return report_end(outcome, name + u':' + QString::number(last_command));
        last_command = first_line;
        for (const QString& one : echoed)
            mEcho(one);
        const QString run = text.sliced(command_start, start - command_start).toString();
        if (const Outcome outcome = run_command(run, name, first_line); outcome != Outcome::Played)
            return outcome;
    }
    return Outcome::Played;
}

Playback::Outcome Playback::run_command(const QString& command, const QString& name, qsizetype line)
{
    mInnerEnded = false;
    const bool failed = mInterpreter.run(command, name, line) == CommandInterpreter::Result::Failed;
    Outcome outcome = test_end();
    if (outcome == Outcome::Played && failed)
        outcome = Outcome::Failed;
    const QString place = name + u':' + QString::number(line);
    if (mInnerEnded && outcome != Outcome::Played) {
        mInterpreter.print_error(u"  played from %1\n"_s.arg(place));
        return outcome;
    }
    return report_end(outcome, place);
}

Playback::Outcome Playback::play_python(const QString& text, const QString& name)
{
    if (const Outcome outcome = turn_and_wait(); outcome != Outcome::Played)
        return report_end(outcome, name);
    if (!mPythonHook)
        return fail(u"%1 is a Python script, and there is no Python here"_s.arg(
            CommandError::shown(name, name.size())));
    bool done = false;
    try {
        done = mPythonHook(name, text);
    } catch (const std::exception& error) {
        return fail(QString::fromUtf8(error.what()));
    } catch (...) {
        return fail(u"%1 failed for an unknown reason"_s.arg(CommandError::shown(name, name.size())));
    }
    if (const Outcome outcome = test_end(); outcome != Outcome::Played)
        return report_end(outcome, name);
    return done ? Outcome::Played : Outcome::Failed;
}

Playback::Outcome Playback::turn_and_wait()
{
    mTurn();
    while (mPaused && mWait && test_end() == Outcome::Played)
        mWait();
    return test_end();
}

Playback::Outcome Playback::test_end() const
{
    if (interrupt_requested())
        return Outcome::Interrupted;
    return mStop ? Outcome::Stopped : Outcome::Played;
}

Playback::Outcome Playback::report_end(Outcome outcome, const QString& place)
{
    if (outcome == Outcome::Interrupted)
        mInterpreter.print_error(u"Interrupted: %1\n"_s.arg(place));
    else if (outcome == Outcome::Stopped)
        mInterpreter.print_error(u"Stopped: %1\n"_s.arg(place));
    return outcome;
}

Playback::Outcome Playback::fail(const QString& message)
{
    mInterpreter.report(message);
    return Outcome::Failed;
}

void Playback::set_paused(bool paused)
{
    if (mPaused == paused)
        return;
    mPaused = paused;
    mPauseChanged(paused);
}
