// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QScopeGuard>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Messages are one line, whatever an exception's text holds. */
QString one_line(const QString& text)
{
    QString result = text.trimmed();
    result.replace("\r\n"_L1, " "_L1);
    result.replace(u'\n', u' ');
    result.replace(u'\r', u' ');
    return result;
}

/** A first word that is longer is no name of a command, and messages do not begin with it. */
constexpr qsizetype longest_name = 60;

} // namespace

/** A command from the moment its line is looked at. */
struct CommandInterpreter::Call
{
    const Source& source;
    CommandWords words;
    /** Null until the command is found. Keeps it alive if it removes itself. */
    std::shared_ptr<const Command> command;
    /** Whether an observer is told of it: not of an empty line. */
    bool told = false;

    /** Whether what it changes is a step. */
    bool changes_model() const { return command && command->changes_model; }

    /** The command's name for messages, also if there is no such command; empty if the line has none. */
    QString name() const
    {
        const QString word = words.words.isEmpty() ? QString() : words.words[0].text;
        return word.size() <= longest_name && CommandRegistry::is_name(word) ? word : QString();
    }
};

CommandInterpreter::CommandInterpreter(CommandRegistry& registry) : mRegistry(registry) {}

CommandInterpreter::Result CommandInterpreter::enter(const QString& line)
{
    if (!mEntered.add(line))
        return Result::Incomplete;
    // The command may enter lines itself, so that it must find nothing here.
    const ContinuedCommand lines = std::exchange(mEntered, ContinuedCommand());
    return execute({lines, {}, 1, lines.line_count() > 1});
}

CommandInterpreter::Result CommandInterpreter::run(const QString& text, const QString& file,
                                                   qsizetype first_line)
{
    const InterruptScope scope;
    const bool tell_line = text.indexOf(u'\n') >= 0 && text.indexOf(u'\n') < text.size() - 1;
    qsizetype line = first_line;
    for (qsizetype start = 0; start < text.size();) {
        if (start > 0 && interrupt_requested()) {
            report_at(nullptr, CommandError(u"interrupted before line %1"_s.arg(line)));
            return Result::Failed;
        }
        const ContinuedCommand lines = ContinuedCommand::read(text, start);
        const Source source{lines, file, line, tell_line};
        if (lines.is_incomplete()) {
            const Call call{source, {}, nullptr};
            report_at(&call, lines.unended());
            return Result::Failed;
        }
        if (execute(source) == Result::Failed)
            return Result::Failed;
        line += lines.line_count();
    }
    return Result::Done;
}

CommandInterpreter::Outcome CommandInterpreter::call(const QString& line)
{
    ContinuedCommand lines;
    const bool complete = lines.add(line);
    const Source source{lines, {}, 1, false};
    Outcome outcome;
    if (complete) {
        execute(source, &outcome);
    } else {
        const Call call{source, {}, nullptr};
        outcome.failure = failure_of(&call, lines.unended());
    }
    return outcome;
}

void CommandInterpreter::report(const QString& message) const
{
    report_at(mCalls.isEmpty() ? nullptr : mCalls.last(), CommandError(message));
}

bool CommandInterpreter::is_running(const QString& owner) const
{
    return std::any_of(mCalls.begin(), mCalls.end(),
                       [&owner](const Call* call) { return call->command && call->command->owner == owner; });
}

CommandInterpreter::Result CommandInterpreter::execute(const Source& source, Outcome* outcome)
{
    mLastFailure = {};
    if (mCalls.size() >= depth_limit) {
        const CommandError error(u"commands are nested deeper than %1"_s.arg(depth_limit));
        if (outcome)
            outcome->failure = failure_of(mCalls.last(), error);
        else
            report_at(mCalls.last(), error);
        return Result::Failed;
    }
    const InterruptScope scope;
    Call call{source, {}, nullptr};
    Outcome ended;
    // The column of one that was reported may be of another line.
    bool own_column = true;
    const auto fail = [&](const CommandError& error) {
        own_column = !error.is_reported();
        if (!outcome && !error.is_reported())
            report_at(&call, error);
        if (!error.is_reported())
            ended.failure = failure_of(&call, error);
        else if (!mLastFailure.message.isEmpty())
            ended.failure = mLastFailure;
        else
            ended.failure = failure_of(&call, CommandError(u"it failed, as was reported"_s));
    };
    mCalls.append(&call);
    const auto leave = qScopeGuard([this] { mCalls.removeLast(); });
    try {
        ended.value = dispatch(call);
    } catch (...) {
        fail(CommandError::caught());
    }
    commit_step(call);
    const Result result = ended.failure ? Result::Failed : Result::Done;
    if (call.told && mEnded)
        tell_ended(call, ended, own_column);
    if (outcome)
        *outcome = std::move(ended);
    return result;
}

