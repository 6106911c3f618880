// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"

#include <QList>
#include <QPlainTextEdit>
#include <QPointer>
#include <QString>
#include <QTabWidget>

namespace fennar {

// The documents of the journal editor, whose class the shell does not export.

/** The editor's tabs, whose pages are its documents. They live as long as the editor; null if there is none.
 */
inline QTabWidget* journal_tabs(const JournalEditor* editor)
{
    return editor ? editor->findChild<QTabWidget*>(QStringLiteral("mDocTab")) : nullptr;
}

/** The document on a page of the editor's tabs; null if the page is null or something else. */
inline QPlainTextEdit* journal_document(QWidget* page)
{
    return page && page->inherits("JournalDocument") ? qobject_cast<QPlainTextEdit*>(page) : nullptr;
}

/** The documents on all pages of the editor's tabs; none if that is null. What is done with one may delete
 * others. */
inline QList<QPointer<QPlainTextEdit>> journal_documents(const QTabWidget* tabs)
{
    QList<QPointer<QPlainTextEdit>> all;
    for (int tab = 0; tabs && tab < tabs->count(); ++tab) {
        if (QPlainTextEdit* document = journal_document(tabs->widget(tab)))
            all << document;
    }
    return all;
}

/** The current document; null if there is none, or no editor. */
inline QPlainTextEdit* current_journal(const JournalEditor* editor)
{
    const QTabWidget* tabs = journal_tabs(editor);
    return tabs ? journal_document(tabs->currentWidget()) : nullptr;
}

/** The full path of the file of a page of the journal editor; empty if it has none, or is no document. */
inline QString journal_file(const QWidget* page)
{
    // The class is not exported, so that it cannot be asked for by its meta-object.
    return page && page->inherits("JournalDocument") ? static_cast<const JournalDocument*>(page)->file_name()
                                                     : QString();
}

} // namespace fennar
