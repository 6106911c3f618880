// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "editor_helpers.h"
#include "files/OstrelFileMenu.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QTranslator>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QImage picture(const QIcon& icon)
{
    return icon.pixmap(QSize(22, 22)).toImage().convertToFormat(QImage::Format_ARGB32);
}

// The rows of the context menu that @p doc opens.
QStringList context_menu(JournalDocument* doc)
{
    QStringList rows;
    const MenuDriver driver([&rows](QMenu* menu) { rows = menu_rows(menu); });
    const QPoint middle = doc->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, doc->mapToGlobal(middle));
    QCoreApplication::sendEvent(doc->viewport(), &event);
    return rows;
}

// Only these start the texts of extension rows in these tests.
QStringList extension_rows(JournalDocument* doc)
{
    return context_menu(doc).filter(u"extension"_s);
}

} // namespace

class TstJournalEditor : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // The form.
    void form_has_names_sizes_and_title();
    void window_of_a_parent_stays_a_window();
    void action_has_texts_and_icon_data();
    void action_has_texts_and_icon();
    void action_to_fennar_is_nowhere_and_does_nothing();
    void group_of_translations_is_empty();
    void tool_bar_has_its_order();
    void menus_have_their_order();
    void texts_of_the_form_are_translated_in_its_own_context();
    void texts_of_the_window_are_translated_in_its_context();
    void signals_and_slots_keep_their_order();
    void fields_of_the_form_are_children_of_the_window();
    void icons_of_the_form_are_22_pixels_wide();

    // Tabs and titles.
    void starts_with_one_untitled_document();
    void new_on_a_pristine_document_changes_nothing();
    void new_behind_a_typed_document_opens_a_second_tab();
    void new_behind_a_named_document_opens_a_second_tab();
    void new_behind_an_emptied_document_opens_a_second_tab();
    void pristine_document_among_two_is_not_reused();
    void new_document_becomes_current_and_closable();
    void new_document_has_name_font_and_no_wrap();
    void tab_shows_the_file_name();
    void odd_file_names_show_on_tab_and_title_data();
    void odd_file_names_show_on_tab_and_title();
    void naming_drops_the_mark_until_the_flag_changes();
    void title_follows_the_current_tab();
    void title_of_another_tab_can_be_asked_for();
    void renaming_a_document_in_the_back_leaves_the_title();
    void change_of_null_is_ignored();

    // Font.
    void font_of_new_documents_is_that_of_the_first();
    void font_is_set_on_all_open_documents();
    void font_falls_back_when_the_first_tab_is_no_document();

    // Extension hooks.
    void added_text_is_unsaved();
    void added_blank_text_leaves_the_document_pristine_data();
    void added_blank_text_leaves_the_document_pristine();
    void added_text_fills_a_pristine_document();
    void import_items_open_documents();
    void import_items_go_by_their_owner_exactly();
    void import_items_die_with_the_editor();
    void import_of_null_name_has_an_empty_owner();
    void actions_of_others_join_the_import_menu();
    void context_menu_items_reach_all_documents();
    void context_menu_items_are_removed_everywhere();
    void context_menu_item_of_null_is_ignored();
    void context_menu_items_that_die_unremoved_are_gone();
    void context_menu_items_may_belong_to_the_window();

    // Editing.
    void edit_actions_act_on_the_current_document();
    void edit_actions_without_a_document_do_nothing();
    void print_is_disabled_and_does_nothing();
    void shortcut_triggers_its_action_data();
    void shortcut_triggers_its_action();

    // Prompt.
    void prompt_flag_is_one_for_all();
};

void TstJournalEditor::set_up()
{
    HostDouble::instance().reset();
    OstrelFileMenu::mPath.clear();
}

void TstJournalEditor::form_has_names_sizes_and_title()
{
    const JournalEditor editor;
    QCOMPARE(editor.objectName(), u"QtJournalEditor"_s);
    QCOMPARE(editor.size(), QSize(601, 498));
    QCOMPARE(editor.iconSize(), QSize(22, 22));
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
    QVERIFY(editor.isWindow());
    QVERIFY(editor.isHidden());

    const auto* layout = qobject_cast<QVBoxLayout*>(editor.centralWidget()->layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), u"verticalLayout"_s);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), tabs_of(editor));
    QCOMPARE(tabs_of(editor)->tabShape(), QTabWidget::Triangular);
    QVERIFY(!editor.findChild<QWidget*>(u"mTempPage"_s));

    const auto* bar = editor.findChild<QToolBar*>(u"toolBar"_s);
    QVERIFY(bar);
    QCOMPARE(editor.toolBarArea(bar), Qt::TopToolBarArea);
    QCOMPARE(bar->property("closeMode"), QVariant(2));
    QCOMPARE(bar->property("label"), QVariant(u"Tools"_s));
    QCOMPARE(editor.menuWidget()->objectName(), u"menubar"_s);
    QCOMPARE(editor.menuWidget()->geometry(), QRect(0, 0, 600, 21));
}

