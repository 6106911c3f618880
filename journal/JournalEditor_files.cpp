// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of JournalEditor that opens, saves and closes documents.
//
// Each question to the user, and each change of a document that others hear of, may end with the document or
// the window gone. What returns whether its caller may go on returns false if the window has gone.

#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "files/RecentFiles.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/JournalEditorForm.h"
#include "journal/read_journal.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QMessageBox>
#include <QPointer>

#include <fstream>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> read_file(const QString& name)
{
    std::ifstream stream(QFile::encodeName(name).constData());
    return read_journal(stream);
}

bool is_modified(const JournalDocument* doc)
{
    return doc->document()->isModified();
}

void set_modified(JournalDocument* doc, bool modified)
{
    doc->document()->setModified(modified);
}

} // namespace

void JournalEditor::fileOpen()
{
    const Alive alive(this);
    const QString name = ask_open_file(this, tr("Open"), OstrelFileMenu::mPath,
                                       tr("Journal Files (*.jou *.py);;All Files (*.*)"));
    if (alive && !name.isEmpty())
        open_file(name);
}

void JournalEditor::fileClose()
{
    const QPointer<JournalDocument> doc = returnCurrentDocument();
    const bool any = doc;
    if (!check_modified(doc))
        return;
    // Others may have closed it meanwhile.
    if (any && mUi->mDocTab->indexOf(doc) < 0)
        return;
    if (mUi->mDocTab->count() > 1)
        remove_document(doc);
    else
        close();
}

void JournalEditor::fileSave()
{
    save_document(returnCurrentDocument());
}

void JournalEditor::fileSaveAs()
{
    save_document_as(returnCurrentDocument());
}

void JournalEditor::fileSaveAll()
{
    const Alive alive(this);
    for (const QPointer<JournalDocument>& doc : documents()) {
        if (!doc || mUi->mDocTab->indexOf(doc) < 0 || !is_modified(doc))
            continue;
        save_document(doc);
        if (!alive || (doc && is_modified(doc)))
            return;
    }
}

void JournalEditor::close_tab(int index)
{
    QTabWidget* const tabs = mUi->mDocTab;
    const QPointer<QWidget> page = tabs->widget(index);
    const bool any = page;
    if (!check_modified(document(index)))
        return;
    // The page may stand elsewhere by now, and others may have closed it.
    const int index_now = tabs->indexOf(page);
    if (any && index_now < 0)
        return;
    if (tabs->count() > 1)
        tabs->removeTab(index_now);
    else
        close();
}

void JournalEditor::open_file(const QString& name)
{
    OstrelFileMenu::set_path_from_file(name);
    const std::optional<QString> text = read_file(name);
    if (!text) {
        show_message(QMessageBox::Critical, this, tr("File Error"), tr("Unable to open the file."),
                     QMessageBox::Ok);
        return;
    }
    JournalDocument* const doc = create_document(name);
    if (!doc)
        return;
    const Alive alive(this, doc);
    doc->setPlainText(*text);
    if (!alive)
        return;
    set_modified(doc, false);
    if (alive && mRecentFiles)
        mRecentFiles->add(name);
}

void JournalEditor::closeEvent(QCloseEvent* e)
{
    const Alive alive(this);
    QTabWidget* const tabs = mUi->mDocTab;
    const bool were_blocked = tabs->blockSignals(true);
    bool refused = false;
    QList<QPointer<JournalDocument>> open = documents();
    while (!open.isEmpty() && !refused) {
        const QPointer<JournalDocument> doc = open.takeLast();
        if (tabs->indexOf(doc) >= 0) {
            refused = !check_modified(doc);
            if (!alive)
                return;
            // Leaves the last one, for the next time that the window is shown.
            if (!refused)
                remove_document(doc);
            if (!alive)
                return;
        }
        // What has been added while the user was asked must not get lost either.
        if (open.isEmpty()) {
            open = documents();
            open.removeIf([](const QPointer<JournalDocument>& added) { return !is_modified(added); });
        }
    }
    tabs->blockSignals(were_blocked);
    update_title(-1);
    if (!alive)
        return;
    if (!refused)
        save_settings();
    e->setAccepted(!refused);
}

// Whether the caller may go on: nothing is unsaved, or the user has decided to save or to lose it.
bool JournalEditor::check_modified(JournalDocument* doc)
{
    if (!doc || !is_modified(doc))
        return true;
    const Alive alive(this);
    if (!mDoPrompt) {
        set_modified(doc, false);
        return bool(alive);
    }

    const QPointer<JournalDocument> watched = doc;
    mUi->mDocTab->setCurrentWidget(doc);
    if (!alive || !watched)
        return bool(alive);
    bool never_again = false;
    const int answer = OstrelMessageBox::warning(
        this, tr("Journal Editor"), tr("The document has been modified.\nDo you wish to save the changes?"),
        never_again, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel,
        tr("Never prompt me when there is unsaved data."));
    if (!alive)
        return false;
    if (answer == QMessageBox::Yes) {
        save_document(watched);
        return alive && (!watched || !is_modified(watched));
    }
    if (answer == QMessageBox::No) {
        mDoPrompt = !never_again;
        if (watched)
            set_modified(watched, false);
        return bool(alive);
    }
    return false;
}

void JournalEditor::save_document(JournalDocument* doc)
{
    if (!doc)
        return;
    if (doc->file_name().isEmpty()) {
        save_document_as(doc);
        return;
    }
    const Alive alive(this, doc);
    QEvent event(document_is_saved);
    QCoreApplication::sendEvent(doc, &event);
    if (!alive || !event.isAccepted())
        return;
    std::ofstream stream(QFile::encodeName(doc->file_name()).constData());
    if (!stream) {
        show_message(QMessageBox::Critical, this, tr("File Error"), tr("Unable to save the file."),
                     QMessageBox::Ok);
        return;
    }
    // As a C string: what follows a NUL is not written.
    stream << doc->toPlainText().toUtf8().constData();
    stream.close();
    // Whatever became of the writing (docs/surprises.md).
    set_modified(doc, false);
}

void JournalEditor::save_document_as(JournalDocument* doc)
{
    if (!doc)
        return;
    const Alive alive(this, doc);
    QString name = ask_save_file(this, tr("Save As"), OstrelFileMenu::mPath,
                                 tr("Journal files (*.jou *.py);;All Files (*.*)"));
    if (!alive || name.isEmpty())
        return;
    // A dot in the directory counts as well (docs/surprises.md).
    if (!name.contains(u'.'))
        name += u".jou"_s;
    OstrelFileMenu::set_path_from_file(name);
    // Comes on top of what the file dialog asks, which does not know of the added ending.
    if (QFile::exists(name) && show_message(QMessageBox::Warning, this, tr("Save As"),
                                            name + tr(" already exists.\nDo you want to replace it?"),
                                            QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!alive)
        return;
    doc->set_file_name(name);
    if (alive && mRecentFiles)
        mRecentFiles->add(name);
    if (alive)
        save_document(doc);
}

void JournalEditor::remove_document(JournalDocument* doc)
{
    QTabWidget* const tabs = mUi->mDocTab;
    const int index = doc ? tabs->indexOf(doc) : -1;
    if (index < 0 || tabs->count() < 2)
        return;
    const Alive alive(this, doc);
    tabs->removeTab(index);
    if (!alive)
        return;
    for (QAction* action : std::as_const(mUi->mContextMenuItems))
        doc->remove_context_menu_item(action);
    delete doc;
}
