// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/export.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/files/FileFormat.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QDockWidget>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

class ComponentTracker;
class ImportExportHandler;
class OpenSaveHandler;
class Ostrel;
class OstrelFileMenu;
class QAction;
class QKeySequence;
class QLabel;
class QPlainTextEdit;
class QShortcut;

namespace fennar {

/** A menu of the main window that is there without any component. */
enum class FixedMenu {
    View,
    Tools,
    Help,
    /** The part of the help menu above all other entries. */
    Manuals,
};

/** A menu: one of the fixed ones, or that of a title, which is made if there is none. */
using MenuPlace = std::variant<QString, FixedMenu>;

/** What an action for a command does. */
enum class CommandUse {
    /** Opens a dialog with the command's form, which begins with what is selected. */
    Form,
    /** Runs the command as though it were typed: what is selected stands for the names that it needs, and
     * what may be left out is. */
    Run,
};

/** A page of the options dialog. */
struct OptionsPage
{
    /** What is shown. */
    QWidget* widget = nullptr;
    /** Loads the controls: the dialog is about to open. May be null. */
    std::function<void()> refresh = {};
    /** Writes the controls back: the user saves. May be null. */
    std::function<void()> save = {};
};

/**
 * What a component adds to the program, and takes away again without a line of its own: each addition notes
 * how it is undone, and when the context ends these steps run, the last one first.
 *
 * The workbench makes one for a component before it is loaded, and ends it when the component is unloaded,
 * when its loading has failed, and at the end of the program. What is deleted or taken away before that, by
 * the user, with the main window or by the component itself, is passed over. A step that throws is reported,
 * and the others run all the same. What is added while the context ends is undone in the same run.
 *
 * A component may have more of them, for what comes and goes while it is loaded. Once it has ended, a context
 * can be filled anew.
 *
 * Functions for the main window do nothing without one, in a batch run, and return null: a component calls
 * them all the same. What is refused because somebody else has the name ends the load by an exception, unless
 * the function says otherwise. GUI thread only.
 */
class FENNAR_COMPONENT_EXPORT ComponentContext
{
public:
    /** Undoes something, or is what an entry does. */
    using Step = std::function<void()>;

    /**
     * @param name    the component's, the owner mark of all that is added.
     * @param report  takes what went wrong at the end, as one line without a line end. Without it Qt's log
     * does.
     */
    explicit ComponentContext(const QString& name, const std::function<void(const QString&)>& report = {});
    /** Ends the context. */
    ~ComponentContext();
    Q_DISABLE_COPY_MOVE(ComponentContext)

    /** The component's name. */
    const QString& name() const { return mName; }
    /** The main window as it was when the context was made; null without one, and after it is gone. */
    Ostrel* window() const;

    // --- What all else is made of.

    /** Notes a step for the end. Null is ignored. */
    void on_end(const Step& step);
    /**
     * Runs all steps that were noted, the last one first, and forgets them.
     *
     * A step may call this, but must not delete the context.
     */
    void end();

    /** Keeps an object until its turn at the end. Not null. A QObject may have a parent that deletes it. */
    template <typename T>
    T& own(std::unique_ptr<T> object)
    {
        Place<T>& place = reserve<T>();
        place = object.release();
        return *place;
    }
    /** Makes an object and keeps it. What its constructor adds is undone while the object is still there. */
    template <typename T, typename... Arguments>
    T& make(Arguments&&... arguments)
    {
        // The place comes first in the row of steps.
        Place<T>& place = reserve<T>();
        place = new T(std::forward<Arguments>(arguments)...);
        return *place;
    }

    // --- Commands.

    /** Adds a command; its owner is set here. */
    void add_command(Command command);
    /**
     * Adds commands, and what they offer, by a function that gives them the owner it is handed, which is
     * name(), and returns false if one of them is refused. All commands of the component go when this is
     * undone.
     */
    void add_commands(const std::function<bool(CommandRegistry& registry, const QString& owner)>& add);
    /** Offers the names of a kind of entities; see CommandEntities::offer(). */
    void offer_entities(const QString& kind, const CommandEntities::Names& names,
                        const CommandEntities::Meaning& meaning = {});

    /**
     * Asks @p take, after each command that changes the model, what has changed in what the component keeps;
     * see UndoSteps. When this is undone, all steps are dropped.
     */
    void add_undo(const UndoSteps::Source& take);

    // --- Files.

    /** Adds a format for import and export of surfaces; its owner is set here. */
    void add_format(FileFormat format);
    /** Adds what is to be kept while it is unsaved; its owner is set here. */
    void add_unsaved_work(UnsavedWork work);
    /** Adds a format to the dialog for import. Its owner is set here; it is deleted at the end. Returns false
     * if it is refused, and is deleted at once; see OstrelFileMenu::add_import(). */
    bool add_import(std::unique_ptr<ImportExportHandler> handler);
    /** The same for export. */
    bool add_export(std::unique_ptr<ImportExportHandler> handler);
    /**
     * Plugs in what opens and saves documents. It stays the component's and must outlive this step.
     *
     * If it is still plugged in at the end, the file menu has no document any more.
     */
    void set_open_save_handler(OpenSaveHandler& handler);
    /** The handler that was set here, if the file menu has it still; otherwise null. */
    OpenSaveHandler* open_save_handler() const;

