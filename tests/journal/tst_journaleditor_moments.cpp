// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What others do while the journal editor asks the user, or tells them something: they close documents,
// delete the window, open more.

#include "console/ConsoleImporter.h"
#include "editor_helpers.h"
#include "files/OstrelFileMenu.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/LineNumberArea.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QScopeGuard>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const auto unsaved_box = u"QtMessageSettingBox"_s;

bool is_modified(const JournalDocument* doc)
{
    return doc->document()->isModified();
}

/** An editor with three modified documents, of which the second has a file and is shown. */
struct Moment
{
    Moment()
    {
        OstrelFileMenu::mPath = directory.path();
        typed_document(*editor, u"first"_s);
        doc = typed_document(*editor, u"second"_s);
        doc->set_file_name(file());
        third = typed_document(*editor, u"third"_s);
        tabs_of(*editor)->setCurrentWidget(doc);
    }
    ~Moment() { delete editor.data(); }
    Q_DISABLE_COPY_MOVE(Moment)

    QString file() const { return directory.filePath(u"second.jou"_s); }

    QTemporaryDir directory;
    QPointer<JournalEditor> editor = new JournalEditor;
    QPointer<JournalDocument> doc;
    QPointer<JournalDocument> third;
};

/** Shows the window when a document in it gets its first child as a document. */
struct ShowWhenBegun : QObject
{
    explicit ShowWhenBegun(JournalEditor& shown) : editor(shown) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded && qobject_cast<JournalDocument*>(watched) && !has_acted) {
            has_acted = true;
            editor.show();
        }
        return false;
    }

    JournalEditor& editor;
    bool has_acted = false;
};

using Act = void (*)(Moment&);
using Slot = void (JournalEditor::*)();

/** What others do at the worst moment. */
const std::pair<const char*, Act> acts[] = {
    {"nothing", [](Moment&) {}},
    {"the window is deleted", [](Moment& moment) { delete moment.editor.data(); }},
    {"the document is deleted", [](Moment& moment) { delete moment.doc.data(); }},
    {"the document is closed",
     [](Moment& moment) {
         moment.doc->document()->setModified(false);
         moment.editor->fileClose();
     }},
    {"the tab is closed",
     [](Moment& moment) {
         moment.doc->document()->setModified(false);
         moment.editor->close_tab(tabs_of(*moment.editor)->indexOf(moment.doc));
     }},
    {"a tab ahead of it is closed",
     [](Moment& moment) {
         document_of(*moment.editor, 0)->document()->setModified(false);
         moment.editor->close_tab(0);
     }},
    {"all other documents are deleted",
     [](Moment& moment) {
         delete document_of(*moment.editor, 0);
         delete moment.third.data();
     }},
    {"documents are added",
     [](Moment& moment) {
         moment.editor->fileNew();
         moment.editor->add_document(u"added"_s);
     }},
    {"another document is shown",
     [](Moment& moment) { tabs_of(*moment.editor)->setCurrentWidget(moment.third); }},
};

struct Flow
{
    const char* name;
    void (*start)(Moment&);
    /** The dialogs that come, the last of which is the moment. */
    QList<std::pair<QString, DialogDriver::Act>> dialogs;
};

void make_file(const Moment& moment)
{
    QVERIFY(QFile(moment.file()).open(QIODevice::WriteOnly));
}

DialogDriver::Act type_name(const QString& name)
{
    return
        [name](QWidget* dialog) { choose(qobject_cast<QFileDialog*>(dialog), OstrelFileMenu::mPath + name); };
}

