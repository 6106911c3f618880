// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "editor_helpers.h"

#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"

#include <QAction>
#include <QMenu>
#include <QTabWidget>

using namespace Qt::StringLiterals;

QTabWidget* tabs_of(const JournalEditor& editor)
{
    return editor.findChild<QTabWidget*>(u"mDocTab"_s);
}

QStringList tab_texts(const JournalEditor& editor)
{
    QStringList texts;
    for (int i = 0; i < tabs_of(editor)->count(); ++i)
        texts << tabs_of(editor)->tabText(i);
    return texts;
}

JournalDocument* document_of(const JournalEditor& editor, int index)
{
    return qobject_cast<JournalDocument*>(tabs_of(editor)->widget(index));
}

QStringList texts_of(const JournalEditor& editor)
{
    QStringList texts;
    for (int i = 0; i < tabs_of(editor)->count(); ++i)
        texts << document_of(editor, i)->toPlainText();
    return texts;
}

QAction* action_of(const JournalEditor& editor, const QString& name)
{
    return editor.findChild<QAction*>(name);
}

QMenu* menu_of(const JournalEditor& editor, const QString& name)
{
    return editor.findChild<QMenu*>(name);
}

QStringList entries(const QWidget* widget)
{
    QStringList names;
    for (const QAction* action : widget->actions()) {
        if (action->isSeparator())
            names << u"---"_s;
        else
            names << (action->menu() ? action->menu()->objectName() : action->objectName());
    }
    return names;
}

JournalDocument* typed_document(JournalEditor& editor, const QString& text)
{
    editor.fileNew();
    JournalDocument* const doc = editor.returnCurrentDocument();
    doc->insertPlainText(text);
    return doc;
}
