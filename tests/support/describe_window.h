// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

class QMainWindow;

/**
 * What a user can choose, press and move in @p window, one line each, indented below what holds it: to be
 * taken before and after a change that must leave nothing behind, and compared.
 *
 * In this order: the menu bar with all its menus, the toolbars with their areas, the docks with theirs, the
 * shortcuts, menus that hang nowhere, and actions of the window that are shown nowhere. Rows stand in the
 * order of the screen, separators as "---". Each object is named by its object name and its text; what
 * differs from the usual (hidden, disabled, checked, keys) follows. Toolbars and docks count wherever they
 * are below the window, hidden or not.
 *
 * Buttons and docks that wait for their deletion are not told apart from others; run deferred deletions first
 * where that matters.
 */
QStringList describe_window(const QMainWindow& window);
