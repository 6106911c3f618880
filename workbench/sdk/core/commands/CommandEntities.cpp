// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandEntities.h"

CommandEntities::~CommandEntities() = default;

void CommandEntities::offer(const QString& kind, const QString& owner, const Names& names,
                            const Numbered& numbered)
{
    mOffers.insert(kind, {owner, names, numbered});
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

QString CommandEntities::numbered(const QString& kind, qint64 number) const
{
    const Numbered numbered = mOffers.value(kind).numbered;
    return numbered ? numbered(number) : QString();
}