QList<Flow> flows()
{
    return {
        {"open asks",
         [](Moment& moment) {
             make_file(moment);
             moment.editor->fileOpen();
         },
         {{u"QFileDialog"_s, type_name(u"/second.jou"_s)}}},
        {"open fails",
         [](Moment& moment) { moment.editor->open_file(u"/no/such/file"_s); },
         {{u"QMessageBox"_s, press(QDialogButtonBox::Ok)}}},
        {"save fails",
         [](Moment& moment) {
             moment.doc->set_file_name(u"/no/such/file"_s);
             moment.editor->fileSave();
         },
         {{u"QMessageBox"_s, press(QDialogButtonBox::Ok)}}},
        {"save as asks",
         [](Moment& moment) { moment.editor->fileSaveAs(); },
         {{u"QFileDialog"_s, type_name(u"/other"_s)}}},
        {"save as asks before replacing",
         [](Moment& moment) {
             make_file(moment);
             moment.editor->fileSaveAs();
         },
         {{u"QFileDialog"_s, type_name(u"/second"_s)}, {u"QMessageBox"_s, press(QDialogButtonBox::Yes)}}},
        {"save all asks",
         [](Moment& moment) {
             document_of(*moment.editor, 0)->document()->setModified(false);
             moment.doc->set_file_name({});
             moment.third->document()->setModified(false);
             moment.editor->fileSaveAll();
         },
         {{u"QFileDialog"_s, type_name(u"/other"_s)}}},
        {"close asks, yes",
         [](Moment& moment) { moment.editor->fileClose(); },
         {{unsaved_box, press(u"mYesButton"_s)}}},
        {"close asks, no",
         [](Moment& moment) { moment.editor->fileClose(); },
         {{unsaved_box, press(u"mNoButton"_s)}}},
        {"close asks, cancel",
         [](Moment& moment) { moment.editor->fileClose(); },
         {{unsaved_box, press(u"mCancelButton"_s)}}},
        {"close of the tab asks, yes",
         [](Moment& moment) { moment.editor->close_tab(1); },
         {{unsaved_box, press(u"mYesButton"_s)}}},
        {"close of the tab asks, no",
         [](Moment& moment) { moment.editor->close_tab(1); },
         {{unsaved_box, press(u"mNoButton"_s)}}},
        {"close of the window asks, no",
         [](Moment& moment) {
             moment.third->document()->setModified(false);
             document_of(*moment.editor, 0)->document()->setModified(false);
             moment.editor->close();
         },
         {{unsaved_box, press(u"mNoButton"_s)}}},
    };
}

} // namespace

class TstJournalEditorMoments : public TestCase
{
    Q_OBJECT

private slots:
    void others_act_while_the_user_is_asked_data();
    void others_act_while_the_user_is_asked();
    void closed_tab_is_the_one_that_was_asked_about_data();
    void closed_tab_is_the_one_that_was_asked_about();
    void window_stays_if_the_document_to_close_has_gone_data();
    void window_stays_if_the_document_to_close_has_gone();
    void document_added_while_the_window_closes_is_asked_about();
    void document_whose_new_name_is_told_may_go();
    void filter_may_keep_a_document_from_being_written_data();
    void filter_may_keep_a_document_from_being_written();
    void others_act_when_a_document_is_about_to_be_written_data();
    void others_act_when_a_document_is_about_to_be_written();
    void document_that_is_shown_for_the_first_time_may_go_data();
    void document_that_is_shown_for_the_first_time_may_go();
    void window_may_go_when_changes_are_dropped_data();
    void window_may_go_when_changes_are_dropped();
    void document_may_go_when_its_tab_has_gone();
    void receiver_of_lines_may_delete_the_window_data();
    void receiver_of_lines_may_delete_the_window();
    void document_may_go_while_its_menu_is_open_data();
    void document_may_go_while_its_menu_is_open();
    void item_of_the_context_menu_may_delete_the_window();
    void lines_may_go_while_they_are_commented_data();
    void lines_may_go_while_they_are_commented();
    void import_items_may_remove_each_other();
    void import_item_may_remove_itself();
    void import_item_deleted_by_others_is_forgotten();
    void import_of_a_page_that_has_gone_does_nothing();
    void page_may_go_while_its_import_item_is_made();
    void import_item_may_be_removed_while_it_is_put_into_the_menu();
    void import_item_may_be_removed_while_the_window_comes_up();
    void window_may_be_shown_while_a_document_is_made();
    void context_menu_of_a_document_without_a_tab_forgets_dead_actions();
    void added_blank_text_leaves_nothing_to_do_again_data();
    void added_blank_text_leaves_nothing_to_do_again();
    void added_empty_text_leaves_no_mark_on_the_tab();
};

void TstJournalEditorMoments::others_act_while_the_user_is_asked_data()
{
    QTest::addColumn<int>("flow");
    QTest::addColumn<int>("act");
    for (int flow = 0; flow < flows().size(); ++flow)
        for (int act = 0; act < int(std::size(acts)); ++act)
            QTest::addRow("%s, %s", flows()[flow].name, acts[act].first) << flow << act;
}

