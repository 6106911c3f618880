// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QString;

/**
 * Rewrites a journal of commands as a Python script that issues them: each command becomes a call
 * fennar.cmd('...'), on as many lines as the command had.
 *
 * It knows lines, quotes and backslashes, not the command language. A lone quote on a line is closed at its
 * end, except on a line that begins with "#"; backslashes between the first and the last quote of a line are
 * doubled, all others stay; apostrophes are escaped. Comments are translated like commands; empty lines and
 * lines of blanks stay. Nothing is refused: what is not a well-formed command gives broken Python.
 *
 * Time and memory grow with the length of the text and nothing else.
 *
 * @param text  cut at its first NUL. What UTF-8 cannot express, such as half a surrogate pair, is replaced.
 *              Empty stays empty.
 */
void pythonize_text(QString& text);
