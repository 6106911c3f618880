// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMainWindow>

#include <memory>

/**
 * What the main window is made of, put together with nothing but Qt: the same number and kinds of widgets,
 * menus, actions, shortcuts and docks, and the same icons on them, without anything that makes them work. Qt
 * reads an SVG icon when it is made; the shell's icons wait until they are seen.
 *
 * @param hidden_windows  with the journal editor, the options and the about dialog, which exist from the
 * start but are not shown.
 */
std::unique_ptr<QMainWindow> plain_window(bool hidden_windows);
