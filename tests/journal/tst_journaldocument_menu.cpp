// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "document.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString separator = u"---"_s;

/** The row of an item, as menu_rows() tells it. */
QString row(const QString& text, bool enabled, const QString& shortcut = {})
{
    return u"%1 [%2] (%3)"_s.arg(text, shortcut, enabled ? u"enabled"_s : u"disabled"_s);
}

void ask_for_menu(JournalDocument* document, const QPoint& position = {5, 5})
{
    QWidget* viewport = document->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, viewport->mapToGlobal(position));
    QCoreApplication::sendEvent(viewport, &event);
}

/** Marks each text with the context that it is translated in. */
class ContextTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QString::fromLatin1(context) + u"|"_s + QString::fromLatin1(text);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TstJournalDocumentMenu : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void menu_of_a_text_with_and_without_selection_data();
    void menu_of_a_text_with_and_without_selection();
    void menu_of_an_empty_document();
    void menu_of_a_read_only_document();
    void undo_and_redo_are_enabled_as_there_is_something_to_do();
    void paste_is_enabled_with_text_on_the_clipboard();
    void first_selected_line_decides_which_comment_item_is_enabled();
    void added_items_stand_between_separators_in_order();
    void added_items_need_text_and_a_document_that_can_be_written();
    void removal_takes_every_occurrence();
    void each_menu_is_new_and_deleted_afterwards();
    void menu_opens_at_the_pointer();
    void texts_are_translated_in_the_context_of_the_document();
    void dismissed_menu_does_nothing();
    void play_and_translate_go_to_the_editor();
    void editing_items_edit();
    void clear_puts_the_text_onto_the_clipboard();
    void comment_items_go_to_the_editor();
    void added_item_triggers_its_action_once_the_menu_is_gone();
    void added_action_that_vanishes_while_the_menu_is_open_is_left_alone();
    void document_may_be_deleted_while_the_menu_is_open();

private:
    QStringList rows();
    /** Opens the menu and chooses @p text; false if there is no such row. */
    bool choose_row(const QString& text);

    std::unique_ptr<JournalEditor> mEditor;
    JournalDocument* mDocument = nullptr;
};

void TstJournalDocumentMenu::set_up()
{
    QGuiApplication::clipboard()->clear();
    mEditor = std::make_unique<JournalEditor>();
    mDocument = mEditor->returnCurrentDocument();
    QVERIFY(mDocument);
    QVERIFY(show_active(mEditor.get()));
}

void TstJournalDocumentMenu::tear_down()
{
    mEditor.reset();
    QGuiApplication::clipboard()->clear();
}

QStringList TstJournalDocumentMenu::rows()
{
    QStringList found;
    const MenuDriver driver([&](QMenu* menu) { found = menu_rows(menu); });
    ask_for_menu(mDocument);
    return found;
}

bool TstJournalDocumentMenu::choose_row(const QString& text)
{
    bool chosen = false;
    const MenuDriver driver([&](QMenu* menu) { chosen = choose(menu, text); });
    ask_for_menu(mDocument);
    return chosen;
}

void TstJournalDocumentMenu::menu_of_a_text_with_and_without_selection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("comment");
    QTest::addColumn<bool>("uncomment");

    QTest::newRow("no selection") << u"a"_s << false << false << false;
    QTest::newRow("no selection in a comment") << u"#a"_s << false << false << false;
    QTest::newRow("selection") << u"a"_s << true << true << false;
    QTest::newRow("selection in a comment") << u"#a"_s << true << false << true;
}

