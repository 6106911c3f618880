// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

/**
 * All that components add to, one line each: commands, formats, the main window with its menus, docks and
 * dialogs, if there is one, and the windows beside it. To be taken before and after something that must leave
 * nothing behind, and compared. What waits for its deletion is deleted first.
 *
 * The separators between sections of menus are left out: they stay when the entries go.
 */
QStringList describe_program();

/** The lines that @p after has and @p before has not, or has fewer of. */
QStringList added_lines(const QStringList& before, QStringList after);
