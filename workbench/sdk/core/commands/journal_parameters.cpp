// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/journal_parameters.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <array>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

/** In the order of the forms. */
constexpr std::array kinds{Kind::Number, Kind::WholeNumber, Kind::Text, Kind::Choice};

CommandClause name_clause()
{
    return required_value({.name = u"NAME"_s,
                           .kind = Kind::Variable,
                           .what = u"a name"_s,
                           .label = QT_TRANSLATE_NOOP("CommandParameter", "Parameter"),
                           .entity = u"variable"_s,
                           .example = u"radius"_s});
}

CommandClause type_clause(const QString& type)
{
    return required_value({.name = u"TYPE"_s,
                           .kind = Kind::Choice,
                           .label = QT_TRANSLATE_NOOP("CommandParameter", "Type"),
                           .choices = {type}});
}

CommandClause default_clause(Kind kind, const QString& example)
{
    return required_value({.name = u"DEFAULT"_s,
                           .kind = kind,
                           .what = u"a default"_s,
                           .label = QT_TRANSLATE_NOOP("CommandParameter", "Default"),
                           .example = example});
}

CommandClause optional_clause(const QString& keyword, const QString& name, const char* label,
                              Kind kind = Kind::Text, const QString& example = {})
{
    return {.keyword = keyword,
            .parameters = {{.name = name, .kind = kind, .label = label, .example = example}},
            .optional = true};
}

CommandClause about_clause()
{
    return optional_clause(u"about"_s, u"TEXT"_s, QT_TRANSLATE_NOOP("CommandParameter", "Description"));
}

/** One that is looked at as the only value of a command. */
CommandWords as_line(const QString& value, qsizetype column)
{
    CommandWords words;
    words.words = {{parameter_command, 1, false}, {value, column, true}};
    return words;
}

void check_value(const CommandParameter& parameter, const QString& value, qsizetype column)
{
    const QList<CommandSyntax> forms{{.clauses = {required_value(parameter)}}};
    const CommandArguments checked(as_line(value, column), forms, nullptr);
}

/** Throws if the default is not among the values, or these are none. */
void verify_declaration(const CommandArguments& arguments, const CommandEntities&)
{
    const CommandParameter parameter = declared_parameter(arguments);
    if (parameter.kind == Kind::Choice && parameter.choices.isEmpty())
        throw arguments.error(arguments.word("of"_L1),
                              QT_TRANSLATE_NOOP("CommandError", "there is nothing to choose from"));
    if (parameter.least > parameter.most)
        throw arguments.error(arguments.word("max"_L1),
                              QT_TRANSLATE_NOOP("CommandError", "the maximum is less than the minimum"));
    check_value(parameter, parameter.default_value, arguments.words().column(arguments.word("DEFAULT"_L1)));
}

CommandSyntax number_form(Kind kind, const QString& type, const char* title)
{
    return {.clauses = {name_clause(), type_clause(type), default_clause(kind, u"2"_s),
                        optional_clause(u"min"_s, u"LEAST"_s,
                                        QT_TRANSLATE_NOOP("CommandParameter", "Minimum"), kind, u"1"_s),
                        optional_clause(u"max"_s, u"MOST"_s, QT_TRANSLATE_NOOP("CommandParameter", "Maximum"),
                                        kind, u"10"_s),
                        optional_clause(u"unit"_s, u"UNIT"_s, QT_TRANSLATE_NOOP("CommandParameter", "Unit")),
                        about_clause()},
            .title = title,
            .verify = &verify_declaration};
}