void TstJournalEditor::window_of_a_parent_stays_a_window()
{
    QWidget parent;
    const JournalEditor editor(&parent);
    QCOMPARE(editor.parentWidget(), &parent);
    QVERIFY(editor.isWindow());
    QCOMPARE(editor.objectName(), u"QtJournalEditor"_s);
}

void TstJournalEditor::action_has_texts_and_icon_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon_text");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("tool_tip");
    QTest::addColumn<QString>("icon");

    // An action without a tool tip of its own shows its icon text.
    QTest::newRow("fileNewAction") << u"&New"_s << u"New"_s << u"Ctrl+N"_s << u"New"_s << u"filenew_ot.svg"_s;
    QTest::newRow("fileOpenAction") << u"&Open..."_s << u"Open"_s << u"Ctrl+O"_s << u"Open"_s
                                    << u"fileopen_ot.svg"_s;
    QTest::newRow("fileSaveAction") << u"&Save"_s << u"Save"_s << u"Ctrl+S"_s << u"Save"_s
                                    << u"filesave_ot.svg"_s;
    QTest::newRow("fileSaveAsAction")
        << u"Save &As..."_s << u"Save As"_s << QString() << u"Save As"_s << QString();
    QTest::newRow("filePrintAction") << u"&Print..."_s << u"Print"_s << u"Ctrl+P"_s << u"Print"_s
                                     << u"print_ot.svg"_s;
    QTest::newRow("fileExitAction") << u"E&xit"_s << u"Exit"_s << QString() << u"Exit"_s << QString();
    QTest::newRow("editCutAction") << u"&Cut"_s << u"Cut"_s << u"Ctrl+X"_s << u"Cut"_s << u"cut_ot.svg"_s;
    QTest::newRow("editCopyAction") << u"C&opy"_s << u"Copy"_s << u"Ctrl+C"_s << u"Copy"_s
                                    << u"copy_ot.svg"_s;
    QTest::newRow("editPasteAction") << u"&Paste"_s << u"Paste"_s << u"Ctrl+V"_s << u"Paste"_s
                                     << u"paste_ot.svg"_s;
    QTest::newRow("editFindAction") << u"&Find..."_s << u"Find"_s << u"Ctrl+F"_s << u"Find"_s
                                    << u"find_ot.svg"_s;
    QTest::newRow("toolsPlayAction") << u"&Play"_s << u"Play"_s << u"F5"_s << u"Plays the current file"_s
                                     << u"play.svg"_s;
    QTest::newRow("editUndoAction") << u"&Undo"_s << u"Undo"_s << u"Ctrl+Z"_s << u"Undo"_s << u"undo.svg"_s;
    QTest::newRow("editRedoAction") << u"&Redo"_s << u"Redo"_s << u"Ctrl+Y"_s << u"Redo"_s
                                    << u"redo_ot.svg"_s;
    QTest::newRow("fileCloseAction") << u"&Close"_s << u"Close"_s << QString() << u"Close"_s << QString();
    QTest::newRow("fileSaveAllAction")
        << u"Sa&ve All"_s << u"Save All"_s << u"Ctrl+Shift+S"_s << u"Save All"_s << QString();
    QTest::newRow("fennarTransAction")
        << u"&Fennar"_s << u"Fennar"_s << QString() << u"Translate to Fennar Commands"_s
        << u":/fennargui/halvane_fennar.png"_s;
    QTest::newRow("toolsPythonize") << u"Translate to Python"_s << u"Translate to Python"_s << QString()
                                    << u"Translate to Python"_s << u"trpython.svg"_s;
}

void TstJournalEditor::action_has_texts_and_icon()
{
    QFETCH(const QString, text);
    QFETCH(const QString, icon_text);
    QFETCH(const QString, shortcut);
    QFETCH(const QString, tool_tip);
    QFETCH(const QString, icon);

    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const JournalEditor editor;
    const QAction* const action = action_of(editor, name);
    QVERIFY(action);
    QCOMPARE(action->parent(), &editor);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->iconText(), icon_text);
    QCOMPARE(action->shortcut(), QKeySequence(shortcut, QKeySequence::PortableText));
    QCOMPARE(action->toolTip(), tool_tip);
    QCOMPARE(action->property("name"), name == "toolsPythonize"_L1 ? QVariant() : QVariant(name));
    QCOMPARE(action->isEnabled(), name != "filePrintAction"_L1);
    if (icon.isEmpty()) {
        QVERIFY(action->icon().pixmap(QSize(22, 22)).isNull());
    } else {
        const QString bundled = u":/ostrelgui/images/light/"_s + icon;
        const QImage expected = picture(QIcon(icon.startsWith(u':') ? icon : bundled));
        QVERIFY(!expected.isNull());
        QCOMPARE(picture(action->icon()), expected);
    }
}

void TstJournalEditor::action_to_fennar_is_nowhere_and_does_nothing()
{
    const JournalEditor editor;
    QAction* const action = action_of(editor, u"fennarTransAction"_s);
    QCOMPARE(action->associatedObjects(), QObjectList());
    QVERIFY(!action->actionGroup());
    editor.returnCurrentDocument()->setPlainText(u"fennar.cmd('a')"_s);
    action->trigger();
    QCOMPARE(texts_of(editor), QStringList(u"fennar.cmd('a')"_s));
}

