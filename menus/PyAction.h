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
    /** Makes an action without a text. There should be a main window, whose child the action is. */
    PyAction();
    ~PyAction() override;

    /** Sets the text in menus. */
    void setText(const char* text);
    /** The same as setText(). */
    void setMenuText(const char* text);
    /** Sets the tool tip. */
    void setToolTip(const char* text);
    /** Sets what the status bar shows while the mouse is over the entry. */
    void setStatusTip(const char* text);
    /** Sets the text of "What's This?". */
    void setWhatsThis(const char* text);

    /** The text. The pointer must not be read, see the class. */
    const char* getText() const;
    /** The same as getText(). */
    const char* getMenuText() const;
    /** The tool tip. The pointer must not be read, see the class. */
    const char* getToolTip() const;
    /** The status tip. The pointer must not be read, see the class. */
    const char* getStatusTip() const;
    /** The text of "What's This?". The pointer must not be read, see the class. */
    const char* getWhatsThis() const;

    /** Makes the action checkable. */
    void setToggleAction(bool on);
    /** Checks a checkable action, which runs the toggle method if it was not so before. */
    void setOn(bool on);
    /** Enables or disables the action. */
    void setEnabled(bool on);
    /** Shows or hides the action wherever it was added. */
    void setVisible(bool on);

    /** Whether the action is checkable. */
    bool hasToggleAction() const;
    /** Whether the action is checked. */
    bool isOn() const;
    /** Whether the action is enabled. */
    bool isEnabled() const;
    /** Whether the action is visible. */
    bool isVisible() const;

    /** Sets what activation calls, without arguments. Empty for nothing. */
    void setActivateMethod(const char* method);
    /** Sets what a change of the check mark calls, with 1 for checked and 0 for unchecked. Empty for nothing.
     */
    void setToggleMethod(const char* method);

    /** The action; null once the main window is gone. */
    QAction* getAction() const;

    // The macro, since the headers of Python have members called slots.
public Q_SLOTS:
    /** Calls the activate method. */
    void actionActivated();
    /** Calls the toggle method. */
    void actionToggled(bool on);

private:
    QPointer<QAction> mAction;
    QString mActivateMethod;
    QString mToggleMethod;
};
