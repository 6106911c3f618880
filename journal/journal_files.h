// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <optional>

class JournalDocument;
class JournalEditor;
class QTabWidget;
class RecentFiles;

// How the journal editor reads and writes files. Each question to the user, and each change of a document
// that others hear of, may end with the document or the editor gone.

/** The text of a file; nothing if it cannot be read. */
std::optional<QString> read_journal_file(const QString& name);

/** Writes a document to its file, or says why not; one without a file goes to save_document_as(). Null is
 * ignored.
 *
 * @param recent  takes the name of a file that is asked for; may be null. */
void save_document(JournalEditor* editor, JournalDocument* doc, RecentFiles* recent);
/** Asks for a file and saves the document in it; otherwise as save_document(). */
void save_document_as(JournalEditor* editor, JournalDocument* doc, RecentFiles* recent);
/**
 * Asks what is to become of unsaved changes, if there are any and the user wants to be asked, and saves or
 * drops them. A null document has none.
 *
 * @param tabs  where the document stands, which is shown while the user is asked.
 * @return whether the caller may go on: nothing is unsaved any more, and the editor is still there.
 */
bool check_modified(JournalEditor* editor, QTabWidget* tabs, JournalDocument* doc, RecentFiles* recent);
