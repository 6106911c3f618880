// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"
#include "host/ostrelfw/OutputHandler.h"

#include <QFont>
#include <QWidget>

class CommandWidget;
class QAction;
class QIcon;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

/**
 * The console: a tab for each page, the two mode buttons beside the tabs, and the framework's output end.
 *
 * The main window creates and owns the one instance; Ostrel::command_line() hands it out. It creates no page
 * of its own: the console owner adds them with add_command_tab() and connects the first four signals to their
 * slots.
 */
class OSTRELGUI_EXPORT CommandWindow : public QWidget, public OutputHandler
{
    Q_OBJECT

public:
    /** Makes a console without pages, in command mode. @p parent owns it; may be null. */
    explicit CommandWindow(QWidget* parent = nullptr);
    ~CommandWindow() override;

    void set_read_only(bool readOnly) override;
    void print_prompt(bool useContinue, const char* indent) override;
    /** If @p output ends a line, also brings it to the screen at once: by a repaint, or before the first
     * prompt by sending all posted events. */
    void print_data(const QString& output) override;
    void print_command(const QString& command) override;
    void append_command(const QString& command) override;
    void insert_command(const QString& command) override;

    /**
     * Adds a page and applies the line limit, and to a CommandWidget the font too, which also becomes the
     * current page.
     *
     * A CommandWidget added while its limit is 0 keeps the limit of the other pages (docs/surprises.md).
     *
     * @param title  the tab's text.
     * @param page   stays the caller's until the window is destroyed, and then goes with it. A page that is
     * deleted earlier leaves the console by itself. Null adds nothing.
     */
    void add_command_tab(const QString& title, QWidget* page);
    /**
     * Takes @p page out without deleting it. Null and a page that is not in the console are ignored.
     *
     * The page stays a hidden child of the console, and so goes with it, until its owner gives it another
     * parent.
     */
    void remove_command_tab(QWidget* page);
    /** Makes @p page the current tab and gives it the focus. Null and a page that is not in the console are
     * ignored. */
    void switchTab(QWidget* page);

    /** Puts the warning icon on a tab until it is looked at. A null page, an index without a page and a title
     * that no tab has do nothing; of several tabs with the title the first is meant. */
    void set_tab_warning(QWidget* page);
    /** As set_tab_warning(QWidget*), for the tab at @p index. */
    void set_tab_warning(int index);
    /** As set_tab_warning(QWidget*), for the first tab of that title. */
    void set_tab_warning(const QString& title);
    /** Takes the warning icon away, under the same rules. */
    void clear_tab_warning(QWidget* page);
    /** As clear_tab_warning(QWidget*), for the tab at @p index. */
    void clear_tab_warning(int index);
    /** As clear_tab_warning(QWidget*), for the first tab of that title. */
    void clear_tab_warning(const QString& title);

    /** The most lines kept on CommandWidget pages; 0 or less means no limit. */
    void set_cmd_max_lines(int lines);
    /** What set_cmd_max_lines() has set; 0 at first. */
    int get_cmd_max_lines() const;
    /** The most lines kept on all other text pages; 0 or less means no limit. */
    void set_other_max_lines(int lines);
    /** What set_other_max_lines() has set; 0 at first. */
    int get_other_max_lines() const;
    /** The font of the CommandWidget pages. */
    void set_font(QFont font);
    /** What set_font() has set; a default font at first. */
    QFont get_font() const;
    /** Whether CommandWidget pages take the focus when the mouse enters. Pages added later have it off. */
    void set_focus_follows_cursor(bool follows);
    /** What set_focus_follows_cursor() has set; false at first. */
    bool get_focus_follows_cursor() const;

    /** Empties all CommandWidget pages down to a prompt. */
    void clear_contents();
    /** Gives the current CommandWidget the focus, if there is one. */
    void set_focus();
    /**
     * Tells the command being typed and the caret's index in it; an empty command and 0 if there is no
     * current CommandWidget.
     */
    void current_command_and_index(QString& command, int& index) const;
    /**
     * Follows the interpreter's mode: sets the prompt of all CommandWidget pages, whose half-typed commands
     * are lost, and the two buttons. Nothing happens if the mode is the one set last, which is command mode
     * at first.
     */
    void set_python_mode(bool python);

public slots:
    /** Clears the warning of the tab at @p index and gives its page the focus; -1 does nothing. */
    virtual void tabPageChanged(int index);
    /**
     * The button of command mode was clicked: goes to the first command page, and asks for command mode in
     * Python mode.
     */
    void fennar_mode_pushed();
    /**
     * The button of Python mode was clicked: goes to the first command page, and asks for Python mode in
     * command mode.
     */
    void python_mode_pushed();

signals:
    /** For CommandWidget::setReadOnly(). */
    void readOnlyChanged(bool readOnly);
    /** For CommandWidget::printPrompt(). */
    void readyForPrompt(bool useContinue, const char* indent);
    /** For CommandWidget::printOutput(). */
    void dataToPrint(QString data);
    /** For CommandWidget::addExternalCommand(). */
    void commandToPrint(QString command);
    /** The user asks for a mode. The console owner changes the interpreter and then calls set_python_mode().
     */
    void commandModeChanged(bool is_python);

protected:
    /** @p w as a CommandWidget, or null if it is none. */
    CommandWidget* command_widget(QWidget* w) const;

private:
    QIcon* mWarningIcon;
    QIcon* mNoIcon;
    QPushButton* mFennarButton;
    QPushButton* mPythonButton;
    QAction* mFennarAction;
    QAction* mPythonAction;
    QTabWidget* mCommandTab;
    int mCmdMaxLines = 0;
    int mOtherMaxLines = 0;
    QFont mFont;
    bool mFocusFollowsCursor = false;
    QVBoxLayout* mLayout;
    bool mPythonMode = false;
    CommandWidget* mCurrentCommandWidget = nullptr;
    bool mPromptPrinted = false;
};
