// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/FormReader.h"

#include "workbench/sdk/core/commands/numbers.h"

#include <algorithm>

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

/** Whether any word can be its value. */
bool is_free(const CommandParameter& parameter)
{
    return parameter.kind == Kind::Words || parameter.kind == Kind::Text || parameter.is_file();
}

bool is_repeated(const CommandParameter& parameter)
{
    return parameter.repeated || parameter.kind == Kind::Words;
}

class FormReader
{
public:
    FormReader(const CommandSyntax& form, const QStringList& words, Missing missing)
        : mForm(form), mWords(words), mMissing(missing)
    {
        mReading.clauses.resize(form.clauses.size());
        mReading.starts.resize(form.clauses.size());
    }

    FormReading read()
    {
        mReading.may_end = true;
        qsizetype clause = 0;
        bool skipping = false;
        while (clause < mForm.clauses.size()) {
            const CommandClause& here = mForm.clauses[clause];
            // Behind one that is left out the next one would be taken for that.
            skipping = skipping && here.keyword.isEmpty() && here.optional;
            if (skipping) {
                ++clause;
                continue;
            }
            qsizetype end = clause;
            while (end < mForm.clauses.size() && !mForm.clauses[end].keyword.isEmpty())
                ++end;
            if (end == clause)
                ++end;
            const bool goes_on =
                here.keyword.isEmpty() ? read_positional(clause) : read_keywords(clause, end);
            if (!goes_on)
                break;
            skipping = here.keyword.isEmpty() && here.optional && !mReading.clauses[clause];
            clause = end;
        }
        return mReading;
    }

private:
    bool at_end() const { return mReading.next >= mWords.size(); }
    const QString& word() const { return mWords[mReading.next]; }

    void consume()
    {
        ++mReading.next;
        mReading.keywords.clear();
        mReading.parameters.clear();
        mReading.another = false;
    }

    void expect(const CommandParameter& parameter, bool another = false)
    {
        mReading.parameters << &parameter;
        mReading.another = another;
    }

    /** Notes that something required is missing. Returns whether to read on. */
    bool lack()
    {
        mReading.may_end = false;
        return mMissing == Missing::PassOver;
    }

    /** Whether the next word is the keyword of another clause, even of one that has been read already. */
    bool at_keyword(qsizetype clause) const
    {
        // Back to the first of the clauses that may stand in any order.
        qsizetype first = clause;
        while (first > 0 && !mForm.clauses[clause].keyword.isEmpty() &&
               !mForm.clauses[first - 1].keyword.isEmpty())
            --first;
        for (qsizetype i = first; i < mForm.clauses.size(); ++i) {
            const QString& keyword = mForm.clauses[i].keyword;
            if (i != clause && !keyword.isEmpty() && keyword == word())
                return true;
        }
        return false;
    }

    /** Whether the next word can be a value of the clause. */
    bool fits(const CommandParameter& parameter, qsizetype clause) const
    {
        if (at_end())
            return false;
        if (is_free(parameter))
            return true;
        if (at_keyword(clause))
            return false;
        return parameter.choices.contains(word()) ||
               (parameter.kind != Kind::Choice && !parameter.reserved.contains(word()));
    }

    /** Whether the clause begins with a number and the next word is not a number. */
    bool misses_number(const CommandClause& clause) const
    {
        // In a form variables stand as they are.
        return clause.parameters.first().is_number() && !parse_number(word()) &&
               !is_variable_reference(word());
    }

    bool read_positional(qsizetype clause)
    {
        const CommandClause& here = mForm.clauses[clause];
        if (here.parameters.isEmpty())
            return true;
        mReading.starts[clause] = mReading.next;
        if (fits(here.parameters.first(), clause) && !(here.optional && misses_number(here)))
            return read_values(clause);
        expect(here.parameters.first());
        return here.optional || lack();
    }

    bool read_keywords(qsizetype begin, qsizetype end)
    {
        const auto here = [&] {
            qsizetype clause = begin;
            while (clause < end &&
                   (at_end() || mReading.clauses[clause] || mForm.clauses[clause].keyword != word()))
                ++clause;
            return clause;
        };
        for (qsizetype clause = here(); clause < end; clause = here()) {
            mReading.starts[clause] = mReading.next;
            consume();
            if (!read_values(clause))
                return false;
        }
        bool lacks = false;
        for (qsizetype clause = begin; clause < end; ++clause) {
            if (mReading.clauses[clause])
                continue;
            mReading.keywords << mForm.clauses[clause].keyword;
            lacks = lacks || !mForm.clauses[clause].optional;
        }
        return !lacks || lack();
    }

    bool read_values(qsizetype clause)
    {
        FormReading::Clause values;
        bool goes_on = true;
        for (const CommandParameter& parameter : mForm.clauses[clause].parameters) {
            values.append(read_parameter(parameter, clause));
            const bool enough = values.last().size() >= std::max(parameter.at_least, 1) ||
                                is_choice(parameter, values.last());
            if (!enough) {
                expect(parameter, !values.last().isEmpty());
                goes_on = lack();
            } else if (at_end() && is_repeated(parameter) && !is_choice(parameter, values.last())) {
                expect(parameter, true);
            }
            if (!goes_on)
                break;
        }
        mReading.clauses[clause] = values;
        return goes_on;
    }

    QList<qsizetype> read_parameter(const CommandParameter& parameter, qsizetype clause)
    {
        QList<qsizetype> values;
        while (fits(parameter, clause) && !is_choice(parameter, values)) {
            values << mReading.next;
            consume();
            if (!is_repeated(parameter))
                break;
        }
        return values;
    }

    /** Whether the only value is a choice that stands for entities. */
    bool is_choice(const CommandParameter& parameter, const QList<qsizetype>& values) const
    {
        return parameter.kind == Kind::Entity && values.size() == 1 &&
               parameter.choices.contains(mWords[values.first()]);
    }

    const CommandSyntax& mForm;
    const QStringList& mWords;
    const Missing mMissing;
    FormReading mReading;
};

} // namespace

FormReading read_form(const CommandSyntax& form, const QStringList& words, Missing missing)
{
    return FormReader(form, words, missing).read();
}

} // namespace fennar
