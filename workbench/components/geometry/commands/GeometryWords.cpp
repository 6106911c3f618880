// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/GeometryWords.h"

#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/nearest_name.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <cmath>

using namespace Qt::StringLiterals;

const QStringList& GeometryWords::keywords()
{
    static const QStringList words{u"about"_s, u"all"_s,  u"along"_s, u"as"_s,   u"at"_s,     u"by"_s,
                                   u"from"_s,  u"mesh"_s, u"name"_s,  u"size"_s, u"verbose"_s};
    return words;
}

bool GeometryWords::at_end() const
{
    return !mCall.has(mNext);
}

bool GeometryWords::is(QLatin1StringView keyword) const
{
    return !at_end() && mCall.words()[mNext].text == keyword;
}

bool GeometryWords::take(QLatin1StringView keyword)
{
    if (!is(keyword))
        return false;
    ++mNext;
    return true;
}

bool GeometryWords::at_keyword() const
{
    return at_end() || is_keyword(mCall.words()[mNext].text);
}

CommandError GeometryWords::expected(QAnyStringView what) const
{
    return mCall.expected(mNext, what);
}

QString GeometryWords::text(QAnyStringView what)
{
    return mCall.text(mNext++, what);
}

CommandError GeometryWords::expected_last(QAnyStringView what) const
{
    return mCall.expected(mNext - 1, what);
}

double GeometryWords::length(QAnyStringView what, double least, double most)
{
    const double value =
        at_end() ? std::nan("") : parse_number(mCall.words()[mNext].text).value_or(std::nan(""));
    if (!(value >= least && value <= most))
        throw expected(u"%1 (a number from %2 to %3)"_s.arg(what.toString()).arg(least).arg(most));
    ++mNext;
    return value;
}

int GeometryWords::solid()
{
    if (at_keyword())
        throw expected(u"a solid");
    const QString word = mCall.words()[mNext].text;
    std::optional<GeometryModel::Solid> solid = mModel.find(word);
    if (const auto id = parse_integer(word); !solid && id && *id == int(*id))
        solid = mModel.solid(int(*id));
    if (!solid) {
        QStringList names;
        const QList<int> ids = mModel.ids();
        for (const int id : ids)
            names << mModel.solid(id)->name;
        const QString nearest = nearest_name(word, names);
        const QString hint = nearest.isEmpty() ? QString() : u"; did you mean \"%1\"?"_s.arg(nearest);
        throw CommandError::expected(u"a solid"_s, CommandError::shown(word) + hint, mCall.column(mNext));
    }
    ++mNext;
    return solid->id;
}

QList<int> GeometryWords::solids()
{
    if (const qsizetype word = mNext; take("all"_L1)) {
        if (mModel.ids().isEmpty())
            throw mCall.error(word, u"there is no solid"_s);
        return mModel.ids();
    }
    QList<int> result;
    do {
        const qsizetype word = mNext;
        const int id = solid();
        if (result.contains(id))
            throw mCall.error(word, u"\"%1\" was named already"_s.arg(mModel.solid(id)->name));
        result << id;
    } while (!at_keyword());
    return result;
}