/** Whether the line, which has not been read yet, is one of the head; throws if it is a wrong declaration. */
bool take_line(const QString& line, CommandVariables& variables, const QMap<QString, QString>& given,
               QList<CommandParameter>& parameters)
{
    const CommandWords words =
        tokenize(line, [&variables](QStringView name) { return variables.value(name); });
    if (words.words.isEmpty() && !words.error)
        return true;
    if (words.words.isEmpty() || words.words[0].text != parameter_command)
        return false;
    if (words.error)
        throw *words.error;
    const CommandArguments arguments(words, parameter_forms(), nullptr);
    const CommandParameter parameter = declared_parameter(arguments);
    for (const CommandParameter& other : std::as_const(parameters)) {
        if (other.name == parameter.name)
            throw declared_twice(arguments);
    }
    const QString value = given.value(parameter.name, parameter.default_value);
    try {
        check_value(parameter, value, 0);
    } catch (const CommandError& error) {
        throw CommandError(parameter.name + ": "_L1 + error.message());
    }
    variables.set(parameter.name, value);
    parameters << parameter;
    return true;
}

} // namespace

std::optional<JournalSetting> read_setting(const QString& text)
{
    const qsizetype sign = text.indexOf(u'=');
    if (sign < 0 || !is_variable_name(QStringView(text).first(sign)))
        return std::nullopt;
    return JournalSetting{text.first(sign), text.sliced(sign + 1)};
}

const QList<CommandSyntax>& parameter_forms()
{
    static const QList<CommandSyntax> forms{
        number_form(Kind::Number, u"number"_s, QT_TRANSLATE_NOOP("CommandParameter", "Real number")),
        number_form(Kind::WholeNumber, u"whole"_s, QT_TRANSLATE_NOOP("CommandParameter", "Whole number")),
        {.clauses = {name_clause(), type_clause(u"text"_s), default_clause(Kind::Text, u"gear"_s),
                     about_clause()},
         .title = QT_TRANSLATE_NOOP("CommandParameter", "Text"),
         .verify = &verify_declaration},
        {.clauses = {name_clause(),
                     type_clause(u"choice"_s),
                     default_clause(Kind::Text, u"fine"_s),
                     {.keyword = u"of"_s,
                      .parameters = {{.name = u"CHOICES"_s,
                                      .kind = Kind::Text,
                                      .what = u"the choices, parted by blanks"_s,
                                      .label = QT_TRANSLATE_NOOP("CommandParameter", "Choices"),
                                      .tip = QT_TRANSLATE_NOOP("CommandParameter", "Parted by blanks"),
                                      .example = u"fine coarse"_s}}},
                     about_clause()},
         .title = QT_TRANSLATE_NOOP("CommandParameter", "Choice"),
         .verify = &verify_declaration}};
    return forms;
}

CommandParameter declared_parameter(const CommandArguments& arguments)
{
    CommandParameter parameter{.name = arguments.text("NAME"_L1),
                               .kind = kinds[std::size_t(arguments.form())],
                               .unit = arguments.text("unit"_L1),
                               .default_value = arguments.text("DEFAULT"_L1),
                               .choices = arguments.text("of"_L1).split(u' ', Qt::SkipEmptyParts)};
    parameter.what = parameter.name;
    if (arguments.has("min"_L1))
        parameter.least = arguments.number("min"_L1);
    if (arguments.has("max"_L1))
        parameter.most = arguments.number("max"_L1);
    return parameter;
}

CommandError declared_twice(const CommandArguments& second)
{
    return second.error(1, u"%1 is declared already"_s.arg(CommandError::shown(second.text("NAME"_L1))));
}

CommandError late_declaration()
{
    return CommandError(u"parameters are declared at the beginning of a journal, ahead of other commands"_s,
                        1);
}

JournalHead read_journal_head(QStringView text, CommandVariables variables,
                              const QMap<QString, QString>& given)
{
    JournalHead head;
    for (qsizetype start = 0; start < text.size();) {
        const ContinuedCommand command = ContinuedCommand::read(text, start);
        try {
            if (command.is_incomplete() || !take_line(command.text(), variables, given, head.parameters))
                return head;
        } catch (const CommandError& error) {
            head.error = error;
            return head;
        }
        head.lines += command.line_count();
    }
    return head;
}

} // namespace fennar
