// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/ComponentTraces.h"

#include "console/CommandWindow.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "workbench/application/component_manager/SharedObject.h"
#include "workbench/host/ostrelfw/HostMediator.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/files/FormatRegistry.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QApplication>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

bool is_page(const QWidget* widget)
{
    const auto* stack = qobject_cast<const QStackedWidget*>(widget->parentWidget());
    return stack && qobject_cast<const QTabWidget*>(stack->parentWidget());
}

/** Whether a component adds objects of this kind itself. The shell and Qt make many others on the way. */
bool counts(const QObject* object)
{
    if (qobject_cast<const QAction*>(object) || qobject_cast<const QMenu*>(object) ||
        qobject_cast<const QToolBar*>(object) || qobject_cast<const QDockWidget*>(object) ||
        qobject_cast<const QShortcut*>(object))
        return true;
    const auto* widget = qobject_cast<const QWidget*>(object);
    return widget && is_page(widget);
}

/** All objects that belong to the main window. */
QObjectList window_objects()
{
    const Ostrel* window = Ostrel::instance();
    return window ? window->findChildren<QObject*>() : QObjectList();
}

/** The windows on the screen that nothing owns: those of the main window are among its objects. */
QWidgetList free_windows()
{
    QWidgetList windows;
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return windows;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget* window : all) {
        if (!window->parent() && !window->isHidden() && window != Ostrel::instance())
            windows << window;
    }
    return windows;
}

/** The entries of menus, toolbars and widgets. */
template <typename Visit>
void visit_actions(Visit visit)
{
    const Ostrel* window = Ostrel::instance();
    if (!window)
        return;
    QWidgetList widgets = window->findChildren<QWidget*>();
    widgets << const_cast<Ostrel*>(window);
    for (QWidget* widget : std::as_const(widgets)) {
        // A toolbar's button has its action once more.
        if (qobject_cast<QToolButton*>(widget))
            continue;
        const QList<QAction*> actions = widget->actions();
        for (QAction* action : actions)
            visit(widget, action);
    }
}

/** Whether the action stands for a dock, toolbar or menu, and goes when that goes. */
bool stands_for_widget(const QAction* action)
{
    return action->menu<QMenu*>() || qobject_cast<QDockWidget*>(action->parent()) ||
           qobject_cast<QToolBar*>(action->parent());
}

/** Calls @p visit with the labels of each entry of the options dialog, as "Group/Page", and the entry; those
 * below an entry come before it. */
void visit_options(const std::function<void(const QString& labels, const QTreeWidgetItem* item)>& visit)
{
    const OptionsPanel* panel = Ostrel::instance() ? Ostrel::instance()->options() : nullptr;
    const auto* tree = panel ? panel->findChild<QTreeWidget*>(u"mOptionList"_s) : nullptr;
    if (!tree)
        return;
    const std::function<void(const QTreeWidgetItem*, const QString&)> descend =
        [&](const QTreeWidgetItem* item, const QString& above) {
            for (int i = item->childCount() - 1; i >= 0; --i) {
                const QTreeWidgetItem* child = item->child(i);
                const QString labels = above + child->text(0);
                descend(child, labels + u'/');
                visit(labels, child);
            }
        };
    descend(tree->invisibleRootItem(), {});
}

/** The pages of the options dialog. */
QWidgetList pages_of_options()
{
    QWidgetList pages;
    const OptionsPanel* panel = Ostrel::instance() ? Ostrel::instance()->options() : nullptr;
    if (const auto* stack = panel ? panel->findChild<QStackedWidget*>(u"mOptionStack"_s) : nullptr) {
        for (int i = 0; i < stack->count(); ++i)
            pages << stack->widget(i);
    }
    return pages;
}

/** The formats that the file menu offers for import and for export. */
QStringList formats()
{
    const OstrelFileMenu* menu = Ostrel::instance()->file_menu();
    QString imports;
    QString exports;
    menu->get_import_filters(imports);
    menu->get_export_filters(exports);
    QStringList result;
    for (const QString& filter : imports.split(u";;"_s, Qt::SkipEmptyParts))
        result << u"import of \"%1\""_s.arg(filter);
    for (const QString& filter : exports.split(u";;"_s, Qt::SkipEmptyParts))
        result << u"export of \"%1\""_s.arg(filter);
    return result;
}

QString shown(const QObject* object, const QString& text)
{
    const QString name = text.isEmpty() ? object->objectName() : text;
    return u'"' + (name.isEmpty() ? QString::fromUtf8(object->metaObject()->className()) : name) + u'"';
}

