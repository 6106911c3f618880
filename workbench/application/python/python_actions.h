// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/**
 * Gives the Python module @p module what scripts need to add entries to the menus: the class PyAction and the
 * functions is_loaded(), add_to_menu() and remove_menu_items(). To be used as PythonHooks::extend.
 *
 * An action that was added stays alive, whatever the script does, until the entries of its component are
 * removed or Python ends, which removes them.
 */
void add_python_actions(struct _object* module);

} // namespace fennar
