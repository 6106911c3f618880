// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/ConsoleImporter.h"

#include "console/CommandWidget.h"
#include "journal/JournalEditor.h"

#include <QAction>

using namespace Qt::StringLiterals;

ConsoleImporter::ConsoleImporter(JournalEditor* editor, const QString& label)
    : QObject(editor), mAction(new QAction(label, this)), mEditor(editor)
{
    setObjectName(label);
    mAction->setObjectName(u"JournalImportAction"_s);
    connect(mAction, &QAction::triggered, this, &ConsoleImporter::importCommands);
}

QString ConsoleImporter::owner_name() const
{
    return mOwnerName;
}

void ConsoleImporter::set_owner_name(const QString& name)
{
    mOwnerName = name;
}

QAction* ConsoleImporter::action() const
{
    return mAction;
}

void ConsoleImporter::set_source(QPlainTextEdit* source)
{
    mSource = source;
}

void ConsoleImporter::importCommands()
{
    if (!mEditor || !mSource)
        return;
    if (const auto* page = qobject_cast<CommandWidget*>(mSource))
        mEditor->add_document(page->getCommands().join(u'\n'));
    else
        mEditor->add_document(mSource->toPlainText());
}