/** An action where it stands, for people to read. */
QString shown_entry(const QWidget* widget, const QAction* action)
{
    const QString kind = qobject_cast<const QMenu*>(widget)      ? u"menu entry "_s
                         : qobject_cast<const QToolBar*>(widget) ? u"toolbar button "_s
                                                                 : u"entry "_s;
    QString text = action->text();
    return kind + shown(action, text.remove(u'&'));
}

} // namespace

Surroundings Surroundings::now(const CommandRegistry& registry)
{
    Surroundings found;
    const QObjectList objects = window_objects();
    for (const QObject* object : objects) {
        if (counts(object))
            found.objects.insert(object, object);
    }
    const QWidgetList windows = free_windows();
    for (const QWidget* window : windows)
        found.objects.insert(window, window);
    visit_actions([&found](const QWidget* widget, const QAction* action) {
        found.actions.insert({widget, action});
    });
    if (const Ostrel* window = Ostrel::instance()) {
        found.graphics_widget = window->graphics_widget();
        found.open_save_handler = window->file_menu()->get_open_save_handler();
    }
    visit_options(
        [&found](const QString& labels, const QTreeWidgetItem*) { found.option_labels.insert(labels); });
    const QWidgetList pages = pages_of_options();
    found.option_pages = QSet<const QWidget*>(pages.begin(), pages.end());
    const std::vector<ComponentTracker*>& trackers = HostMediator::instance().trackers();
    found.trackers = QSet<const ComponentTracker*>(trackers.begin(), trackers.end());
    const QStringList commands = registry.names();
    found.commands = QSet<QString>(commands.begin(), commands.end());
    return found;
}

ComponentTraces::ComponentTraces(const QString& name, const Surroundings& before, const void* code,
                                 CommandRegistry& registry)
    : mName(name), mCode(code), mRegistry(&registry)
{
    const Surroundings after = Surroundings::now(registry);
    for (auto object = after.objects.keyBegin(); object != after.objects.keyEnd(); ++object) {
        if (!before.objects.value(*object))
            mObjects << const_cast<QObject*>(*object);
    }
    const auto actions = after.actions - before.actions;
    for (const auto& [widget, action] : actions)
        mActions << Placement{const_cast<QWidget*>(widget), const_cast<QAction*>(action)};
    if (after.graphics_widget != before.graphics_widget)
        mGraphicsWidget = after.graphics_widget;
    mTrackers = after.trackers - before.trackers;
    mCommands = after.commands - before.commands;
    if (after.open_save_handler != before.open_save_handler)
        mOpenSaveHandler = after.open_save_handler;
    mOptionLabels = after.option_labels - before.option_labels;
    const auto pages = after.option_pages - before.option_pages;
    for (const QWidget* page : pages)
        mOptionPages << const_cast<QWidget*>(page);
}

void ComponentTraces::look_before_unload()
{
    const Ostrel* window = Ostrel::instance();
    const OpenSaveHandler* handler = window ? window->file_menu()->get_open_save_handler() : nullptr;
    if (handler && SharedObject::has_class_of(handler, mCode))
        mOpenSaveHandler = handler;
}

QStringList ComponentTraces::clean_up()
{
    QStringList left;
    clean_commands(left);
    clean_trackers(left);
    clean_formats(left);
    if (Ostrel::instance()) {
        delete_what_waits();
        clean_console(left);
        clean_files(left);
        clean_options(left);
        clean_owned_entries(left);
        remove_empty_toolbars();
        clean_actions(left);
        clean_objects(left);
    }
    clean_windows(left);
    left.sort();
    return left;
}

bool ComponentTraces::is_own_class(const QObject* object) const
{
    return SharedObject::has_class_of(object, mCode);
}

bool ComponentTraces::is_own(const QObject* object) const
{
    for (; object && object != Ostrel::instance(); object = object->parent()) {
        if (is_own_class(object) || mObjects.contains(const_cast<QObject*>(object)))
            return true;
    }
    return false;
}

bool ComponentTraces::is_own_entry(const QWidget* widget, const QAction* action) const
{
    const auto same = [&](const Placement& placement) {
        return placement.widget == widget && placement.action == action;
    };
    return std::any_of(mActions.begin(), mActions.end(), same) || is_own(action);
}

