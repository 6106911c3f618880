// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"

#include "console/ConsoleImporter.h"
#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "files/RecentFiles.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "journal/JournalDocument.h"
#include "journal/JournalFindDialog.h"
#include "resources/load_icon.h"
#include "ui_QtJournalEditor.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QSignalBlocker>
#include <QTabBar>

#include <fstream>
#include <optional>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

struct JournalEditor::Form : Ui::QtJournalEditor
{
    QList<ConsoleImporter*> mImportItems;
    QList<QAction*> mContextMenuItems;
};

namespace {

// The recent journals stand before Exit.
constexpr int recent_files_index = 11;
constexpr int most_recent_files = 5;

// Each line up to its first NUL, with a line feed; nothing if the file cannot be read to its end.
std::optional<QString> read_lines(const QString& name)
{
    std::ifstream stream(QFile::encodeName(name).constData());
    if (!stream)
        return std::nullopt;
    QString text;
    std::string line;
    // The read that meets the end of the file counts as a line too, which is intended: each cycle of opening
    // and saving adds an empty line at the end.
    while (!stream.eof()) {
        std::getline(stream, line);
        if (stream.bad() || (stream.fail() && !stream.eof()))
            return std::nullopt;
        text += QString::fromUtf8(line.c_str());
        text += u'\n';
    }
    return text;
}

bool is_modified(const JournalDocument* doc)
{
    return doc->document()->isModified();
}

void set_modified(JournalDocument* doc, bool modified)
{
    doc->document()->setModified(modified);
}

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

    restore_settings();
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
    qDeleteAll(mUi->mImportItems);
    mUi->mImportItems.clear();
    // Those that are children of the window die after the list of them.
    for (const QAction* action : std::as_const(mUi->mContextMenuItems))
        disconnect(action, &QObject::destroyed, this, nullptr);
    // Before the menu that it stands in.
    mRecentFiles.reset();
}

void JournalEditor::add_document(const QString& text)
{
    JournalDocument* doc = create_document(QString());
    // Setting no text would leave the mark of unsaved changes on the tab of a document that has none.
    if (!text.isEmpty())
        doc->setPlainText(text);
    // A blank one counts as saved.
    if (!doc->toPlainText().trimmed().isEmpty())
        set_modified(doc, true);
}

void JournalEditor::add_import(const char* name, const QString& label, QPlainTextEdit* source)
{
    auto* importer = new ConsoleImporter(this, label);
    mUi->mImportItems.append(importer);
    importer->set_owner_name(QString::fromUtf8(name));
    importer->set_source(source);
    mUi->fileImportMenu->addAction(importer->action());
}

void JournalEditor::remove_import_items(const char* name)
{
    const QString owner = QString::fromUtf8(name);
    mUi->mImportItems.removeIf([this, &owner](ConsoleImporter* importer) {
        if (importer->owner_name() != owner)
            return false;
        mUi->fileImportMenu->removeAction(importer->action());
        delete importer;
        return true;
    });
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
    for (int i = 0; i < mUi->mDocTab->count(); ++i)
        if (JournalDocument* doc = document(i))
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
    const QString path = OstrelFileMenu::mPath;
    const QString name = QFileDialog::getOpenFileName(this, tr("Open"), path,
                                                      tr("Journal Files (*.jou *.py);;All Files (*.*)"));
    if (!name.isEmpty())
        open_file(name);
}

void JournalEditor::fileClose()
{
    const QPointer<JournalDocument> doc = returnCurrentDocument();
    if (!check_modified(doc))
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
    for (int i = 0; i < mUi->mDocTab->count(); ++i) {
        const QPointer<JournalDocument> doc = document(i);
        if (!doc || !is_modified(doc))
            continue;
        save_document(doc);
        if (doc && is_modified(doc))
            return;
    }
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
    // Neither kept nor deleted, which is intended: text and boxes start afresh at each call.
    auto* dialog = new JournalFindDialog;
    dialog->exec();
}

void JournalEditor::findText()
{
    editFind();
}

void JournalEditor::close_tab(int index)
{
    if (!check_modified(document(index)))
        return;
    if (mUi->mDocTab->count() > 1)
        mUi->mDocTab->removeTab(index);
    else
        close();
}

void JournalEditor::update_title(int index)
{
    const JournalDocument* doc = document(index == -1 ? mUi->mDocTab->currentIndex() : index);
    QString title = tr("Journal Editor");
    if (doc && !doc->file_name().isEmpty())
        title = doc->file_name() + u" - "_s + title;
    setWindowTitle(title);
}

