// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"

#include "console/ConsoleImporter.h"
#include "files/OstrelFileMenu.h"
#include "files/RecentFiles.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditorForm.h"
#include "journal/JournalFindDialog.h"
#include "journal/import_items.h"
#include "journal/journal_files.h"
#include "journal/journal_settings.h"
#include "journal/line_ranges.h"
#include "resources/load_icon.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTabBar>
#include <QTextBlock>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The recent journals stand before Exit.
constexpr int recent_files_index = 11;

// Qt gives the button of a tab a tool tip, but nothing that a screen reader would say.
void name_close_button(QTabWidget* tabs, int index)
{
    for (const QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide}) {
        if (QWidget* button = tabs->tabBar()->tabButton(index, side))
            button->setAccessibleName(button->toolTip());
    }
}

} // namespace

bool JournalEditor::mDoPrompt = true;

JournalEditor::JournalEditor(QWidget* parent) : QMainWindow(parent), mUi(std::make_unique<Form>())
{
    mUi->setupUi(this);
    // Not in the form: it would read all files at once, long before the window is shown for the first time.
    mUi->fileNewAction->setIcon(load_icon("filenew_ot.svg"));
    mUi->fileOpenAction->setIcon(load_icon("fileopen_ot.svg"));
    mUi->fileSaveAction->setIcon(load_icon("filesave_ot.svg"));
    mUi->filePrintAction->setIcon(load_icon("print_ot.svg"));
    mUi->editCutAction->setIcon(load_icon("cut_ot.svg"));
    mUi->editCopyAction->setIcon(load_icon("copy_ot.svg"));
    mUi->editPasteAction->setIcon(load_icon("paste_ot.svg"));
    mUi->editFindAction->setIcon(load_icon("find_ot.svg"));
    mUi->toolsPlayAction->setIcon(load_icon("play.svg"));
    mUi->editUndoAction->setIcon(load_icon("undo.svg"));
    mUi->editRedoAction->setIcon(load_icon("redo_ot.svg"));
    mUi->toolsPythonize->setIcon(load_icon("trpython.svg"));

    mRecentFiles = std::make_unique<RecentFiles>(mUi->fileMenu, recent_files_index, false);
    mRecentFiles->mParent = this;
    connect(mRecentFiles.get(), &RecentFiles::recent_file_selected, this, &JournalEditor::open_file);

    mUi->mDocTab->removeTab(0);
    delete std::exchange(mUi->mTempPage, nullptr);
    connect(mUi->mDocTab, &QTabWidget::currentChanged, this, &JournalEditor::update_title);
    connect(mUi->mDocTab, &QTabWidget::tabCloseRequested, this, &JournalEditor::close_tab);
    create_document(QString());

    restore_settings(*this, mRecentFiles.get());
    mAppIcon = QGuiApplication::windowIcon();

    const auto connect_action = [this](QAction* action, auto slot) {
        connect(action, &QAction::triggered, this, slot);
    };
    connect_action(mUi->fileNewAction, &JournalEditor::fileNew);
    connect_action(mUi->fileOpenAction, &JournalEditor::fileOpen);
    connect_action(mUi->fileSaveAction, &JournalEditor::fileSave);
    connect_action(mUi->fileSaveAsAction, &JournalEditor::fileSaveAs);
    connect_action(mUi->filePrintAction, &JournalEditor::filePrint);
    connect_action(mUi->fileExitAction, &JournalEditor::close);
    connect_action(mUi->editCutAction, &JournalEditor::editCut);
    connect_action(mUi->editCopyAction, &JournalEditor::editCopy);
    connect_action(mUi->editPasteAction, &JournalEditor::editPaste);
    connect_action(mUi->editFindAction, &JournalEditor::editFind);
    connect_action(mUi->toolsPlayAction, &JournalEditor::playFile);
    connect_action(mUi->editUndoAction, &JournalEditor::editUndo);
    connect_action(mUi->editRedoAction, &JournalEditor::editRedo);
    connect_action(mUi->fileCloseAction, &JournalEditor::fileClose);
    connect_action(mUi->fileSaveAllAction, &JournalEditor::fileSaveAll);
    connect_action(mUi->toolsPythonize, &JournalEditor::pythonizeFile);
}

JournalEditor::~JournalEditor()
{
    // Out of the list first: who hears of an item's end may remove others.
    while (!mUi->mImportItems.isEmpty())
        delete mUi->mImportItems.takeLast();
    // Those that are children of the window die after the list of them.
    for (const QAction* action : std::as_const(mUi->mContextMenuItems))
        disconnect(action, &QObject::destroyed, this, nullptr);
    // Before the menu that it stands in.
    mRecentFiles.reset();
}

