// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

namespace fennar::geometry {

/**
 * Whether all of a file that the engine has written is on the disk: the engine does not notice a disk that is
 * full. An empty file counts as not written.
 */
bool is_written(const char* path);

} // namespace fennar::geometry
