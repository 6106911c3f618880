// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/PyOstrel.h"

#include "frame/Ostrel.h"
#include "menus/PyAction.h"

bool PyOstrel::is_loaded()
{
    return Ostrel::instance() != nullptr;
}

void PyOstrel::add_to_menu(const char* menu, std::vector<PyAction*> actions, const char* component)
{
    if (Ostrel* window = Ostrel::instance())
        window->add_to_menu(menu, actions, component);
}

void PyOstrel::remove_menu_items(const char* component)
{
    if (Ostrel* window = Ostrel::instance())
        window->remove_menu_items(component);
}
