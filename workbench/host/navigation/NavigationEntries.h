// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/NavigationRoles.h"

#include <QModelIndexList>

class QAbstractItemModel;

namespace fennar {

/** What @p entry is. An entry whose model does not say is a group if it has entries below it, else a command.
 */
NavigationKind entry_kind(const QModelIndex& entry);

/**
 * Whether a panel shows @p entry in the level it belongs to: it must be enabled, and a page or group must
 * also hold something to show. The entries above it are not looked at.
 */
bool is_entry_shown(const QModelIndex& entry);

/** The entries below @p parent (invalid: the top level) that are shown, in order. */
QModelIndexList shown_entries(const QAbstractItemModel& model, const QModelIndex& parent);

} // namespace fennar
