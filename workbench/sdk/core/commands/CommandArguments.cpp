// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandArguments.h"

#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/FormReader.h"
#include "workbench/sdk/core/commands/nearest_name.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QHash>

#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

const auto end_of_line = u"the end of the line"_s;

/** "a, b or c" */
QString either(QStringList choices)
{
    const QString last = choices.takeLast();
    return choices.isEmpty() ? last : choices.join(u", "_s) + u" or "_s + last;
}

/** Words that are typed as they are, for a message. */
QStringList quoted(QStringList words)
{
    for (QString& word : words)
        word = u'"' + word + u'"';
    return words;
}

/** What a value is, for a message. */
QString what_of(const CommandParameter& parameter, bool another = false)
{
    QString what = parameter.what.isEmpty() ? parameter.name : parameter.what;
    if (another && what.startsWith("a "_L1))
        what = u"another"_s + what.sliced(1);
    switch (parameter.kind) {
    case Kind::Number:
    case Kind::WholeNumber:
        return what + u" ("_s + number_range(parameter) + u')';
    case Kind::Choice:
        return either(quoted(parameter.choices));
    case Kind::NewName:
        return what + u" (a letter, then letters, digits, \"_\", \"-\" and \".\")"_s;
    default:
        return what;
    }
}

/** Checks the words of one form. */
class Checker
{
public:
    Checker(const CommandWords& words, const CommandSyntax& form, const CommandEntities* entities)
        : mWords(words), mForm(form), mEntities(entities)
    {
        for (qsizetype i = 1; i < words.words.size(); ++i)
            mTexts << words.words[i].text;
        mReading = read_form(form, mTexts, Missing::End);
    }

    /** What is wrong first; nothing if all is well. */
    std::optional<CommandError> error()
    {
        for (qsizetype i = 0; i < mForm.clauses.size(); ++i) {
            if (mReading.clauses[i])
                check_clause(mForm.clauses[i], *mReading.clauses[i]);
        }
        if (!mError && (mReading.next < mTexts.size() || !mReading.may_end))
            tell(mReading.next, unexpected());
        return mError;
    }
    /** The word that is wrong first; see FormReading. */
    qsizetype wrong() const { return mWrong; }
    const FormReading& reading() const { return mReading; }
    /** The value of a word, which is right. */
    QString value(qsizetype word) const { return mNamed.value(word, mTexts[word]); }

private:
    qsizetype column(qsizetype word) const
    {
        return word < mTexts.size() ? mWords.words[word + 1].column : mWords.end_column;
    }
    QString found(qsizetype word) const
    {
        return word < mTexts.size() ? CommandError::shown(mTexts[word]) : end_of_line;
    }
    CommandError expected(qsizetype word, const QString& what, const QString& hint = {}) const
    {
        return CommandError::expected(what, found(word) + hint, column(word));
    }
    CommandError message(qsizetype word, const QString& text) const
    {
        return CommandError(text, column(word));
    }

    /** The words of a line are not checked in their order. */
    void tell(qsizetype word, const CommandError& error)
    {
        if (mError && mWrong <= word)
            return;
        mError = error;
        mWrong = word;
    }

    CommandError unexpected() const
    {
        QStringList choices;
        for (const CommandParameter* parameter : mReading.parameters) {
            if (parameter->kind == Kind::Choice)
                choices << quoted(parameter->choices);
            else
                choices << what_of(*parameter, mReading.another);
        }
        choices << quoted(mReading.keywords);
        if (mReading.may_end)
            choices << end_of_line;
        return expected(mReading.next, either(choices));
    }

    void check_clause(const CommandClause& clause, const FormReading::Clause& values)
    {
        bool zero = clause.not_zero;
        for (qsizetype i = 0; i < values.size(); ++i) {
            const CommandParameter& parameter = clause.parameters[i];
            for (const qsizetype word : values[i]) {
                if (auto error = check(parameter, word, values[i]))
                    tell(word, *error);
                zero = zero && parse_number(mTexts[word]).value_or(1) == 0;
            }
        }
        if (zero && values.size() == clause.parameters.size() && !values.first().isEmpty())
            tell(values.first().first(), message(values.first().first(), u"a direction must not be 0 0 0"_s));
    }

    std::optional<CommandError> check(const CommandParameter& parameter, qsizetype word,
                                      const QList<qsizetype>& all)
    {
        const QString& text = mTexts[word];
        const auto wrong_unless = [&](bool right) {
            return right ? std::nullopt : std::optional(expected(word, what_of(parameter)));
        };
        switch (parameter.kind) {
        case Kind::Number: {
            const double number = parse_number(text).value_or(std::nan(""));
            return wrong_unless(number >= parameter.least && number <= parameter.most);
        }
        case Kind::WholeNumber: {
            const std::optional<qint64> number = parse_integer(text);
            return wrong_unless(number && *number == int(*number) && double(*number) >= parameter.least &&
                                double(*number) <= parameter.most);
        }
        case Kind::Choice:
            return wrong_unless(parameter.choices.contains(text));
        case Kind::Variable:
            return wrong_unless(is_variable_name(text));
        case Kind::InputFile:
        case Kind::OutputFile:
            return wrong_unless(!text.isEmpty() && !text.contains(QChar::Null));
        case Kind::NewName:
            return check_new_name(parameter, word);
        case Kind::Entity:
            return check_entity(parameter, word, all);
        case Kind::Text:
        case Kind::Words:
            break;
        }
        return std::nullopt;
    }

