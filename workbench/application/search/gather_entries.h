// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/search/SearchEntry.h"

#include <QHash>
#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStringList>

#include <utility>

class QAbstractItemModel;
class QAction;
class QMenu;
class QMenuBar;

namespace fennar {

class CommandRegistry;
struct Command;

// What the command search offers, from where it stands. What the entries run is looked for again when they
// are run: it may be gone by then, or disabled.

/** Does something with what has a name. */
using UseName = std::function<void(const QString& name)>;

/** The entries of the menus, in their order, and all menus that they stand in. */
struct MenuEntries
{
    QList<SearchEntry> entries;
    QList<QPointer<QMenu>> menus;
};

/** The text of a menu or of an entry in one, without what marks its key, and without "..." at its end. */
QString plain_menu_text(const QString& text);

/**
 * The entries of the menus of @p bar that are not hidden. Those that are disabled, or stand in a menu that
 * is, cannot be run, and say why as disabled_reason() has it.
 *
 * @param above    stands in front of the places; empty for nothing.
 * @param without  entries that are left out.
 */
MenuEntries gather_menus(const QMenuBar* bar, const QString& above, const QList<QAction*>& without);

/** Whether the command can be run as it stands, without arguments. */
bool runs_without_arguments(const Command& command);

/**
 * The commands, sorted by name. Those that stand in the command panel have the title that they have there.
 *
 * @param panel  see navigation_entries().
 */
QList<SearchEntry> gather_commands(const CommandRegistry& registry,
                                   const QHash<QString, QPersistentModelIndex>& panel, const UseName& use);

/** The pages of the options, which are given as "Group/Page". Groups with pages are not among the entries. */
QList<SearchEntry> gather_pages(const QStringList& pages, const UseName& show);

/** Recent files, from their names and their entries in the menu "File". */
QList<SearchEntry> gather_recent_files(const QList<std::pair<QString, QAction*>>& files);

} // namespace fennar
