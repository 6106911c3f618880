// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>
#include <QPointer>
#include <QString>

class QAction;

/**
 * An action that a Python script puts into the menus, with an interface that a binding can wrap.
 *
 * The script's side creates it, while there is a main window, and deletes it, which deletes the action as
 * well; take it out of the menus before (PyOstrel::remove_menu_items()). The action is a child of the main
 * window and goes with it at the latest: from then on all operations do nothing, and what they return is
 * empty, false or null.
 *
 * Texts are UTF-8, and null counts as empty. The functions that return a text return a pointer that is void
 * already: the text is released before they return. It must not be read; ask getAction() for the text.
 *
 * The two methods are Python expressions of something that can be called, such as the name of a function.
 * The user's interpreter runs a call of them; nothing happens while it does not run, and its errors are its
 * own matter. A click on a checkable action runs the toggle method first.
 *
 * GUI thread only.
 */
class OSTRELGUI_EXPORT PyAction : public QObject
{
    Q_OBJECT

public:
    PyAction();
    ~PyAction() override;

    void setText(const char* text);
    /** The same as setText(). */
    void setMenuText(const char* text);
    void setToolTip(const char* text);
    void setStatusTip(const char* text);
    void setWhatsThis(const char* text);

    /** The pointer must not be read, here and in the next four; see the class. */
    const char* getText() const;
    /** The same as getText(). */
    const char* getMenuText() const;
    const char* getToolTip() const;
    const char* getStatusTip() const;
    const char* getWhatsThis() const;

    /** Makes the action checkable. */
    void setToggleAction(bool on);
    /** Checks a checkable action, which runs the toggle method if it was not so before. */
    void setOn(bool on);
    void setEnabled(bool on);
    void setVisible(bool on);

    bool hasToggleAction() const;
    bool isOn() const;
    bool isEnabled() const;
    bool isVisible() const;

    /** Sets what activation calls, without arguments. Empty for nothing. */
    void setActivateMethod(const char* method);
    /** Sets what a change of the check mark calls, with 1 for checked and 0 for unchecked. Empty for nothing.
     */
    void setToggleMethod(const char* method);

    /** The action; null once the main window is gone. */
    QAction* getAction() const;

public slots:
    /** Calls the activate method. */
    void actionActivated();
    /** Calls the toggle method. */
    void actionToggled(bool on);

private:
    QPointer<QAction> mAction;
    QString mActivateMethod;
    QString mToggleMethod;
};
