// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/describe_window.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TstDescribeWindow : public TestCase
{
    Q_OBJECT

private slots:
    void empty_window_has_an_empty_menu_bar();
    void menus_are_told_with_their_rows();
    void menu_in_two_places_is_told_once();
    void menu_that_holds_itself_is_told_once();
    void toolbars_and_docks_are_told_with_their_areas();
    void shortcuts_are_told_with_their_place();
    void what_is_left_behind_is_told();
};

void TstDescribeWindow::empty_window_has_an_empty_menu_bar()
{
    QMainWindow window;
    window.setCentralWidget(new QTextEdit);
    QCOMPARE(describe_window(window), QStringList{u"menu bar"_s});
    QVERIFY(!window.menuWidget()); // asking changes nothing
}

void TstDescribeWindow::menus_are_told_with_their_rows()
{
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu(u"&File"_s);
    QAction* const open = menu->addAction(u"&Open"_s);
    open->setObjectName(u"openAction"_s);
    open->setShortcut(QKeySequence(u"Ctrl+O"_s));
    menu->addSeparator();
    QMenu* const inner = menu->addMenu(u"Recent"_s);
    inner->setObjectName(u"recent"_s);
    QAction* const row = inner->addAction(u"one"_s);
    row->setCheckable(true);
    row->setEnabled(false);
    menu->addAction(u"Quit"_s)->setVisible(false);
    QCOMPARE(describe_window(window), (QStringList{
                                          u"menu bar"_s,
                                          u"  menu - \"&File\""_s,
                                          u"    action openAction \"&Open\" [Ctrl+O]"_s,
                                          u"    ---"_s,
                                          u"    menu recent \"Recent\""_s,
                                          u"      action - \"one\" unchecked disabled"_s,
                                          u"    action - \"Quit\" hidden"_s,
                                      }));
    row->setChecked(true);
    QVERIFY(describe_window(window).contains(u"      action - \"one\" checked disabled"_s));
}

void TstDescribeWindow::menu_in_two_places_is_told_once()
{
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu(u"A"_s);
    menu->addAction(u"row"_s);
    window.menuBar()->addMenu(u"B"_s)->addMenu(menu);
    QCOMPARE(describe_window(window), (QStringList{
                                          u"menu bar"_s,
                                          u"  menu - \"A\""_s,
                                          u"    action - \"row\""_s,
                                          u"  menu - \"B\""_s,
                                          u"    menu - \"A\""_s,
                                      }));
}

void TstDescribeWindow::menu_that_holds_itself_is_told_once()
{
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu(u"A"_s);
    menu->addAction(menu->menuAction());
    QCOMPARE(describe_window(window),
             (QStringList{u"menu bar"_s, u"  menu - \"A\""_s, u"    menu - \"A\""_s}));
}

void TstDescribeWindow::toolbars_and_docks_are_told_with_their_areas()
{
    QMainWindow window;
    auto* bar = new QToolBar(u"Files"_s);
    bar->setObjectName(u"files"_s);
    window.addToolBar(Qt::LeftToolBarArea, bar);
    bar->addAction(u"one"_s);
    bar->addSeparator();
    bar->addAction(u"two"_s);
    auto* dock = new QDockWidget(u"Tree"_s);
    dock->setObjectName(u"tree"_s);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    const QStringList before{
        u"menu bar"_s,           u"toolbar files \"Files\" in LeftToolBarArea"_s,
        u"  action - \"one\""_s, u"  ---"_s,
        u"  action - \"two\""_s, u"dock tree \"Tree\" in RightDockWidgetArea"_s,
    };
    QCOMPARE(describe_window(window), before);

    window.removeDockWidget(dock);
    bar->hide();
    const QStringList after = describe_window(window);
    QCOMPARE(after.value(1), before.value(1) + u" hidden"_s);
    QCOMPARE(after.value(5), u"dock tree \"Tree\" in NoDockWidgetArea hidden"_s);
}

void TstDescribeWindow::shortcuts_are_told_with_their_place()
{
    QMainWindow window;
    window.setObjectName(u"window"_s);
    auto* shortcut = new QShortcut(QKeySequence(u"Ctrl+L"_s), &window);
    QCOMPARE(describe_window(window), (QStringList{u"menu bar"_s, u"shortcut Ctrl+L of window"_s}));
    shortcut->setEnabled(false);
    QCOMPARE(describe_window(window), (QStringList{u"menu bar"_s, u"shortcut Ctrl+L of window disabled"_s}));
}

void TstDescribeWindow::what_is_left_behind_is_told()
{
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu(u"A"_s);
    QAction* const separator = menu->addSeparator();
    auto* action = new QAction(u"own"_s, &window);
    action->setObjectName(u"ownAction"_s);
    menu->removeAction(separator);
    auto* left = new QMenu(u"left"_s, &window);
    left->addAction(u"row"_s);
    auto* button = new QToolButton(&window);
    button->setMenu(new QMenu(u"of a button"_s, &window));
    QCOMPARE(describe_window(window), (QStringList{
                                          u"menu bar"_s,
                                          u"  menu - \"A\""_s,
                                          u"loose menu - \"left\""_s,
                                          u"  action - \"row\""_s,
                                          u"loose ---"_s,
                                          u"loose action ownAction \"own\""_s,
                                      }));
}

OSTREL_TEST(TstDescribeWindow)
#include "tst_describe_window.moc"
