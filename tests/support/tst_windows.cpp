// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

class TstWindows : public TestCase
{
    Q_OBJECT

private slots:
    void window_is_shown_and_active();
    void active_window_changes_hands();
    void window_that_cannot_become_active_is_told();
};

void TstWindows::window_is_shown_and_active()
{
    QWidget window;
    QVERIFY(!window.isVisible());
    QVERIFY(show_active(&window));
    QVERIFY(window.isVisible());
    QVERIFY(window.isActiveWindow());
}

void TstWindows::active_window_changes_hands()
{
    QWidget one;
    QWidget two;
    for (int round = 0; round < 2; ++round) {
        QVERIFY(show_active(&one));
        QVERIFY(one.isActiveWindow());
        QVERIFY(!two.isActiveWindow());
        QVERIFY(show_active(&two));
        QVERIFY(two.isActiveWindow());
        QVERIFY(!one.isActiveWindow());
    }
}

void TstWindows::window_that_cannot_become_active_is_told()
{
    // A widget in a graphics scene has no window that the system could activate.
    QGraphicsScene scene;
    auto* widget = new QWidget;
    scene.addWidget(widget);
    QVERIFY(!show_active(widget, 50));
}

OSTREL_TEST(TstWindows)
#include "tst_windows.moc"
