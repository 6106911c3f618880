// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "menus/OstrelWindowMenu.h"
#include "support/own_methods.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TstOstrelWindowMenu : public MenuTestCase
{
    Q_OBJECT

private slots:
    void name_becomes_the_object_name()
    {
        const OstrelWindowMenu named(window(), "W\u00edndow");
        QCOMPARE(named.objectName(), u"W\u00edndow"_s);
        QCOMPARE(named.parent(), window());
        const OstrelWindowMenu nameless(window(), nullptr);
        QCOMPARE(nameless.objectName(), QString());
    }

    void window_has_one_without_a_name()
    {
        const auto* const menu = window()->findChild<OstrelWindowMenu*>();
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QString());
    }

    void it_has_no_menu_no_actions_and_no_methods()
    {
        const QStringList before = bar();
        const qsizetype menus = window()->findChildren<QMenu*>().size();
        const OstrelWindowMenu menu(window(), "Window");
        QVERIFY(menu.children().isEmpty());
        QCOMPARE(bar(), before);
        QVERIFY(!before.contains(u"&Window"_s));
        QCOMPARE(window()->findChildren<QMenu*>().size(), menus);
        QCOMPARE(own_methods(OstrelWindowMenu::staticMetaObject), QStringList());
    }
};

OSTREL_TEST(TstOstrelWindowMenu)
#include "tst_ostrelwindowmenu.moc"