CommandValue CommandInterpreter::dispatch(Call& call)
{
    call.words =
        tokenize(call.source.lines.text(), [this](QStringView name) { return mVariables.value(name); });
    if (!call.words.words.isEmpty())
        call.command = mRegistry.find(call.words.words[0].text);
    call.told = !call.words.words.isEmpty() || call.words.error;
    if (call.told && mBegun)
        mBegun(run_of(call));
    if (call.words.error)
        throw *call.words.error;
    if (call.words.words.isEmpty())
        return {};
    const CommandWord& name = call.words.words[0];
    if (!call.command)
        throw mRegistry.not_found(name.text, name.column);
    CommandCall command_call(call.words, *this);
    call.command->perform(command_call,
                          CommandArguments(call.words, call.command->forms, &mRegistry.entities()));
    return command_call.result();
}

void CommandInterpreter::commit_step(const Call& call)
{
    // One within another is part of that one's step.
    if (!call.changes_model() || std::any_of(mCalls.begin(), std::prev(mCalls.end()),
                                             [](const Call* c) { return c->changes_model(); }))
        return;
    QStringList words;
    for (const CommandWord& word : call.words.words)
        words << quote_word(word.text);
    try {
        mRegistry.steps().commit(words.join(u' '));
    } catch (const std::exception&) { // out of memory: what came before can no longer be told from now
        mRegistry.steps().clear();
    }
}

void CommandInterpreter::set_observer(const Observer& observer)
{
    mBegun = observer.begun;
    mEnded = observer.ended;
}

CommandRun CommandInterpreter::run_of(const Call& call) const
{
    CommandRun run{.command = call.name(), .text = call.source.lines.text()};
    run.file = call.source.file;
    run.line = run.file.isEmpty() ? 0 : call.source.first_line;
    run.depth = mCalls.size() - 1;
    return run;
}

void CommandInterpreter::tell_ended(const Call& call, const Outcome& outcome, bool own_column)
{
    CommandRun run = run_of(call);
    run.value = outcome.value;
    run.failure = outcome.failure;
    if (run.failure) {
        const qsizetype column = own_column ? run.failure->column : 0;
        const ContinuedCommand::Position at = call.source.lines.position(column);
        run.failure_line = run.file.isEmpty() ? 0 : run.line + at.line;
        run.failure_column = column > 0 ? at.column : 0;
    }
    mEnded(run);
}

CommandFailure CommandInterpreter::failure_of(const Call* call, const CommandError& error)
{
    CommandFailure failure{one_line(error.message()), {}, error.column(), error.remedy()};
    if (call)
        failure.command = call->name();
    return failure;
}

void CommandInterpreter::report_at(const Call* call, const CommandError& error) const
{
    mLastFailure = failure_of(call, error);
    const qsizetype column = error.column();
    QString text = u"ERROR: "_s;
    if (call) {
        const Source& source = call->source;
        const ContinuedCommand::Position at = source.lines.position(column);
        const QString line = QString::number(source.first_line + at.line);
        if (!source.file.isEmpty())
            text += source.file + u':' + line + ": "_L1;
        if (const QString name = call->name(); !name.isEmpty())
            text += name + ": "_L1;
        if (source.file.isEmpty() && source.tell_line)
            text += "line "_L1 + line + (column > 0 ? ", "_L1 : ": "_L1);
        if (column > 0)
            text += u"column %1: "_s.arg(at.column);
    }
    print_error(text + mLastFailure.message + u'\n');
}

} // namespace fennar