void TstJournalEditorMoments::others_act_while_the_user_is_asked()
{
    QFETCH(const int, flow);
    QFETCH(const int, act);
    const Flow one = flows()[flow];
    Moment moment;
    bool came = false;
    bool gone = false;
    DialogDriver driver;
    for (const auto& [dialog, answer] : one.dialogs.first(one.dialogs.size() - 1))
        driver.expect(dialog, answer);
    driver.expect(one.dialogs.last().first, [&](QWidget* dialog) {
        const QPointer<QWidget> open = dialog;
        acts[act].second(moment);
        came = true;
        gone = !moment.doc;
        if (open)
            one.dialogs.last().second(open);
    });
    const auto name = QByteArray(one.name);
    const bool all_closed = name.startsWith("close of the window");
    // Then there is one more to ask about.
    if (all_closed && QByteArray(acts[act].first) == "documents are added")
        driver.expect(unsaved_box, press(u"mNoButton"_s));
    one.start(moment);
    QVERIFY(driver.finish());
    QVERIFY(came);

    // The other document is as it was, unless it was meant.
    if (moment.editor && moment.third && !all_closed) {
        QCOMPARE(moment.third->toPlainText(), u"third"_s);
        QVERIFY(tabs_of(*moment.editor)->indexOf(moment.third) >= 0);
        QCOMPARE(is_modified(moment.third), !name.startsWith("save all"));
        QVERIFY(moment.third->file_name().isEmpty());
    }
    if (moment.editor)
        QVERIFY(tabs_of(*moment.editor)->count() >= 1);
    // What was gone by then is not written.
    if (gone) {
        QCOMPARE(QFileInfo(moment.file()).size(), 0);
        QVERIFY(!QFile::exists(moment.directory.filePath(u"other.jou"_s)));
    }
}

void TstJournalEditorMoments::closed_tab_is_the_one_that_was_asked_about_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("yes") << u"mYesButton"_s;
    QTest::newRow("no") << u"mNoButton"_s;
}

/** Its index is that of another one by then, of which nobody has asked. */
void TstJournalEditorMoments::closed_tab_is_the_one_that_was_asked_about()
{
    QFETCH(const QString, button);
    const Moment moment;
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        delete document_of(*moment.editor, 0);
        press(button)(dialog);
    });
    moment.editor->close_tab(1);
    QVERIFY(driver.finish());
    QCOMPARE(texts_of(*moment.editor), QStringList(u"third"_s));
    QVERIFY(is_modified(moment.third));
}

void TstJournalEditorMoments::window_stays_if_the_document_to_close_has_gone_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("by_tab");
    for (const bool by_tab : {false, true}) {
        QTest::addRow("yes, %s", by_tab ? "tab" : "menu") << u"mYesButton"_s << by_tab;
        QTest::addRow("no, %s", by_tab ? "tab" : "menu") << u"mNoButton"_s << by_tab;
    }
}

void TstJournalEditorMoments::window_stays_if_the_document_to_close_has_gone()
{
    QFETCH(const QString, button);
    QFETCH(const bool, by_tab);
    const Moment moment;
    delete moment.third.data();
    QVERIFY(show_active(moment.editor));
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        delete moment.doc.data();
        press(button)(dialog);
    });
    if (by_tab)
        moment.editor->close_tab(1);
    else
        moment.editor->fileClose();
    QVERIFY(driver.finish());
    QVERIFY(moment.editor->isVisible());
    QCOMPARE(texts_of(*moment.editor), QStringList(u"first"_s));
    QVERIFY(is_modified(document_of(*moment.editor, 0)));
}

void TstJournalEditorMoments::document_added_while_the_window_closes_is_asked_about()
{
    const Moment moment;
    for (int tab = 0; tab < 2; ++tab)
        document_of(*moment.editor, tab)->document()->setModified(false);
    QVERIFY(show_active(moment.editor));
    QString asked;
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        moment.editor->add_document(u"added"_s);
        press(u"mNoButton"_s)(dialog);
    });
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        asked = moment.editor->returnCurrentDocument()->toPlainText();
        press(u"mCancelButton"_s)(dialog);
    });
    QVERIFY(!moment.editor->close());
    QVERIFY(driver.finish());
    QCOMPARE(asked, u"added"_s);
    QVERIFY(moment.editor->isVisible());
    QCOMPARE(texts_of(*moment.editor), QStringList(u"added"_s));
    QVERIFY(!tabs_of(*moment.editor)->signalsBlocked());
}

