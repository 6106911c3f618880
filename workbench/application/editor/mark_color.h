// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/mark_command.h"

#include <QRgb>

namespace fennar {

/**
 * The color of text that is so marked, on a light ground or with @p dark on a dark one. It can be read there,
 * on the current line as well: the contrast is at least 4.5 to 1.
 */
QRgb mark_color(LineMark::Kind kind, bool dark);

} // namespace fennar
