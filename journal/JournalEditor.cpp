// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"

#include "journal/JournalDocument.h"

#include <QTabWidget>

JournalEditor::JournalEditor(QWidget* parent) : QMainWindow(parent), mDocTab(new QTabWidget(this))
{
    setCentralWidget(mDocTab);
    add_document({});
}

void JournalEditor::add_document(const QString& text)
{
    auto* document = new JournalDocument(this, mDocTab, "JournalDocument");
    document->setLineWrapMode(QPlainTextEdit::NoWrap);
    mDocTab->addTab(document, tr("Untitled"));
    mDocTab->setCurrentWidget(document);
    document->setPlainText(text);
}

JournalDocument* JournalEditor::returnCurrentDocument() const
{
    return qobject_cast<JournalDocument*>(mDocTab->currentWidget());
}

void JournalEditor::editFind() {}
