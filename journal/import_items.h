// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>

class ConsoleImporter;
class JournalEditor;
class QMenu;
class QPlainTextEdit;

/** The editor's lists of what components have added to its import menu. The items belong to the editor. */
struct ImportItems
{
    QList<ConsoleImporter*>& present;
    /** Those that are being added to the menu, and are deleted afterwards if they have left the list. */
    QList<const ConsoleImporter*>& coming;
};

/** Adds an item to the menu; see JournalEditor::add_import(). The lists live as long as the editor. */
void add_import_item(JournalEditor* editor, ImportItems items, QMenu* menu, const QString& owner,
                     const QString& label, QPlainTextEdit* source);
/** Removes the items that @p owner has added; see JournalEditor::remove_import_items(). */
void remove_import_items_of(const JournalEditor* editor, ImportItems items, const QString& owner);
