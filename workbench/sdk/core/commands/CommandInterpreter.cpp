// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandInterpreter.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QScopeGuard>

#include <new>

using namespace Qt::StringLiterals;

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

    /** The command's name for messages, also if there is no such command; empty if the line has none. */
    QString name() const
    {
        const QString word = words.words.isEmpty() ? QString() : words.words[0].text;
        return word.size() <= longest_name && CommandRegistry::is_name(word) ? word : QString();
    }
};

CommandInterpreter::CommandInterpreter(CommandRegistry& registry) : mRegistry(registry) {}

CommandInterpreter::~CommandInterpreter() = default;

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
    ContinuedCommand lines;
    qsizetype line_number = first_line;
    qsizetype command_line = first_line;
    for (qsizetype start = 0; start < text.size(); ++line_number) {
        const qsizetype line_end = text.indexOf(u'\n', start);
        const qsizetype end = line_end < 0 ? text.size() : line_end + 1;
        if (lines.is_empty()) {
            command_line = line_number;
            if (start > 0 && interrupt_requested()) {
                report_at(nullptr, u"interrupted before line %1"_s.arg(line_number), 0);
                return Result::Failed;
            }
        }
        if (lines.add(QStringView(text).sliced(start, end - start))) {
            if (execute({lines, file, command_line, tell_line}) == Result::Failed)
                return Result::Failed;
            lines.clear();
        }
        start = end;
    }
    if (!lines.is_incomplete())
        return Result::Done;
    const Source source{lines, file, command_line, tell_line};
    const Call call{source, {}, nullptr};
    report_at(&call, u"expected another line behind the backslash, found the end of the text"_s,
              lines.text().size() + 1);
    return Result::Failed;
}

void CommandInterpreter::print(const QString& text) const
{
    mOutput(text);
}

void CommandInterpreter::print_error(const QString& text) const
{
    mErrorOutput(text);
}

void CommandInterpreter::report(const QString& message) const
{
    report_at(mCalls.isEmpty() ? nullptr : mCalls.last(), message, 0);
}

bool CommandInterpreter::is_running(const QString& owner) const
{
    return std::any_of(mCalls.begin(), mCalls.end(),
                       [&owner](const Call* call) { return call->command && call->command->owner == owner; });
}

CommandInterpreter::Result CommandInterpreter::execute(const Source& source)
{
    if (mCalls.size() >= depth_limit) {
        report(u"commands are nested deeper than %1"_s.arg(depth_limit));
        return Result::Failed;
    }
    const InterruptScope scope;
    Call call{source, {}, nullptr};
    mCalls.append(&call);
    const auto leave = qScopeGuard([this] { mCalls.removeLast(); });
    try {
        dispatch(call);
        return Result::Done;
    } catch (const CommandError& error) {
        if (!error.is_reported())
            report_at(&call, error.message(), error.column());
    } catch (const std::bad_alloc&) {
        report_at(&call, u"out of memory"_s, 0);
    } catch (const std::exception& error) {
        report_at(&call, QString::fromUtf8(error.what()), 0);
    } catch (...) {
        report_at(&call, u"failed for an unknown reason"_s, 0);
    }
    return Result::Failed;
}

void CommandInterpreter::dispatch(Call& call)
{
    call.words =
        tokenize(call.source.lines.text(), [this](QStringView name) { return mVariables.value(name); });
    if (!call.words.words.isEmpty())
        call.command = mRegistry.find(call.words.words[0].text);
    if (call.words.error)
        throw *call.words.error;
    if (call.words.words.isEmpty())
        return;
    const CommandWord& name = call.words.words[0];
    if (!call.command)
        throw mRegistry.not_found(name.text, name.column);
    CommandCall command_call(call.words, *this);
    call.command->perform(command_call,
                          CommandArguments(call.words, call.command->forms, &mRegistry.entities()));
}

void CommandInterpreter::report_at(const Call* call, const QString& message, qsizetype column) const
{
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
    print_error(text + one_line(message) + u'\n');
}
