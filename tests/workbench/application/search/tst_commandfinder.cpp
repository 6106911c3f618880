// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "support/windows.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/search/SearchTest.h"
#include "workbench/sdk/component/journal_documents.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The command search as the user sees it, by its keys. */
class TstCommandFinder : public SearchTest
{
    Q_OBJECT

private slots:
    void everything_is_listed();
    void each_letter_narrows();
    void words_that_nothing_has_are_told();
    void keys_move_the_choice();
    void long_list_is_turned_by_pages();
    void escape_gives_the_focus_back();
    void tab_stays_in_the_field();
    void second_time_the_key_selects_the_words();
    void focus_elsewhere_closes_it();
    void hidden_window_closes_it();
    void it_stays_inside_the_window();
    void columns_share_the_width();
    void journal_editor_has_it_too();
    void parts_have_names_for_screen_readers();
    void list_follows_the_menus();
    void choice_stays_when_the_list_changes();
};

void TstCommandFinder::everything_is_listed()
{
    look_for({});
    const QStringList all = rows();
    for (const QString& row :
         {u"-Open|File|Ctrl+O"_s, u"Exit|File|"_s, u"Journal Editor|Tools|"_s, u"Next Pane|View|F6"_s,
          u"Help|Command help|"_s, u"General|Options|"_s, u"Panel|Options|"_s})
        QVERIFY2(all.contains(row), qPrintable(row + u" is not among\n"_s + all.join(u'\n')));
    for (const QString& row : all) {
        QVERIFY2(!row.contains(u'&') && !row.contains(u"..."), qPrintable(row));
        QVERIFY2(!row.startsWith(u"Find Command"), "it does not find itself");
        QVERIFY2(!row.startsWith(u"Plugins|Options"), "a group without a page");
    }
    QCOMPARE(current_row(), 0);
}

void TstCommandFinder::each_letter_narrows()
{
    look_for(u"o"_s);
    const qsizetype many = rows().size();
    QTest::keyClicks(field(), u"ptions "_s);
    QVERIFY(rows().size() < many);
    QTest::keyClicks(field(), u"gener"_s);
    QCOMPARE(rows(), QStringList(u"General|Options|"_s));
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(field(), Qt::Key_Backspace);
    QVERIFY(rows().size() > 1);
    QCOMPARE(current_row(), 0);
}

void TstCommandFinder::words_that_nothing_has_are_told()
{
    look_for(u"qxqx"_s);
    QCOMPARE(rows(), QStringList());
    QVERIFY(!hint().isEmpty());
    QTest::keyClick(field(), Qt::Key_Return);
    QTest::keyClick(field(), Qt::Key_Down);
    QVERIFY(search());
}

void TstCommandFinder::keys_move_the_choice()
{
    look_for({});
    const auto press = [](Qt::Key key) {
        QTest::keyClick(field(), key);
        return current_row();
    };
    QCOMPARE(press(Qt::Key_Up), 0);
    QCOMPARE(press(Qt::Key_Down), 1);
    QCOMPARE(press(Qt::Key_Down), 2);
    QCOMPARE(press(Qt::Key_Up), 1);
    QCOMPARE(QApplication::focusWidget(), field());
    QVERIFY(list()->selectionModel()->isRowSelected(1));
    // A letter goes on to the field, and the choice goes back to the best.
    QTest::keyClick(field(), Qt::Key_O);
    QCOMPARE(field()->text(), u"o"_s);
    QCOMPARE(current_row(), 0);
}

void TstCommandFinder::long_list_is_turned_by_pages()
{
    look_for({});
    const int count = list()->model()->rowCount();
    QVERIFY2(count > 40, "else there are no pages");
    QTest::keyClick(field(), Qt::Key_PageDown);
    const int page = current_row();
    QVERIFY2(page > 5 && page < count - 1, qPrintable(QString::number(page)));
    QVERIFY(list()->verticalScrollBar()->value() > 0);
    QTest::keyClick(field(), Qt::Key_PageUp);
    QCOMPARE(current_row(), 0);
    for (int i = 0; i < count; ++i)
        QTest::keyClick(field(), Qt::Key_PageDown);
    QCOMPARE(current_row(), count - 1);
}

void TstCommandFinder::escape_gives_the_focus_back()
{
    QWidget* before = QApplication::focusWidget();
    QCOMPARE(before, page());
    look_for(u"open"_s);
    QTest::keyClick(field(), Qt::Key_Escape);
    QVERIFY(!search());
    QCOMPARE(QApplication::focusWidget(), before);
    flush();
    QVERIFY(!window().findChild<CommandSearch*>());
}

