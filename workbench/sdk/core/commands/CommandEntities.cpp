// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandEntities.h"

#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/nearest_name.h"

#include <QDebug>
#include <QHash>

#include <utility>

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

} // namespace

CommandEntities::~CommandEntities() = default;

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
    if (names(kind).contains(word))
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
