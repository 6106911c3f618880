// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QStringList>

#include <utility>

class JournalEditor;
class OptionsPanel;
class Ostrel;
class QAbstractButton;
class QAction;
class QDialog;
class QListWidget;
class QMenu;
class QToolBar;
class QTreeWidgetItem;

namespace fennar {

// Parts of the shell's windows that it does not hand out, for the kit and the program. Their windows own
// them. Null where there is no such window, or the window has no such part. What components ask for as well
// is in journal_documents.h.

/** The button that asks the running command to stop. */
QAbstractButton* cancel_button(const Ostrel* window);
/** The plugin tool; null until it has been opened for the first time. */
QDialog* plugin_tool(const Ostrel* window);
/** The list of components in the plugin tool. */
QListWidget* plugin_list(const QDialog* tool);
/** The entry that closes the current document of the journal editor. */
QAction* close_journal_action(const JournalEditor* editor);
/** The pages of the options dialog as they stand in its list, as "Group/Page"; a group comes before its
 * pages. */
QStringList option_pages(const OptionsPanel* panel);
/** The entry of the options dialog with that path, or null. */
QTreeWidgetItem* options_entry(const OptionsPanel& panel, const QString& path);
/** The journal editor's import menu. */
QMenu* import_menu(const JournalEditor& editor);
/** Deletes the buttons that wait for it: they count as buttons, and keep an empty toolbar alive. */
void delete_waiting_buttons(const QToolBar& bar);
/** The recent files, the newest first, with their entries in the menu "File", which show them shortened. */
QList<std::pair<QString, QAction*>> recent_file_actions(const Ostrel* window);
/** The entries of the menu "File" that need a component: for documents, import and export. */
QList<QAction*> file_actions(const Ostrel* window);
/** The title of a menu of the main window in the user's language, by its English one, as "&Tools"; other
 * titles as they are. */
QString main_menu_title(const char* english);

} // namespace fennar
