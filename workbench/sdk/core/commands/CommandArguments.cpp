// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandArguments.h"

#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/FormReader.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

CommandMessage end_of_line()
{
    return QT_TRANSLATE_NOOP("CommandError", "the end of the line");
}

/** "a, b or c" */
CommandMessage either(const QList<CommandMessage>& choices)
{
    CommandMessage all = choices.first();
    for (qsizetype i = 1; i < choices.size() - 1; ++i)
        all = {"%1, %2", {all, choices[i]}};
    if (choices.size() == 1)
        return all;
    return {QT_TRANSLATE_NOOP("CommandError", "%1 or %2"), {all, choices.last()}};
}

/** Words that are typed as they are, for a message. */
QList<CommandMessage> quoted(const QStringList& words)
{
    QList<CommandMessage> result;
    for (const QString& word : words)
        result.append(QString(u'"' + word + u'"'));
    return result;
}

/** What a value is, for a message; @p found was in its place. */
CommandMessage what_of(const CommandParameter& parameter, bool another = false, const QString& found = {})
{
    QString what = parameter.what.isEmpty() ? parameter.name : parameter.what;
    if (another && what.startsWith("a "_L1))
        what = u"another"_s + what.sliced(1);
    switch (parameter.kind) {
    case Kind::Number:
    case Kind::WholeNumber:
        return {"%1 (%2)", {what, number_range(parameter, found)}};
    case Kind::Choice:
        return either(quoted(parameter.choices));
    case Kind::NewName:
        return {what + u" (a letter, then letters, digits, \"_\", \"-\" and \".\")"_s};
    default:
        return {what};
    }
}

/** What is wrong with a word. */
struct Fault
{
    /** Words count from 0 behind the command's name. */
    qsizetype word;
    /** All that could stand there, for "expected ..."; none if the message says it. */
    QList<CommandMessage> expected;
    /** What to do about it; may be empty. */
    QString remedy;
    CommandMessage message = QString();
};

/** Checks the words of one form. */
class Checker
{
public:
    Checker(const CommandWords& words, const CommandSyntax& form, const CommandEntities* entities)
        : mForm(form), mEntities(entities)
    {
        for (qsizetype i = 1; i < words.words.size(); ++i)
            mTexts << words.words[i].text;
        mReading = read_form(form, mTexts, Missing::End);
    }

    /** What is wrong first; nothing if all is well. */
    std::optional<Fault> fault()
    {
        for (qsizetype i = 0; i < mForm.clauses.size(); ++i) {
            if (mReading.clauses[i]) {
                check_clause(mForm.clauses[i], *mReading.clauses[i]);
                continue;
            }
            for (const CommandParameter& parameter : mForm.clauses[i].parameters)
                check_all(parameter, parameter.default_value, mReading.starts[i]);
        }
        if (!mFault && (mReading.next < mTexts.size() || !mReading.may_end))
            tell(unexpected());
        return mFault;
    }
    const FormReading& reading() const { return mReading; }
    /** The value of a word, which is right. */
    QString value(qsizetype word) const { return mNamed.value(word, mTexts[word]); }

private:
    /** The words of a line are not checked in their order. */
    void tell(const Fault& fault)
    {
        if (!mFault || fault.word < mFault->word)
            mFault = fault;
    }
    void tell(qsizetype word, const CommandMessage& message) { tell({word, {}, {}, message}); }

    Fault unexpected() const
    {
        QList<CommandMessage> choices;
        const QString found = mTexts.value(mReading.next);
        for (const CommandParameter* parameter : mReading.parameters) {
            if (parameter->kind == Kind::NewName && parameter->reserved.contains(found))
                return {
                    mReading.next,
                    {},
                    {},
                    u"\"%1\" cannot name a %2: it is a word of the commands"_s.arg(found, parameter->entity)};
            if (parameter->kind == Kind::Choice)
                choices << quoted(parameter->choices);
            else
                choices << what_of(*parameter, mReading.another);
        }
        choices << quoted(mReading.keywords);
        if (mReading.may_end)
            choices << end_of_line();
        return {mReading.next, choices, {}};
    }