void TstJournalDocumentMenu::menu_of_a_text_with_and_without_selection()
{
    QFETCH(const QString, text);
    QFETCH(const bool, selected);
    QFETCH(const bool, comment);
    QFETCH(const bool, uncomment);
    mDocument->setPlainText(text);
    if (selected)
        mDocument->selectAll();
    const QString key = u"Ctrl+/"_s;
    QCOMPARE(rows(),
             QStringList({row(u"Play Selected"_s, selected, u"Ctrl+F5"_s),
                          row(u"Translate Selected to Python"_s, selected), separator,
                          row(u"&Undo"_s, false, u"Ctrl+Z"_s), row(u"&Redo"_s, false, u"Ctrl+Y"_s), separator,
                          row(u"Cu&t"_s, selected, u"Ctrl+X"_s), row(u"&Copy"_s, selected, u"Ctrl+C"_s),
                          row(u"&Paste"_s, false, u"Ctrl+V"_s), separator,
                          row(u"Comment Selection"_s, comment, comment ? key : QString()),
                          row(u"Un-Comment Selection"_s, uncomment, uncomment ? key : QString()), separator,
                          row(u"Find..."_s, true), row(u"Clear"_s, true), separator,
                          row(u"Select All"_s, true, u"Ctrl+A"_s)}));
}

void TstJournalDocumentMenu::menu_of_an_empty_document()
{
    const QStringList found = rows();
    QCOMPARE(found.size(), 17);
    QVERIFY(!found.join(u'\n').contains(u"(enabled)"_s));
}

void TstJournalDocumentMenu::menu_of_a_read_only_document()
{
    mDocument->setPlainText(u"a"_s);
    mDocument->selectAll();
    mDocument->setReadOnly(true);
    QCOMPARE(rows(),
             QStringList({row(u"Play Selected"_s, true, u"Ctrl+F5"_s),
                          row(u"Translate Selected to Python"_s, true), separator,
                          row(u"&Copy"_s, true, u"Ctrl+C"_s), row(u"Select All"_s, true, u"Ctrl+A"_s)}));
}

void TstJournalDocumentMenu::undo_and_redo_are_enabled_as_there_is_something_to_do()
{
    mDocument->insertPlainText(u"a"_s);
    QStringList found = rows();
    QCOMPARE(found.value(3), row(u"&Undo"_s, true, u"Ctrl+Z"_s));
    QCOMPARE(found.value(4), row(u"&Redo"_s, false, u"Ctrl+Y"_s));
    mDocument->undo();
    found = rows();
    QCOMPARE(found.value(3), row(u"&Undo"_s, false, u"Ctrl+Z"_s));
    QCOMPARE(found.value(4), row(u"&Redo"_s, true, u"Ctrl+Y"_s));
}

void TstJournalDocumentMenu::paste_is_enabled_with_text_on_the_clipboard()
{
    QCOMPARE(rows().value(8), row(u"&Paste"_s, false, u"Ctrl+V"_s));
    QGuiApplication::clipboard()->setText(u"x"_s);
    QCOMPARE(rows().value(8), row(u"&Paste"_s, true, u"Ctrl+V"_s));
}

void TstJournalDocumentMenu::first_selected_line_decides_which_comment_item_is_enabled()
{
    mDocument->setPlainText(u"#a\nb"_s);
    select(*mDocument, 0, 1, 1, 1);
    QVERIFY(rows().contains(row(u"Un-Comment Selection"_s, true, u"Ctrl+/"_s)));
    select(*mDocument, 1, 1, 0, 1);
    QVERIFY(rows().contains(row(u"Un-Comment Selection"_s, true, u"Ctrl+/"_s)));
    select(*mDocument, 1, 0, 1, 1);
    QVERIFY(rows().contains(row(u"Comment Selection"_s, true, u"Ctrl+/"_s)));
}

void TstJournalDocumentMenu::added_items_stand_between_separators_in_order()
{
    QAction one(u"One"_s);
    one.setShortcut(Qt::CTRL | Qt::Key_1);
    QAction two(u"T&wo"_s);
    mDocument->setPlainText(u"a"_s);
    mDocument->add_context_menu_item(&two);
    mDocument->add_context_menu_item(&one);
    mDocument->add_context_menu_item(&two);
    QCOMPARE(rows().sliced(12),
             QStringList({separator, row(u"T&wo"_s, true), row(u"One"_s, true), row(u"T&wo"_s, true),
                          separator, row(u"Find..."_s, true), row(u"Clear"_s, true), separator,
                          row(u"Select All"_s, true, u"Ctrl+A"_s)}));
}

