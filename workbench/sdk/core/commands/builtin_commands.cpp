// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/builtin_commands.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/UndoSteps.h"
#include "workbench/sdk/core/commands/check_journal.h"
#include "workbench/sdk/core/commands/journal_parameters.h"
#include "workbench/sdk/core/commands/read_journal_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

const QString variable_entity = u"variable"_s;

constexpr auto words_tip = QT_TRANSLATE_NOOP("CommandParameter", "Quotes keep blanks; $NAME is a variable.");

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

void help(CommandCall& call, const CommandArguments& arguments)
{
    if (!arguments.has("COMMAND"_L1)) {
        list_commands(call);
        return;
    }
    const auto command = call.interpreter().registry().find(arguments.text("COMMAND"_L1));
    QString text = u"Usage: "_s + command->usage() + u'\n' + command->summary + u'\n';
    if (const QString notes = command->notes(); !notes.isEmpty())
        text += notes + u'\n';
    if (!command->help.isEmpty())
        text += u'\n' + command->help + (command->help.endsWith(u'\n') ? u""_s : u"\n"_s);
    call.print(text);
}

void echo(CommandCall& call, const CommandArguments& arguments)
{
    call.print(arguments.texts("WORD"_L1).join(u' ') + u'\n');
}

/** A variable as the command that sets it. */
QString set_line(const QString& name, const QString& value)
{
    return u"set "_s + name + u' ' + quote_word(value) + u'\n';
}

void set(CommandCall& call, const CommandArguments& arguments)
{
    CommandVariables& variables = call.interpreter().variables();
    if (!arguments.has("NAME"_L1)) {
        QString text;
        const QStringList names = variables.names();
        for (const QString& name : names)
            text += set_line(name, variables.value(name).value_or(QString()));
        call.print(text);
        return;
    }
    const QString name = arguments.text("NAME"_L1);
    if (arguments.has("VALUE"_L1)) {
        variables.set(name, arguments.texts("VALUE"_L1).join(u' '));
        call.interpreter().registry().entities().tell_changed(variable_entity);
        return;
    }
    call.print(set_line(name, variables.value(name).value_or(QString())));
}

/** One that is to be shown must be set. */
void verify_set(const CommandArguments& arguments, const CommandEntities& entities)
{
    const QString name = arguments.text("NAME"_L1);
    if (name.isEmpty() || arguments.has("VALUE"_L1) || !entities.has(variable_entity) ||
        !entities.find(variable_entity, name).isEmpty())
        return;
    const QString remedy = entities.remedy(variable_entity, name);
    throw arguments.words().expected(1, QT_TRANSLATE_NOOP("CommandError", "a variable that is set"),
                                     remedy.isEmpty() ? u"a value behind it would set it"_s : remedy);
}

/** Takes steps back or makes them again, and tells which one or how many. */
void move_steps(CommandCall& call, const CommandArguments& arguments, UndoSteps& steps, bool back)
{
    const bool single = arguments.has("step"_L1);
    const std::size_t count = back ? steps.undo(single) : steps.redo(single);
    if (count == 0)
        throw call.error(0, back ? u"there is nothing to undo"_s : u"there is nothing to redo"_s);
    const QString done = back ? u"Undone: "_s : u"Redone: "_s;
    const std::size_t last = back ? steps.done() : steps.done() - 1;
    if (count > 1)
        call.print(done + u"%1 steps of a journal\n"_s.arg(count));
    else if (last < steps.steps().size()) // not forgotten meanwhile
        call.print(done + steps.steps()[last].command + u'\n');
}

Command step_command(const QString& name, const QString& summary, const QString& help, UndoSteps& steps)
{
    return {
        .name = name,
        .summary = summary,
        .help = help,
        .perform =
            [&steps, back = name == "undo"_L1](CommandCall& call, const CommandArguments& arguments) {
                move_steps(call, arguments, steps, back);
            },
        .forms = {{.clauses = {{.keyword = u"step"_s,
                                .optional = true,
                                .label = QT_TRANSLATE_NOOP("CommandParameter", "One step of a journal")}}}},
        .changes_model = true,
        .makes = {Command::any_kind}};
}

