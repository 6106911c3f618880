// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <vector>

class PyAction;

/**
 * What a Python script asks of the main window's menus. Without a main window nothing happens and nothing is
 * reported. GUI thread only.
 */
namespace PyOstrel {

/** Whether there is a main window. */
OSTRELGUI_EXPORT bool is_loaded();
/**
 * Adds actions to a menu, as Ostrel::add_to_menu() does.
 *
 * @param menu       the menu's title, in UTF-8; a new one makes a new menu.
 * @param actions    stay the caller's.
 * @param component  the owner mark for remove_menu_items(); with null nothing is added.
 */
OSTRELGUI_EXPORT void add_to_menu(const char* menu, std::vector<PyAction*> actions, const char* component);
/** Removes what was added under that name; the actions stay the caller's. Null removes nothing. */
OSTRELGUI_EXPORT void remove_menu_items(const char* component);

} // namespace PyOstrel