void TstJournalDocumentMenu::added_items_need_text_and_a_document_that_can_be_written()
{
    QAction added(u"Added"_s);
    mDocument->add_context_menu_item(&added);
    QVERIFY(rows().contains(row(u"Added"_s, false)));
    mDocument->setPlainText(u"a"_s);
    QVERIFY(rows().contains(row(u"Added"_s, true)));
    mDocument->setReadOnly(true);
    QVERIFY(!rows().join(u'\n').contains(u"Added"_s));
}

void TstJournalDocumentMenu::removal_takes_every_occurrence()
{
    const QStringList before = rows();
    QAction one(u"One"_s);
    QAction two(u"Two"_s);
    mDocument->remove_context_menu_item(&one);
    for (QAction* action : {&one, &two, &one})
        mDocument->add_context_menu_item(action);
    mDocument->remove_context_menu_item(&one);
    QCOMPARE(rows().filter(u"One"_s).size() + rows().filter(u"Two"_s).size(), 1);
    mDocument->remove_context_menu_item(&two);
    QCOMPARE(rows(), before);
}

void TstJournalDocumentMenu::each_menu_is_new_and_deleted_afterwards()
{
    QString name;
    const QObject* parent = nullptr;
    const MenuDriver driver([&](QMenu* menu) {
        name = menu->objectName();
        parent = menu->parent();
    });
    ask_for_menu(mDocument);
    QCOMPARE(name, u"qt_edit_menu"_s);
    QCOMPARE(parent, mDocument);
    QVERIFY(driver.menu_is_deleted());
    QVERIFY(mDocument->findChildren<QMenu*>().isEmpty());
}

void TstJournalDocumentMenu::menu_opens_at_the_pointer()
{
    QPoint position;
    const MenuDriver driver([&](QMenu* menu) { position = menu->pos(); });
    ask_for_menu(mDocument, {20, 30});
    QCOMPARE(position, mDocument->viewport()->mapToGlobal(QPoint(20, 30)));
}

void TstJournalDocumentMenu::texts_are_translated_in_the_context_of_the_document()
{
    QAction added(u"Added"_s);
    mDocument->add_context_menu_item(&added);
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QStringList found = rows();
    QCoreApplication::removeTranslator(&translator);
    found.removeAll(separator);
    QCOMPARE(found.size(), 13);
    for (const QString& shown : found)
        QCOMPARE(shown.startsWith(u"JournalDocument|"_s), !shown.startsWith(u"Added"_s));
}

void TstJournalDocumentMenu::dismissed_menu_does_nothing()
{
    QAction added(u"Added"_s);
    const QSignalSpy triggered(&added, &QAction::triggered);
    mDocument->add_context_menu_item(&added);
    mDocument->setPlainText(u"a"_s);
    rows();
    QCOMPARE(triggered.count(), 0);
    QCOMPARE(mDocument->toPlainText(), u"a"_s);
    QVERIFY(!mDocument->textCursor().hasSelection());
}

void TstJournalDocumentMenu::play_and_translate_go_to_the_editor()
{
    const QSignalSpy played(mEditor.get(), &JournalEditor::processCommands);
    mDocument->setPlainText(u"a\nb"_s);
    select(*mDocument, 0, 0, 0, 1);
    QVERIFY(choose_row(u"Play Selected"_s));
    QCOMPARE(played.count(), 1);
    QCOMPARE(played.first().first().toStringList(), QStringList(u"a"_s));
    QVERIFY(choose_row(u"Translate Selected to Python"_s));
    QCOMPARE(lines(*mDocument), QStringList({u"fennar.cmd('a')"_s, u"b"_s}));
}

