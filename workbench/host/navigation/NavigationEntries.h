// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QModelIndexList>
#include <QString>

class QAbstractItemModel;

namespace fennar {

/** What an entry of a NavigationModel is; stored as an int under NavigationRole::Kind. */
enum class NavigationKind {
    Page,   ///< a top-level entry; holds groups and commands
    Group,  ///< holds groups and commands
    Command ///< leads to a command line
};

/** What a NavigationModel keeps for an entry besides its title (Qt::DisplayRole) and its picture
 * (Qt::DecorationRole). */
namespace NavigationRole {
/** QString, plain text of any length: what the entry is for. Also the tool tip in any other view. */
inline constexpr int Tip = Qt::ToolTipRole;
/** int, a NavigationKind. */
inline constexpr int Kind = Qt::UserRole + 1;
/** QString: the command line that a command starts from; its first word names the command. */
inline constexpr int Command = Qt::UserRole + 2;
/** QString: how the command is written, as in "echo [WORD...]"; empty if the file does not say. */
inline constexpr int Usage = Qt::UserRole + 3;
/** QString: the picture's name as the file gives it; empty for none. */
inline constexpr int IconName = Qt::UserRole + 4;
/** QString: the component without which the entry is not shown; empty for none. */
inline constexpr int Component = Qt::UserRole + 5;
} // namespace NavigationRole

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

/**
 * Tells the navigation library that the component @p name is loaded, or that it no longer is.
 *
 * Called by whoever loads components, before the framework's trackers hear of it. Entries that wait for the
 * component follow at the next NavigationResourcesDelay::recheckResources(). Names are compared exactly; an
 * empty name is ignored.
 */
void set_component_loaded(const QString& name, bool loaded);

/** Whether set_component_loaded() last said that @p name is loaded; false for a name never told. */
bool is_component_loaded(const QString& name);

} // namespace fennar