void TstJournalEditor::group_of_translations_is_empty()
{
    const JournalEditor editor;
    const auto* group = editor.findChild<QActionGroup*>(u"mTransGroup"_s);
    QVERIFY(group);
    QCOMPARE(group->property("name"), QVariant(u"mTransGroup"_s));
    QCOMPARE(group->actions(), QList<QAction*>());
}

void TstJournalEditor::tool_bar_has_its_order()
{
    const JournalEditor editor;
    const QStringList order{u"fileNewAction"_s, u"fileOpenAction"_s,  u"fileSaveAction"_s,
                            u"---"_s,           u"editUndoAction"_s,  u"editRedoAction"_s,
                            u"editCutAction"_s, u"editCopyAction"_s,  u"editPasteAction"_s,
                            u"---"_s,           u"toolsPlayAction"_s, u"toolsPythonize"_s};
    QCOMPARE(entries(editor.findChild<QToolBar*>(u"toolBar"_s)), order);
}

void TstJournalEditor::menus_have_their_order()
{
    const JournalEditor editor;
    QCOMPARE(entries(editor.menuWidget()), QStringList({u"fileMenu"_s, u"editMenu"_s, u"toolsMenu"_s}));
    const QStringList file{u"fileNewAction"_s,
                           u"fileOpenAction"_s,
                           u"fileImportMenu"_s,
                           u"fileCloseAction"_s,
                           u"---"_s,
                           u"fileSaveAction"_s,
                           u"fileSaveAsAction"_s,
                           u"fileSaveAllAction"_s,
                           u"---"_s,
                           u"filePrintAction"_s,
                           u"---"_s,
                           u"fileExitAction"_s};
    QCOMPARE(entries(menu_of(editor, u"fileMenu"_s)), file);
    const QStringList edit{u"editUndoAction"_s, u"editRedoAction"_s,  u"---"_s, u"editCutAction"_s,
                           u"editCopyAction"_s, u"editPasteAction"_s, u"---"_s, u"editFindAction"_s};
    QCOMPARE(entries(menu_of(editor, u"editMenu"_s)), edit);
    QCOMPARE(entries(menu_of(editor, u"toolsMenu"_s)),
             QStringList({u"toolsPlayAction"_s, u"toolsPythonize"_s}));
    QCOMPARE(entries(menu_of(editor, u"fileImportMenu"_s)), QStringList());

    QCOMPARE(menu_of(editor, u"fileMenu"_s)->title(), u"&File"_s);
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->title(), u"&Import"_s);
    QCOMPARE(menu_of(editor, u"editMenu"_s)->title(), u"&Edit"_s);
    QCOMPARE(menu_of(editor, u"toolsMenu"_s)->title(), u"&Tools"_s);
}

namespace {

/** Translates all texts of one context to themselves in angle brackets. */
class Marker : public QTranslator
{
public:
    explicit Marker(const char* context) : mContext(context) { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, mContext) == 0 ? u'<' + QString::fromUtf8(source) + u'>' : QString();
    }

private:
    const char* mContext;
};

} // namespace

void TstJournalEditor::texts_of_the_form_are_translated_in_its_own_context()
{
    const Marker marker("QtJournalEditor");
    const JournalEditor editor;
    QCOMPARE(action_of(editor, u"fileNewAction"_s)->text(), u"<&New>"_s);
    QCOMPARE(action_of(editor, u"fileNewAction"_s)->iconText(), u"<New>"_s);
    QCOMPARE(action_of(editor, u"toolsPlayAction"_s)->toolTip(), u"<Plays the current file>"_s);
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->title(), u"<&Import>"_s);
    QCOMPARE(editor.findChild<QToolBar*>()->property("label"), QVariant(u"<Tools>"_s));
    // Names are no texts.
    QCOMPARE(action_of(editor, u"fileNewAction"_s)->property("name"), QVariant(u"fileNewAction"_s));
    // The title is written anew by the first tab, in the context of the class.
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
}

void TstJournalEditor::texts_of_the_window_are_translated_in_its_context()
{
    const Marker marker("JournalEditor");
    JournalEditor editor;
    QCOMPARE(editor.windowTitle(), u"<Journal Editor>"_s);
    QCOMPARE(tab_texts(editor), QStringList(u"<Untitled>"_s));
    QCOMPARE(action_of(editor, u"fileNewAction"_s)->text(), u"&New"_s);
    document_of(editor, 0)->set_file_name(u"/a/b.jou"_s);
    QCOMPARE(editor.windowTitle(), u"/a/b.jou - <Journal Editor>"_s);
    document_of(editor, 0)->set_file_name(QString());
    QCOMPARE(tab_texts(editor), QStringList(u"<Untitled>"_s));
}