    std::optional<CommandError> check_new_name(const CommandParameter& parameter, qsizetype word) const
    {
        const QString& text = mTexts[word];
        if (!CommandRegistry::is_name(text) || parameter.reserved.contains(text))
            return expected(word, what_of(parameter));
        if (mEntities && mEntities->names(parameter.entity).contains(text))
            return message(word, u"there is a %1 \"%2\" already"_s.arg(parameter.entity, text));
        return std::nullopt;
    }

    std::optional<CommandError> check_entity(const CommandParameter& parameter, qsizetype word,
                                             const QList<qsizetype>& all)
    {
        QString text = mTexts[word];
        if (all.size() == 1 && parameter.choices.contains(text))
            return std::nullopt;
        const QStringList names = mEntities ? mEntities->names(parameter.entity) : QStringList();
        if (mEntities && !names.contains(text)) {
            const std::optional<qint64> number = parameter.by_number ? parse_integer(text) : std::nullopt;
            const QString named = number ? mEntities->numbered(parameter.entity, *number) : QString();
            if (named.isEmpty()) {
                const QString nearest = nearest_name(text, names);
                return expected(word, what_of(parameter),
                                nearest.isEmpty() ? QString() : u"; did you mean \"%1\"?"_s.arg(nearest));
            }
            mNamed.insert(word, named);
            text = named;
        }
        for (const qsizetype other : all) {
            if (parameter.distinct && other < word && value(other) == text)
                return message(word, u"\"%1\" was named already"_s.arg(text));
        }
        return std::nullopt;
    }

    const CommandWords& mWords;
    const CommandSyntax& mForm;
    const CommandEntities* const mEntities;
    QStringList mTexts;
    FormReading mReading;
    /** The names of entities that were given by number. */
    QHash<qsizetype, QString> mNamed;
    std::optional<CommandError> mError;
    qsizetype mWrong = 0;
};

} // namespace

CommandArguments::CommandArguments(const CommandWords& words, const QList<CommandSyntax>& forms,
                                   const CommandEntities* entities)
    : mForms(&forms), mCount(words.words.size())
{
    Q_ASSERT(!forms.isEmpty());
    std::optional<CommandError> error;
    qsizetype farthest = -1;
    for (qsizetype i = 0; i < forms.size(); ++i) {
        Checker checker(words, forms[i], entities);
        const std::optional<CommandError> wrong = checker.error();
        if (wrong) {
            // Of several ways to write it the one was meant that is right for longest.
            if (checker.wrong() > farthest) {
                farthest = checker.wrong();
                error = wrong;
            }
            continue;
        }
        mForm = i;
        for (qsizetype j = 0; j < forms[i].clauses.size(); ++j) {
            const std::optional<FormReading::Clause>& read = checker.reading().clauses[j];
            QList<QList<Value>> clause;
            for (qsizetype k = 0; k < forms[i].clauses[j].parameters.size(); ++k) {
                QList<Value> values;
                for (const qsizetype word : read ? read->value(k) : QList<qsizetype>())
                    values.append({checker.value(word), word + 1});
                if (const QString& value = forms[i].clauses[j].parameters[k].default_value;
                    !read && !value.isEmpty())
                    values.append({value, 0});
                clause << values;
            }
            mValues << clause;
            mGiven << read.has_value();
        }
        return;
    }
    throw *error;
}

CommandArguments::Place CommandArguments::place(QLatin1StringView key) const
{
    const auto find = [key](const CommandSyntax& form) -> std::optional<Place> {
        for (qsizetype i = 0; i < form.clauses.size(); ++i) {
            const CommandClause& clause = form.clauses[i];
            if (!clause.keyword.isEmpty()) {
                if (clause.keyword == key)
                    return Place{i, -1};
                continue;
            }
            for (qsizetype j = 0; j < clause.parameters.size(); ++j) {
                if (clause.parameters[j].name == key)
                    return Place{i, j};
            }
        }
        return std::nullopt;
    };
    if (const auto found = find(mForms->at(mForm)))
        return *found;
    for (const CommandSyntax& form : *mForms) {
        if (find(form))
            return {-1, -1};
    }
    qFatal("A command asks for an argument that it has not declared: %s", key.data());
}

QList<CommandArguments::Value> CommandArguments::values(QLatin1StringView key) const
{
    const auto [clause, parameter] = place(key);
    if (clause < 0)
        return {};
    if (parameter >= 0)
        return mValues[clause][parameter];
    QList<Value> all;
    for (const QList<Value>& some : mValues[clause])
        all << some;
    return all;
}

bool CommandArguments::has(QLatin1StringView key) const
{
    const Place found = place(key);
    return found.clause >= 0 && mGiven[found.clause];
}

double CommandArguments::number(QLatin1StringView key, qsizetype i) const
{
    return parse_number(values(key).value(i).text).value_or(0);
}

int CommandArguments::integer(QLatin1StringView key) const
{
    return int(parse_integer(values(key).value(0).text).value_or(0));
}

QString CommandArguments::text(QLatin1StringView key) const
{
    return values(key).value(0).text;
}

QStringList CommandArguments::texts(QLatin1StringView key) const
{
    QStringList texts;
    for (const Value& value : values(key))
        texts << value.text;
    return texts;
}

qsizetype CommandArguments::word(QLatin1StringView key, qsizetype i) const
{
    const qsizetype word = values(key).value(i).word;
    return word > 0 ? word : mCount;
}
