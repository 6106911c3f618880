// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

class JournalEditor;
class QAction;
class QPlainTextEdit;

/**
 * An item of the journal editor's import menu: it opens the text of a console page as a journal.
 *
 * JournalEditor::add_import() makes it, and the editor deletes it. The page is not watched: whoever added the
 * item removes it before the page goes.
 */
class ConsoleImporter : public QObject
{
    Q_OBJECT

public:
    /**
     * @param editor  takes the documents, and is the parent; null makes an item that does nothing.
     * @param label   the item's text.
     */
    ConsoleImporter(JournalEditor* editor, const QString& label);

    /** The owner mark: the name of the component that added the item. */
    QString owner_name() const;
    void set_owner_name(const QString& name);
    /** The item for the menu; it lives as long as the importer. */
    QAction* action() const;
    /** The page to import from; null, as at first, makes the item do nothing. */
    void set_source(QPlainTextEdit* source);

public slots:
    /** Opens the commands of the page, if it is a CommandWidget, or else its whole text as a new journal. */
    void importCommands();

private:
    QString mOwnerName;
    QAction* mAction;
    JournalEditor* mEditor;
    QPlainTextEdit* mSource = nullptr;
};
