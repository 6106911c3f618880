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
 * The same, save that a line that was selected with its line end is taken alone.
 *
 * For one line only: of several, the line that the selection ends in front of belongs to them. Intended.
 */
LineRange selected_lines(const QTextCursor& cursor);
