// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QMainWindow>
#include <QString>

#include <memory>
#include <vector>

class CommandWindow;
class JournalEditor;
class NavigationModel;
class OptionsPanel;
class OstrelEventFilter;
class OstrelFileMenu;
class OstrelGUIOptions;
class OstrelHelpMenu;
class OstrelSplitter;
class OstrelToolsMenu;
class OstrelViewMenu;
class OstrelWindowMenu;
class ProgressControl;
class PyAction;
class QAction;
class QContextMenuEvent;
class QDockWidget;
class QMenuBar;
class QVBoxLayout;
class TaskPanel;
struct ComponentBars;

/**
 * The application's one main window, and the place through which all parts of the shell and all components
 * reach each other.
 *
 * MainFrame creates, shows and owns it. Components get it from instance() and use its accessors; what these
 * return belongs to the window and dies with it, and is null where the window has no such part.
 *
 * There is one at a time. A second one is built all the same, but instance() stays the first, and through it
 * the parts reach each other: the second one's option pages stand in the first one's dialog, and its progress
 * and cancel button belong to the first one's event filter. It is of no use to a user.
 *
 * What is called while the window works (slots, handlers, event filters, the host) may do all that it may do
 * otherwise, and delete the window: see "What may happen during a call" in docs/architecture.md.
 *
 * GUI thread only.
 */
class OSTRELGUI_EXPORT Ostrel : public QMainWindow
{
    Q_OBJECT

public:
    /**
     * Builds the whole window and restores what was saved of it; nothing is shown yet.
     *
     * The first window built becomes instance() and stays so until it is destroyed.
     *
     * @param name  the object name, in UTF-8; null stands for "Ostrel".
     */
    explicit Ostrel(QWidget* parent = nullptr, const char* name = nullptr);
    ~Ostrel() override;

    /** The main window; null before it is built and after it is gone. */
    static Ostrel* instance();

    /** The panel in the command panel dock. It changes with setUsingButtonRows(). */
    TaskPanel* command_buttons() const;
    /** The console. */
    CommandWindow* command_line() const;
    /** The journal editor, shown or not. */
    JournalEditor* journal_editor() const;
    /** The options dialog, shown or not. */
    OptionsPanel* options() const;
    /** The menu "File". */
    OstrelFileMenu* file_menu() const;
    /** The menu "View". */
    OstrelViewMenu* view_menu() const;
    /** The menu "Tools". */
    OstrelToolsMenu* tools_menu() const;
    /** The menu "Help". */
    OstrelHelpMenu* help_menu() const;
    /** What set_graphics_widget() has put in; null while the black placeholder is shown. */
    QWidget* graphics_widget() const;
    /** The central splitter. */
    OstrelSplitter* graphics_area() const;
    /** What swallows the user's input while a command runs, but for that to the objects it is given. */
    OstrelEventFilter* event_filter() const;
    /** The model behind the command panel. */
    NavigationModel* navigation_model() const;

    /** Sets the window's title; an empty one stands for "Ostrel". */
    void set_title(const QString& t);
    /** The title without the name of the current file. */
    QString get_title() const;
    /** Writes the title anew. Called whenever the name of the current file changes. */
    void update_title();

    /** Keeps @p p for command_prompt(); an empty one stands for "Fennar>". Prints nothing. */
    void set_prompt(const QString& p);
    /** The prompt kept by set_prompt(); empty until then. */
    QString command_prompt() const;

    /**
     * Puts @p w into the central area, in place of the widget that was there.
     *
     * @param w  stays the caller's; one that is still in place when the window is destroyed goes with it, and
     * one that is deleted in place gives way to the black placeholder. Null brings the placeholder back. The
     * widget taken out is left alive and without a parent.
     *
     * Whoever is told of the change may put another widget in, which then stays.
     */
    void set_graphics_widget(QWidget* w);

    /** Whether the application was started to work through a script without a user. */
    bool is_in_batch_mode() const;

    /** Whether the command panel is the one of button rows. */
    bool usingButtonRows() const;
    /**
     * Chooses between the panel of button rows and the breadcrumbs panel; the place that the user has reached
     * is kept. Nothing happens if the choice is the present one.
     */
    void setUsingButtonRows(bool rows);
    /**
     * Builds a panel of button rows anew if @p width differs from CommandButtons::mPanelButtonWidth.
     *
     * The width, in pixels, is compared only, never stored (docs/surprises.md). Does nothing with a
     * breadcrumbs panel.
     */
    void setPanelButtonWidth(int width);
    /** Whether the command panel shows large icons; always true for button rows. */
    bool usingLargeButtonIcons() const;
    /** Sets the size of the breadcrumbs panel's icons. Does nothing with button rows. */
    void setUsingLargeButtonIcons(bool on);

    /** Opens the menu of docks and toolbars at the event's position, waits until it closes, and accepts the
     * event. Does nothing while there is no view menu. */
    void display_context_menu(QContextMenuEvent* e);

    /** Emits componentLoaded(). */
    void component_finished_loading(const char* name);

    /** Writes the window's state and the console's settings to QSettings. */
    void save_settings();

