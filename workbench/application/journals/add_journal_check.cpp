// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/add_journal_check.h"

#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Playback.h"
#include "workbench/sdk/core/commands/check_journal.h"

#include <QAction>
#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Print = std::function<void(const QString& text)>;

/** Checks a journal and prints its errors. Stops printing if @p action, the chosen entry, is deleted
 * meanwhile. */
void check(QPlainTextEdit* journal, const QAction* action, CommandInterpreter& interpreter,
           const Print& print, const Print& print_error)
{
    const QString file = journal_file(journal);
    const QString name = file.isEmpty() ? u"Untitled"_s : file;
    const QString text = journal->toPlainText();
    if (DocumentMarks* marks = DocumentMarks::find(journal->document()))
        marks->set_wrong_lines({});
    if (file.endsWith(".py"_L1) || Playback::is_python(text)) {
        print_error(u"ERROR: %1 is a Python script, which cannot be checked\n"_s.arg(name));
        return;
    }
    const QList<JournalFault> faults = check_journal(text, interpreter.registry(), interpreter.variables());
    if (faults.isEmpty()) {
        print(u"No errors were found in %1.\n"_s.arg(name));
        return;
    }
    QList<int> wrong;
    for (const JournalFault& fault : faults)
        wrong << int(fault.line) - 1;
    DocumentMarks::of(journal->document())->set_wrong_lines(wrong);
    // Whoever sees an error may close the journal, or end this.
    const Alive alive(action, journal);
    for (const JournalFault& fault : faults) {
        if (alive)
            print_error(u"ERROR: %1:%2: %3\n"_s.arg(name).arg(fault.line).arg(fault.message));
    }
    if (!alive)
        return;
    journal->setTextCursor(QTextCursor(journal->document()->findBlockByNumber(int(faults.first().line) - 1)));
    journal->centerCursor();
}

} // namespace

void add_journal_check(ComponentContext& context, CommandInterpreter& interpreter, const Print& print,
                       const Print& print_error)
{
    QAction* const action =
        context.make_action(QCoreApplication::translate("JournalCheck", "Chec&k"), nullptr);
    if (!action)
        return;
    action->setObjectName(u"checkJournal"_s);
    action->setShortcut(Qt::Key_F7);
    action->setShortcutVisibleInContextMenu(true);
    const QPointer<const JournalEditor> editor = context.window()->journal_editor();
    QObject::connect(action, &QAction::triggered, action, [=, &interpreter] {
        if (QPlainTextEdit* const journal = current_journal(editor))
            check(journal, action, interpreter, print, print_error);
    });
    context.add_editor_entry(action);
}

} // namespace fennar
