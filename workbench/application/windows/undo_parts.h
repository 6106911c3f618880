// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

namespace fennar {

class ComponentContext;
class UndoSteps;

/** Gives the steps the limit that the user has chosen. */
void read_undo_limit(UndoSteps& steps);

/**
 * Adds undo and redo to the menu "&Edit" of the main window, and a page of the options that tells how much
 * memory the steps take and may take, as read_undo_limit() sets it.
 *
 * @param steps  outlives the context.
 */
void add_undo_parts(ComponentContext& context, UndoSteps& steps);

} // namespace fennar