void TstJournalEditorMoments::document_whose_new_name_is_told_may_go()
{
    const QPointer<JournalEditor> editor = new JournalEditor;
    const auto end = qScopeGuard([&] { delete editor.data(); });
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"a.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QPointer<JournalDocument> doc = document_of(*editor, 0);
    connect(doc, &JournalDocument::fileNameChanged, editor, [&] { delete doc.data(); });
    editor->open_file(file.fileName());
    QVERIFY(!doc);
    QVERIFY(editor->returnCurrentDocument() == nullptr);
    // It goes on working.
    editor->fileNew();
    QCOMPARE(tab_texts(*editor), QStringList(u"Untitled"_s));
}

void TstJournalEditorMoments::filter_may_keep_a_document_from_being_written_data()
{
    QTest::addColumn<Slot>("slot");
    QTest::newRow("save") << &JournalEditor::fileSave;
    QTest::newRow("save all") << &JournalEditor::fileSaveAll;
    QTest::newRow("close") << &JournalEditor::fileClose;
}

void TstJournalEditorMoments::filter_may_keep_a_document_from_being_written()
{
    QFETCH(const Slot, slot);
    const Moment moment;
    for (const int i : {0, 2})
        document_of(*moment.editor, i)->document()->setModified(false);
    make_file(moment);
    QFile file(moment.file());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    /** Says no. */
    struct Refusal : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != JournalEditor::document_is_saved)
                return false;
            ++asked;
            event->ignore();
            return true;
        }
        int asked = 0;
    } refusal;
    moment.doc->installEventFilter(&refusal);
    DialogDriver driver;
    if (slot == &JournalEditor::fileClose)
        driver.expect(unsaved_box, press(u"mYesButton"_s));
    (moment.editor->*slot)();
    QVERIFY(driver.finish());
    QCOMPARE(refusal.asked, 1);
    QVERIFY(is_modified(moment.doc));
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(tabs_of(*moment.editor)->count(), 3);
}

void TstJournalEditorMoments::others_act_when_a_document_is_about_to_be_written_data()
{
    QTest::addColumn<Act>("act");
    for (const auto& [name, act] : acts)
        QTest::newRow(name) << act;
}

void TstJournalEditorMoments::others_act_when_a_document_is_about_to_be_written()
{
    QFETCH(Act, act);
    Moment moment;
    const EventActor actor(moment.doc, JournalEditor::document_is_saved, [&] {
        act(moment);
        // Nobody goes on with an event of a document that is gone.
        return moment.doc.isNull();
    });
    moment.editor->fileSave();
    QVERIFY(actor.has_acted());
    QCOMPARE(QFile::exists(moment.file()), !moment.editor.isNull() && !moment.doc.isNull());
}

void TstJournalEditorMoments::document_that_is_shown_for_the_first_time_may_go_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"add_document"_s, u"open_file"_s, u"fileNew"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalEditorMoments::document_that_is_shown_for_the_first_time_may_go()
{
    QFETCH(const QString, by);
    const Moment moment;
    make_file(moment);
    connect(tabs_of(*moment.editor), &QTabWidget::currentChanged, moment.editor, [&](int index) {
        if (index == 3)
            delete document_of(*moment.editor, 3);
    });
    if (by == "add_document"_L1)
        moment.editor->add_document(u"added"_s);
    else if (by == "open_file"_L1)
        moment.editor->open_file(moment.file());
    else
        moment.editor->fileNew();
    QCOMPARE(texts_of(*moment.editor), QStringList({u"first"_s, u"second"_s, u"third"_s}));
}

void TstJournalEditorMoments::window_may_go_when_changes_are_dropped_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"fileClose"_s, u"close_tab"_s, u"close"_s, u"fileSave"_s, u"fileSaveAll"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalEditorMoments::window_may_go_when_changes_are_dropped()
{
    QFETCH(const QString, by);
    const Moment moment;
    const auto again = qScopeGuard([] { JournalEditor::set_save_prompt(true); });
    JournalEditor::set_save_prompt(false);
    connect(moment.doc->document(), &QTextDocument::modificationChanged, this,
            [&] { delete moment.editor.data(); });
    if (by == "fileClose"_L1)
        moment.editor->fileClose();
    else if (by == "close_tab"_L1)
        moment.editor->close_tab(1);
    else if (by == "close"_L1)
        moment.editor->close();
    else if (by == "fileSave"_L1)
        moment.editor->fileSave();
    else {
        document_of(*moment.editor, 0)->document()->setModified(false);
        moment.editor->fileSaveAll();
    }
    QVERIFY(!moment.editor);
}