void ComponentTraces::delete_what_waits() const
{
    // Only what is the component's: other objects may be in use further up.
    QList<QPointer<QObject>> waiting = mObjects;
    for (const auto& [widget, action] : mActions)
        waiting << action.data();
    const QObjectList objects = window_objects();
    for (QObject* object : objects) {
        if (is_own_class(object))
            waiting << object;
    }
    for (const QPointer<QObject>& object : std::as_const(waiting)) {
        QList<QPointer<QObject>> with_owners;
        for (QObject* owner = object; owner && owner != Ostrel::instance(); owner = owner->parent())
            with_owners << owner;
        for (const QPointer<QObject>& one : std::as_const(with_owners)) {
            if (one)
                QCoreApplication::sendPostedEvents(one, QEvent::DeferredDelete);
        }
    }
}

void ComponentTraces::clean_commands(QStringList& left)
{
    const QStringList names = mRegistry->names();
    for (const QString& name : names) {
        if (mRegistry->find(name)->owner == mName || mCommands.contains(name)) {
            mRegistry->remove(name);
            left << u"command \"%1\""_s.arg(name);
        }
    }
}

void ComponentTraces::clean_trackers(QStringList& left)
{
    const std::vector<ComponentTracker*> trackers = HostMediator::instance().trackers();
    for (ComponentTracker* tracker : trackers) {
        if (mTrackers.contains(tracker) || SharedObject::has_class_of(tracker, mCode)) {
            HostMediator::instance().remove_component_tracker(tracker);
            left << u"component tracker"_s;
        }
    }
}

void ComponentTraces::clean_formats(QStringList& left) const
{
    FormatRegistry& formats = FormatRegistry::instance();
    for (const auto& format : formats.formats()) {
        if (format->owner == mName)
            left << u"format %1"_s.arg(format->name);
    }
    formats.remove_owner(mName);
    UnsavedWorks& works = UnsavedWorks::instance();
    for (const UnsavedWork& work : works.works()) {
        if (work.owner == mName)
            left << u"unsaved work of the kind \"%1\""_s.arg(work.kind);
    }
    works.remove_owner(mName);
}

void ComponentTraces::clean_console(QStringList& left) const
{
    Ostrel* window = Ostrel::instance();
    if (QWidget* graphics = window->graphics_widget();
        graphics && (graphics == mGraphicsWidget || is_own_class(graphics))) {
        window->set_graphics_widget(nullptr);
        left << u"graphics widget"_s;
    }
    CommandWindow* console = window->command_line();
    if (!console)
        return;
    // A page takes widgets of its own with it.
    const QWidgetList found = console->findChildren<QWidget*>();
    const QList<QPointer<QWidget>> widgets(found.begin(), found.end());
    for (const QPointer<QWidget>& page : widgets) {
        if (!page || !is_page(page) || !is_own(page))
            continue;
        left << u"console page %1"_s.arg(shown(page, {}));
        console->remove_command_tab(page);
        delete page;
    }
}

void ComponentTraces::clean_files(QStringList& left) const
{
    Ostrel* window = Ostrel::instance();
    OstrelFileMenu* menu = window->file_menu();
    if (mOpenSaveHandler && menu->get_open_save_handler() == mOpenSaveHandler) {
        menu->set_open_save_handler(nullptr);
        OstrelFileMenu::set_file_name({});
        window->update_title();
        left << u"open/save handler"_s;
    }
    // Nobody but the component can know who deletes the handlers.
    QStringList gone = formats();
    menu->remove_component_items(mName.toUtf8().constData());
    const QStringList remaining = formats();
    for (const QString& format : remaining)
        gone.removeOne(format);
    left << gone;
}

void ComponentTraces::clean_options(QStringList& left) const
{
    OptionsPanel* panel = Ostrel::instance()->options();
    QStringList paths;
    visit_options([&](const QString& labels, const QTreeWidgetItem*) {
        if (mOptionLabels.contains(labels))
            paths << labels;
    });
    for (const QString& path : std::as_const(paths)) {
        // Others may have joined a group.
        bool joined = false;
        visit_options([&](const QString& labels, const QTreeWidgetItem* item) {
            joined = joined || (labels == path && item->childCount() > 0);
        });
        if (joined)
            continue;
        panel->remove_panel(path);
        left << u"option page \"%1\""_s.arg(path);
    }
    for (const QPointer<QWidget>& page : mOptionPages) {
        if (page)
            QCoreApplication::sendPostedEvents(page, QEvent::DeferredDelete);
        if (!page || !panel->isAncestorOf(page))
            continue;
        if (paths.isEmpty())
            left << u"object %1"_s.arg(shown(page, {}));
        delete page;
    }
}

