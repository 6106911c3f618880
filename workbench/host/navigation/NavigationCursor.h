// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QModelIndexList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>

class NavigationModel;

namespace fennar {

/**
 * The place that a command panel has reached in a model, kept true while the model changes.
 *
 * What is asked is answered for the model as it is now. When the place is removed, the entry above it is the
 * new place; when it is no longer shown, the nearest entry above that is shown answers for it.
 */
class NavigationCursor : public QObject
{
    Q_OBJECT

public:
    explicit NavigationCursor(QObject* parent);

    /** Starts at @p root of @p model. A null model has no entries; a root of another model counts as invalid,
     * which stands for the whole model. A root that is removed later leaves nothing to show. */
    void set_model(NavigationModel* model, const QModelIndex& root);
    QModelIndex root() const { return mRoot; }

    /** Goes to @p index; an invalid one, or the root itself, goes to the root. One that is not below the root
     * is ignored. */
    void go_to(const QModelIndex& index);
    /** The entry reached; invalid at the root. */
    QModelIndex current() const;
    /** The entries from below the root down to the one reached; empty at the root. */
    QModelIndexList path() const;
    /** What is shown below @p parent, which is the root or below it. Empty without a model. */
    QModelIndexList entries(const QModelIndex& parent) const;

signals:
    /** There may be something else to show: at once when the place was set, once per turn of the event loop
     * when the model has changed. */
    void changed();

private:
    bool is_below_root(const QModelIndex& index) const;
    bool has_entries() const;
    void leave_rows(const QModelIndex& parent, int first, int last);
    void note_change();

    QPointer<NavigationModel> mModel;
    QPersistentModelIndex mRoot;
    bool mWholeModel = true;
    QPersistentModelIndex mPlace;
    QTimer mChange;
};

} // namespace fennar
