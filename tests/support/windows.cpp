// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/windows.h"

#include <QGuiApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

bool show_active(QWidget* window, int patience)
{
    window->show();
    window->raise();
    window->activateWindow();
    // A window above another one already counts as active for Qt's own wait when the other one is.
    return QTest::qWaitForWindowActive(window, patience) &&
           QTest::qWaitFor(
               [window] { return QGuiApplication::focusWindow() == window->window()->windowHandle(); },
               patience);
}

QWidget* next_tab_stop(const QWidget* widget)
{
    QWidget* next = widget->nextInFocusChain();
    while (!(next->focusPolicy() & Qt::TabFocus))
        next = next->nextInFocusChain();
    return next;
}
