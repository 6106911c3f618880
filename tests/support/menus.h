// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

/**
 * Meets the next menu that opens: to be made before what opens it, which may block until the menu closes.
 *
 * @p act is called once from the event loop, with the menu open; afterwards the menu is closed if it still
 * is. It should record what it sees and leave the comparing to the test. The driver's end fails the test if
 * no menu came.
 */
class MenuDriver : public QObject
{
    Q_OBJECT

public:
    explicit MenuDriver(std::function<void(QMenu*)> act);
    ~MenuDriver() override;

    /** Whether the menu that came is deleted by now; false also if none came. */
    bool menu_is_deleted() const { return mCame && !mMenu; }

private:
    void look();
    void meet();

    std::function<void(QMenu*)> mAct;
    QTimer mTimer;
    QPointer<QMenu> mMenu;
    bool mCame = false;
};

/** The rows of @p menu as "text [shortcut] (enabled)" or "(disabled)", a separator as "---". */
QStringList menu_rows(const QMenu* menu);

/** Chooses the row with @p text as a user does with the keyboard. Returns whether there is one. */
bool choose(QMenu* menu, const QString& text);
