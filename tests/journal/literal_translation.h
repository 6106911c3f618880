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

/** Its step of search and replace, one match after the other; what replace_backwards() is compared with. */
std::size_t literally_replace_backwards(std::string& buffer, std::size_t begin, std::size_t end,
                                        std::string_view from, std::string_view to);