    // --- The main window. What is made here is the context's, and deleted at its end.

    /** Makes an action. @p run may be null. */
    QAction* make_action(const QString& text, const Step& run);
    /**
     * Makes an action for a command: all but its text comes from what the command declares, the summary as
     * its status tip. A form that is open goes with the action. A command that is not there ends the load.
     */
    QAction* make_command_action(const QString& text, const QString& command,
                                 CommandUse use = CommandUse::Form);
    /**
     * Adds entries to a menu. A null asks for a separator.
     *
     * @param actions  the component's, and alive until this is undone: made with make_action(), or members of
     * an object that is made with make() and calls this itself.
     */
    void add_to_menu(const MenuPlace& place, const std::vector<QAction*>& actions);
    /** Makes an action and adds it to a menu. */
    QAction* add_menu_entry(const MenuPlace& place, const QString& text, const Step& run);
    /**
     * Adds buttons to a toolbar, and makes it if there is none of that name.
     *
     * @param actions  as for add_to_menu(). Nulls are left out: a toolbar that loses a separator is emptied.
     * A toolbar with three buttons or fewer goes whenever any component does.
     */
    void add_to_toolbar(const char* toolbar, const QString& title, const std::vector<QAction*>& actions,
                        Qt::ToolBarArea area = Qt::TopToolBarArea);
    /**
     * Adds a dock, which then is the context's; see Ostrel::add_dock_window(). Null is ignored.
     *
     * One that is refused is deleted, and ends the load.
     */
    void add_dock(QDockWidget* dock, Qt::DockWidgetArea area,
                  Qt::DockWidgetAreas allowed = Qt::AllDockWidgetAreas);
    /** Makes a dock around the widget that @p make_content makes, and adds it. */
    QDockWidget* add_dock(const QString& object_name, const QString& title,
                          const std::function<QWidget*()>& make_content, Qt::DockWidgetArea area,
                          Qt::DockWidgetAreas allowed = Qt::AllDockWidgetAreas);
    /** Puts a widget, which then is the context's, into the central area. Null is ignored. */
    void set_graphics_widget(QWidget* widget);
    /**
     * Adds a page to the options dialog; @p make makes it.
     *
     * @param path  "Page" or "Group/Page". A group that is made for it is removed with its last page.
     */
    void add_options_page(const QString& path, const std::function<OptionsPage()>& make);
    /** Adds a line to the about dialog. */
    QLabel* add_about_text(const QString& text);
    /** Adds a page to the console, which then is the context's. Null is ignored. */
    void add_console_page(const QString& title, QWidget* page);
    /** Adds an entry to the context menus of the journal editor, whose key works in the whole editor. It
     * stays the component's, as those of add_to_menu(). Null is ignored. */
    void add_editor_entry(QAction* action);
    /** Adds an entry to the import menu of the journal editor. It stays the component's, too. Null is
     * ignored. */
    void add_editor_import(QAction* action);
    /** The same for an entry that opens the text of a page; see JournalEditor::add_import(). The page stays
     * the component's. Null is ignored. */
    void add_editor_import(const QString& label, QPlainTextEdit* page);
    /** Lets the user's input to an object, and to all below it, through while a command runs. It stays the
     * component's. Null is ignored. */
    void allow_input(QObject* object);
    /** Gives the main window a key. */
    QShortcut* add_shortcut(const QKeySequence& key, const Step& run);

    // --- Other components.

    /** Adds a tracker. It stays the component's and must outlive this step. */
    void add_tracker(ComponentTracker& tracker);

private:
    template <typename T>
    using Place = std::conditional_t<std::is_base_of_v<QObject, T>, QPointer<T>, T*>;

    template <typename T>
    Place<T>& reserve()
    {
        const auto place = std::make_shared<Place<T>>(nullptr);
        on_end([place] { delete static_cast<T*>(*place); });
        return *place;
    }
    /** Notes a step that needs the main window, and is passed over once that is gone. */
    void on_end_in_window(const std::function<void(Ostrel& window)>& step);
    /** Has an object deleted at the end, if it is still there then. */
    template <typename T>
    QPointer<T> delete_at_end(T* object)
    {
        const QPointer<T> own = object;
        on_end([own] { delete own; });
        return own;
    }
    bool add_handler(std::unique_ptr<ImportExportHandler> handler,
                     bool (OstrelFileMenu::*add)(ImportExportHandler*));

    QString mName;
    std::function<void(const QString&)> mReport;
    QPointer<Ostrel> mWindow;
    std::vector<Step> mSteps;
    OpenSaveHandler* mOpenSaveHandler = nullptr;
};

/**
 * Adds all that a component offers. Each component defines it, once.
 *
 * An exception that leaves it refuses the component; what it had added by then is undone. It is called again,
 * in the same process and with all static variables as they were left, when the user loads the component once
 * more.
 */
void load_component(ComponentContext& context);

} // namespace fennar
