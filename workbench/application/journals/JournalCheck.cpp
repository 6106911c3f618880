// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/JournalCheck.h"

#include "frame/Alive.h"
#include "journal/JournalEditor.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/check_journal.h"

#include <QAction>
#include <QHash>
#include <QPlainTextEdit>
#include <QSyntaxHighlighter>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

/** Underlines lines of a document as long as they stay as they are. */
class FaultMarks : public QSyntaxHighlighter
{
public:
    FaultMarks(QTextDocument* document, const QList<JournalFault>& faults) : QSyntaxHighlighter(document)
    {
        setObjectName(u"faultMarks"_s);
        for (const JournalFault& fault : faults) {
            const int line = int(fault.line) - 1;
            mLines.insert(line, document->findBlockByNumber(line).text());
        }
    }

protected:
    void highlightBlock(const QString& text) override
    {
        const auto marked = mLines.constFind(currentBlock().blockNumber());
        if (marked == mLines.constEnd() || *marked != text)
            return;
        QTextCharFormat wrong;
        wrong.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        wrong.setUnderlineColor(Qt::red);
        setFormat(0, int(text.size()), wrong);
    }

private:
    /** The texts of those that are wrong, by their numbers from 0. */
    QHash<int, QString> mLines;
};

} // namespace

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
    delete journal->document()->findChild<QSyntaxHighlighter*>(u"faultMarks"_s);
    if (file.endsWith(".py"_L1) || Playback::is_python(text)) {
        mPrintError(u"ERROR: %1 is a Python script, which cannot be checked\n"_s.arg(name));
        return;
    }
    const QList<JournalFault> faults = check_journal(text, mInterpreter.registry(), mInterpreter.variables());
    if (faults.isEmpty()) {
        mPrint(u"No errors were found in %1.\n"_s.arg(name));
        return;
    }
    new FaultMarks(journal->document(), faults);
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
