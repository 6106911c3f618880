// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <iosfwd>
#include <optional>

/**
 * The text of a journal for the editor: each line up to its first NUL, with a line feed; nothing if the
 * stream cannot be read to its end. What is not UTF-8 is replaced.
 *
 * The read that meets the end counts as a line too (docs/surprises.md): each cycle of opening and saving adds
 * an empty line at the end.
 */
std::optional<QString> read_journal(std::istream& stream);