void ComponentTraces::clean_owned_entries(QStringList& left) const
{
    Ostrel* window = Ostrel::instance();
    const QByteArray owner = mName.toUtf8();
    struct Shown
    {
        QPointer<QWidget> widget;
        QPointer<QAction> action;
        QString text;
    };
    QList<Shown> before;
    bool in_toolbar = false;
    visit_actions([&](QWidget* widget, QAction* action) {
        if (action->isSeparator() || stands_for_widget(action))
            return;
        before << Shown{widget, action, shown_entry(widget, action)};
        if (qobject_cast<QToolBar*>(widget) && is_own_entry(widget, action))
            in_toolbar = true;
    });
    window->remove_menu_items(owner.constData());
    window->journal_editor()->remove_import_items(owner.constData());
    window->remove_dock_windows(owner.constData());
    // Not without need: it also deletes the small toolbars of others.
    if (in_toolbar)
        window->remove_toolbar_items(owner.constData());
    for (const auto& [widget, action, text] : std::as_const(before)) {
        // Journals' import items go together with their actions.
        if (!action || !widget || !widget->actions().contains(action))
            left << text;
    }
}

void ComponentTraces::remove_empty_toolbars() const
{
    // Removed buttons count until they are deleted, so that a toolbar of many outlives the removal of its
    // entries, and the component could do nothing about that.
    bool empty = false;
    for (const QPointer<QObject>& object : mObjects) {
        const auto* bar = qobject_cast<QToolBar*>(object);
        if (!bar || !bar->actions().isEmpty())
            continue;
        empty = true;
        const QList<QToolButton*> buttons = bar->findChildren<QToolButton*>();
        for (QToolButton* button : buttons)
            QCoreApplication::sendPostedEvents(button, QEvent::DeferredDelete);
    }
    if (empty)
        Ostrel::instance()->remove_toolbar_items(mName.toUtf8().constData());
}

void ComponentTraces::clean_actions(QStringList& left) const
{
    QList<std::pair<QWidget*, QAction*>> found;
    visit_actions([&](QWidget* widget, QAction* action) {
        if (!action->isSeparator() && !stands_for_widget(action) && is_own_entry(widget, action))
            found << std::pair(widget, action);
    });
    for (const auto& [widget, action] : std::as_const(found)) {
        widget->removeAction(action);
        left << shown_entry(widget, action);
    }
}

void ComponentTraces::clean_objects(QStringList& left) const
{
    Ostrel* window = Ostrel::instance();
    const QObjectList found = window_objects();
    const QList<QPointer<QObject>> objects(found.begin(), found.end());
    for (const QPointer<QObject>& object : objects) {
        if (!object || !(is_own_class(object) || mObjects.contains(object)))
            continue;
        if (auto* dock = qobject_cast<QDockWidget*>(object)) {
            left << u"dock %1"_s.arg(shown(dock, {}));
            window->removeDockWidget(dock);
            delete dock;
        } else if (auto* bar = qobject_cast<QToolBar*>(object)) {
            // The shell's list of toolbars may still know it, so that it must not be deleted.
            if (!bar->actions().isEmpty())
                continue;
            left << u"toolbar %1"_s.arg(shown(bar, bar->windowTitle()));
            window->removeToolBar(bar);
        } else if (auto* menu = qobject_cast<QMenu*>(object)) {
            // So may the list of menus. One that others have joined stays.
            if (!menu->isEmpty() || !window->menuBar()->actions().contains(menu->menuAction()))
                continue;
            left << u"menu %1"_s.arg(shown(menu, menu->title()));
            window->menuBar()->removeAction(menu->menuAction());
        } else if (auto* action = qobject_cast<QAction*>(object)) {
            // Those of other owners may be the shell's, made while the component was.
            if (!action->isSeparator() && !stands_for_widget(action) && action->parent() == window)
                delete action;
        } else if (auto* shortcut = qobject_cast<QShortcut*>(object)) {
            left << u"shortcut \"%1\""_s.arg(shortcut->key().toString());
            delete shortcut;
        } else if (is_own_class(object)) {
            left << u"object %1"_s.arg(shown(object, {}));
            delete object;
        }
    }
}

void ComponentTraces::clean_windows(QStringList& left) const
{
    const QWidgetList windows = free_windows();
    for (QWidget* window : windows) {
        if (!is_own(window))
            continue;
        left << u"window %1"_s.arg(shown(window, window->windowTitle()));
        window->hide();
    }
}
