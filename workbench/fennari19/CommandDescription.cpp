// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/fennari19/CommandDescription.h"

#include "workbench/fennari19/tokenize.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

QString usage(const CommandParameter& parameter)
{
    const QString word = parameter.kind == Kind::Choice ? parameter.choices.join(u'|') : parameter.name;
    QStringList words(parameter.at_least, word);
    if (parameter.repeated || parameter.kind == Kind::Words)
        words.last() += u"..."_s;
    return words.join(u' ');
}

QString usage(const CommandClause& clause)
{
    QStringList words;
    if (!clause.keyword.isEmpty())
        words << clause.keyword;
    for (const CommandParameter& parameter : clause.parameters)
        words << usage(parameter);
    return words.join(u' ');
}

QString usage(const QString& name, const CommandSyntax& form)
{
    QString text = name;
    // Those that are open: a value that may be left out, behind another one.
    QString closing;
    for (const CommandClause& clause : form.clauses) {
        const bool positional = clause.keyword.isEmpty();
        if (!(positional && clause.optional))
            text += std::exchange(closing, QString());
        text += clause.optional ? u" ["_s : u" "_s;
        text += usage(clause);
        if (positional && clause.optional)
            closing += u']';
        else if (clause.optional)
            text += u']';
    }
    return text + closing;
}

QString written(const CommandParameter& parameter, const QString& value)
{
    switch (parameter.kind) {
    case Kind::Words:
        return value;
    case Kind::Text:
    case Kind::InputFile:
    case Kind::OutputFile:
        return quote_word(value);
    default:
        return is_variable_reference(value) ? value : quote_word(value);
    }
}

} // namespace

CommandClause required_value(const CommandParameter& parameter)
{
    return {.parameters = {parameter}};
}

CommandClause optional_value(const CommandParameter& parameter)
{
    return {.parameters = {parameter}, .optional = true};
}

QString command_usage(const QString& name, const QList<CommandSyntax>& forms)
{
    QStringList ways;
    for (const CommandSyntax& form : forms)
        ways << usage(name, form);
    return ways.join(u" | "_s);
}

bool is_variable_reference(const QString& text)
{
    if (!text.startsWith(u'$'))
        return false;
    const QStringView name = QStringView(text).sliced(1);
    if (name.startsWith(u'{') && name.endsWith(u'}'))
        return is_variable_name(name.sliced(1).chopped(1));
    return is_variable_name(name);
}

QString command_line(const QString& name, const CommandSyntax& form, const QList<ClauseValues>& values)
{
    QStringList words{name};
    const qsizetype count = std::min(values.size(), form.clauses.size());
    for (qsizetype i = 0; i < count; ++i) {
        if (!values[i])
            continue;
        const CommandClause& clause = form.clauses[i];
        if (!clause.keyword.isEmpty())
            words << clause.keyword;
        const qsizetype parameters = std::min(values[i]->size(), clause.parameters.size());
        for (qsizetype j = 0; j < parameters; ++j) {
            for (const QString& value : values[i]->at(j))
                words << written(clause.parameters[j], value);
        }
    }
    return words.join(u' ');
}
