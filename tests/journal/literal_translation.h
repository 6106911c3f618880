// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class QString;

/**
 * The translation of journals as a sequence of operations on one buffer, each as the rules name it: insert,
 * search, replace. Plain and slow; what pythonize_text() is compared with.
 */
void literally_pythonize_text(QString& text);

/**
 * Replaces @p from by @p to in @p buffer, searching backwards from @p end down to @p begin. Returns how
 * often.
 *
 * After a match at offset 0 the search starts over at the end of the buffer.
 */
std::size_t replace_backwards(std::string& buffer, std::size_t begin, std::size_t end, std::string_view from,
                              std::string_view to);
