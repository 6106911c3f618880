// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/builtin_commands.h"

#include "workbench/fennari19/CommandCall.h"
#include "workbench/fennari19/CommandInterpreter.h"
#include "workbench/fennari19/CommandRegistry.h"
#include "workbench/fennari19/Playback.h"

using namespace Qt::StringLiterals;

namespace {

/** The words from @p first on with one blank in between. */
QString joined(const CommandCall& call, qsizetype first)
{
    QString result;
    for (qsizetype i = first; i < call.count(); ++i) {
        if (i > first)
            result += u' ';
        result += call.words()[i].text;
    }
    return result;
}

void list_commands(CommandCall& call)
{
    const CommandRegistry& registry = call.interpreter().registry();
    const QStringList names = registry.names();
    qsizetype width = 0;
    for (const QString& name : names)
        width = std::max(width, name.size());
    QString text;
    for (const QString& name : names)
        text += name.leftJustified(width + 2) + registry.find(name)->summary + u'\n';
    call.print(text + "Type \"help COMMAND\" for more about a command.\n"_L1);
}

void help(CommandCall& call)
{
    const std::optional<QString> name = call.optional(1);
    call.expect_end();
    if (!name) {
        list_commands(call);
        return;
    }
    const CommandRegistry& registry = call.interpreter().registry();
    const std::shared_ptr<const Command> command = registry.find(*name);
    if (!command)
        throw registry.not_found(*name, call.column(1));
    QString text = u"Usage: "_s + command->usage + u'\n' + command->summary + u'\n';
    if (!command->help.isEmpty())
        text += u'\n' + command->help + (command->help.endsWith(u'\n') ? u""_s : u"\n"_s);
    call.print(text);
}

void echo(CommandCall& call)
{
    call.print(joined(call, 1) + u'\n');
}

/** A variable as the command that sets it. */
QString set_line(const QString& name, const QString& value)
{
    return u"set "_s + name + u' ' + quote_word(value) + u'\n';
}

void set(CommandCall& call)
{
    CommandVariables& variables = call.interpreter().variables();
    if (!call.has(1)) {
        QString text;
        const QStringList names = variables.names();
        for (const QString& name : names)
            text += set_line(name, variables.value(name).value_or(QString()));
        call.print(text);
        return;
    }
    const QString name = call.text(1, "a name");
    if (!is_variable_name(name))
        throw call.expected(1, "a name");
    if (call.has(2)) {
        variables.set(name, joined(call, 2));
        return;
    }
    const std::optional<QString> value = variables.value(name);
    if (!value)
        throw call.error(1, u"unknown variable %1"_s.arg(CommandError::shown(name)));
    call.print(set_line(name, *value));
}

void history(CommandCall& call, const HistorySource& source)
{
    const QStringList lines = source ? source() : QStringList();
    qsizetype count = lines.size();
    if (call.has(1))
        count = std::min(count, qsizetype(call.integer(1, "how many lines", 1)));
    call.expect_end();
    const auto width = QString::number(lines.size()).size();
    QString text;
    for (qsizetype i = lines.size() - count; i < lines.size(); ++i)
        text += QString::number(i + 1).rightJustified(width) + "  "_L1 + lines[i] + u'\n';
    call.print(text);
}

void play(CommandCall& call, Playback& playback)
{
    const QString path = call.text(1, "a file");
    if (path.isEmpty())
        throw call.expected(1, "a file");
    const int from = call.has(2) ? call.integer(2, "a line number", 1) : 1;
    call.expect_end();
    if (playback.play(path, from) != Playback::Outcome::Played)
        throw CommandError::reported();
}

void quit(CommandCall& call, Playback& playback, const std::function<void()>& ask)
{
    call.expect_end();
    if (!ask)
        throw CommandError(u"there is no application to end"_s);
    playback.stop();
    ask();
}

} // namespace

void register_builtin_commands(CommandInterpreter& interpreter, Playback& playback,
                               const BuiltinServices& services)
{
    const QString owner = u"fennari19"_s;
    const auto add = [&interpreter](const Command& command) { interpreter.registry().add(command); };
    add({u"help"_s, u"help [COMMAND]"_s, u"Lists all commands, or explains one."_s, {}, owner, help});
    add({u"echo"_s, u"echo [WORD...]"_s, u"Prints its words."_s,
         u"The words are printed with one blank in between; \"echo 'a  b'\" keeps the blanks in quotes."_s,
         owner, echo});
    add({u"set"_s, u"set [NAME [VALUE...]]"_s, u"Sets a variable, shows one, or lists all."_s,
         u"$NAME and ${NAME} stand for the value in later commands, except in single quotes.\n"
         "Several values are joined with one blank in between."_s,
         owner, set});
    add({u"history"_s,
         u"history [COUNT]"_s,
         u"Lists the lines typed so far, or the last COUNT of them."_s,
         {},
         owner,
         [&services](CommandCall& call) { history(call, services.history); }});
    add({u"play"_s, u"play FILE [LINE]"_s, u"Plays a journal or a Python script."_s,
         u"A relative name is looked up in the current directory. The first error ends the playback.\n"
         "With LINE, a journal is played from that line on.\n"
         "Files named *.py, and files whose first line is #!python, are run as Python."_s,
         owner, [&playback](CommandCall& call) { play(call, playback); }});
    add({u"quit"_s, u"quit"_s, u"Ends the application."_s, u"A journal in play is stopped."_s, owner,
         [&playback, &services](CommandCall& call) { quit(call, playback, services.quit); }});
}
