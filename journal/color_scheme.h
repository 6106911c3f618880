// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/**
 * Whether the platform asks for light text on a dark ground.
 *
 * Versions of Qt before 6.5 do not tell; there the application's palette decides.
 */
bool is_dark_color_scheme();