void TstJournalDocumentMenu::editing_items_edit()
{
    mDocument->insertPlainText(u"ab"_s);
    QVERIFY(choose_row(u"&Undo"_s));
    QCOMPARE(mDocument->toPlainText(), QString());
    QVERIFY(choose_row(u"&Redo"_s));
    QCOMPARE(mDocument->toPlainText(), u"ab"_s);
    select(*mDocument, 0, 0, 0, 1);
    QVERIFY(choose_row(u"Cu&t"_s));
    QCOMPARE(mDocument->toPlainText(), u"b"_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"a"_s);
    QVERIFY(choose_row(u"Select All"_s));
    QCOMPARE(mDocument->textCursor().selectedText(), u"b"_s);
    QVERIFY(choose_row(u"&Copy"_s));
    QCOMPARE(QGuiApplication::clipboard()->text(), u"b"_s);
    QCOMPARE(mDocument->toPlainText(), u"b"_s);
    mDocument->moveCursor(QTextCursor::End);
    QVERIFY(choose_row(u"&Paste"_s));
    QCOMPARE(mDocument->toPlainText(), u"bb"_s);
}

void TstJournalDocumentMenu::clear_puts_the_text_onto_the_clipboard()
{
    mDocument->setPlainText(u"a\nb"_s);
    QVERIFY(choose_row(u"Clear"_s));
    QVERIFY(mDocument->document()->isEmpty());
    QCOMPARE(QGuiApplication::clipboard()->text(), u"a\nb"_s);
    mDocument->undo();
    QCOMPARE(lines(*mDocument), QStringList({u"a"_s, u"b"_s}));
}

void TstJournalDocumentMenu::comment_items_go_to_the_editor()
{
    mDocument->setPlainText(u"a\n#b"_s);
    mDocument->selectAll();
    QVERIFY(choose_row(u"Comment Selection"_s));
    QCOMPARE(lines(*mDocument), QStringList({u"#a"_s, u"##b"_s}));
    mDocument->selectAll();
    QVERIFY(choose_row(u"Un-Comment Selection"_s));
    QCOMPARE(lines(*mDocument), QStringList({u"a"_s, u"#b"_s}));
}

void TstJournalDocumentMenu::added_item_triggers_its_action_once_the_menu_is_gone()
{
    QAction one(u"One"_s);
    QAction two(u"Two"_s);
    const QSignalSpy one_triggered(&one, &QAction::triggered);
    const QSignalSpy two_triggered(&two, &QAction::triggered);
    bool menu_was_gone = false;
    connect(&two, &QAction::triggered, this,
            [&] { menu_was_gone = mDocument->findChildren<QMenu*>().isEmpty(); });
    mDocument->setPlainText(u"a"_s);
    mDocument->add_context_menu_item(&one);
    mDocument->add_context_menu_item(&two);
    QVERIFY(choose_row(u"Two"_s));
    QCOMPARE(one_triggered.count(), 0);
    QCOMPARE(two_triggered.count(), 1);
    QVERIFY(menu_was_gone);
}

void TstJournalDocumentMenu::added_action_that_vanishes_while_the_menu_is_open_is_left_alone()
{
    auto added = std::make_unique<QAction>(u"Added"_s);
    mDocument->setPlainText(u"a"_s);
    mDocument->add_context_menu_item(added.get());
    bool chosen = false;
    const MenuDriver driver([&](QMenu* menu) {
        mDocument->remove_context_menu_item(added.get());
        added.reset();
        chosen = choose(menu, u"Added"_s);
    });
    ask_for_menu(mDocument);
    QVERIFY(chosen);
    QVERIFY(driver.menu_is_deleted());
}

void TstJournalDocumentMenu::document_may_be_deleted_while_the_menu_is_open()
{
    mDocument->setPlainText(u"a"_s);
    const MenuDriver driver([&](QMenu*) { delete mDocument; });
    ask_for_menu(mDocument);
    QVERIFY(driver.menu_is_deleted());
}

OSTREL_TEST(TstJournalDocumentMenu)
#include "tst_journaldocument_menu.moc"