    void check_clause(const CommandClause& clause, const FormReading::Clause& values)
    {
        bool zero = clause.not_zero;
        for (qsizetype i = 0; i < values.size(); ++i) {
            for (const qsizetype word : values[i]) {
                check(clause.parameters[i], word, values[i]);
                zero = zero &&
                       std::abs(parse_number(mTexts[word]).value_or(1)) < std::numeric_limits<double>::min();
            }
        }
        if (zero && values.size() == clause.parameters.size() && !values.first().isEmpty())
            tell(values.first().first(), u"a direction must not be 0 0 0"_s);
    }

    void check(const CommandParameter& parameter, qsizetype word, const QList<qsizetype>& all)
    {
        const QString& text = mTexts[word];
        bool right = true;
        switch (parameter.kind) {
        case Kind::Number: {
            const double number = parse_number(text).value_or(std::nan(""));
            right = number >= parameter.least && number <= parameter.most;
            break;
        }
        case Kind::WholeNumber: {
            const std::optional<qint64> number = parse_integer(text);
            right = number && *number == int(*number) && double(*number) >= parameter.least &&
                    double(*number) <= parameter.most;
            break;
        }
        case Kind::Choice:
            right = parameter.choices.contains(text);
            break;
        case Kind::Variable:
            right = is_variable_name(text);
            break;
        case Kind::InputFile:
        case Kind::OutputFile:
            right = !text.isEmpty() && !text.contains(QChar::Null);
            break;
        case Kind::NewName:
            right = CommandRegistry::is_name(text) && !parameter.reserved.contains(text);
            if (right && mEntities && mEntities->is_name(parameter.entity, text))
                tell(word, u"there is a %1 \"%2\" already"_s.arg(parameter.entity, text));
            break;
        case Kind::Entity:
            check_entity(parameter, word, all);
            break;
        case Kind::Text:
        case Kind::Words:
            break;
        }
        if (!right)
            tell({word, {what_of(parameter, false, text)}, {}});
    }

    /** Whether there is enough of what @p text stands for, if that is all there is. */
    void check_all(const CommandParameter& parameter, const QString& text, qsizetype word)
    {
        if (parameter.all.isEmpty() || text != parameter.all || !mEntities ||
            !mEntities->has(parameter.entity))
            return;
        const qsizetype count = mEntities->possible(parameter.entity).size();
        if (count == 0 && parameter.at_least > 0)
            tell(word, u"there is no %1"_s.arg(parameter.entity));
        else if (count < parameter.at_least)
            tell(word, u"at least %1 are needed, and \"%2\" stands for %3"_s.arg(parameter.at_least)
                           .arg(text)
                           .arg(count));
    }

    void check_entity(const CommandParameter& parameter, qsizetype word, const QList<qsizetype>& all)
    {
        QString text = mTexts[word];
        if (all.size() == 1 && parameter.choices.contains(text)) {
            check_all(parameter, text, word);
            return;
        }
        if (mEntities && mEntities->has(parameter.entity)) {
            const QString name = mEntities->find(parameter.entity, text);
            if (name.isEmpty()) {
                tell({word, {what_of(parameter)}, mEntities->remedy(parameter.entity, text)});
                return;
            }
            mNamed.insert(word, name);
            text = name;
        }
        if (!parameter.distinct)
            return;
        const std::pair named(parameter.entity, text);
        if (mDistinct.contains(named))
            tell(word, {QT_TRANSLATE_NOOP("CommandError", "\"%1\" was named already"), {text}});
        mDistinct << named;
    }

    const CommandSyntax& mForm;
    const CommandEntities* const mEntities;
    QStringList mTexts;
    FormReading mReading;
    /** The names of entities, which may be given by number. */
    QHash<qsizetype, QString> mNamed;
    /** Kinds and names of those that cannot be named once more. */
    QSet<std::pair<QString, QString>> mDistinct;
    std::optional<Fault> mFault;
};

