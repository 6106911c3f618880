// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/Playback.h"

#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/read_journal_text.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

QString place_of(const QString& name, qsizetype line)
{
    return name + u':' + QString::number(line);
}

} // namespace

Playback::Playback(CommandInterpreter& interpreter) : mInterpreter(interpreter) {}

bool Playback::is_python(QStringView text)
{
    const QStringView rest = text.trimmed();
    const qsizetype end = rest.indexOf(u'\n');
    return (end < 0 ? rest : rest.first(end)).trimmed() == "#!python"_L1;
}

Playback::Outcome Playback::play(const QString& path, qsizetype from, const QList<JournalSetting>& settings)
{
    if (mScripts.size() >= depth_limit)
        return fail(u"journals are nested deeper than %1"_s.arg(depth_limit));
    const JournalText read = read_journal_text(path);
    if (!read.error.isNull())
        return fail(read.error);

    const bool python = path.endsWith(".py"_L1) || is_python(read.text);
    const QString shown = CommandError::shown(path, path.size());
    qsizetype start = 0;
    qsizetype line = 1;
    while (line < from && start < read.text.size())
        line += ContinuedCommand::read(read.text, start).line_count();
    if (from != 1 && python)
        return fail(u"%1 is a Python script, which is only run as a whole"_s.arg(shown));
    if (from < 1 || (from > 1 && line <= from && start == read.text.size()))
        return fail(u"%1 has no line %2"_s.arg(shown).arg(from));
    if (line > from)
        return fail(u"line %1 of %2 continues the line before it"_s.arg(from).arg(shown));
    const auto go_on = [again = u"play "_s + quote_word(name_from_here(path))](qsizetype next) {
        return again + u' ' + QString::number(next);
    };
    const QFileInfo file(path);
    return play_text({.text = read.text.sliced(start),
                      .name = path,
                      .python = python,
                      .first_line = from,
                      .go_on = go_on,
                      .file = file.absoluteFilePath(),
                      .directory = file.absolutePath(),
                      .settings = settings});
}

Playback::Outcome Playback::play_device(QIODevice& device, const QString& name,
                                        const QList<JournalSetting>& settings)
{
    const JournalText read = read_journal_text(device, CommandError::shown(name, name.size()));
    if (!read.error.isNull())
        return fail(read.error);
    return play_text({.text = read.text,
                      .name = name,
                      .python = name.endsWith(".py"_L1) || is_python(read.text),
                      .settings = settings});
}

Playback::Outcome Playback::play_lines(const QStringList& lines, const QString& name, const Origin& origin)
{
    if (mScripts.size() >= depth_limit)
        return fail(u"journals are nested deeper than %1"_s.arg(depth_limit));
    const QString text = lines.join(u'\n');
    return play_text({.text = text,
                      .name = name,
                      .python = origin.python || is_python(text),
                      .first_line = origin.first_line,
                      .go_on = origin.go_on,
                      .directory = origin.directory,
                      .piece = origin.piece});
}

const Playback::Script* Playback::python_script() const
{
    const auto found =
        std::find_if(mScripts.rbegin(), mScripts.rend(), [](const Script* script) { return script->python; });
    return found == mScripts.rend() ? nullptr : *found;
}

QString Playback::script_in_play() const
{
    const Script* const script = python_script();
    return script ? script->name : QString();
}

QString Playback::file_in_play(const QString& name) const
{
    const auto found = std::find_if(mScripts.rbegin(), mScripts.rend(),
                                    [&name](const Script* script) { return script->name == name; });
    return found == mScripts.rend() ? QString() : (*found)->file;
}

Playback::Declaration Playback::declare(const QString& name)
{
    if (mScripts.isEmpty() || mScripts.last()->python)
        return {};
    Script& script = *mScripts.last();
    const bool again = script.declared.contains(name);
    script.declared << name;
    const auto given = script.given.constFind(name);
    return {given == script.given.constEnd() ? std::nullopt : std::optional(*given),
            script.lines >= script.head_lines, again};
}

