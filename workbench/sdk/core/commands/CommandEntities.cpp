// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandEntities.h"

#include "workbench/sdk/core/commands/CommandError.h"

#include <QDebug>
#include <QHash>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** So many names are told all. */
constexpr qsizetype most_names = 8;

/**
 * Asks who offers a kind. Forms and completion ask at moments when nobody would catch what is thrown: then
 * there is no answer, and a warning.
 *
 * @param function  the caller's copy, since it may offer another in its own place; null for no answer.
 */
template <typename Answer, typename... Words>
Answer ask(const QString& kind, const std::function<Answer(Words...)>& function, Words... words)
{
    try {
        return function ? function(words...) : Answer();
    } catch (...) {
        qWarning().noquote() << u"The entities of kind \"%1\" cannot be told: %2"_s.arg(
            kind, CommandError::caught().message());
        return {};
    }
}

// No name is as long; a pasted paragraph would only cost time.
constexpr qsizetype longest_word = 64;

qsizetype distance(const QString& a, const QString& b)
{
    const auto width = size_t(b.size()) + 1;
    std::vector<qsizetype> before(width), last(width), now(width);
    std::iota(last.begin(), last.end(), 0);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        now[0] = i;
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const auto at = size_t(j);
            const qsizetype change = last[at - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            now[at] = std::min({change, last[at] + 1, now[at - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                now[at] = std::min(now[at], before[at - 2] + 1);
        }
        before.swap(last);
        last.swap(now);
    }
    return last.back();
}

} // namespace

void CommandEntities::offer(const QString& kind, const QString& owner, const Names& names,
                            const Meaning& meaning, const Remedy& remedy)
{
    mOffers.insert(kind, {owner, names, meaning, remedy});
    emit changed(kind);
}

void CommandEntities::offer_properties(const QString& kind, const QList<EntityProperty>& properties,
                                       const Meaning& name_of_key)
{
    const auto offer = mOffers.find(kind);
    if (offer == mOffers.end())
        return;
    offer->properties = properties;
    offer->name_of_key = name_of_key;
}

void CommandEntities::offer_possible(const QString& kind, const Names& possible)
{
    if (const auto offer = mOffers.find(kind); offer != mOffers.end())
        offer->possible = possible;
}

void CommandEntities::offer_test(const QString& kind, const Test& is_name)
{
    if (const auto offer = mOffers.find(kind); offer != mOffers.end())
        offer->is_name = is_name;
}

bool CommandEntities::is_name(const QString& kind, const QString& word) const
{
    if (const Test is_name = mOffers.value(kind).is_name)
        return ask<bool, const QString&>(kind, is_name, word);
    return names(kind).contains(word);
}

QStringList CommandEntities::possible(const QString& kind) const
{
    const Names possible = mOffers.value(kind).possible;
    return possible ? ask(kind, possible) : names(kind);
}

void CommandEntities::offer_selection(const QString& kind, const Names& selected)
{
    if (const auto offer = mOffers.find(kind); offer != mOffers.end())
        offer->selected = selected;
}

QStringList CommandEntities::selected(const QString& kind) const
{
    return ask(kind, mOffers.value(kind).selected);
}

QString CommandEntities::name_of(const CommandValue::EntityReference& entity) const
{
    if (const Meaning name_of_key = mOffers.value(entity.kind).name_of_key)
        return ask<QString, const QString&>(entity.kind, name_of_key, entity.key);
    return find(entity.kind, entity.key);
}

void CommandEntities::withdraw(const QString& owner)
{
    QStringList gone;
    mOffers.removeIf([&](const auto& entry) {
        const bool remove = entry.value().owner == owner;
        if (remove)
            gone << entry.key();
        return remove;
    });
    for (const QString& kind : std::as_const(gone))
        emit changed(kind);
}

QStringList CommandEntities::names(const QString& kind) const
{
    return ask(kind, mOffers.value(kind).names);
}

QString CommandEntities::find(const QString& kind, const QString& word) const
{
    if (is_name(kind, word))
        return word;
    return ask<QString, const QString&>(kind, mOffers.value(kind).meaning, word);
}

QString CommandEntities::remedy(const QString& kind, const QString& word) const
{
    if (const Remedy remedy = mOffers.value(kind).remedy)
        return ask<QString, const QString&>(kind, remedy, word);
    return remedy_among(word, names(kind));
}

QString CommandEntities::remedy_among(const QString& word, QStringList names)
{
    if (const QString nearest = nearest_name(word, names); !nearest.isEmpty())
        return u"did you mean \"%1\"?"_s.arg(nearest);
    if (names.isEmpty() || names.size() > most_names)
        return {};
    for (QString& name : names)
        name = CommandError::shown(name);
    const QString last = names.takeLast();
    return names.isEmpty() ? u"there is "_s + last
                           : u"there are "_s + names.join(u", "_s) + u" and "_s + last;
}

QString nearest_name(const QString& typed, const QStringList& names)
{
    if (typed.size() > longest_word)
        return {};
    QString nearest;
    qsizetype allowed = std::max(typed.size() / 3, qsizetype(1));
    for (const QString& name : names) {
        if (std::abs(name.size() - typed.size()) > allowed)
            continue;
        const qsizetype steps = distance(typed, name);
        // A word that shares no letter with the name is no slip of the fingers.
        if (steps <= allowed && steps < std::max(typed.size(), name.size())) {
            nearest = name;
            allowed = steps - 1;
        }
    }
    return nearest;
}

QList<ClauseValues> selected_values(const CommandSyntax& form, const CommandEntities& entities)
{
    QList<ClauseValues> values(form.clauses.size());
    QHash<QString, QStringList> left;
    for (const bool several : {false, true}) {
        for (qsizetype i = 0; i < values.size(); ++i) {
            const CommandParameter parameter = form.clauses[i].parameters.value(0);
            if (parameter.kind != CommandParameter::Kind::Entity || parameter.repeated != several)
                continue;
            if (!left.contains(parameter.entity))
                left.insert(parameter.entity, entities.selected(parameter.entity));
            QStringList& names = left[parameter.entity];
            if (!names.isEmpty())
                values[i] =
                    QList<QStringList>{several ? std::exchange(names, {}) : QStringList(names.takeFirst())};
        }
    }
    return values;
}

} // namespace fennar
