// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationCursor.h"

#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/NavigationEntries.h"

#include <algorithm>

namespace fennar {

NavigationCursor::NavigationCursor(QObject* parent) : QObject(parent)
{
    mChange.setSingleShot(true);
    mChange.setInterval(0);
    connect(&mChange, &QTimer::timeout, this, &NavigationCursor::changed);
}

void NavigationCursor::set_model(NavigationModel* model, const QModelIndex& root)
{
    if (mModel)
        mModel->disconnect(this);
    mModel = model;
    mWholeModel = !model || !root.isValid() || root.model() != model;
    mRoot = mWholeModel ? QModelIndex() : root.siblingAtColumn(0);
    mPlace = QModelIndex();
    if (model) {
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &NavigationCursor::leave_rows);
        connect(model, &QAbstractItemModel::rowsInserted, this, &NavigationCursor::note_change);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &NavigationCursor::note_change);
        connect(model, &QAbstractItemModel::rowsMoved, this, &NavigationCursor::note_change);
        connect(model, &QAbstractItemModel::dataChanged, this, &NavigationCursor::note_change);
        connect(model, &QAbstractItemModel::layoutChanged, this, &NavigationCursor::note_change);
        connect(model, &QAbstractItemModel::modelReset, this, &NavigationCursor::note_change);
        connect(model, &QObject::destroyed, this, &NavigationCursor::note_change);
    }
    emit changed();
}

void NavigationCursor::go_to(const QModelIndex& index)
{
    if (!mModel)
        return;
    const QModelIndex entry = index.siblingAtColumn(0);
    if (!entry.isValid() || entry == mRoot)
        mPlace = QModelIndex();
    else if (is_below_root(entry))
        mPlace = entry;
    else
        return;
    emit changed();
}

QModelIndex NavigationCursor::current() const
{
    const QModelIndexList entries = path();
    return entries.isEmpty() ? QModelIndex() : entries.last();
}

QModelIndexList NavigationCursor::path() const
{
    QModelIndexList entries;
    if (!has_entries())
        return entries;
    for (QModelIndex entry = mPlace; entry.isValid() && entry != mRoot; entry = entry.parent())
        entries.prepend(entry);
    const auto hidden = std::find_if_not(entries.cbegin(), entries.cend(), is_entry_shown);
    entries.erase(hidden, entries.cend());
    return entries;
}

QModelIndexList NavigationCursor::entries(const QModelIndex& parent) const
{
    return has_entries() ? shown_entries(*mModel, parent) : QModelIndexList();
}

bool NavigationCursor::has_entries() const
{
    return mModel && (mWholeModel || mRoot.isValid());
}

bool NavigationCursor::is_below_root(const QModelIndex& index) const
{
    if (!has_entries() || index.model() != mModel)
        return false;
    QModelIndex above = index.parent();
    while (above.isValid() && above != mRoot)
        above = above.parent();
    return above == mRoot;
}

void NavigationCursor::leave_rows(const QModelIndex& parent, int first, int last)
{
    QModelIndex entry = mPlace;
    while (entry.isValid() && entry.parent() != parent)
        entry = entry.parent();
    if (entry.isValid() && entry.row() >= first && entry.row() <= last)
        mPlace = is_below_root(parent) ? parent : QModelIndex();
}

void NavigationCursor::note_change()
{
    mChange.start();
}

} // namespace fennar