void TstJournalEditorMoments::document_may_go_when_its_tab_has_gone()
{
    const Moment moment;
    moment.doc->document()->setModified(false);
    connect(tabs_of(*moment.editor), &QTabWidget::currentChanged, moment.editor,
            [&] { delete moment.doc.data(); });
    moment.editor->fileClose();
    QVERIFY(!moment.doc);
    QCOMPARE(texts_of(*moment.editor), QStringList({u"first"_s, u"third"_s}));
}

void TstJournalEditorMoments::receiver_of_lines_may_delete_the_window_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"slot"_s, u"action"_s, u"menu of the document"_s, u"key"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalEditorMoments::receiver_of_lines_may_delete_the_window()
{
    QFETCH(const QString, by);
    const Moment moment;
    QVERIFY(show_active(moment.editor));
    const auto delete_it = [&] { delete moment.editor.data(); };
    connect(moment.editor, &JournalEditor::processCommands, this, delete_it);
    connect(moment.editor, &JournalEditor::processCommandsAsFile, this, delete_it);
    moment.doc->selectAll();
    if (by == "slot"_L1) {
        moment.editor->playSelected();
    } else if (by == "action"_L1) {
        action_of(*moment.editor, u"toolsPlayAction"_s)->trigger();
    } else if (by == "key"_L1) {
        QTest::keyClick(moment.editor, Qt::Key_F5);
    } else {
        const MenuDriver driver([](QMenu* menu) { QVERIFY(choose(menu, u"Play Selected"_s)); });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {}, moment.doc->mapToGlobal(QPoint()));
        QCoreApplication::sendEvent(moment.doc->viewport(), &event);
    }
    QVERIFY(!moment.editor);
}

void TstJournalEditorMoments::document_may_go_while_its_menu_is_open_data()
{
    QTest::addColumn<int>("act");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("entry");
    const std::pair<QString, QStringList> entries[] = {
        {u"second"_s,
         {u"Clear"_s, u"Play Selected"_s, u"Translate Selected to Python"_s, u"Comment Selection"_s}},
        {u"#second"_s, {u"Un-Comment Selection"_s}}};
    for (int act = 1; act < int(std::size(acts)); ++act)
        for (const auto& [text, chosen] : entries)
            for (const QString& entry : chosen)
                QTest::addRow("%s, %s", acts[act].first, qPrintable(entry)) << act << text << entry;
    QTest::newRow("another document is shown, Find...")
        << int(std::size(acts)) - 1 << u"second"_s << u"Find..."_s;
}

