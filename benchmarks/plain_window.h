// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMainWindow>

#include <memory>

/**
 * What the main window is made of, put together with nothing but Qt: the same number and kinds of widgets,
 * menus, actions, shortcuts and docks, visible and hidden, and the same pictures on them, without anything
 * that makes them work. No main window with these parts comes up faster, unless it leaves some out at first.
 *
 * @param hidden_windows  with the journal editor, the options and the about dialog, which exist from the
 * start but are not shown.
 */
std::unique_ptr<QMainWindow> plain_window(bool hidden_windows);