void TstJournalEditor::signals_and_slots_keep_their_order()
{
    const QMetaObject& meta = JournalEditor::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QCOMPARE(method.methodType(), i < meta.methodOffset() + 2 ? QMetaMethod::Signal : QMetaMethod::Slot);
        methods << QString::fromLatin1(method.methodSignature());
    }
    // The one with a default argument is listed twice.
    const QStringList order{u"processCommandsAsFile(QStringList)"_s,
                            u"processCommands(QStringList)"_s,
                            u"fileNew()"_s,
                            u"fileOpen()"_s,
                            u"fileClose()"_s,
                            u"fileSave()"_s,
                            u"fileSaveAs()"_s,
                            u"fileSaveAll()"_s,
                            u"filePrint()"_s,
                            u"editUndo()"_s,
                            u"editRedo()"_s,
                            u"editCut()"_s,
                            u"editCopy()"_s,
                            u"editPaste()"_s,
                            u"editFind()"_s,
                            u"playFile()"_s,
                            u"playSelected()"_s,
                            u"pythonizeFile()"_s,
                            u"pythonizeSelected()"_s,
                            u"commentSelected()"_s,
                            u"uncommentSelected()"_s,
                            u"commentOrUncommentSelected()"_s,
                            u"findText()"_s,
                            u"close_tab(int)"_s,
                            u"update_title(int)"_s,
                            u"update_title()"_s,
                            u"open_file(QString)"_s,
                            u"change_file_name(JournalDocument*)"_s};
    QCOMPARE(methods, order);
    QCOMPARE(meta.method(meta.methodOffset()).parameterNames(), QByteArrayList{"cmds"});
    QCOMPARE(meta.method(meta.methodOffset() + 1).parameterNames(), QByteArrayList{"cmds"});
}

void TstJournalEditor::fields_of_the_form_are_children_of_the_window()
{
    const JournalEditor editor;
    const QMenu* const import = menu_of(editor, u"fileImportMenu"_s);
    QCOMPARE(import->parent(), menu_of(editor, u"fileMenu"_s));
    QCOMPARE(menu_of(editor, u"fileMenu"_s)->parent(), editor.menuWidget());
}

void TstJournalEditor::icons_of_the_form_are_22_pixels_wide()
{
    const JournalEditor editor;
    QCOMPARE(editor.findChild<QToolBar*>(u"toolBar"_s)->iconSize(), QSize(22, 22));
}

void TstJournalEditor::starts_with_one_untitled_document()
{
    const JournalEditor editor;
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    const JournalDocument* const doc = editor.returnCurrentDocument();
    QVERIFY(doc);
    QCOMPARE(doc, document_of(editor, 0));
    QCOMPARE(doc->objectName(), u"JournalDocument"_s);
    QCOMPARE(doc->file_name(), QString());
    QCOMPARE(doc->toPlainText(), QString());
    QVERIFY(!doc->document()->isModified());
    QVERIFY(tabs_of(editor)->tabsClosable());
}

void TstJournalEditor::new_on_a_pristine_document_changes_nothing()
{
    const JournalEditor editor;
    const JournalDocument* const doc = document_of(editor, 0);
    action_of(editor, u"fileNewAction"_s)->trigger();
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    QCOMPARE(document_of(editor, 0), doc);
}

void TstJournalEditor::new_behind_a_typed_document_opens_a_second_tab()
{
    const JournalEditor editor;
    JournalDocument* const doc = document_of(editor, 0);
    QTest::keyClick(doc, Qt::Key_A);
    action_of(editor, u"fileNewAction"_s)->trigger();
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"Untitled"_s}));
    QCOMPARE(texts_of(editor), QStringList({u"a"_s, u""_s}));
}

void TstJournalEditor::new_behind_a_named_document_opens_a_second_tab()
{
    JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/a/b.jou"_s);
    editor.fileNew();
    QCOMPARE(tab_texts(editor), QStringList({u"b.jou"_s, u"Untitled"_s}));
}

void TstJournalEditor::new_behind_an_emptied_document_opens_a_second_tab()
{
    // Empty and untitled, but modified; and with a text that counts as saved.
    JournalEditor editor;
    document_of(editor, 0)->document()->setModified(true);
    editor.fileNew();
    QCOMPARE(tabs_of(editor)->count(), 2);

    JournalEditor second;
    document_of(second, 0)->setPlainText(u"a"_s);
    QVERIFY(!document_of(second, 0)->document()->isModified());
    second.fileNew();
    QCOMPARE(tabs_of(second)->count(), 2);
}

void TstJournalEditor::pristine_document_among_two_is_not_reused()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    editor.fileNew();
    editor.fileNew();
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"Untitled"_s, u"Untitled"_s}));
}

void TstJournalEditor::new_document_becomes_current_and_closable()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    tabs_of(editor)->setTabsClosable(false);
    editor.fileNew();
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
    QCOMPARE(editor.returnCurrentDocument(), document_of(editor, 1));
    QVERIFY(tabs_of(editor)->tabsClosable());
}

void TstJournalEditor::new_document_has_name_font_and_no_wrap()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    editor.fileNew();
    for (const int i : {0, 1}) {
        QCOMPARE(document_of(editor, i)->objectName(), u"JournalDocument"_s);
        QCOMPARE(document_of(editor, i)->lineWrapMode(), QPlainTextEdit::NoWrap);
    }
    // Also one that is reused.
    JournalEditor second;
    document_of(second, 0)->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    second.fileNew();
    QCOMPARE(document_of(second, 0)->lineWrapMode(), QPlainTextEdit::NoWrap);
}

