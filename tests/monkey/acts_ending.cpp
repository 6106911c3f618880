// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Busy.h"
#include "Monkey.h"
#include "acts.h"
#include "frame/Ostrel.h"

#include <QAction>
#include <QDockWidget>
#include <QWidget>

#include <utility>

namespace {

void unloads_the_window(Monkey& monkey)
{
    monkey.world().unload();
    if (monkey.one_in(2))
        monkey.world().load();
}

void leaves(Monkey& monkey)
{
    monkey.world().leave(monkey.component());
}

void takes_all_off_the_toolbars(Monkey& monkey)
{
    for (const Component& component : monkey.world().components)
        if (Ostrel* const window = monkey.window())
            window->remove_toolbar_items(component.name);
}

void deletes_all_its_pages(Monkey& monkey)
{
    for (const QPointer<QWidget>& page : std::exchange(monkey.component().console_pages, {}))
        Busy::let_go(page);
}

void deletes_all_its_actions(Monkey& monkey)
{
    for (const QPointer<QAction>& action : std::exchange(monkey.component().actions, {}))
        Busy::let_go(action);
}

void deletes_all_its_docks(Monkey& monkey)
{
    for (const QPointer<QDockWidget>& dock : std::exchange(monkey.component().docks, {}))
        Busy::let_go(dock);
}

void deletes_its_documents_and_formats(Monkey& monkey)
{
    Component& owner = monkey.component();
    monkey.world().delete_documents(owner);
    monkey.world().delete_formats(owner);
}

} // namespace

const std::vector<Act>& ending_acts()
{
    static const std::vector<Act> acts{
        {"unloads the window", unloads_the_window},
        {"leaves", leaves},
        {"takes all off the toolbars", takes_all_off_the_toolbars},
        {"deletes all its pages", deletes_all_its_pages},
        {"deletes all its actions", deletes_all_its_actions},
        {"deletes all its docks", deletes_all_its_docks},
        {"deletes its documents and formats", deletes_its_documents_and_formats},
    };
    return acts;
}