void JournalEditor::add_document(const QString& text)
{
    JournalDocument* const doc = create_document(QString());
    if (!doc)
        return;
    const Alive alive(this, doc);
    doc->setPlainText(text);
    if (!alive)
        return;
    // To set no text tells the tab that there are changes, and then not that there are none.
    change_file_name(doc);
    // A blank one counts as saved.
    if (!doc->toPlainText().trimmed().isEmpty())
        doc->document()->setModified(true);
}

void JournalEditor::add_import(const char* name, const QString& label, QPlainTextEdit* source)
{
    add_import_item(this, {mUi->mImportItems, mUi->mComingItems}, mUi->fileImportMenu,
                    QString::fromUtf8(name), label, source);
}

void JournalEditor::remove_import_items(const char* name)
{
    remove_import_items_of(this, {mUi->mImportItems, mUi->mComingItems}, QString::fromUtf8(name));
}

void JournalEditor::add_action_to_import_menu(QAction* action)
{
    if (action)
        mUi->fileImportMenu->addAction(action);
}

void JournalEditor::add_context_menu_item(QAction* action)
{
    if (!action)
        return;
    if (!mUi->mContextMenuItems.contains(action)) {
        // Whoever forgets to remove an action must not leave menus behind that show it.
        connect(action, &QObject::destroyed, this, [this, action] { remove_context_menu_items(action); });
    }
    mUi->mContextMenuItems.append(action);
    for (int i = 0; i < mUi->mDocTab->count(); ++i)
        if (JournalDocument* doc = document(i))
            doc->add_context_menu_item(action);
}

void JournalEditor::remove_context_menu_items(QAction* action)
{
    // One that is no longer in the list may be dead.
    if (mUi->mContextMenuItems.removeAll(action) > 0)
        disconnect(action, &QObject::destroyed, this, nullptr);
    for (int i = 0; i < mUi->mDocTab->count(); ++i)
        if (JournalDocument* doc = document(i))
            doc->remove_context_menu_item(action);
}

QFont JournalEditor::get_editor_font() const
{
    const JournalDocument* doc = document(0);
    return doc ? doc->font() : QFont(u"Inconsolata"_s, 12);
}

void JournalEditor::set_editor_font(const QFont& font)
{
    for (const QPointer<JournalDocument>& doc : documents())
        if (doc)
            doc->setFont(font);
}

JournalDocument* JournalEditor::returnCurrentDocument() const
{
    return document(mUi->mDocTab->currentIndex());
}

bool JournalEditor::do_save_prompt()
{
    return mDoPrompt;
}

void JournalEditor::set_save_prompt(bool prompt)
{
    mDoPrompt = prompt;
}

void JournalEditor::fileNew()
{
    create_document(QString());
}

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
    if (!check_modified(this, mUi->mDocTab, doc, mRecentFiles.get()))
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
    save_document(this, returnCurrentDocument(), mRecentFiles.get());
}

void JournalEditor::fileSaveAs()
{
    save_document_as(this, returnCurrentDocument(), mRecentFiles.get());
}

void JournalEditor::fileSaveAll()
{
    const Alive alive(this);
    for (const QPointer<JournalDocument>& doc : documents()) {
        if (!doc || mUi->mDocTab->indexOf(doc) < 0 || !doc->document()->isModified())
            continue;
        save_document(this, doc, mRecentFiles.get());
        if (!alive || (doc && doc->document()->isModified()))
            return;
    }
}

void JournalEditor::close_tab(int index)
{
    QTabWidget* const tabs = mUi->mDocTab;
    const QPointer<QWidget> page = tabs->widget(index);
    const bool any = page;
    if (!check_modified(this, tabs, document(index), mRecentFiles.get()))
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
    const std::optional<QString> text = read_journal_file(name);
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
    doc->document()->setModified(false);
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
            refused = !check_modified(this, mUi->mDocTab, doc, mRecentFiles.get());
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
            open.removeIf(
                [](const QPointer<JournalDocument>& added) { return !added->document()->isModified(); });
        }
    }
    tabs->blockSignals(were_blocked);
    update_title(-1);
    if (!alive)
        return;
    if (!refused)
        save_settings(*this, mRecentFiles.get());
    e->setAccepted(!refused);
}

void JournalEditor::filePrint() {}

void JournalEditor::editUndo()
{
    if (JournalDocument* doc = returnCurrentDocument())
        doc->undo();
}

void JournalEditor::editRedo()
{
    if (JournalDocument* doc = returnCurrentDocument())
        doc->redo();
}