void TstJournalEditor::tab_shows_the_file_name()
{
    JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/some/where/plate.jou"_s);
    QCOMPARE(tab_texts(editor), QStringList(u"plate.jou"_s));
    QCOMPARE(editor.windowTitle(), u"/some/where/plate.jou - Journal Editor"_s);
    document_of(editor, 0)->set_file_name(QString());
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
}

void TstJournalEditor::odd_file_names_show_on_tab_and_title_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u"two  words .jou"_s;
    QTest::newRow("semicolon, hash, percent") << u"a;b#c%20.jou"_s;
    QTest::newRow("ampersand") << u"a&b.jou"_s;
    QTest::newRow("quotes") << u"'a' \"b\".jou"_s;
    QTest::newRow("not Latin") << u"Журнал 日誌.jou"_s;
    QTest::newRow("line feed") << u"a\nb.jou"_s;
    QTest::newRow("backslash") << u"a\\b.jou"_s;
    QTest::newRow("no dot") << u"journal"_s;
}

void TstJournalEditor::odd_file_names_show_on_tab_and_title()
{
    QFETCH(const QString, name);
    const JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/x y/"_s + name);
    QCOMPARE(tab_texts(editor), QStringList(name));
    QCOMPARE(editor.windowTitle(), u"/x y/"_s + name + u" - Journal Editor"_s);
}

void TstJournalEditor::naming_drops_the_mark_until_the_flag_changes()
{
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    QCOMPARE(tab_texts(editor), QStringList(u"* Untitled"_s));
    doc->set_file_name(u"/a/b.jou"_s);
    QCOMPARE(tab_texts(editor), QStringList(u"b.jou"_s));
    QVERIFY(doc->document()->isModified());
    doc->document()->setModified(false);
    doc->document()->setModified(true);
    QCOMPARE(tab_texts(editor), QStringList(u"* b.jou"_s));
}

void TstJournalEditor::title_follows_the_current_tab()
{
    JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/a/one.jou"_s);
    editor.fileNew();
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
    tabs_of(editor)->setCurrentIndex(0);
    QCOMPARE(editor.windowTitle(), u"/a/one.jou - Journal Editor"_s);
}

void TstJournalEditor::title_of_another_tab_can_be_asked_for()
{
    JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/a/one.jou"_s);
    editor.fileNew();
    editor.update_title(0);
    QCOMPARE(editor.windowTitle(), u"/a/one.jou - Journal Editor"_s);
    editor.update_title();
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
    tabs_of(editor)->setCurrentIndex(0);
    for (const int nowhere : {2, -2, 1000}) {
        editor.update_title(nowhere);
        QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
    }
    editor.update_title(-1);
    QCOMPARE(editor.windowTitle(), u"/a/one.jou - Journal Editor"_s);
}

void TstJournalEditor::renaming_a_document_in_the_back_leaves_the_title()
{
    JournalEditor editor;
    JournalDocument* const first = typed_document(editor, u"a"_s);
    editor.fileNew();
    first->set_file_name(u"/a/one.jou"_s);
    QCOMPARE(tab_texts(editor), QStringList({u"one.jou"_s, u"Untitled"_s}));
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
    // Nor does that of the current one while the signals of the tabs are blocked.
    const QSignalBlocker blocker(tabs_of(editor));
    document_of(editor, 1)->set_file_name(u"/a/two.jou"_s);
    QCOMPARE(tab_texts(editor), QStringList({u"one.jou"_s, u"two.jou"_s}));
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
}

void TstJournalEditor::change_of_null_is_ignored()
{
    JournalEditor editor;
    document_of(editor, 0)->set_file_name(u"/a/one.jou"_s);
    editor.change_file_name(nullptr);
    QCOMPARE(tab_texts(editor), QStringList(u"one.jou"_s));
    QCOMPARE(editor.windowTitle(), u"/a/one.jou - Journal Editor"_s);
}

void TstJournalEditor::font_of_new_documents_is_that_of_the_first()
{
    JournalEditor editor;
    const QFont font(u"DejaVu Serif"_s, 17);
    document_of(editor, 0)->setFont(font);
    QCOMPARE(editor.get_editor_font().family(), u"DejaVu Serif"_s);
    QCOMPARE(editor.get_editor_font().pointSize(), 17);
    typed_document(editor, u"a"_s);
    const JournalDocument* const second = typed_document(editor, u"b"_s);
    QCOMPARE(tabs_of(editor)->count(), 2);
    QCOMPARE(second->font(), document_of(editor, 0)->font());
    QCOMPARE(second->font().pointSize(), 17);
}

void TstJournalEditor::font_is_set_on_all_open_documents()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    typed_document(editor, u"b"_s);
    editor.set_editor_font(QFont(u"DejaVu Serif"_s, 17));
    QCOMPARE(tabs_of(editor)->count(), 2);
    for (const int i : {0, 1}) {
        QCOMPARE(document_of(editor, i)->font().family(), u"DejaVu Serif"_s);
        QCOMPARE(document_of(editor, i)->font().pointSize(), 17);
    }
    QCOMPARE(editor.get_editor_font(), document_of(editor, 0)->font());
}