/** Puts what is wrong with another way to write the command to what is wrong with the ways before. */
void merge(std::optional<Fault>& all, const Fault& other)
{
    // Of several ways the one was meant that is right for longest.
    if (!all || other.word > all->word) {
        all = other;
        return;
    }
    if (other.word < all->word || all->expected.isEmpty() || other.expected.isEmpty())
        return;
    const bool may_end = all->expected.removeOne(end_of_line());
    for (const CommandMessage& what : other.expected) {
        if (!all->expected.contains(what) && what != end_of_line())
            all->expected << what;
    }
    if (may_end || other.expected.contains(end_of_line()))
        all->expected << end_of_line();
    if (all->remedy.isEmpty())
        all->remedy = other.remedy;
}

CommandError as_error(const Fault& fault, const CommandWords& words)
{
    if (fault.expected.isEmpty())
        return CommandError(fault.message, words.column(fault.word + 1));
    return words.expected(fault.word + 1, either(fault.expected), fault.remedy);
}

/** Forms and completion ask, too, where nobody would catch what is no CommandError. */
void verify(const CommandSyntax& form, const CommandArguments& arguments, const CommandEntities* entities)
{
    const CommandEntities nobody;
    try {
        form.verify(arguments, entities ? *entities : nobody);
    } catch (...) {
        throw CommandError::caught();
    }
}

} // namespace

CommandArguments::CommandArguments(const CommandWords& words, const QList<CommandSyntax>& forms,
                                   const CommandEntities* entities, qsizetype only)
    : mForms(&forms), mWords(words)
{
    Q_ASSERT(!forms.isEmpty());
    std::optional<Fault> all;
    for (qsizetype i = std::max<qsizetype>(0, only); i < (only < 0 ? forms.size() : only + 1); ++i) {
        Checker checker(words, forms[i], entities);
        if (const std::optional<Fault> fault = checker.fault()) {
            merge(all, *fault);
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
            mStarts << (read ? checker.reading().starts[j] + 1 : 0);
        }
        if (forms[i].verify)
            verify(forms[i], *this, entities);
        return;
    }
    throw as_error(*all, words);
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
    throw std::logic_error("the command asks for an argument that it has not declared: " +
                           std::string(key.data(), std::size_t(key.size())));
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
    return found.clause >= 0 && mStarts[found.clause] > 0;
}

double CommandArguments::number(QLatin1StringView key, qsizetype i) const
{
    return parse_number(values(key).value(i).text).value_or(0);
}

int CommandArguments::integer(QLatin1StringView key) const
{
    return int(parse_integer(values(key).value(0).text).value_or(0));
}

QStringList CommandArguments::texts(QLatin1StringView key) const
{
    QStringList texts;
    for (const Value& value : values(key))
        texts << value.text;
    return texts;
}

QStringList CommandArguments::texts(CommandParameter::Kind kind, const QString& entity) const
{
    QStringList texts;
    const QList<CommandClause>& clauses = mForms->at(mForm).clauses;
    for (qsizetype i = 0; i < clauses.size(); ++i) {
        for (qsizetype j = 0; j < clauses[i].parameters.size(); ++j) {
            const CommandParameter& parameter = clauses[i].parameters[j];
            if (mStarts[i] == 0 || parameter.kind != kind ||
                (!entity.isEmpty() && parameter.entity != entity))
                continue;
            for (const Value& value : mValues[i][j])
                texts << value.text;
        }
    }
    return texts;
}

qsizetype CommandArguments::word(QLatin1StringView key, qsizetype i) const
{
    const Place found = place(key);
    const bool keyword_only = found.clause >= 0 && mValues[found.clause].isEmpty();
    const qsizetype word = keyword_only ? mStarts[found.clause] : values(key).value(i).word;
    return word > 0 ? word : mWords.words.size();
}

} // namespace fennar