void JournalEditor::editCut()
{
    if (JournalDocument* doc = returnCurrentDocument())
        doc->cut();
}

void JournalEditor::editCopy()
{
    if (JournalDocument* doc = returnCurrentDocument())
        doc->copy();
}

void JournalEditor::editPaste()
{
    if (JournalDocument* doc = returnCurrentDocument())
        doc->paste();
}

void JournalEditor::editFind()
{
    // Not kept: text and boxes start afresh at each call (docs/surprises.md).
    auto* dialog = new JournalFindDialog;
    dialog->exec();
}

void JournalEditor::findText()
{
    editFind();
}

void JournalEditor::playFile()
{
    if (JournalDocument* document = returnCurrentDocument())
        document->play_lines(0, -1);
}

void JournalEditor::playSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document || !document->textCursor().hasSelection())
        return;
    const LineRange lines = selected_lines(document->textCursor());
    document->play_lines(lines.first, lines.last);
}

void JournalEditor::pythonizeFile()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    document->pythonize_lines(0, document->blockCount() - 1);
    QTextCursor(document->document()).insertText(u"#!python\n"_s);
}

void JournalEditor::pythonizeSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document || !document->textCursor().hasSelection())
        return;
    const LineRange lines = selected_lines(document->textCursor());
    document->pythonize_lines(lines.first, lines.last);
}

void JournalEditor::commentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const LineRange lines = touched_lines(document->textCursor());
    document->comment_lines(lines.first, lines.last);
}

void JournalEditor::uncommentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const LineRange lines = touched_lines(document->textCursor());
    document->uncomment_lines(lines.first, lines.last);
}

void JournalEditor::commentOrUncommentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const QTextBlock first = document->document()->findBlock(document->textCursor().selectionStart());
    if (first.isValid() && first.text().startsWith(u'#'))
        uncommentSelected();
    else
        commentSelected();
}

void JournalEditor::update_title(int index)
{
    const JournalDocument* doc = document(index == -1 ? mUi->mDocTab->currentIndex() : index);
    QString title = tr("Journal Editor");
    if (doc && !doc->file_name().isEmpty())
        title = doc->file_name() + u" - "_s + title;
    setWindowTitle(title);
}

void JournalEditor::change_file_name(JournalDocument* doc)
{
    if (!doc)
        return;
    QTabWidget* const tabs = mUi->mDocTab;
    const QString name = doc->file_name();
    tabs->setTabText(tabs->indexOf(doc), name.isEmpty() ? tr("Untitled") : QFileInfo(name).fileName());
    if (doc == tabs->currentWidget() && !tabs->signalsBlocked())
        update_title(-1);
}

// Null if there is no such tab, or if it holds something else.
JournalDocument* JournalEditor::document(int index) const
{
    return qobject_cast<JournalDocument*>(mUi->mDocTab->widget(index));
}

// Those of all tabs. What is done with one may close others, so that their indexes change.
QList<QPointer<JournalDocument>> JournalEditor::documents() const
{
    QList<QPointer<JournalDocument>> all;
    for (int i = 0; i < mUi->mDocTab->count(); ++i)
        if (JournalDocument* doc = document(i))
            all.append(doc);
    return all;
}

JournalDocument* JournalEditor::create_document(const QString& name)
{
    QTabWidget* const tabs = mUi->mDocTab;
    JournalDocument* doc = tabs->count() == 1 ? document(0) : nullptr;
    const bool reuse =
        doc && !doc->document()->isModified() && doc->file_name().isEmpty() && doc->document()->isEmpty();
    if (!reuse)
        doc = new JournalDocument(this, tabs, "JournalDocument");
    // Whoever is told of the new name and of the new tab may close either.
    const Alive alive(this, doc);
    doc->setLineWrapMode(QPlainTextEdit::NoWrap);
    // Names the tab of a reused document, which is connected already.
    doc->set_file_name(name);
    if (!alive)
        return nullptr;
    if (!reuse) {
        for (QAction* action : std::as_const(mUi->mContextMenuItems))
            doc->add_context_menu_item(action);
        tabs->addTab(doc, name.isEmpty() ? tr("Untitled") : QFileInfo(name).fileName());
        tabs->setCurrentWidget(doc);
        if (!alive)
            return nullptr;
        tabs->setTabsClosable(true);
        name_close_button(tabs, tabs->indexOf(doc));
        connect(doc, &JournalDocument::fileNameChanged, this, &JournalEditor::change_file_name);
    }
    doc->setFont(get_editor_font());
    return alive ? doc : nullptr;
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