void history(CommandCall& call, const CommandArguments& arguments, const HistorySource& source)
{
    if (arguments.has("steps"_L1)) {
        list_steps(call, call.interpreter().registry().steps());
        return;
    }
    const QStringList lines = source ? source() : QStringList();
    qsizetype count = lines.size();
    if (arguments.has("COUNT"_L1))
        count = std::min(count, qsizetype(arguments.integer("COUNT"_L1)));
    const auto width = QString::number(lines.size()).size();
    QString text;
    for (qsizetype i = lines.size() - count; i < lines.size(); ++i)
        text += QString::number(i + 1).rightJustified(width) + "  "_L1 + lines[i] + u'\n';
    call.print(text);
}

/** "parameter NAME TYPE DEFAULT ..." */
void parameter(CommandCall& call, const CommandArguments& arguments, Playback& playback)
{
    const CommandParameter parameter = declared_parameter(arguments);
    const Playback::Declaration declaration = playback.declare(parameter.name);
    if (declaration.late)
        throw late_declaration();
    if (declaration.again)
        throw declared_twice(arguments);
    call.interpreter().variables().set(parameter.name, declaration.value.value_or(parameter.default_value));
    call.interpreter().registry().entities().tell_changed(variable_entity);
}

void verify_play(const CommandArguments& arguments, const CommandEntities&)
{
    const QStringList settings = arguments.texts("with"_L1);
    for (qsizetype i = 0; i < settings.size(); ++i) {
        if (!read_setting(settings[i]))
            throw arguments.words().expected(
                arguments.word("with"_L1, i),
                QT_TRANSLATE_NOOP("CommandError", "a parameter and its value as NAME=VALUE"));
    }
    if (arguments.integer("LINE"_L1) != 1 && !settings.isEmpty())
        throw arguments.error(
            arguments.word("with"_L1) - 1,
            QT_TRANSLATE_NOOP("CommandError", "only a journal that is played from line 1 takes values"));
}

/** "play FILE [LINE] [with SETTING...]" */
void play(const CommandArguments& arguments, Playback& playback)
{
    QList<JournalSetting> settings;
    const QStringList texts = arguments.texts("with"_L1);
    for (const QString& text : texts)
        settings << read_setting(text).value();
    if (playback.play(arguments.text("FILE"_L1), arguments.integer("LINE"_L1), settings) !=
        Playback::Outcome::Played)
        throw CommandError::reported();
}

void verify_check(const CommandArguments& arguments, const CommandEntities&)
{
    if (arguments.text("FILE"_L1).endsWith(".py"_L1))
        throw arguments.error(arguments.word("FILE"_L1),
                              QT_TRANSLATE_NOOP("CommandError", "a Python script cannot be checked"));
}

void quit(Playback& playback, const std::function<void()>& ask)
{
    if (!ask)
        throw CommandError(u"there is no application to end"_s);
    playback.stop();
    ask();
}

