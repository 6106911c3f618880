// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * The names of what there is for commands to work on, by kind: for forms and completion.
 *
 * "command" and "variable" are always there; components offer others, as "solid". Who offers a kind tells
 * when its names have changed. GUI thread only.
 */
class FENNAR_CORE_EXPORT CommandEntities : public QObject
{
    Q_OBJECT

public:
    /** Tells the present names. */
    using Names = std::function<QStringList()>;
    /** Tells the name that a word stands for which is none, as its number; empty if it is nothing's. */
    using Meaning = std::function<QString(const QString& word)>;
    /** Tells, for the end of an error, what to do about a word that is nothing's name; may be empty. */
    using Remedy = std::function<QString(const QString& word)>;

    CommandEntities() = default;
    ~CommandEntities() override;

    /**
     * Offers a kind, in the place of who has offered it before. The functions are called whenever they are
     * needed.
     *
     * @param meaning  may be null if each thing has its name only.
     * @param remedy   null for the name that is nearest to the word, or all of them if they are few.
     */
    void offer(const QString& kind, const QString& owner, const Names& names, const Meaning& meaning = {},
               const Remedy& remedy = {});
    /** Takes back all kinds of @p owner. */
    void withdraw(const QString& owner);
    /** The present names in the order in which they are offered; none if nobody offers the kind. */
    QStringList names(const QString& kind) const;
    /** The name of what @p word stands for; empty if it is nothing's. */
    QString find(const QString& kind, const QString& word) const;
    /** What to do about a word that is nothing's name, as "did you mean ...?"; may be empty. */
    QString remedy(const QString& kind, const QString& word) const;
    /** What to do about a word that is none of @p names; may be empty. */
    static QString remedy_among(const QString& word, QStringList names);
    /** Whether somebody offers the kind. If not, its names cannot be told from other words. */
    bool has(const QString& kind) const { return mOffers.contains(kind); }
    /** All kinds that are offered, sorted. */
    QStringList kinds() const { return mOffers.keys(); }
    /** To be called when the names of a kind have changed. */
    void tell_changed(const QString& kind) { emit changed(kind); }

signals:
    /** The names of a kind have changed, or it is offered, or not offered any more. */
    void changed(const QString& kind);

private:
    struct Offer
    {
        QString owner;
        Names names;
        Meaning meaning;
        Remedy remedy;
    };
    QMap<QString, Offer> mOffers;
};
