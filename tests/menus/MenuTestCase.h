// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "resources/load_icon.h"
#include "support/TestCase.h"

#include <QAction>
#include <QIcon>
#include <QImage>
#include <QMenu>
#include <QMenuBar>

#include <memory>

/** A test of the menus: each function has a main window of its own on a fresh host. */
class MenuTestCase : public TestCase
{
    Q_OBJECT

protected:
    Ostrel* window() const { return mWindow.get(); }
    void delete_window() { mWindow.reset(); }

    /** The texts of the menu bar. */
    QStringList bar() const { return texts(window()->menuBar()->actions()); }
    /** The last menu of the menu bar with that text; null if there is none. */
    QMenu* bar_menu(const QString& text) const
    {
        QMenu* found = nullptr;
        for (const QAction* action : window()->menuBar()->actions())
            if (action->text() == text)
                found = action->menu();
        return found;
    }
    /** The texts of @p actions, a separator as "---" and null as "null". */
    template <class List>
    static QStringList texts(const List& actions)
    {
        QStringList result;
        for (const QAction* action : actions) {
            result << (!action                 ? QStringLiteral("null")
                       : action->isSeparator() ? QStringLiteral("---")
                                               : action->text());
        }
        return result;
    }
    static QStringList rows(const QMenu* menu) { return texts(menu->actions()); }
    static QImage picture(const QIcon& icon) { return icon.pixmap(22, 22).toImage(); }

    void set_up() override
    {
        HostDouble::instance().reset();
        mWindow = std::make_unique<Ostrel>();
        HostDouble::instance().take_calls();
    }
    void tear_down() override { mWindow.reset(); }

private:
    std::unique_ptr<Ostrel> mWindow;
};
