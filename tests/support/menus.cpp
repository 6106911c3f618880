// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/menus.h"

#include <QAction>
#include <QApplication>
#include <QTest>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

MenuDriver::MenuDriver(std::function<void(QMenu*)> act) : mAct(std::move(act))
{
    connect(&mTimer, &QTimer::timeout, this, &MenuDriver::look);
    mTimer.start(5ms);
}

MenuDriver::~MenuDriver()
{
    if (!mCame)
        QTest::qFail("no menu came", __FILE__, __LINE__);
}

void MenuDriver::look()
{
    mMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!mMenu)
        return;
    mCame = true;
    mTimer.stop();
    // Queued, so that this timer's slot has returned when the action opens something else.
    QMetaObject::invokeMethod(this, &MenuDriver::meet, Qt::QueuedConnection);
}

void MenuDriver::meet()
{
    if (mMenu)
        mAct(mMenu);
    if (mMenu)
        mMenu->close();
}

QStringList menu_rows(const QMenu* menu)
{
    QStringList rows;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) {
            rows << u"---"_s;
            continue;
        }
        rows << u"%1 [%2] (%3)"_s.arg(action->text(), action->shortcut().toString(QKeySequence::PortableText),
                                      action->isEnabled() ? u"enabled"_s : u"disabled"_s);
    }
    return rows;
}

bool choose(QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->text() != text)
            continue;
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
        return true;
    }
    return false;
}
