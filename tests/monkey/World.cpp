// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "World.h"

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/PyAction.h"
#include "options/OptionsPanel.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QScopedValueRollback>
#include <QWidget>

#include <utility>

namespace {

template <class Object>
void let_all_go(QList<QPointer<Object>>& objects)
{
    for (const QPointer<Object>& object : std::exchange(objects, {}))
        Busy::let_go(object);
}

} // namespace

World::World()
{
    mFrames.push_back(std::make_unique<MainFrame>());
}

World::~World() = default;

Ostrel* World::window() const
{
    return mLoading && !mFrames.back()->is_loaded() ? nullptr : Ostrel::instance();
}

void World::load()
{
    // Not from inside load_gui() or unload_gui(): there would be two windows.
    if (mLoading || mUnloading || frame().is_loaded())
        return;
    const QScopedValueRollback loading(mLoading, true);
    if (std::exchange(mWasLoaded, true))
        mFrames.push_back(std::make_unique<MainFrame>());
    frame().load_gui();
    if (window())
        window()->setAnimated(false);
}

void World::unload()
{
    for (const QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<const QFileDialog*>(window->parentWidget()))
            return;
    const QScopedValueRollback unloading(mUnloading, true);
    frame().unload_gui();
    forget_window();
}

void World::forget_frames()
{
    mFrames.erase(mFrames.begin(), mFrames.end() - 1);
}

void World::forget_window()
{
    rows.clear();
    tabs.clear();
    imports.clear();
    exports.clear();
    graphics.clear();
    plugged = nullptr;
}

void World::leave(Component& component)
{
    delete_documents(component);
    delete_formats(component);
    for (const auto take_out :
         {&Ostrel::remove_menu_items, &Ostrel::remove_toolbar_items, &Ostrel::remove_dock_windows}) {
        if (Ostrel* const own_window = window())
            (own_window->*take_out)(component.name);
    }
    if (Ostrel* const own_window = window())
        own_window->journal_editor()->remove_import_items(component.name);
    forget_rows(component.name);
    const QStringList paths = component.option_pages.keys();
    for (const QString& path : paths) {
        if (Ostrel* const own_window = window())
            own_window->options()->remove_panel(path);
        Busy::let_go(component.option_pages.take(path));
    }
    const QList<QPointer<QWidget>> pages = std::exchange(component.console_pages, {});
    for (const QPointer<QWidget>& page : pages) {
        if (Ostrel* const own_window = window();
            own_window && page && !Busy::with(own_window->command_line())) {
            tabs.removeAll(page);
            own_window->command_line()->remove_command_tab(page);
        }
        Busy::let_go(page);
    }
    let_all_go(component.docks);
    let_all_go(component.canvases);
    let_all_go(component.abouts);
    let_all_go(component.scripts);
    let_all_go(component.actions);
}

void World::delete_documents(Component& component)
{
    // Others may plug in new ones meanwhile.
    const std::unique_ptr<Documents> documents = std::move(component.documents);
    if (documents && plugged == documents.get()) {
        plugged = nullptr;
        if (Ostrel* const own_window = window())
            own_window->file_menu()->set_open_save_handler(nullptr);
    }
}

void World::delete_formats(Component& component)
{
    const QList<QPointer<Format>> formats = std::exchange(component.formats, {});
    if (Ostrel* const own_window = window())
        own_window->file_menu()->remove_component_items(component.name);
    for (const QPointer<Format>& format : formats) {
        imports.removeAll(format);
        exports.removeAll(format);
    }
    for (const QPointer<Format>& format : formats)
        Busy::let_go(format);
}

void World::forget_rows(const char* component, const QString& title)
{
    rows.removeIf([&](const MenuRow& row) {
        return row.component == component && (title.isEmpty() || row.title == title);
    });
}
