// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QHash>
#include <QPersistentModelIndex>
#include <QString>

class Ostrel;
class QAbstractItemModel;

namespace fennar {

/** The entry for each command that has one in a tree of NavigationEntries; the first of several. */
QHash<QString, QPersistentModelIndex> navigation_entries(const QAbstractItemModel& navigation);

/** Shows the command panel, in front of what is docked with it, at an entry of the window's navigation model.
 */
void show_in_panel(Ostrel& window, const QModelIndex& entry);

} // namespace fennar
