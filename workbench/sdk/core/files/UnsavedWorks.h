// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QByteArrayList>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace fennar {

/** What a component has in memory, and what is lost with the program unless somebody keeps it: a model. */
struct UnsavedWork
{
    /** The kind of work, by which a copy finds its component again: small letters, as "model". */
    QString kind;
    /** The name of the component that brings it; a component's context sets it. */
    QString owner = {};
    /** Tells its states apart: a number that no other state has had; nothing while nothing is unsaved. */
    std::function<std::optional<qint64>()> state;
    /** The whole path of the file that it belongs to; empty for none. */
    std::function<QString()> file;
    /** All of it, as parts one behind the other. May throw what is derived from std::exception. Called from
     * the event loop, also while a command runs that lets it turn. */
    std::function<QByteArrayList()> take;
    /** Puts what take() has returned in the place of what is there, to count as unsaved. Returns why that
     * cannot be done; empty if it is. */
    std::function<QString(const QByteArray& bytes, const QString& file)> restore;
};

/**
 * The unsaved work of all components, for the one that keeps copies of it.
 *
 * One object for the whole process, since the components are shared objects of their own. GUI thread only.
 */
class FENNAR_CORE_EXPORT UnsavedWorks : public QObject
{
    Q_OBJECT

public:
    /** The one object; made at the first call. */
    static UnsavedWorks& instance();

    /** Adds work. Returns false, with nothing changed, if there is work of that kind or a field is empty. */
    bool add(const UnsavedWork& work);
    /** Removes all of a component. */
    void remove_owner(const QString& owner);
    /** All work, the oldest first. */
    const QList<UnsavedWork>& works() const { return mWorks; }
    /** The work of that kind; nothing if there is none. */
    std::optional<UnsavedWork> find(const QString& kind) const;

    /** Is to be called by the component when its work has been saved or given up. */
    void tell_settled(const QString& kind) { emit settled(kind); }

signals:
    /** Nothing of that kind is unsaved any more, or the component has gone. */
    void settled(const QString& kind);

private:
    QList<UnsavedWork> mWorks;
};

} // namespace fennar
