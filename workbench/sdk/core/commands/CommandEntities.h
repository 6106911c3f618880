// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandValue.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace fennar {

/** What can be asked of an entity by a caller that is a program. Names, kinds and owners are not translated.
 */
struct EntityProperty
{
    /** A letter, then letters, digits and "_"; not "name" and not "kind", which every entity has. */
    QString name;
    /** In a few words. */
    QString summary = {};
    /** Of a number, as "mm"; empty if it has none. */
    QString unit = {};
    /** What its value is. */
    CommandType type = {};
    /** What must be told to get it, each one value; none for most. Checked are choices only. */
    QList<CommandParameter> parameters = {};
    /** Tells the value for the key of an entity that is there and one text for each parameter; it may throw a
     * CommandError. */
    std::function<CommandValue(const QString& key, const QStringList& arguments)> value = {};
};

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
    /** Tells whether a word is one of the present names. */
    using Test = std::function<bool(const QString& word)>;
    /** Tells, for the end of an error, what to do about a word that is nothing's name; may be empty. */
    using Remedy = std::function<QString(const QString& word)>;

    /**
     * Offers a kind, in the place of who has offered it before. The functions are called whenever they are
     * needed.
     *
     * @param meaning  may be null if each thing has its name only.
     * @param remedy   null for the name that is nearest to the word, or all of them if they are few.
     */
    void offer(const QString& kind, const QString& owner, const Names& names, const Meaning& meaning = {},
               const Remedy& remedy = {});
    /**
     * Tells what can be asked of the entities of a kind that was offered, in the place of what was told
     * before. It goes when the kind is withdrawn.
     *
     * @param name_of_key  tells the present name for a key, empty if the thing is gone; null if find() does.
     */
    void offer_properties(const QString& kind, const QList<EntityProperty>& properties,
                          const Meaning& name_of_key = {});
    /** Tells the names that there may be, where names() are those that there are for sure, as in the check of
     * what is yet to run. It goes when the kind is withdrawn. */
    void offer_possible(const QString& kind, const Names& possible);
    /** Tells whether a word is one of names(), which are searched otherwise: for kinds that may have very
     * many. It goes when the kind is withdrawn. */
    void offer_test(const QString& kind, const Test& is_name);
    /** Whether @p word is one of names(). */
    bool is_name(const QString& kind, const QString& word) const;
    /** The names that there may be: names() if nobody tells others. */
    QStringList possible(const QString& kind) const;
    /** Tells which entities of a kind that was offered are selected, for forms to begin with. It goes when
     * the kind is withdrawn. */
    void offer_selection(const QString& kind, const Names& selected);
    /** The names of the entities of a kind that are selected; none if nobody tells. */
    QStringList selected(const QString& kind) const;
    /** The present name of what a reference stands for; empty if it is gone. */
    QString name_of(const CommandValue::EntityReference& entity) const;
    /** What can be asked of entities of the kind; nothing if nobody has told any. */
    QList<EntityProperty> properties(const QString& kind) const { return mOffers.value(kind).properties; }
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
    void tell_changed(const QString& kind) { Q_EMIT changed(kind); }

Q_SIGNALS: // in sources with the headers of Python, too, where "signals" is a name
    /** The names of a kind have changed, or it is offered, or not offered any more. */
    void changed(const QString& kind);

private:
    struct Offer
    {
        QString owner;
        Names names;
        Meaning meaning;
        Remedy remedy;
        QList<EntityProperty> properties = {};
        Meaning name_of_key = {};
        Names selected = {};
        Names possible = {};
        Test is_name = {};
    };
    QMap<QString, Offer> mOffers;
};

/**
 * The name of @p names that @p typed most likely was meant to be; empty if none is near.
 *
 * Counted are letters put in, left out, changed, or swapped with their neighbor. A third of the letters of
 * the typed word may be wrong, and always one. Of equally near names the first wins.
 */
FENNAR_CORE_EXPORT QString nearest_name(const QString& typed, const QStringList& names);

/**
 * What is selected, as values of a form, one entry for each clause: a value that is a single entity takes the
 * first one that is left, then one that may be several takes the others.
 */
FENNAR_CORE_EXPORT QList<ClauseValues> selected_values(const CommandSyntax& form,
                                                       const CommandEntities& entities);

} // namespace fennar
