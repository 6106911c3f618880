// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QPalette>

namespace fennar {

/** The program's own colors: dark text on a light ground, or with @p dark light text on a dark ground. */
QPalette scheme_palette(bool dark);

} // namespace fennar
