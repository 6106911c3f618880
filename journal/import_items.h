// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>

class ConsoleImporter;
class JournalEditor;
class QMenu;
class QPlainTextEdit;

/** What components have added to the import menu of the journal editor. The items belong to the editor. */
struct ImportItems
{
    QList<ConsoleImporter*> present;
    /** Those that are being put into the menu, and are deleted behind that if they have left the list. */
    QList<const ConsoleImporter*> coming;
};

/** Adds an item to the menu; see JournalEditor::add_import(). The list lives as long as the editor. */
void add_import_item(JournalEditor* editor, ImportItems& items, QMenu* menu, const QString& owner,
                     const QString& label, QPlainTextEdit* source);
/** Removes the items that @p owner has added; see JournalEditor::remove_import_items(). */
void remove_import_items_of(const JournalEditor* editor, ImportItems& items, const QString& owner);
