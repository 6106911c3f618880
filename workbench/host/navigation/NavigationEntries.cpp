// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationEntries.h"

#include <QAbstractItemModel>
#include <QSet>

namespace fennar {

namespace {

QSet<QString>& loaded_components()
{
    static QSet<QString> names;
    return names;
}

} // namespace

NavigationKind entry_kind(const QModelIndex& entry)
{
    const QVariant kind = entry.data(NavigationRole::Kind);
    if (kind.isValid())
        return static_cast<NavigationKind>(kind.toInt());
    return entry.model() && entry.model()->hasChildren(entry) ? NavigationKind::Group
                                                              : NavigationKind::Command;
}

bool is_entry_shown(const QModelIndex& entry)
{
    if (!entry.flags().testFlag(Qt::ItemIsEnabled))
        return false;
    if (entry_kind(entry) == NavigationKind::Command)
        return true;
    const QAbstractItemModel* model = entry.model();
    for (int row = 0, rows = model->rowCount(entry); row < rows; ++row)
        if (is_entry_shown(model->index(row, 0, entry)))
            return true;
    return false;
}

QModelIndexList shown_entries(const QAbstractItemModel& model, const QModelIndex& parent)
{
    QModelIndexList entries;
    for (int row = 0, rows = model.rowCount(parent); row < rows; ++row)
        if (const QModelIndex entry = model.index(row, 0, parent); is_entry_shown(entry))
            entries << entry;
    return entries;
}

void set_component_loaded(const QString& name, bool loaded)
{
    if (name.isEmpty())
        return;
    if (loaded)
        loaded_components().insert(name);
    else
        loaded_components().remove(name);
}

bool is_component_loaded(const QString& name)
{
    return loaded_components().contains(name);
}

} // namespace fennar
