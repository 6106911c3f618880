// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

class JournalEditor;
class OptionsPanel;
class QMenu;
class QToolBar;
class QTreeWidgetItem;

// What the context needs of the shell's windows, and they do not hand out.
namespace fennar::shell_parts {

/** The entry of the options dialog with that path, or null. */
QTreeWidgetItem* options_entry(const OptionsPanel& panel, const QString& path);
/** The journal editor's import menu. */
QMenu* import_menu(const JournalEditor& editor);
/** Deletes the buttons that wait for it: they count as buttons, and keep an empty toolbar alive. */
void delete_waiting_buttons(const QToolBar& bar);

} // namespace fennar::shell_parts