    /**
     * Adds actions of a component to a menu.
     *
     * The translated titles of the view, tools and help menus stand for these. The file and the window menu
     * take nothing. Any other title is that of a component menu, which is made if there is none: one called
     * as the translated "&Edit" behind the file menu, others before the tools menu, in the order of their
     * making.
     *
     * @param actions    stay the component's, who removes them before deleting them. A null element asks for
     * a separator.
     * @param component  the owner mark for remove_menu_items(); with null nothing happens.
     */
    void add_to_menu(const QString& title, std::vector<QAction*>& actions, const char* component);
    /** Adds the actions of Python scripts; a null element asks for a separator. Does nothing with a null
     * @p title, which is UTF-8. */
    void add_to_menu(const char* title, std::vector<PyAction*>& actions, const char* component);
    /**
     * Adds actions of a component to a toolbar.
     *
     * @param name       the toolbar's object name, in UTF-8. If there is none of that name, it is made; @p
     * title and @p area serve for that alone.
     * @param actions    as for add_to_menu().
     * @param component  the owner mark for remove_toolbar_items(). Nothing happens if this or @p name is
     * null.
     */
    void add_to_toolbar(const char* name, const QString& title, std::vector<QAction*>& actions,
                        const char* component, Qt::ToolBarArea area);
    /** Takes the actions of @p component out of all menus but the file menu, and deletes component menus that
     * are then empty. Null removes nothing. */
    void remove_menu_items(const char* component);
    /**
     * Takes the actions of @p component off all toolbars, and deletes each toolbar, whoever's it is, that is
     * left with three tool buttons or fewer. Null removes nothing.
     *
     * All tool buttons below the toolbar count (docs/surprises.md): Qt's own for what has no room, and those
     * of the actions just removed, which Qt deletes when the event loop runs next. So a toolbar that loses
     * many at once stays, empty, until the next call. One that loses a separator is emptied; see
     * MenuSections.
     *
     * A click on one of the toolbar's own buttons may call this: what is being clicked is deleted when the
     * click has returned.
     */
    void remove_toolbar_items(const char* component);
    /**
     * Presses a tool button of a toolbar made by add_to_toolbar().
     *
     * @param button  the button's object name without the "_action_button" at its end. The component that
     * wants its button pressed gives it that name.
     * @param on      the state of a checkable button. Any other is clicked, whatever @p on is.
     *
     * Does nothing if a name is null or there is no such toolbar or button.
     */
    void push_tool_button(const char* toolbar, const char* button, bool on);

    /**
     * Adds a dock to the window, and its toggle action to the view menu.
     *
     * @param dock       becomes the window's. It must have an object name.
     * @param component  the owner mark of its entry in the view menu; null stands for the dock's object name.
     * @param area       where to put it; must be one area, and one of @p allowed.
     * @param allowed    where the user may drag it.
     * @return false, with nothing done, if @p dock is null or has no object name or @p area is no such area;
     * false as well if the dock is deleted by what is told of its coming.
     */
    bool add_dock_window(QDockWidget* dock, const char* component, Qt::DockWidgetArea area,
                         Qt::DockWidgetAreas allowed);
    /** Takes all that @p component has in the view menu out of it. The docks stay in the window: they are the
     * component's to delete. Null removes nothing. */
    void remove_dock_window(const char* component);
    /** The same as remove_dock_window(). */
    void remove_dock_windows(const char* component);

    /**
     * Turns context menu events of @p object into display_context_menu() and swallows them.
     *
     * The window is installed as a filter nowhere; do so for a widget that is to offer the window's menu.
     */
    bool eventFilter(QObject* object, QEvent* event) override;

signals:
    /** F1 was pressed in the window. */
    void help_key_pressed();
    /** The component @p name has been loaded. */
    void componentLoaded(const char* name);

public slots:
    /** Gives the focus to the console. */
    void set_focus_to_command_window();
    /** Asks the running command to stop, as a click on the cancel button does. */
    void cancel_progress();

protected:
    /** Emits help_key_pressed() on F1. */
    void keyPressEvent(QKeyEvent* e) override;
    /**
     * Closes the journal editor, asks about unsaved data, and saves the settings even if the window stays
     * open. If it does not, Mediator::request_exit() follows.
     */
    void closeEvent(QCloseEvent* e) override;
    /** Adds nothing to the base class. */
    void showEvent(QShowEvent* e) override;

private:
    friend class MainFrame;
    friend class OstrelViewMenu;
    friend class ProgressControl;

    // The steps of the constructor, in this order.
    void make_graphics_area();
    void make_menus();
    void make_file_tools();
    void make_docks();
    /** The journal editor, the options dialog, and what is left. */
    void make_windows();

    ProgressControl* progress() const;
    bool is_graphics_area_taken() const;
    void replace_deleted_graphics();
    void update_navigation_model(bool rows);
    void restore_settings();
    /** Saves the settings unless the window is hidden. For a host that quits Qt without closing the window.
     */
    void about_to_quit_qt();

    OstrelSplitter* mGraphicsArea = nullptr;
    QWidget* mGraphicsWidget = nullptr;
    QWidget* mDefaultWidget = nullptr;
    QDockWidget* mCommandPanelDock = nullptr;
    QDockWidget* mCommandLineDock = nullptr;
    QMenuBar* mMenuBar = nullptr;
    std::unique_ptr<OstrelEventFilter> mEventFilter;
    QVBoxLayout* mLayout = nullptr;
    QString mTitle;
    QString mPrompt;
    std::unique_ptr<ComponentBars> mSections;
    QAction* mLineupToolsAction = nullptr;
    OstrelFileMenu* mFileMenu = nullptr;
    OstrelViewMenu* mViewMenu = nullptr;
    OstrelToolsMenu* mToolsMenu = nullptr;
    OstrelWindowMenu* mWindowMenu = nullptr;
    OstrelHelpMenu* mHelpMenu = nullptr;
    NavigationModel* mNavigationModel = nullptr;
    TaskPanel* mCommandPanel = nullptr;
    CommandWindow* mCommandWindow = nullptr;
    OptionsPanel* mOptionsPanel = nullptr;
    OstrelGUIOptions* mGUIOptions = nullptr;
    ProgressControl* mProgress = nullptr;
    JournalEditor* mJournalEditor = nullptr;

    static Ostrel* mOstrel;
};