void Playback::script_reached(qsizetype line)
{
    if (!python_script())
        return;
    // By value: what the wait lets in may end the run.
    const Script script = *python_script();
    const qsizetype lines = script.text.count(u'\n') + 1;
    const qsizetype done = line - script.first_line;
    if (done > 0 && done < lines && mScripts.size() == 1)
        show_progress(script, std::max(int(done * 100 / lines), mPercent));
    wait_while_paused(line > 0 ? u"in "_s + place_of(script.name, line) : u"in "_s + script.name);
}

void Playback::stop()
{
    mStop = is_playing();
    set_paused(false);
}

Playback::Outcome Playback::play_text(Script script)
{
    const InterruptScope scope;
    if (const QString wrong = read_parameters(script); !wrong.isEmpty()) {
        fail(wrong);
        return Outcome::Refused;
    }
    const QString before = QDir::currentPath();
    const bool change = !script.directory.isEmpty() && mChangeDirectory();
    if (change && !QDir::setCurrent(script.directory))
        return fail(u"cannot change to the directory %1 of %2"_s.arg(
            CommandError::shown(script.directory, script.directory.size()),
            CommandError::shown(script.name, script.name.size())));
    mScripts.append(&script);
    if (mScripts.size() == 1) {
        ++mJournals;
        mDirectory = before;
        mPercent = 0;
        mProgress(script.name, 0);
    }
    const auto leave = qScopeGuard([&] {
        mScripts.removeLast();
        if (change)
            QDir::setCurrent(before);
        if (is_playing())
            return;
        mStop = false;
        mProgress(script.name, 100);
    });
    const Outcome outcome = script.python ? play_python(script) : play_journal(script);
    mInner = outcome;
    mInnerPython = script.python;
    return outcome;
}

QString Playback::read_parameters(Script& script)
{
    for (const JournalSetting& setting : std::as_const(script.settings)) {
        if (script.given.contains(setting.name))
            return u"a value for %1 is given twice"_s.arg(CommandError::shown(setting.name));
        script.given.insert(setting.name, setting.value);
    }
    const QString name = CommandError::shown(script.name, script.name.size());
    if (script.python && !script.given.isEmpty())
        return u"%1 is a Python script, which has no parameters"_s.arg(name);
    const JournalHead head = script.python
                                 ? JournalHead()
                                 : read_journal_head(script.text, mInterpreter.variables(), script.given);
    // Without settings the run comes to it, and tells more.
    if (head.error && !script.given.isEmpty())
        return place_of(script.name, script.first_line + head.lines) + ": "_L1 + head.error->message();
    script.head_lines = head.error ? script.text.size() : head.lines;
    QStringList names;
    QList<std::pair<CommandParameter, QString>> values;
    for (const CommandParameter& parameter : head.parameters) {
        names << parameter.name;
        values.append({parameter, script.given.value(parameter.name, parameter.default_value)});
    }
    for (const JournalSetting& setting : std::as_const(script.settings)) {
        if (names.contains(setting.name))
            continue;
        const QString remedy = CommandEntities::remedy_among(setting.name, names);
        return u"%1 has no parameter %2"_s.arg(name, CommandError::shown(setting.name)) +
               (remedy.isEmpty() ? QString() : u"; "_s + remedy);
    }
    if (!is_playing())
        mParameters = values;
    return {};
}

