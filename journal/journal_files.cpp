// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/journal_files.h"

#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "files/RecentFiles.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/read_journal.h"

#include <QCoreApplication>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>

#include <filesystem>
#include <fstream>

using namespace Qt::StringLiterals;

namespace {

/** Whether to open it would wait for another program, and the window with it. */
bool is_pipe(const QString& name)
{
    std::error_code unknown;
    return std::filesystem::is_fifo(QFile::encodeName(name).constData(), unknown);
}

} // namespace

std::optional<QString> read_journal_file(const QString& name)
{
    if (is_pipe(name))
        return {};
    std::ifstream stream(QFile::encodeName(name).constData());
    return read_journal(stream);
}

void save_document(JournalEditor* editor, JournalDocument* doc, RecentFiles* recent)
{
    if (!doc)
        return;
    if (doc->file_name().isEmpty()) {
        save_document_as(editor, doc, recent);
        return;
    }
    const Alive alive(editor, doc);
    QEvent event(JournalEditor::document_is_saved);
    QCoreApplication::sendEvent(doc, &event);
    if (!alive || !event.isAccepted())
        return;
    std::ofstream stream;
    if (!is_pipe(doc->file_name()))
        stream.open(QFile::encodeName(doc->file_name()).constData());
    if (!stream.is_open()) {
        show_message(QMessageBox::Critical, editor, JournalEditor::tr("File Error"),
                     JournalEditor::tr("Unable to save the file."), QMessageBox::Ok);
        return;
    }
    // As a C string: what follows a NUL is not written.
    stream << doc->toPlainText().toUtf8().constData();
    stream.close();
    // Whatever became of the writing (docs/surprises.md).
    doc->document()->setModified(false);
}

void save_document_as(JournalEditor* editor, JournalDocument* doc, RecentFiles* recent)
{
    if (!doc)
        return;
    const Alive alive(editor, doc);
    QString name = ask_save_file(editor, JournalEditor::tr("Save As"), OstrelFileMenu::mPath,
                                 JournalEditor::tr("Journal files (*.jou *.py);;All Files (*.*)"));
    if (!alive || name.isEmpty())
        return;
    // A dot in the directory counts as well (docs/surprises.md).
    if (!name.contains(u'.'))
        name += u".jou"_s;
    OstrelFileMenu::set_path_from_file(name);
    // Comes on top of what the file dialog asks, which does not know of the added ending.
    if (QFile::exists(name) &&
        show_message(QMessageBox::Warning, editor, JournalEditor::tr("Save As"),
                     name + JournalEditor::tr(" already exists.\nDo you want to replace it?"),
                     QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!alive)
        return;
    doc->set_file_name(name);
    if (alive && recent)
        recent->add(name);
    if (alive)
        save_document(editor, doc, recent);
}

bool check_modified(JournalEditor* editor, QTabWidget* tabs, JournalDocument* doc, RecentFiles* recent)
{
    if (!doc || !doc->document()->isModified())
        return true;
    const Alive alive(editor);
    if (!JournalEditor::do_save_prompt()) {
        doc->document()->setModified(false);
        return bool(alive);
    }

    const QPointer<JournalDocument> watched = doc;
    tabs->setCurrentWidget(doc);
    if (!alive || !watched)
        return bool(alive);
    bool never_again = false;
    const int answer = OstrelMessageBox::warning(
        editor, JournalEditor::tr("Journal Editor"),
        JournalEditor::tr("The document has been modified.\nDo you wish to save the changes?"), never_again,
        QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel,
        JournalEditor::tr("Never prompt me when there is unsaved data."));
    if (!alive)
        return false;
    if (answer == QMessageBox::Yes) {
        save_document(editor, watched, recent);
        return alive && (!watched || !watched->document()->isModified());
    }
    if (answer == QMessageBox::No) {
        JournalEditor::set_save_prompt(!never_again);
        if (watched)
            watched->document()->setModified(false);
        return bool(alive);
    }
    return false;
}