void TstJournalEditor::font_falls_back_when_the_first_tab_is_no_document()
{
    JournalEditor editor;
    tabs_of(editor)->insertTab(0, new QLabel(u"no document"_s), u"other"_s);
    QCOMPARE(editor.get_editor_font(), QFont(u"Inconsolata"_s, 12));
    QCOMPARE(typed_document(editor, u"a"_s)->font().pointSize(), 12);
    QCOMPARE(editor.returnCurrentDocument()->font().family(), u"Inconsolata"_s);
    editor.set_editor_font(QFont(u"DejaVu Serif"_s, 17));
    QCOMPARE(editor.returnCurrentDocument()->font().pointSize(), 17);
    QVERIFY(tabs_of(editor)->widget(0)->font().pointSize() != 17);
    // The current tab is no document either, then.
    tabs_of(editor)->setCurrentIndex(0);
    QVERIFY(!editor.returnCurrentDocument());
    QCOMPARE(editor.windowTitle(), u"Journal Editor"_s);
}

void TstJournalEditor::added_text_is_unsaved()
{
    JournalEditor editor;
    editor.add_document(u"one\ntwo"_s);
    QCOMPARE(tab_texts(editor), QStringList(u"* Untitled"_s));
    editor.add_document(u"three"_s);
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"* Untitled"_s}));
    QCOMPARE(texts_of(editor), QStringList({u"one\ntwo"_s, u"three"_s}));
    QVERIFY(document_of(editor, 0)->document()->isModified());
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
}

void TstJournalEditor::added_blank_text_leaves_the_document_pristine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("reused");
    QTest::newRow("null") << QString() << true;
    QTest::newRow("empty") << u""_s << true;
    // It counts as saved, but it is not empty.
    QTest::newRow("blanks, tabs and line feeds") << u" \t\n \n"_s << false;
}

void TstJournalEditor::added_blank_text_leaves_the_document_pristine()
{
    QFETCH(const QString, text);
    QFETCH(const bool, reused);
    JournalEditor editor;
    editor.add_document(text);
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    QVERIFY(!document_of(editor, 0)->document()->isModified());
    editor.fileNew();
    QCOMPARE(tabs_of(editor)->count(), reused ? 1 : 2);
}

void TstJournalEditor::added_text_fills_a_pristine_document()
{
    JournalEditor editor;
    const JournalDocument* const doc = document_of(editor, 0);
    editor.add_document(u"a"_s);
    QCOMPARE(document_of(editor, 0), doc);
    QCOMPARE(texts_of(editor), QStringList(u"a"_s));
}

void TstJournalEditor::import_items_open_documents()
{
    JournalEditor editor;
    CommandWidget page;
    page.setPrompt(u"> "_s);
    page.printPrompt();
    page.addExternalCommand(u"make a plate"_s);
    page.printOutput(u"made\n"_s);
    QPlainTextEdit log(u"just text"_s);
    editor.add_import("one", u"Commands"_s, &page);
    editor.add_import("two", u"Log"_s, &log);
    const QList<QAction*> items = menu_of(editor, u"fileImportMenu"_s)->actions();
    QCOMPARE(items.size(), 2);
    QCOMPARE(items[0]->text(), u"Commands"_s);
    QCOMPARE(items[1]->text(), u"Log"_s);
    QCOMPARE(items[0]->objectName(), u"JournalImportAction"_s);
    items[1]->trigger();
    QCOMPARE(texts_of(editor), QStringList(u"just text"_s));
    items[0]->trigger();
    QCOMPARE(texts_of(editor).size(), 2);
    QVERIFY(texts_of(editor).at(1).startsWith(u"make a plate"_s));
}

void TstJournalEditor::import_items_go_by_their_owner_exactly()
{
    JournalEditor editor;
    QPlainTextEdit page;
    editor.add_import("geo", u"A"_s, &page);
    editor.add_import("geo", u"B"_s, &page);
    editor.add_import("Geo", u"C"_s, &page);
    editor.add_import("geo2", u"D"_s, &page);
    editor.add_import("geo", u"E"_s, &page);
    const auto labels = [&editor] {
        QStringList texts;
        for (const QAction* item : menu_of(editor, u"fileImportMenu"_s)->actions())
            texts << item->text();
        return texts;
    };
    QCOMPARE(labels().join(u' '), u"A B C D E"_s);
    const QPointer<QAction> first(menu_of(editor, u"fileImportMenu"_s)->actions().constFirst());
    editor.remove_import_items("ge");
    QCOMPARE(labels().join(u' '), u"A B C D E"_s);
    editor.remove_import_items(nullptr);
    QCOMPARE(labels().join(u' '), u"A B C D E"_s);
    editor.remove_import_items("geo");
    QCOMPARE(labels().join(u' '), u"C D"_s);
    QVERIFY(!first);
    editor.remove_import_items("geo");
    QCOMPARE(labels().join(u' '), u"C D"_s);
    editor.remove_import_items("geo2");
    editor.remove_import_items("Geo");
    QCOMPARE(labels(), QStringList());
}

