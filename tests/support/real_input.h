// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

class QWidget;

// Input that the display's server takes for the user's own, for tests with the option DISPLAY. It has been
// sent when these return, and arrives when the event queue runs next.

/** Clicks into the middle of @p target, with whatever lies above it there. Returns whether it has been sent.
 */
[[nodiscard]] bool real_click(const QWidget* target);
/** Presses and releases a key, named as xdotool does: "x", "ctrl+i". Returns whether it has been sent. */
[[nodiscard]] bool real_key(const QString& key);
