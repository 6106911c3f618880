// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** Takes the static members of the shell's classes, which outlive every window, back to their first values.
 */
void reset_statics();
