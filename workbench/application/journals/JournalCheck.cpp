// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/JournalCheck.h"

#include "frame/Alive.h"
#include "journal/JournalEditor.h"
#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/check_journal.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace fennar {

JournalCheck::JournalCheck(JournalEditor* editor, CommandInterpreter& interpreter, const Print& print,
                           const Print& print_error)
    : mEditor(editor),
      mInterpreter(interpreter),
      mPrint(print),
      mPrintError(print_error),
      mAction(new QAction(tr("Chec&k"), this))
{
    mAction->setObjectName(u"checkJournal"_s);
    mAction->setShortcut(Qt::Key_F7);
    mAction->setShortcutVisibleInContextMenu(true);
    connect(mAction, &QAction::triggered, this, &JournalCheck::check);
    editor->add_context_menu_item(mAction);
    editor->addAction(mAction);
}

JournalCheck::~JournalCheck()
{
    if (!mEditor)
        return;
    mEditor->removeAction(mAction);
    mEditor->remove_context_menu_items(mAction);
}

void JournalCheck::check()
{
    QPlainTextEdit* const journal = current_journal(mEditor);
    if (!journal)
        return;
    const QString file = journal_file(journal);
    const QString name = file.isEmpty() ? u"Untitled"_s : file;
    const QString text = journal->toPlainText();
    if (DocumentMarks* marks = DocumentMarks::find(journal->document()))
        marks->set_wrong_lines({});
    if (file.endsWith(".py"_L1) || Playback::is_python(text)) {
        mPrintError(u"ERROR: %1 is a Python script, which cannot be checked\n"_s.arg(name));
        return;
    }
    const QList<JournalFault> faults = check_journal(text, mInterpreter.registry(), mInterpreter.variables());
    if (faults.isEmpty()) {
        mPrint(u"No errors were found in %1.\n"_s.arg(name));
        return;
    }
    QList<int> wrong;
    for (const JournalFault& fault : faults)
        wrong << int(fault.line) - 1;
    DocumentMarks::of(journal->document())->set_wrong_lines(wrong);
    // Whoever sees an error may close the journal, or end this.
    const Alive alive(this, journal);
    const Print print_error = mPrintError;
    for (const JournalFault& fault : faults) {
        if (alive)
            print_error(u"ERROR: %1:%2: %3\n"_s.arg(name).arg(fault.line).arg(fault.message));
    }
    if (!alive)
        return;
    journal->setTextCursor(QTextCursor(journal->document()->findBlockByNumber(int(faults.first().line) - 1)));
    journal->centerCursor();
}

} // namespace fennar
