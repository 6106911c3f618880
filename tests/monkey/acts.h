// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <vector>

class Monkey;

/** Something that the user, the host or a component may do at any time. Each looks for itself what there is
 * to act on, and does nothing if there is nothing. */
struct Act
{
    const char* name;
    void (*play)(Monkey& monkey);
    /** Whether it may open something, let events happen, or lay out toolbars; not played while Qt is at work.
     */
    bool may_take_turns = false;
};

/** Played only while no dialog and no menu is open, which would keep the user from it, and Qt is idle. */
const std::vector<Act>& user_acts();
const std::vector<Act>& host_acts();
/** Those of a component in the window. */
const std::vector<Act>& component_window_acts();
/** Those of a component in the dialogs, the file menu, the journal editor and the graphics area. */
const std::vector<Act>& component_content_acts();
/** Those of all that take away what somebody may be at work on. Never played while Qt is. */
const std::vector<Act>& ending_acts();
