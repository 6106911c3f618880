// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/mark_command.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/FormReader.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = LineMark::Kind;
using ParameterKind = CommandParameter::Kind;

/** What a word is; nothing for one that is not marked. */
using WordKind = std::optional<Kind>;

/** The column up to which the words fit the form, as a run would tell it; the greatest number if they all do.
 */
qsizetype fit(const QList<CommandSyntax>& forms, qsizetype way, const CommandWords& words)
{
    try {
        const CommandArguments arguments(words, forms, nullptr, way);
        return std::numeric_limits<qsizetype>::max();
    } catch (const CommandError& error) {
        return error.column();
    }
}

/** The form that the words fit for longest, the first of several. */
const CommandSyntax& fitting_form(const QList<CommandSyntax>& forms, const CommandWords& words)
{
    if (forms.size() == 1)
        return forms.first();
    return *std::max_element(forms.begin(), forms.end(), [&](const auto& a, const auto& b) {
        return fit(forms, &a - forms.data(), words) < fit(forms, &b - forms.data(), words);
    });
}

/** What a word is that no parameter tells about. */
WordKind plain_kind(const CommandWord& word)
{
    return word.quoted               ? WordKind(Kind::String)
           : parse_number(word.text) ? WordKind(Kind::Number)
                                     : WordKind();
}

WordKind kind_of(const CommandParameter& parameter, const CommandWord& word)
{
    switch (parameter.kind) {
    case ParameterKind::Choice:
        return Kind::Keyword;
    case ParameterKind::Entity:
        return parameter.choices.contains(word.text) ? Kind::Keyword : Kind::Name;
    case ParameterKind::NewName:
        return Kind::Name;
    case ParameterKind::Variable:
        return parameter.entity.isEmpty() || parameter.entity == "variable"_L1 ? Kind::Variable : Kind::Name;
    case ParameterKind::InputFile:
    case ParameterKind::OutputFile:
        return Kind::String;
    case ParameterKind::Number:
    case ParameterKind::WholeNumber:
        return parse_number(word.text) ? WordKind(Kind::Number) : plain_kind(word);
    case ParameterKind::Text:
    case ParameterKind::Words:
        break;
    }
    return plain_kind(word);
}

/** What each word is, the command's name first. */
QList<WordKind> kinds_of(const CommandWords& line, const Command& command)
{
    const QList<CommandWord>& words = line.words;
    QStringList texts;
    QList<WordKind> kinds = {Kind::Command};
    for (const CommandWord& word : words.sliced(1)) {
        texts << word.text;
        kinds << plain_kind(word);
    }
    const CommandSyntax& form = fitting_form(command.forms, line);
    const FormReading reading = read_form(form, texts, Missing::PassOver);
    for (qsizetype i = 0; i < form.clauses.size(); ++i) {
        if (!reading.clauses[i])
            continue;
        const CommandClause& clause = form.clauses[i];
        if (!clause.keyword.isEmpty())
            kinds[reading.starts[i] + 1] = Kind::Keyword;
        for (qsizetype j = 0; j < reading.clauses[i]->size(); ++j) {
            for (const qsizetype word : reading.clauses[i]->at(j))
                kinds[word + 1] = kind_of(clause.parameters[j], words[word + 1]);
        }
    }
    return kinds;
}

/** Adds what stands behind the last word: a comment, or quotes that are not closed. */
void mark_rest(QList<LineMark>& marks, const QString& line, const CommandWords& words)
{
    if (words.error) {
        const qsizetype fault = words.error->column() - 1;
        if (fault < line.size() && (line[fault] == u'"' || line[fault] == u'\''))
            marks.append({Kind::String, fault, line.size() - fault});
        return;
    }
    const qsizetype comment = line.indexOf(u'#', words.end_column - 1);
    if (comment >= 0)
        marks.append({Kind::Comment, comment, line.size() - comment});
}

} // namespace

QList<LineMark> mark_command(const QString& line, const CommandRegistry& registry)
{
    QList<LineMark> variables;
    const auto lookup = [&](QStringView name) -> std::optional<QString> {
        const qsizetype start = name.data() - line.constData();
        const qsizetype brace = line[start - 1] == u'{' ? 1 : 0;
        variables.append({Kind::Variable, start - 1 - brace, name.size() + 1 + 2 * brace});
        // What it holds is not known; a number is right in most places.
        return u"1"_s;
    };
    const CommandWords words = tokenize(line, lookup);
    const auto end_of = [&](qsizetype word) {
        if (word + 1 == words.words.size())
            return words.end_column - 1;
        qsizetype end = words.words[word + 1].column - 1;
        while (is_command_blank(line[end - 1]))
            --end;
        return end;
    };
    const std::shared_ptr<const Command> command =
        words.words.isEmpty() ? nullptr : registry.find(words.words[0].text);
    const QList<WordKind> kinds = command ? kinds_of(words, *command) : QList<WordKind>();
    QList<LineMark> marks;
    for (qsizetype i = 0; i < words.words.size(); ++i) {
        const CommandWord& word = words.words[i];
        if (const WordKind kind = command ? kinds[i] : i > 0 ? plain_kind(word) : WordKind())
            marks.append({*kind, word.column - 1, end_of(i) - word.column + 1});
    }
    mark_rest(marks, line, words);
    return marks + variables;
}

} // namespace fennar
