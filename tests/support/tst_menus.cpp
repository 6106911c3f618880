// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/menus.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TstMenus : public TestCase
{
    Q_OBJECT

private slots:
    void a_driver_that_meets_no_menu_fails_the_test();
    void a_menu_that_is_left_open_is_closed();
    void choosing_triggers_the_row();
    void choosing_a_row_that_is_not_there_says_so();
    void rows_tell_text_shortcut_and_state();
};

void TstMenus::a_driver_that_meets_no_menu_fails_the_test()
{
    // The expectation meets the failure that the driver's end reports.
    QEXPECT_FAIL("", "no menu is opened here", Continue);
    const MenuDriver driver([](QMenu*) {});
}

void TstMenus::a_menu_that_is_left_open_is_closed()
{
    QMenu menu;
    menu.addAction(u"row"_s);
    int met = 0;
    MenuDriver driver([&](QMenu* opened) { met += opened == &menu && opened->isVisible(); });
    QCOMPARE(menu.exec(), nullptr);
    QCOMPARE(met, 1);
    QVERIFY(!driver.menu_is_deleted());
}

void TstMenus::choosing_triggers_the_row()
{
    QMenu menu;
    menu.addAction(u"first"_s);
    const QAction* second = menu.addAction(u"second"_s);
    bool chosen = false;
    const MenuDriver driver([&](QMenu* opened) { chosen = choose(opened, u"second"_s); });
    QCOMPARE(menu.exec(), second);
    QVERIFY(chosen);
}

void TstMenus::choosing_a_row_that_is_not_there_says_so()
{
    QMenu menu;
    menu.addAction(u"first"_s);
    bool chosen = true;
    const MenuDriver driver([&](QMenu* opened) { chosen = choose(opened, u"second"_s); });
    QCOMPARE(menu.exec(), nullptr);
    QVERIFY(!chosen);
}

void TstMenus::rows_tell_text_shortcut_and_state()
{
    QMenu menu;
    menu.addAction(u"&Copy"_s)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
    menu.addSeparator();
    menu.addAction(u"Clear"_s)->setEnabled(false);
    QCOMPARE(menu_rows(&menu),
             QStringList({u"&Copy [Ctrl+C] (enabled)"_s, u"---"_s, u"Clear [] (disabled)"_s}));
}

OSTREL_TEST(TstMenus)
#include "tst_menus.moc"
