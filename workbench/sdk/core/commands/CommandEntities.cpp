// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandEntities.h"

#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/nearest_name.h"

using namespace Qt::StringLiterals;

namespace {

/** So many names are told all. */
constexpr qsizetype most_names = 8;

} // namespace

CommandEntities::~CommandEntities() = default;

void CommandEntities::offer(const QString& kind, const QString& owner, const Names& names,
                            const Meaning& meaning, const Remedy& remedy)
{
    mOffers.insert(kind, {owner, names, meaning, remedy});
    emit changed(kind);
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
    // A copy: the function may offer another in its own place.
    const Names names = mOffers.value(kind).names;
    return names ? names() : QStringList();
}

QString CommandEntities::find(const QString& kind, const QString& word) const
{
    if (names(kind).contains(word))
        return word;
    const Meaning meaning = mOffers.value(kind).meaning;
    return meaning ? meaning(word) : QString();
}

QString CommandEntities::remedy(const QString& kind, const QString& word) const
{
    if (const Remedy remedy = mOffers.value(kind).remedy)
        return remedy(word);
    QStringList all = names(kind);
    if (const QString nearest = nearest_name(word, all); !nearest.isEmpty())
        return u"did you mean \"%1\"?"_s.arg(nearest);
    if (all.isEmpty() || all.size() > most_names)
        return {};
    for (QString& name : all)
        name = CommandError::shown(name);
    const QString last = all.takeLast();
    return all.isEmpty() ? u"there is "_s + last : u"there are "_s + all.join(u", "_s) + u" and "_s + last;
}
