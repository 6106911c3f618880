// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"

#include "console/ConsoleImporter.h"
#include "files/RecentFiles.h"
#include "frame/Alive.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditorForm.h"
#include "journal/JournalFindDialog.h"
#include "resources/load_icon.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QTabBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The recent journals stand before Exit.
constexpr int recent_files_index = 11;
constexpr int most_recent_files = 5;

// Qt gives the button of a tab a tool tip, but nothing that a screen reader would say.
void name_close_button(QTabWidget* tabs, int index)
{
    for (const QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide}) {
        if (QWidget* button = tabs->tabBar()->tabButton(index, side))
            button->setAccessibleName(button->toolTip());
    }
}

/** Deletes an item of the import menu, and its owner as soon as Qt cannot be walking over the children of the
 * window. */
void remove_import_item(ConsoleImporter* importer)
{
    // Who hears of that may delete the window, and the importer with it.
    const QPointer<ConsoleImporter> left = importer;
    delete importer->action();
    if (!left)
        return;
    left->setParent(nullptr);
    if (left)
        left->deleteLater();
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
    // Whoever hears of the new item may delete the page.
    const QPointer<QPlainTextEdit> page = source;
    auto* importer = new ConsoleImporter(this, label);
    mUi->mImportItems.append(importer);
    connect(importer, &QObject::destroyed, this, [this, importer] {
        mUi->mImportItems.removeAll(importer);
        mUi->mComingItems.removeAll(importer);
    });
    importer->set_owner_name(QString::fromUtf8(name));
    importer->set_source(page);
    if (page)
        connect(page, &QObject::destroyed, importer, [importer] { importer->set_source(nullptr); });
    mUi->mComingItems.append(importer);
    const Alive alive(this, importer);
    mUi->fileImportMenu->addAction(importer->action());
    if (!alive)
        return;
    mUi->mComingItems.removeAll(importer);
    // Whoever hears of it may have removed it already.
    if (!mUi->mImportItems.contains(importer))
        remove_import_item(importer);
}

void JournalEditor::remove_import_items(const char* name)
{
    // Out of the list first: who hears of an item's end may remove others.
    QList<QPointer<ConsoleImporter>> removed;
    mUi->mImportItems.removeIf([&, owner = QString::fromUtf8(name)](ConsoleImporter* importer) {
        const bool is_owners = importer->owner_name() == owner;
        if (is_owners && !mUi->mComingItems.contains(importer))
            removed.append(importer);
        return is_owners;
    });
    const Alive alive(this);
    for (const QPointer<ConsoleImporter>& importer : std::as_const(removed))
        if (alive && importer)
            remove_import_item(importer);
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

void JournalEditor::restore_settings()
{
    QSettings settings;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const int x = read_setting(settings, settings_keys::journal_x, 0);
    const int y = read_setting(settings, settings_keys::journal_y, 0);
    // A missing value reads as 0 and counts like a stored 0 (docs/surprises.md).
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
