// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that adds an item to the context menu of the journal editor's documents: it inserts a command
// chosen from a list.

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/components/insert_command/InsertCommandDialog.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto owner = "insert_command";

/** Inserts at the caret how the command is typed, and selects what is to be replaced in it. */
void insert_template(QPlainTextEdit* document, const QString& name, const QString& usage)
{
    QTextCursor cursor = document->textCursor();
    // What is selected stays.
    const int start = cursor.position();
    cursor.setPosition(start);
    cursor.insertText(usage);
    const QString head = name + u' ';
    if (usage.startsWith(head))
        cursor.setPosition(start + int(head.size()), QTextCursor::KeepAnchor);
    document->setTextCursor(cursor);
    document->setFocus();
}

/** What the component has in the journal editor. */
class InsertCommand : public QObject
{
    Q_OBJECT

public:
    explicit InsertCommand(JournalEditor* editor);
    ~InsertCommand() override;

private:
    QPlainTextEdit* document() const;
    void insert();

    /** Goes with the main window, perhaps before this object. */
    QPointer<JournalEditor> mEditor;
    QAction* mAction;
};

InsertCommand::InsertCommand(JournalEditor* editor)
    : mEditor(editor), mAction(new QAction(tr("Insert command..."), this))
{
    setObjectName(u"InsertCommand"_s);
    mAction->setObjectName(u"insertCommand"_s);
    // The item is disabled in a document without text; the key is not.
    mAction->setShortcut(Qt::CTRL | Qt::Key_Space);
    connect(mAction, &QAction::triggered, this, &InsertCommand::insert);
    editor->add_context_menu_item(mAction);
    editor->addAction(mAction);
}

InsertCommand::~InsertCommand()
{
    if (!mEditor)
        return;
    mEditor->removeAction(mAction);
    mEditor->remove_context_menu_items(mAction);
}

/** The current document. Its class is not for components, so it is found by the name of its tabs. */
QPlainTextEdit* InsertCommand::document() const
{
    const auto* tabs = mEditor ? mEditor->findChild<QTabWidget*>(u"mDocTab"_s) : nullptr;
    return tabs ? qobject_cast<QPlainTextEdit*>(tabs->currentWidget()) : nullptr;
}

void InsertCommand::insert()
{
    const QPointer<QPlainTextEdit> target = document();
    if (!target)
        return;
    // On the heap: the editor may go meanwhile, and takes the dialog with it. The document may be closed.
    const QPointer<InsertCommandDialog> dialog =
        new InsertCommandDialog(Fennar::instance().registry(), mEditor);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    const QString name = dialog->name();
    const QString usage = dialog->usage();
    delete dialog.data();
    if (accepted && target && !name.isEmpty())
        insert_template(target, name, usage);
}

std::unique_ptr<InsertCommand> insert_command;

void load()
{
    Ostrel* window = Ostrel::instance();
    if (JournalEditor* editor = window ? window->journal_editor() : nullptr)
        insert_command = std::make_unique<InsertCommand>(editor);
}

void unload()
{
    insert_command.reset();
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, owner, "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)

#include "insert_command.moc"