void JournalEditor::open_file(const QString& name)
{
    OstrelFileMenu::set_path_from_file(name);
    const std::optional<QString> text = read_lines(name);
    if (!text) {
        QMessageBox::critical(this, tr("File Error"), tr("Unable to open the file."), QMessageBox::Ok);
        return;
    }
    JournalDocument* doc = create_document(name);
    doc->setPlainText(*text);
    set_modified(doc, false);
    if (mRecentFiles)
        mRecentFiles->add(name);
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

void JournalEditor::closeEvent(QCloseEvent* e)
{
    QSignalBlocker blocker(mUi->mDocTab);
    for (int i = mUi->mDocTab->count() - 1; i >= 0; --i) {
        const QPointer<JournalDocument> doc = document(i);
        if (!check_modified(doc)) {
            blocker.unblock();
            update_title(-1);
            e->ignore();
            return;
        }
        // Leaves the last one, for the next time that the window is shown.
        remove_document(doc);
    }
    blocker.unblock();
    update_title(-1);
    save_settings();
    e->accept();
}

// Null if there is no such tab, or if it holds something else.
JournalDocument* JournalEditor::document(int index) const
{
    return qobject_cast<JournalDocument*>(mUi->mDocTab->widget(index));
}

JournalDocument* JournalEditor::create_document(const QString& name)
{
    QTabWidget* const tabs = mUi->mDocTab;
    JournalDocument* doc = tabs->count() == 1 ? document(0) : nullptr;
    const bool reuse = doc && !is_modified(doc) && doc->file_name().isEmpty() && doc->document()->isEmpty();
    if (!reuse)
        doc = new JournalDocument(this, tabs, "JournalDocument");
    doc->setLineWrapMode(QPlainTextEdit::NoWrap);
    // Names the tab of a reused document, which is connected already.
    doc->set_file_name(name);
    if (!reuse) {
        for (QAction* action : std::as_const(mUi->mContextMenuItems))
            doc->add_context_menu_item(action);
        tabs->addTab(doc, name.isEmpty() ? tr("Untitled") : QFileInfo(name).fileName());
        tabs->setCurrentWidget(doc);
        tabs->setTabsClosable(true);
        name_close_button(tabs, tabs->indexOf(doc));
        connect(doc, &JournalDocument::fileNameChanged, this, &JournalEditor::change_file_name);
    }
    doc->setFont(get_editor_font());
    return doc;
}

// Whether the caller may go on: nothing is unsaved, or the user has decided to save or to lose it.
bool JournalEditor::check_modified(JournalDocument* doc)
{
    if (!doc || !is_modified(doc))
        return true;
    if (!mDoPrompt) {
        set_modified(doc, false);
        return true;
    }

    // While the user is asked, others run: one of them may close the document.
    const QPointer<JournalDocument> watched = doc;
    mUi->mDocTab->setCurrentWidget(doc);
    bool never_again = false;
    const int answer = OstrelMessageBox::warning(
        this, tr("Journal Editor"), tr("The document has been modified.\nDo you wish to save the changes?"),
        never_again, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel,
        tr("Never prompt me when there is unsaved data."));
    if (answer == QMessageBox::Yes) {
        save_document(watched);
        return !watched || !is_modified(watched);
    }
    if (answer == QMessageBox::No) {
        mDoPrompt = !never_again;
        if (watched)
            set_modified(watched, false);
        return true;
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
    std::ofstream stream(QFile::encodeName(doc->file_name()).constData());
    if (!stream) {
        QMessageBox::critical(this, tr("File Error"), tr("Unable to save the file."), QMessageBox::Ok);
        return;
    }
    // As a C string: what follows a NUL is not written.
    stream << doc->toPlainText().toUtf8().constData();
    stream.close();
    // Whatever became of the writing, which is intended.
    set_modified(doc, false);
}

void JournalEditor::save_document_as(JournalDocument* doc)
{
    if (!doc)
        return;
    // While the user is asked, and when the new name is told, others run: one of them may close the document.
    const QPointer<JournalDocument> watched = doc;
    QString name = QFileDialog::getSaveFileName(this, tr("Save As"), OstrelFileMenu::mPath,
                                                tr("Journal files (*.jou *.py);;All Files (*.*)"));
    if (name.isEmpty())
        return;
    // A dot in the directory counts as well, which is intended.
    if (!name.contains(u'.'))
        name += u".jou"_s;
    OstrelFileMenu::set_path_from_file(name);
    // Comes on top of what the file dialog asks, which does not know of the added ending.
    if (QFile::exists(name) &&
        QMessageBox::warning(this, tr("Save As"), name + tr(" already exists.\nDo you want to replace it?"),
                             QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!watched)
        return;
    watched->set_file_name(name);
    if (mRecentFiles)
        mRecentFiles->add(name);
    save_document(watched);
}

void JournalEditor::remove_document(JournalDocument* doc)
{
    if (!doc || mUi->mDocTab->count() < 2)
        return;
    mUi->mDocTab->removeTab(mUi->mDocTab->indexOf(doc));
    for (QAction* action : std::as_const(mUi->mContextMenuItems))
        doc->remove_context_menu_item(action);
    delete doc;
}

void JournalEditor::restore_settings()
{
    QSettings settings;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const int x = read_setting(settings, settings_keys::journal_x, 0);
    const int y = read_setting(settings, settings_keys::journal_y, 0);
    // A missing value reads as 0 and counts like a stored 0, which is intended.
    const bool on_screen = x >= 1 && x < screen.width() && y >= 1 && y < screen.height();
    move(on_screen ? QPoint(x, y) : QPoint(0, 0));
    if (settings.contains(settings_keys::journal_width) && settings.contains(settings_keys::journal_height))
        resize(read_setting(settings, settings_keys::journal_width, 0),
               read_setting(settings, settings_keys::journal_height, 0));

    mDoPrompt = read_setting(settings, settings_keys::journal_prompt, true);

    // Oldest first.
    for (int number = most_recent_files; mRecentFiles && number >= 1; --number) {
        const QString file =
            read_setting(settings, settings_keys::numbered(settings_keys::recent_journal, number), QString());
        if (!file.isEmpty())
            mRecentFiles->add(file);
    }
}

void JournalEditor::save_settings()
{
    QSettings settings;
    settings.setValue(settings_keys::journal_x, x());
    settings.setValue(settings_keys::journal_y, y());
    settings.setValue(settings_keys::journal_width, geometry().width());
    settings.setValue(settings_keys::journal_height, geometry().height());
    settings.setValue(settings_keys::journal_prompt, mDoPrompt);

    for (int number = 1; number <= most_recent_files; ++number)
        settings.remove(settings_keys::numbered(settings_keys::recent_journal, number));
    if (!mRecentFiles)
        return;
    std::vector<QString> files;
    mRecentFiles->get_entries(files);
    int number = 0;
    for (const QString& file : files)
        settings.setValue(settings_keys::numbered(settings_keys::recent_journal, ++number), file);
}
