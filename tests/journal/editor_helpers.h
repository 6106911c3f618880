// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

class JournalDocument;
class JournalEditor;
class QAction;
class QMenu;
class QTabWidget;
class QWidget;

/** The tabs of the editor. */
QTabWidget* tabs_of(const JournalEditor& editor);
/** The texts on the tabs. */
QStringList tab_texts(const JournalEditor& editor);
/** The document of a tab; null if there is none. */
JournalDocument* document_of(const JournalEditor& editor, int index);
/** The texts of all documents, in the order of their tabs. */
QStringList texts_of(const JournalEditor& editor);
/** The action, or the menu, with that object name. */
QAction* action_of(const JournalEditor& editor, const QString& name);
QMenu* menu_of(const JournalEditor& editor, const QString& name);
/** The object names of the actions of a menu or tool bar, a separator as "---", a submenu by its own name. */
QStringList entries(const QWidget* widget);

/** Makes an untitled document and types @p text into it. */
JournalDocument* typed_document(JournalEditor& editor, const QString& text);
