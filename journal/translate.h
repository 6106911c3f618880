// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

/**
 * Replaces each @p from in @p buffer that begins from @p begin to @p end by @p to, the last one first.
 * Returns how many there were.
 *
 * A match at offset 0, which has nothing ahead of it to search on in, makes the search start over at the end
 * of the buffer, down to @p begin. Intended: the translation of a text that begins with an apostrophe relies
 * on it.
 *
 * Time grows with the length of @p buffer from @p begin on.
 *
 * @param end   may lie behind the end of the buffer.
 * @param from  not empty.
 * @param to    must not begin with @p from if that can be at offset 0: the search would never end.
 */
std::size_t replace_backwards(std::string& buffer, std::size_t begin, std::size_t end, std::string_view from,
                              std::string_view to);
