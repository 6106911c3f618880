// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandDescription.h"

#include "workbench/sdk/core/commands/tokenize.h"

#include <algorithm>

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

/** Reads words from left to right into the clauses of a form. */
class WordReader
{
public:
    WordReader(const CommandSyntax& form, const QStringList& words) : mForm(form), mWords(words) {}

    bool at_end() const { return mNext >= mWords.size(); }
    ClauseValues read_clause(qsizetype i)
    {
        const CommandClause& clause = mForm.clauses[i];
        if (at_end() || (clause.keyword.isEmpty() ? !can_begin(i) : mWords[mNext] != clause.keyword))
            return std::nullopt;
        if (!clause.keyword.isEmpty())
            ++mNext;
        QList<QStringList> values;
        for (const CommandParameter& parameter : clause.parameters)
            values << read_parameter(parameter, i);
        return values;
    }

private:
    static bool is_free(const CommandParameter& parameter)
    {
        return parameter.kind == Kind::Words || parameter.kind == Kind::Text ||
               parameter.kind == Kind::InputFile || parameter.kind == Kind::OutputFile;
    }

    /** Whether the next word is the keyword of a clause behind this one. */
    bool at_keyword_behind(qsizetype clause) const
    {
        return std::any_of(mForm.clauses.begin() + clause + 1, mForm.clauses.end(),
                           [&](const CommandClause& other) {
                               return !other.keyword.isEmpty() && other.keyword == mWords[mNext];
                           });
    }

    bool fits(const CommandParameter& parameter) const
    {
        const QString& word = mWords[mNext];
        if (parameter.choices.contains(word))
            return true;
        return parameter.kind != Kind::Choice && !parameter.reserved.contains(word);
    }

    /** Whether the next word can be the first value of the clause, which has no keyword. */
    bool can_begin(qsizetype clause) const
    {
        const CommandParameter& first = mForm.clauses[clause].parameters.first();
        return is_free(first) || (!at_keyword_behind(clause) && fits(first));
    }

    QStringList read_parameter(const CommandParameter& parameter, qsizetype clause)
    {
        QStringList values;
        if (parameter.kind == Kind::Words || (parameter.kind == Kind::Text && parameter.repeated)) {
            for (; !at_end(); ++mNext) {
                const bool plain = parameter.kind == Kind::Text || is_variable_reference(mWords[mNext]);
                values << (plain ? mWords[mNext] : quote_word(mWords[mNext]));
            }
            return values.isEmpty() ? values : QStringList(values.join(u' '));
        }
        while (!at_end() && (is_free(parameter) || (!at_keyword_behind(clause) && fits(parameter)))) {
            values << mWords[mNext++];
            if (!parameter.repeated)
                break;
        }
        return values;
    }

    const CommandSyntax& mForm;
    const QStringList& mWords;
    qsizetype mNext = 0;
};

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

std::optional<QList<ClauseValues>> read_values(const CommandSyntax& form, const QStringList& words)
{
    WordReader reader(form, words);
    QList<ClauseValues> values;
    for (qsizetype i = 0; i < form.clauses.size(); ++i)
        values << reader.read_clause(i);
    if (!reader.at_end())
        return std::nullopt;
    return values;
}
