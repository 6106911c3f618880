// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandDescription.h"

#include "workbench/sdk/core/commands/FormReader.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace fennar {

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
    const bool literal = parameter.kind == Kind::Text || parameter.is_file();
    const bool as_it_is = parameter.kind == Kind::Words || (!literal && is_variable_reference(value));
    return as_it_is ? value : quote_word(value);
}

/** A limit with all of its digits. */
QString told(double limit)
{
    return QString::number(limit, 'g', QLocale::FloatingPointShortest);
}

/** The words at these places; those that are written as they are typed as one. */
QStringList values_of(const CommandParameter& parameter, const QStringList& words,
                      const QList<qsizetype>& places)
{
    const bool one = parameter.kind == Kind::Words;
    QStringList values;
    for (const qsizetype place : places) {
        const QString& word = words[place];
        const bool plain = !one || is_variable_reference(word);
        values << (plain ? word : quote_word(word));
    }
    return one && !values.isEmpty() ? QStringList(values.join(u' ')) : values;
}

bool is_one_word(const QString& text)
{
    const CommandWords words = tokenize(text);
    return words.words.size() == 1 && words.words.first().text == text;
}

/** What is wrong with a value in itself, as the end of a sentence; empty if nothing is. */
QString fault_of(const CommandParameter& parameter)
{
    static const QRegularExpression name(u"\\A[A-Z0-9_]+\\z"_s);
    if (!name.match(parameter.name).hasMatch())
        return u"is not named by capital letters, digits and \"_\""_s;
    if (parameter.kind == Kind::Choice && parameter.choices.isEmpty())
        return u"has no choices"_s;
    if (parameter.kind == Kind::Entity && parameter.entity.isEmpty() && parameter.choices.isEmpty())
        return u"has no kind of entities"_s;
    if (parameter.is_number() && !(parameter.least <= parameter.most))
        return u"has a least number that is not below the greatest"_s;
    if (parameter.at_least < 0)
        return u"wants fewer than no values"_s;
    return {};
}

} // namespace

CommandMessage number_range(const CommandParameter& parameter, const QString& found)
{
    const bool whole = parameter.kind == CommandParameter::Kind::WholeNumber;
    const double greatest = whole ? std::numeric_limits<int>::max() : std::numeric_limits<double>::max();
    const double given = parse_any_number(found).value_or(0);
    // What a number can hold anyhow is a limit worth telling only where it was passed.
    const bool has_least = parameter.least > (whole ? -greatest : -INFINITY) || given < -greatest;
    const bool has_most = parameter.most < (whole ? greatest : INFINITY) || given > greatest;
    const CommandMessage least(told(std::max(parameter.least, -greatest)));
    const CommandMessage most(told(std::min(parameter.most, greatest)));
    if (has_least && has_most)
        return {whole ? QT_TRANSLATE_NOOP("CommandError", "a whole number from %1 to %2")
                      : QT_TRANSLATE_NOOP("CommandError", "a number from %1 to %2"),
                {least, most}};
    if (has_least)
        return {whole ? QT_TRANSLATE_NOOP("CommandError", "a whole number from %1 on")
                      : QT_TRANSLATE_NOOP("CommandError", "a number from %1 on"),
                {least}};
    if (has_most)
        return {whole ? QT_TRANSLATE_NOOP("CommandError", "a whole number up to %1")
                      : QT_TRANSLATE_NOOP("CommandError", "a number up to %1"),
                {most}};
    return whole ? QT_TRANSLATE_NOOP("CommandError", "a whole number")
                 : QT_TRANSLATE_NOOP("CommandError", "a number");
}

QString declaration_fault(const QList<CommandSyntax>& forms)
{
    if (forms.isEmpty())
        return u"there is no way to write it"_s;
    for (const CommandSyntax& form : forms) {
        QStringList keys;
        for (const CommandClause& clause : form.clauses) {
            if (!clause.keyword.isEmpty() && !is_one_word(clause.keyword))
                return u"the keyword \"%1\" is not one plain word"_s.arg(clause.keyword);
            if (clause.keyword.isEmpty() && clause.parameters.isEmpty())
                return u"a clause has neither a keyword nor a value"_s;
            if (!clause.keyword.isEmpty())
                keys << clause.keyword;
            for (const CommandParameter& parameter : clause.parameters) {
                const QString fault = fault_of(parameter);
                if (!fault.isEmpty())
                    return u"the value \"%1\" %2"_s.arg(parameter.name, fault);
                if (clause.keyword.isEmpty())
                    keys << parameter.name;
            }
        }
        if (keys.removeDuplicates() > 0)
            return u"two of its keywords or values have the same name"_s;
    }
    return {};
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

std::optional<QList<ClauseValues>> read_values(const CommandSyntax& form, const QStringList& words)
{
    const FormReading reading = read_form(form, words, Missing::PassOver);
    if (reading.next < words.size())
        return std::nullopt;
    QList<ClauseValues> values;
    for (qsizetype i = 0; i < form.clauses.size(); ++i) {
        if (!reading.clauses[i]) {
            values << std::nullopt;
            continue;
        }
        QList<QStringList> clause;
        for (qsizetype j = 0; j < form.clauses[i].parameters.size(); ++j)
            clause << values_of(form.clauses[i].parameters[j], words, reading.clauses[i]->value(j));
        values << clause;
    }
    return values;
}

} // namespace fennar
