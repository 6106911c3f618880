// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that adds an item to the context menu of the journal editor's documents: it inserts a command
// chosen from a list.

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/components/insert_command/InsertCommandDialog.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QPointer>

using namespace fennar;
using namespace fennar::insert_command;
using namespace Qt::StringLiterals;

namespace {

/** Inserts at the caret how the command is typed, and selects what is to be replaced in it. */
void insert_template(QPlainTextEdit* document, const QString& name, const QString& usage)
{
    QTextCursor cursor = document->textCursor();
    // What is selected stays.
    const int start = cursor.position();
    cursor.setPosition(start);
    cursor.insertText(usage);
    if (usage != name)
        cursor.setPosition(start + int(name.size()) + 1, QTextCursor::KeepAnchor);
    document->setTextCursor(cursor);
    document->setFocus();
}

void insert(JournalEditor* editor)
{
    const QPointer<QPlainTextEdit> target = current_journal(editor);
    if (!target)
        return;
    // On the heap: the editor may go meanwhile, and takes the dialog with it. The document may be closed.
    const QPointer<InsertCommandDialog> dialog =
        new InsertCommandDialog(Fennar::instance().registry(), editor);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    const QString name = dialog->name();
    const QString usage = dialog->usage();
    delete dialog.data();
    if (accepted && target && !name.isEmpty())
        insert_template(target, name, usage);
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    Ostrel* const window = context.window();
    const QPointer<JournalEditor> editor = window ? window->journal_editor() : nullptr;
    if (!editor)
        return;
    QAction* const action =
        context.make_action(QCoreApplication::translate("InsertCommand", "Insert command..."), [editor] {
            if (editor)
                insert(editor);
        });
    action->setObjectName(u"insertCommand"_s);
    // The item is disabled in a document without text; the key is not.
    action->setShortcut(Qt::CTRL | Qt::Key_Space);
    context.add_editor_entry(action);
}