Playback::Outcome Playback::play_journal(Script& script)
{
    // The commands that run may play journals themselves: nothing of this walk is a member.
    const QStringView text = script.text;
    qsizetype line = script.first_line;
    qsizetype last_command = line;
    for (qsizetype start = 0; start < text.size();) {
        if (mScripts.size() == 1)
            show_progress(script, int(start * 100 / text.size()));
        if (const Outcome outcome = turn_and_wait(place_of(script.name, line)); outcome != Outcome::Played) {
            report_end(outcome, place_of(script.name, last_command));
            hint(script, line);
            return outcome;
        }
        const qsizetype begin = start;
        const qsizetype line_count = ContinuedCommand::read(text, start).line_count();
        const QString command = text.sliced(begin, start - begin).toString();
        const QStringList echoed = command.split(u'\n').first(line_count);
        for (const QString& one : echoed)
            mEcho(one.endsWith(u'\r') ? one.chopped(1) : one);
        mInner = Outcome::Played;
        script.lines = line - script.first_line;
        const bool done = mInterpreter.run(command, script.name, line) != CommandInterpreter::Result::Failed;
        const Outcome outcome = end_of(done);
        const bool inner = mInner != Outcome::Played && outcome != Outcome::Played;
        last_command = line;
        line += line_count;
        if (outcome == Outcome::Played)
            continue;
        if (inner)
            mInterpreter.print_error(u"  played from %1\n"_s.arg(place_of(script.name, last_command)));
        else
            report_end(outcome, place_of(script.name, last_command));
        // What an inner journal has left is played on there.
        const bool again = !done && (!inner || mInnerPython);
        if (again || start < text.size())
            hint(script, again ? last_command : line);
        return outcome;
    }
    return Outcome::Played;
}

Playback::Outcome Playback::play_python(const Script& script)
{
    const QString& name = script.name;
    if (const Outcome outcome = turn_and_wait(name); outcome != Outcome::Played)
        return report_end(outcome, name);
    if (!mPythonHook)
        return fail(u"%1 is a Python script, and there is no Python here"_s.arg(
            CommandError::shown(name, name.size())));
    bool done = false;
    mInner = Outcome::Played;
    try {
        // Lines keep their numbers.
        done = mPythonHook({name, QString(script.first_line - 1, u'\n') + script.text, script.piece});
    } catch (const std::exception& error) {
        return fail(QString::fromUtf8(error.what()));
    } catch (...) {
        return fail(u"%1 failed for an unknown reason"_s.arg(CommandError::shown(name, name.size())));
    }
    return report_end(end_of(done), name);
}

Playback::Outcome Playback::turn_and_wait(const QString& next)
{
    mTurn();
    wait_while_paused(u"ahead of "_s + next);
    return test_end();
}

void Playback::wait_while_paused(const QString& where)
{
    for (bool told = false; mPaused && mWait && test_end() == Outcome::Played; mWait()) {
        if (!std::exchange(told, true))
            mInterpreter.print(u"Paused %1\n"_s.arg(where));
    }
}

void Playback::show_progress(const Script& script, int percent)
{
    if (percent != std::exchange(mPercent, percent))
        mProgress(script.name, percent);
}

Playback::Outcome Playback::test_end() const
{
    if (interrupt_requested())
        return Outcome::Interrupted;
    return mStop ? Outcome::Stopped : Outcome::Played;
}

Playback::Outcome Playback::end_of(bool done) const
{
    const Outcome ended = test_end();
    // What goes wrong behind stop() does not come from it, unless that has ended an inner journal.
    const bool own_fault = ended == Outcome::Stopped && mInner != Outcome::Stopped;
    return !done && (own_fault || ended == Outcome::Played) ? Outcome::Failed : ended;
}

Playback::Outcome Playback::report_end(Outcome outcome, const QString& place)
{
    if (outcome == Outcome::Interrupted)
        mInterpreter.print_error(u"Interrupted: %1\n"_s.arg(place));
    else if (outcome == Outcome::Stopped)
        mInterpreter.print_error(u"Stopped: %1\n"_s.arg(place));
    return outcome;
}

/** How to play on from the line that is to come next. */
void Playback::hint(const Script& script, qsizetype line) const
{
    if (mHints && script.go_on)
        mInterpreter.print_error(u"  play on with: %1\n"_s.arg(script.go_on(line)));
}

/** @p path, so that it means the same once the outermost journal has ended and its directory is left. */
QString Playback::name_from_here(const QString& path) const
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const bool same = !is_playing() || QFileInfo(QDir(mDirectory), path).absoluteFilePath() == absolute;
    return same ? path : absolute;
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

} // namespace fennar
