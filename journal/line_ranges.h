// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QTextCursor;

/** Lines of a document by the numbers of their blocks, which count from 0. Both belong to it. */
struct LineRange
{
    int first;
    int last;
};

/** The lines that hold the ends of the selection, or the caret if there is none. The cursor must not be null.
 */
LineRange touched_lines(const QTextCursor& cursor);

/**
 * The same, except for one line that is selected with its line end: the next line is not included.
 *
 * If several lines are selected, the one at whose start the selection ends is included. Intended.
 */
LineRange selected_lines(const QTextCursor& cursor);
