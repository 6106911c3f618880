// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class Ostrel;

/**
 * Gives the window what was saved: place and size, recent files, the console's font and limits, the kind of
 * command panel. Sets the working directory of the process, too.
 *
 * To be called once the window has its console and its journal editor. It may replace the command panel.
 */
void restore_window_settings(Ostrel& window);
/** Saves what restore_window_settings() restores. */
void save_window_settings(const Ostrel& window);