void TstJournalEditor::import_items_die_with_the_editor()
{
    QPlainTextEdit page(u"text"_s);
    QPointer<QAction> item;
    {
        JournalEditor editor;
        editor.add_import("geo", u"A"_s, &page);
        item = menu_of(editor, u"fileImportMenu"_s)->actions().constFirst();
        QVERIFY(item);
    }
    QVERIFY(!item);
    QCOMPARE(page.toPlainText(), u"text"_s);
}

void TstJournalEditor::import_of_null_name_has_an_empty_owner()
{
    JournalEditor editor;
    QPlainTextEdit page;
    editor.add_import(nullptr, u"A"_s, &page);
    editor.add_import("", u"B"_s, nullptr);
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->actions().size(), 2);
    editor.remove_import_items("");
    QCOMPARE(menu_of(editor, u"fileImportMenu"_s)->actions().size(), 0);
}

void TstJournalEditor::actions_of_others_join_the_import_menu()
{
    JournalEditor editor;
    QPlainTextEdit page;
    QAction action(u"Other"_s);
    action.setObjectName(u"other"_s);
    editor.add_import("geo", u"A"_s, &page);
    editor.add_action_to_import_menu(nullptr);
    editor.add_action_to_import_menu(&action);
    QCOMPARE(entries(menu_of(editor, u"fileImportMenu"_s)),
             QStringList({u"JournalImportAction"_s, u"other"_s}));
    // It is not the editor's to remove.
    editor.remove_import_items("geo");
    editor.remove_import_items("");
    QCOMPARE(entries(menu_of(editor, u"fileImportMenu"_s)), QStringList(u"other"_s));
}

void TstJournalEditor::context_menu_items_reach_all_documents()
{
    JournalEditor editor;
    QAction one(u"extension 1"_s);
    QAction two(u"extension 2"_s);
    typed_document(editor, u"a"_s);
    editor.add_context_menu_item(&one);
    typed_document(editor, u"b"_s);
    editor.add_context_menu_item(&two);
    typed_document(editor, u"c"_s);
    QVERIFY(show_active(&editor));
    for (const int i : {0, 1, 2}) {
        tabs_of(editor)->setCurrentIndex(i);
        QCOMPARE(extension_rows(document_of(editor, i)),
                 QStringList({u"extension 1 [] (enabled)"_s, u"extension 2 [] (enabled)"_s}));
    }
}

void TstJournalEditor::context_menu_items_are_removed_everywhere()
{
    JournalEditor editor;
    QAction one(u"extension 1"_s);
    QAction two(u"extension 2"_s);
    editor.add_context_menu_item(&one);
    editor.add_context_menu_item(&two);
    editor.add_context_menu_item(&one);
    typed_document(editor, u"a"_s);
    typed_document(editor, u"b"_s);
    editor.remove_context_menu_items(&one);
    typed_document(editor, u"c"_s);
    QVERIFY(show_active(&editor));
    QCOMPARE(tabs_of(editor)->count(), 3);
    for (const int i : {0, 1, 2}) {
        tabs_of(editor)->setCurrentIndex(i);
        QCOMPARE(extension_rows(document_of(editor, i)), QStringList(u"extension 2 [] (enabled)"_s));
    }
}

void TstJournalEditor::context_menu_item_of_null_is_ignored()
{
    JournalEditor editor;
    editor.add_context_menu_item(nullptr);
    editor.remove_context_menu_items(nullptr);
    typed_document(editor, u"a"_s);
    QVERIFY(show_active(&editor));
    QVERIFY(context_menu(document_of(editor, 0)).contains(u"Select All [Ctrl+A] (enabled)"_s));
}

/** A component that deletes what it added and forgets to say so. */
void TstJournalEditor::context_menu_items_that_die_unremoved_are_gone()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    auto dying = std::make_unique<QAction>(u"extension 1"_s);
    QAction kept(u"extension 2"_s);
    QAction back(u"extension 3"_s);
    for (QAction* action : {dying.get(), &kept, dying.get(), &back})
        editor.add_context_menu_item(action);
    editor.remove_context_menu_items(&back);
    editor.add_context_menu_item(&back);
    typed_document(editor, u"b"_s);
    dying.reset();
    typed_document(editor, u"c"_s);
    QVERIFY(show_active(&editor));
    QCOMPARE(tabs_of(editor)->count(), 3);
    for (const int i : {0, 1, 2}) {
        tabs_of(editor)->setCurrentIndex(i);
        QCOMPARE(extension_rows(document_of(editor, i)),
                 QStringList({u"extension 2 [] (enabled)"_s, u"extension 3 [] (enabled)"_s}));
    }
}

