// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/command_panel.h"

#include "frame/Ostrel.h"
#include "host/navigation/TaskPanel.h"
#include "workbench/host/navigation/NavigationEntries.h"

#include <QAbstractItemModel>
#include <QDockWidget>

namespace fennar {

static void collect_navigation(const QAbstractItemModel& navigation, const QModelIndex& parent,
                               QHash<QString, QPersistentModelIndex>& entries)
{
    for (int row = 0; row < navigation.rowCount(parent); ++row) {
        const QModelIndex entry = navigation.index(row, 0, parent);
        const QString name = entry.data(NavigationRole::Command).toString().section(u' ', 0, 0);
        if (!name.isEmpty() && !entries.contains(name))
            entries.insert(name, entry);
        collect_navigation(navigation, entry, entries);
    }
}

QHash<QString, QPersistentModelIndex> navigation_entries(const QAbstractItemModel& navigation)
{
    QHash<QString, QPersistentModelIndex> entries;
    collect_navigation(navigation, {}, entries);
    return entries;
}

void show_in_panel(Ostrel& window, const QModelIndex& entry)
{
    TaskPanel* const panel = window.command_buttons();
    QWidget* dock = panel;
    while (dock && !qobject_cast<QDockWidget*>(dock))
        dock = dock->parentWidget();
    if (dock) {
        dock->show();
        dock->raise();
    }
    panel->set_current_index(entry);
}

} // namespace fennar