void TstCommandFinder::tab_stays_in_the_field()
{
    look_for({});
    QTest::keyClick(field(), Qt::Key_Tab);
    QTest::keyClick(field(), Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(search());
    QCOMPARE(QApplication::focusWidget(), field());
}

void TstCommandFinder::second_time_the_key_selects_the_words()
{
    QWidget* before = QApplication::focusWidget();
    look_for(u"open"_s);
    look_for({});
    QCOMPARE(field()->selectedText(), u"open"_s);
    QCOMPARE(window().findChildren<CommandSearch*>().size(), 1);
    QTest::keyClick(field(), Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget(), before);
    // At once again, before what is closed has gone.
    look_for(u"exit"_s);
    QCOMPARE(rows().constFirst(), u"Exit|File|"_s);
}

void TstCommandFinder::focus_elsewhere_closes_it()
{
    look_for({});
    page()->setFocus();
    QVERIFY(!search());
    QCOMPARE(QApplication::focusWidget(), page());
}

void TstCommandFinder::hidden_window_closes_it()
{
    look_for({});
    window().hide();
    flush();
    QVERIFY(!window().findChild<CommandSearch*>());
    QTRY_VERIFY(!QGuiApplication::focusWindow());
    QVERIFY(show_active(&window()));
    look_for({});
}

void TstCommandFinder::it_stays_inside_the_window()
{
    const QSize before = window().size();
    look_for({});
    const auto inside = [] { return window().rect().contains(search()->geometry()); };
    QVERIFY(inside());
    window().resize(window().minimumSizeHint());
    QTRY_VERIFY(inside());
    QTRY_VERIFY(list()->viewport()->height() > list()->sizeHintForRow(0));
    window().resize(before);
    QTRY_COMPARE(window().size(), before);
}

void TstCommandFinder::columns_share_the_width()
{
    look_for({});
    const auto widest = [](int column) {
        int width = 0;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            width = std::max(width, list()->fontMetrics().horizontalAdvance(
                                        list()->model()->index(row, column).data().toString()));
        return width;
    };
    // The window may still be on its way back from the size that another function gave it.
    for (int column = 0; column < list()->model()->columnCount(); ++column)
        QTRY_VERIFY2(list()->columnWidth(column) > widest(column), qPrintable(QString::number(column)));
    int all = 0;
    for (int column = 0; column < list()->model()->columnCount(); ++column)
        all += list()->columnWidth(column);
    QCOMPARE(all, list()->viewport()->width());
}

void TstCommandFinder::journal_editor_has_it_too()
{
    JournalEditor* editor = window().journal_editor();
    window().tools_menu()->show_journal_editor();
    QVERIFY(show_active(editor));
    editor->add_document(u"list\n"_s);
    current_journal(editor)->document()->setModified(false);
    const QTabWidget* tabs = journal_tabs(editor);
    const int count = tabs->count();
    QWidget* before = QApplication::focusWidget();
    QVERIFY(before && before->window() == editor);
    look_for(u"editor find"_s);
    QCOMPARE(search()->window(), editor);
    QCOMPARE(rows().constFirst(), u"Find|Journal Editor > Edit|Ctrl+F"_s);
    QTest::keyClick(field(), Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget(), before);

    look_for(u"editor file new"_s);
    QCOMPARE(rows().constFirst(), u"New|Journal Editor > File|Ctrl+N"_s);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
    QVERIFY(!search());
    QCOMPARE(tabs->count(), count + 1);
    editor->close();
    QVERIFY(show_active(&window()));
    look_for(u"editor"_s);
    for (const QString& row : rows())
        QVERIFY2(!row.contains(u"Journal Editor >"), qPrintable(row));
}

void TstCommandFinder::parts_have_names_for_screen_readers()
{
    look_for(u"next pane"_s);
    QVERIFY(!field()->accessibleName().isEmpty());
    QVERIFY(!list()->accessibleName().isEmpty());
    // What is chosen is told where the focus is.
    QCOMPARE(field()->accessibleDescription(), u"Next Pane, View, F6"_s);
}

void TstCommandFinder::list_follows_the_menus()
{
    look_for(u"okapi"_s);
    QCOMPARE(rows(), QStringList());
    auto action = std::make_unique<QAction>(u"&Okapi..."_s);
    window().tools_menu()->add_item(action.get(), "okapi");
    flush();
    QCOMPARE(rows(), QStringList(u"Okapi|Tools|"_s));
    action->setEnabled(false);
    flush();
    QCOMPARE(rows(), QStringList(u"-Okapi|Tools|"_s));
    QVERIFY(!hint().isEmpty());
    action->setText(u"&Gnu"_s);
    flush();
    QCOMPARE(rows(), QStringList());
    action->setText(u"&Okapi"_s);
    flush();
    QCOMPARE(rows().size(), 1);
    window().tools_menu()->remove_component_items("okapi");
    flush();
    QCOMPARE(rows(), QStringList());
}

void TstCommandFinder::choice_stays_when_the_list_changes()
{
    look_for({});
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(field(), Qt::Key_PageDown);
    const int row = current_row();
    const QString chosen = rows().at(row);
    QAction action(u"Okapi"_s); // in front of it
    window().tools_menu()->add_item(&action, "okapi");
    flush();
    QCOMPARE(current_row(), row + 1);
    QCOMPARE(rows().at(current_row()), chosen);
    window().tools_menu()->remove_component_items("okapi");
    flush();
    QCOMPARE(current_row(), row);
    QCOMPARE(rows().at(current_row()), chosen);
}

OSTREL_TEST(TstCommandFinder)
#include "tst_commandfinder.moc"