void TstJournalEditor::context_menu_items_may_belong_to_the_window()
{
    auto editor = std::make_unique<JournalEditor>();
    const QPointer<QAction> of_window = new QAction(u"extension 1"_s, editor.get());
    const QPointer<QAction> of_document = new QAction(u"extension 2"_s, document_of(*editor, 0));
    editor->add_context_menu_item(of_window);
    editor->add_context_menu_item(of_document);
    typed_document(*editor, u"a"_s);
    typed_document(*editor, u"b"_s);
    delete document_of(*editor, 0);
    QVERIFY(show_active(editor.get()));
    QCOMPARE(extension_rows(document_of(*editor, 0)), QStringList(u"extension 1 [] (enabled)"_s));
    editor.reset();
    QVERIFY(!of_window);
}

void TstJournalEditor::edit_actions_act_on_the_current_document()
{
    JournalEditor editor;
    typed_document(editor, u"other"_s);
    JournalDocument* const doc = typed_document(editor, u"one"_s);
    const auto trigger = [&editor](const QString& name) { action_of(editor, name)->trigger(); };
    trigger(u"editUndoAction"_s);
    QCOMPARE(texts_of(editor), QStringList({u"other"_s, u""_s}));
    trigger(u"editRedoAction"_s);
    QCOMPARE(texts_of(editor), QStringList({u"other"_s, u"one"_s}));

    QGuiApplication::clipboard()->setText(u"sentinel"_s);
    doc->selectAll();
    trigger(u"editCopyAction"_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"one"_s);
    QCOMPARE(texts_of(editor), QStringList({u"other"_s, u"one"_s}));
    QGuiApplication::clipboard()->setText(u"sentinel"_s);
    trigger(u"editCutAction"_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"one"_s);
    QCOMPARE(texts_of(editor), QStringList({u"other"_s, u""_s}));
    trigger(u"editPasteAction"_s);
    trigger(u"editPasteAction"_s);
    QCOMPARE(texts_of(editor), QStringList({u"other"_s, u"oneone"_s}));
    QGuiApplication::clipboard()->clear();
}

void TstJournalEditor::edit_actions_without_a_document_do_nothing()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    auto* const other = new QPlainTextEdit(u"no document"_s);
    other->selectAll();
    tabs_of(editor)->addTab(other, u"other"_s);
    tabs_of(editor)->setCurrentIndex(1);
    QSignalSpy played(&editor, &JournalEditor::processCommandsAsFile);
    QSignalSpy played_lines(&editor, &JournalEditor::processCommands);
    for (const auto* name :
         {"editUndoAction", "editRedoAction", "editCutAction", "editCopyAction", "editPasteAction",
          "toolsPlayAction", "toolsPythonize", "fileSaveAction", "fileSaveAsAction", "fileCloseAction"})
        action_of(editor, QString::fromLatin1(name))->trigger();
    editor.commentSelected();
    editor.uncommentSelected();
    editor.commentOrUncommentSelected();
    editor.playSelected();
    editor.pythonizeSelected();
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"other"_s}));
    QCOMPARE(document_of(editor, 0)->toPlainText(), u"a"_s);
    QCOMPARE(other->toPlainText(), u"no document"_s);
    QCOMPARE(played.size() + played_lines.size(), 0);
}

void TstJournalEditor::print_is_disabled_and_does_nothing()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    const QAction* const print = action_of(editor, u"filePrintAction"_s);
    QVERIFY(!print->isEnabled());
    // Would open a dialog that nobody answers.
    editor.filePrint();
    QCOMPARE(texts_of(editor), QStringList(u"a"_s));
    QVERIFY(!print->isEnabled());
}

void TstJournalEditor::shortcut_triggers_its_action_data()
{
    QTest::addColumn<QString>("keys");
    QTest::newRow("fileNewAction") << u"Ctrl+N"_s;
    QTest::newRow("fileOpenAction") << u"Ctrl+O"_s;
    QTest::newRow("fileSaveAction") << u"Ctrl+S"_s;
    QTest::newRow("fileSaveAllAction") << u"Ctrl+Shift+S"_s;
    QTest::newRow("editFindAction") << u"Ctrl+F"_s;
    QTest::newRow("toolsPlayAction") << u"F5"_s;
}

void TstJournalEditor::shortcut_triggers_its_action()
{
    QFETCH(const QString, keys);
    JournalEditor editor;
    QVERIFY(show_active(&editor));
    editor.returnCurrentDocument()->setFocus();
    QAction* const target = action_of(editor, QString::fromLatin1(QTest::currentDataTag()));
    // What the action does is told by other tests; here it would open dialogs.
    target->disconnect(&editor);
    QSignalSpy triggered(target, &QAction::triggered);
    QTest::keySequence(editor.windowHandle(), QKeySequence(keys, QKeySequence::PortableText));
    QCOMPARE(triggered.size(), 1);
}

void TstJournalEditor::prompt_flag_is_one_for_all()
{
    const JournalEditor editor;
    QVERIFY(JournalEditor::do_save_prompt());
    JournalEditor::set_save_prompt(false);
    QVERIFY(!JournalEditor::do_save_prompt());
    // A new editor reads it from the settings.
    const JournalEditor second;
    QVERIFY(JournalEditor::do_save_prompt());
}

OSTREL_TEST(TstJournalEditor)
#include "tst_journaleditor.moc"