/** Or another one may be shown: nothing is done to that. */
void TstJournalEditorMoments::document_may_go_while_its_menu_is_open()
{
    QFETCH(const int, act);
    QFETCH(const QString, text);
    QFETCH(const QString, entry);
    Moment moment;
    QVERIFY(show_active(moment.editor));
    moment.doc->setPlainText(text);
    const QString third = u"#third"_s;
    moment.third->setPlainText(third);
    for (JournalDocument* doc : {moment.doc.data(), moment.third.data()})
        doc->selectAll();
    QStringList played;
    connect(moment.editor, &JournalEditor::processCommands, this,
            [&](const QStringList& commands) { played << commands; });
    const DialogDriver nothing_is_asked;
    bool came = false;
    {
        const MenuDriver driver([&](QMenu* menu) {
            const QPointer<QMenu> open = menu;
            acts[act].second(moment);
            came = true;
            if (open)
                QVERIFY(choose(open, entry));
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {}, moment.doc->mapToGlobal(QPoint()));
        QCoreApplication::sendEvent(moment.doc->viewport(), &event);
    }
    QVERIFY(came);
    QVERIFY(!played.contains(third));
    if (!moment.editor)
        return;
    for (int tab = 0; tab < tabs_of(*moment.editor)->count(); ++tab) {
        const JournalDocument* const doc = document_of(*moment.editor, tab);
        if (doc != moment.doc)
            QVERIFY(QStringList({u"first"_s, third, u"added"_s, u""_s}).contains(doc->toPlainText()));
    }
}

void TstJournalEditorMoments::item_of_the_context_menu_may_delete_the_window()
{
    const Moment moment;
    QVERIFY(show_active(moment.editor));
    QAction action(u"Act"_s);
    connect(&action, &QAction::triggered, this, [&] { delete moment.editor.data(); });
    moment.editor->add_context_menu_item(&action);
    const MenuDriver driver([](QMenu* menu) { QVERIFY(choose(menu, u"Act"_s)); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {}, moment.doc->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(moment.doc->viewport(), &event);
    QVERIFY(!moment.editor);
}

void TstJournalEditorMoments::lines_may_go_while_they_are_commented_data()
{
    QTest::addColumn<bool>("comment");
    QTest::newRow("comment") << true;
    QTest::newRow("uncomment") << false;
}

void TstJournalEditorMoments::lines_may_go_while_they_are_commented()
{
    QFETCH(const bool, comment);
    const Moment moment;
    moment.doc->setPlainText(u"#line\n"_s.repeated(500));
    bool cleared = false;
    connect(moment.doc, &QPlainTextEdit::textChanged, this, [&] {
        if (std::exchange(cleared, true))
            return;
        moment.doc->setPlainText(u"#left"_s);
    });
    moment.doc->selectAll();
    if (comment)
        moment.editor->commentSelected();
    else
        moment.editor->uncommentSelected();
    QVERIFY(cleared);
    // Only the line that was changed first, which is there no more, was one of those meant.
    QCOMPARE(moment.doc->toPlainText(), u"#left"_s);
}

void TstJournalEditorMoments::import_items_may_remove_each_other()
{
    JournalEditor editor;
    for (const char* owner : {"one", "two", "one", "two", "one"})
        editor.add_import(owner, QString::fromLatin1(owner), nullptr);
    for (const ConsoleImporter* importer : editor.findChildren<ConsoleImporter*>()) {
        connect(importer->action(), &QObject::destroyed, &editor, [&editor] {
            editor.remove_import_items("two");
            editor.remove_import_items("one");
        });
    }
    editor.remove_import_items("one");
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->actions().size(), 0);
    QCOMPARE(editor.findChildren<ConsoleImporter*>().size(), 0);
}

void TstJournalEditorMoments::import_item_may_remove_itself()
{
    JournalEditor editor;
    QPlainTextEdit page(u"text"_s);
    editor.add_import("owner", u"Import"_s, &page);
    QAction* const action = menu_of(editor, u"fileImportMenu"_s)->actions().constFirst();
    // By who hears of the new document.
    connect(document_of(editor, 0)->document(), &QTextDocument::modificationChanged, &editor,
            [&editor] { editor.remove_import_items("owner"); });
    action->trigger();
    QCOMPARE(texts_of(editor), QStringList(u"text"_s));
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->actions().size(), 0);
}

void TstJournalEditorMoments::import_item_deleted_by_others_is_forgotten()
{
    auto editor = std::make_unique<JournalEditor>();
    editor->add_import("owner", u"One"_s, nullptr);
    editor->add_import("owner", u"Two"_s, nullptr);
    delete editor->findChildren<ConsoleImporter*>().constFirst();
    QCOMPARE(menu_of(*editor, u"fileImportMenu"_s)->actions().size(), 1);
    editor->remove_import_items("owner");
    QCOMPARE(menu_of(*editor, u"fileImportMenu"_s)->actions().size(), 0);
    editor->add_import("owner", u"Three"_s, nullptr);
    delete editor->findChildren<ConsoleImporter*>().constFirst();
    editor.reset();
}

void TstJournalEditorMoments::import_of_a_page_that_has_gone_does_nothing()
{
    JournalEditor editor;
    auto page = std::make_unique<QPlainTextEdit>(u"text"_s);
    editor.add_import("owner", u"Import"_s, page.get());
    page.reset();
    menu_of(editor, u"fileImportMenu"_s)->actions().constFirst()->trigger();
    QCOMPARE(texts_of(editor), QStringList(QString()));
}

void TstJournalEditorMoments::page_may_go_while_its_import_item_is_made()
{
    JournalEditor editor;
    auto page = std::make_unique<QPlainTextEdit>();
    const EventActor actor(&editor, QEvent::ChildAdded, [&] {
        page.reset();
        return false;
    });
    editor.add_import("owner", u"Import"_s, page.get());
    QVERIFY(actor.has_acted());
    const int journals = tabs_of(editor)->count();
    menu_of(editor, u"fileImportMenu"_s)->actions().constFirst()->trigger();
    QCOMPARE(tabs_of(editor)->count(), journals);
}

void TstJournalEditorMoments::import_item_may_be_removed_while_it_is_put_into_the_menu()
{
    JournalEditor editor;
    const QMenu* const menu = menu_of(editor, u"fileImportMenu"_s);
    const EventActor actor(menu_of(editor, u"fileImportMenu"_s), QEvent::ActionAdded, [&] {
        editor.remove_import_items("owner");
        return false;
    });
    editor.add_import("owner", u"Import"_s, nullptr);
    QVERIFY(actor.has_acted());
    QCOMPARE(menu->actions().size(), 0);
    QCOMPARE(editor.findChildren<ConsoleImporter*>().size(), 0);
    editor.add_import("owner", u"Import"_s, nullptr);
    QCOMPARE(menu->actions().size(), 1);
    editor.remove_import_items("owner");
    QCOMPARE(menu->actions().size(), 0);
}

void TstJournalEditorMoments::import_item_may_be_removed_while_the_window_comes_up()
{
    JournalEditor editor;
    editor.add_import("owner", u"Import"_s, nullptr);
    // Qt walks over the children of the window to show them, the item among them.
    const EventActor actor(tabs_of(editor), QEvent::Show, [&] {
        editor.remove_import_items("owner");
        return false;
    });
    editor.show();
    QVERIFY(actor.has_acted());
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->actions().size(), 0);
    QCOMPARE(editor.findChildren<ConsoleImporter*>().size(), 0);
}