/** Those about words, variables and what was typed. */
QList<Command> plain_commands(const BuiltinServices& services)
{
    return {
        {.name = u"help"_s,
         .summary = u"Lists all commands, or explains one."_s,
         .perform = help,
         .forms = {{.clauses = {optional_value({.name = u"COMMAND"_s,
                                                .kind = Kind::Entity,
                                                .what = u"a command"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Command"),
                                                .entity = command_entity()})}}}},
        {.name = u"echo"_s,
         .summary = u"Prints its words."_s,
         .help =
             u"The words are printed with one blank in between; \"echo 'a  b'\" keeps the blanks in quotes."_s,
         .perform = echo,
         .forms = {{.clauses = {optional_value({.name = u"WORD"_s,
                                                .kind = Kind::Words,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Words"),
                                                .tip = words_tip,
                                                .example = u"'a  b' c"_s})}}}},
        {.name = u"set"_s,
         .summary = u"Sets a variable, shows one, or lists all."_s,
         .help = u"$NAME and ${NAME} stand for the value in later commands, except in single quotes.\n"
                 "Several values are joined with one blank in between."_s,
         .perform = set,
         .forms = {{.clauses = {optional_value({.name = u"NAME"_s,
                                                .kind = Kind::Variable,
                                                .what = u"a name"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Variable"),
                                                .entity = variable_entity,
                                                .example = u"radius"_s}),
                                optional_value({.name = u"VALUE"_s,
                                                .kind = Kind::Words,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Value"),
                                                .tip = words_tip,
                                                .example = u"2.5"_s})},
                    .verify = &verify_set}}},
        {.name = u"history"_s,
         .summary = u"Lists the lines typed so far, or the steps that can be undone and redone."_s,
         .help = u"With COUNT, the last lines of that number. The oldest is the first. Steps that take more "
                 u"memory than the\n"
                 "options allow are forgotten."_s,
         .perform =
             [&services](CommandCall& call, const CommandArguments& arguments) {
                 history(call, arguments, services.history);
             },
         .forms = {{.clauses = {optional_value({.name = u"COUNT"_s,
                                                .kind = Kind::WholeNumber,
                                                .what = u"how many lines"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Lines"),
                                                .least = 1,
                                                .example = u"10"_s})},
                    .title = QT_TRANSLATE_NOOP("CommandParameter", "Lines typed")},
                   {.clauses = {{.keyword = u"steps"_s,
                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "Steps of the model")}},
                    .title = QT_TRANSLATE_NOOP("CommandParameter", "Steps of the model")}}}};
}

/** The parameters of the journal that "play" was given and that have no value yet, as "size=". */
QStringList settings_of_journal(const QStringList& given)
{
    const JournalText read = read_journal_text(given.value(0));
    QStringList settings;
    for (const CommandParameter& parameter : read_journal_head(read.text, {}).parameters) {
        const QString setting = parameter.name + u'=';
        const auto is_given = [&setting](const QString& word) { return word.startsWith(setting); };
        if (std::none_of(given.begin(), given.end(), is_given))
            settings << setting;
    }
    return settings;
}

Command play_command(Playback& playback)
{
    return {
        .name = u"play"_s,
        .summary = u"Plays a journal or a Python script."_s,
        .help =
            u"A relative name is looked up in the current directory. The first error ends the playback.\n"
            "With LINE, a journal is played from that line on. With SETTING, as size=2, a parameter that it\n"
            "declares has that value and not its default.\n"
            "Files named *.py, and files whose first line is #!python, are run as Python."_s,
        .perform = [&playback](CommandCall&,
                               const CommandArguments& arguments) { play(arguments, playback); },
        .forms = {{.clauses = {required_value(
                                   {.name = u"FILE"_s,
                                    .kind = Kind::InputFile,
                                    .what = u"a file"_s,
                                    .label = QT_TRANSLATE_NOOP("CommandParameter", "Journal or script"),
                                    .filters = &journal_filters,
                                    .example = u"example.jou"_s}),
                               optional_value({.name = u"LINE"_s,
                                               .kind = Kind::WholeNumber,
                                               .what = u"a line number"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "From line"),
                                               .default_value = u"1"_s,
                                               .least = 1}),
                               {.keyword = u"with"_s,
                                .parameters = {{.name = u"SETTING"_s,
                                                .kind = Kind::Text,
                                                .what = u"NAME=VALUE"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Parameters"),
                                                .tip = QT_TRANSLATE_NOOP("CommandParameter",
                                                                         "As size=2, parted by blanks"),
                                                .repeated = true,
                                                .example = u"size=2"_s,
                                                .beginnings = &settings_of_journal}},
                                .optional = true}},
                   .verify = &verify_play}},
        .runs_commands = true,
        .long_running = true};
}

