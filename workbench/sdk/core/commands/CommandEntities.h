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
    /** Tells the name of what has a number; empty if nothing has it. */
    using Numbered = std::function<QString(qint64)>;

    CommandEntities() = default;
    ~CommandEntities() override;

    /** Offers a kind, in the place of who has offered it before. @p names is called whenever they are needed,
     * and
     * @p numbered, which may be null, for those that are told by number. */
    void offer(const QString& kind, const QString& owner, const Names& names, const Numbered& numbered = {});
    /** Takes back all kinds of @p owner. */
    void withdraw(const QString& owner);
    /** The present names in the order in which they are offered; none if nobody offers the kind. */
    QStringList names(const QString& kind) const;
    /** The name of what has that number; empty if nothing has it. */
    QString numbered(const QString& kind, qint64 number) const;
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
        Numbered numbered;
    };
    QMap<QString, Offer> mOffers;
};