void TstJournalEditorMoments::window_may_be_shown_while_a_document_is_made()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    // Its strip is about to be made.
    ShowWhenBegun show(editor);
    editor.fileNew();
    QVERIFY(show.has_acted);
    const auto* const doc = editor.returnCurrentDocument();
    QCOMPARE(doc->findChild<LineNumberArea*>()->width(), doc->lineNumberAreaWidth());
}

void TstJournalEditorMoments::context_menu_of_a_document_without_a_tab_forgets_dead_actions()
{
    const Moment moment;
    auto action = std::make_unique<QAction>(u"Act"_s);
    moment.editor->add_context_menu_item(action.get());
    tabs_of(*moment.editor)->removeTab(1);
    action.reset();
    tabs_of(*moment.editor)->addTab(moment.doc, u"again"_s);
    tabs_of(*moment.editor)->setCurrentWidget(moment.doc);
    QVERIFY(show_active(moment.editor));
    QStringList rows;
    const MenuDriver driver([&](QMenu* menu) { rows = menu_rows(menu); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {}, moment.doc->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(moment.doc->viewport(), &event);
    QVERIFY(rows.size() > 5);
    QCOMPARE(rows.filter(u"Act"_s), QStringList());
}

void TstJournalEditorMoments::added_blank_text_leaves_nothing_to_do_again_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << u" \n"_s;
    QTest::newRow("text") << u"text"_s;
}

/** What the user took back in the pristine document that is used again is not part of the new one. */
void TstJournalEditorMoments::added_blank_text_leaves_nothing_to_do_again()
{
    QFETCH(const QString, text);
    JournalEditor editor;
    JournalDocument* const doc = document_of(editor, 0);
    doc->insertPlainText(u"typed"_s);
    doc->undo();
    QVERIFY(doc->document()->isRedoAvailable());
    QVERIFY(!is_modified(doc));
    editor.add_document(text);
    QCOMPARE(document_of(editor, 0), doc);
    QCOMPARE(doc->toPlainText(), text);
    QVERIFY(!doc->document()->isRedoAvailable());
    QVERIFY(!doc->document()->isUndoAvailable());
    QCOMPARE(is_modified(doc), text == "text"_L1);
    QCOMPARE(tab_texts(editor), QStringList(text == "text"_L1 ? u"* Untitled"_s : u"Untitled"_s));
}

void TstJournalEditorMoments::added_empty_text_leaves_no_mark_on_the_tab()
{
    const Moment moment;
    moment.editor->add_document({});
    QCOMPARE(tabs_of(*moment.editor)->tabText(3), u"Untitled"_s);
    QVERIFY(!is_modified(document_of(*moment.editor, 3)));
}

OSTREL_TEST(TstJournalEditorMoments)
#include "tst_journaleditor_moments.moc"