/** Those about journals, and the end of them all. */
QList<Command> journal_commands(Playback& playback, const BuiltinServices& services)
{
    return {
        {.name = parameter_command,
         .summary = u"Declares a variable that whoever plays the journal may set."_s,
         .help =
             u"Declarations stand at the beginning of a journal, ahead of all other commands. $NAME is "
             u"DEFAULT\n"
             "unless another value was given, as by \"play FILE with NAME=VALUE\" or \"fennar --set NAME=VALUE\"."_s,
         .perform = [&playback](CommandCall& call,
                                const CommandArguments& arguments) { parameter(call, arguments, playback); },
         .forms = parameter_forms()},
        play_command(playback),
        {.name = u"check"_s,
         .summary = u"Looks for errors in a journal without running it."_s,
         .help = u"Found are commands that do not exist, words that do not fit them, and names that nothing "
                 u"has, be it\n"
                 "now or by a line ahead. Behind a line that may give names which it does not tell, as an "
                 "import\n"
                 "does, names are not looked up."_s,
         .perform =
             [](CommandCall& call, const CommandArguments& arguments) {
                 check_file(call.interpreter(), arguments.text("FILE"_L1));
             },
         .forms = {{.clauses = {required_value({.name = u"FILE"_s,
                                                .kind = Kind::InputFile,
                                                .what = u"a journal"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Journal"),
                                                .filters = [] { return journal_filters().mid(0, 1); },
                                                .example = u"example.jou"_s})},
                    .verify = &verify_check}}},
        {.name = u"quit"_s,
         .summary = u"Ends the application."_s,
         .help = u"A journal in play is stopped."_s,
         .perform = [&playback, &services](CommandCall&, const CommandArguments&) {
             quit(playback, services.quit);
         }}};
}

} // namespace

QList<CommandFileFilter> journal_filters()
{
    return {{QString::fromLatin1(QT_TRANSLATE_NOOP("CommandParameter", "Journals")), u".jou"_s},
            {QString::fromLatin1(QT_TRANSLATE_NOOP("CommandParameter", "Python Scripts")), u".py"_s}};
}

void check_file(CommandInterpreter& interpreter, const QString& path)
{
    const JournalText read = read_journal_text(path);
    if (!read.error.isEmpty())
        throw CommandError(read.error);
    if (path.endsWith(".py"_L1) || Playback::is_python(read.text))
        throw CommandError(
            u"%1 is a Python script, which cannot be checked"_s.arg(CommandError::shown(path, path.size())));
    const QList<JournalFault> faults =
        check_journal(read.text, interpreter.registry(), interpreter.variables());
    for (const JournalFault& fault : faults)
        interpreter.print_error(u"ERROR: %1:%2: %3\n"_s.arg(path).arg(fault.line).arg(fault.message));
    if (!faults.isEmpty())
        throw CommandError::reported();
    interpreter.print(u"No errors were found.\n"_s);
}

void register_step_commands(CommandRegistry& registry, const QString& owner)
{
    UndoSteps& steps = registry.steps();
    registry.add_all(
        owner,
        {step_command(
             u"undo"_s, u"Takes back the last command that has changed the model."_s,
             u"A journal that was played is taken back as a whole; with \"step\", its last command "
             "alone. What starts\nanother model, as \"new\" and \"open\" do, cannot be taken back."_s,
             steps),
         step_command(u"redo"_s, u"Makes again what was undone last."_s,
                      u"A journal is made again as a whole; with \"step\", its next command alone. The first "
                      "change after an undo\nends it."_s,
                      steps)});
}

void list_steps(CommandCall& call, const UndoSteps& steps)
{
    if (steps.steps().empty()) {
        call.print(u"There are no steps.\n"_s);
        return;
    }
    const auto width = QString::number(steps.steps().size()).size();
    QString text;
    for (std::size_t i = 0; i < steps.steps().size(); ++i) {
        const UndoSteps::Step& step = steps.steps()[i];
        text += QString::number(i + 1).rightJustified(width) +
                (i < steps.done() ? u"          "_s : u"  undone  "_s) +
                (step.journal != 0 ? u"journal  "_s : u"         "_s) + step.command + u'\n';
    }
    call.print(text);
}

void register_builtin_commands(CommandInterpreter& interpreter, Playback& playback,
                               const BuiltinServices& services)
{
    const QString owner = u"fennari19"_s;
    CommandRegistry& registry = interpreter.registry();
    registry.entities().offer(variable_entity, owner,
                              [&interpreter] { return interpreter.variables().names(); });
    registry.add_all(owner, plain_commands(services) + journal_commands(playback, services));
    register_step_commands(registry, owner);
}

} // namespace fennar
