// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class Ostrel;
class QAction;
class QShortcut;
class QTabWidget;

namespace fennar {

/**
 * What makes the main window usable without a mouse beyond what the shell has keys for: F6 and Shift+F6 go
 * from pane to pane, and while a command runs, Escape cancels it and Pause pauses the journal or goes on with
 * it. The keys of the pause button work also while its toolbar is hidden. In the journal editor what is typed
 * goes to the journal that is in sight.
 *
 * Panes are the central area and the docks that are not hidden, in the order of the View menu. One object
 * while there is a main window; it goes before the window does.
 */
class WindowKeys : public QObject
{
    Q_OBJECT

public:
    /** @param window  the main window, not null and not owned. */
    explicit WindowKeys(Ostrel* window);
    /** Takes its entries out of the View menu, and the pause button's keys from the window. */
    ~WindowKeys() override;

    /** Says whether a command runs: only then do the keys for it mean anything. */
    void set_busy(bool busy);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QAction* make_action(const QString& name, const QString& text, const QString& shortcut, int step);
    QShortcut* make_shortcut(int key);
    QWidgetList panes() const;
    void go(int step);

    QPointer<Ostrel> mWindow;
    QPointer<QShortcut> mCancel;
    QPointer<QShortcut> mPause;
    /** Those of the journal editor. */
    QPointer<QTabWidget> mJournals;
};

} // namespace fennar
