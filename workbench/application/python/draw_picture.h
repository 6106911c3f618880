// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/commands/python_commands.h"

namespace fennar {

/**
 * Draws what there is to see, for the function view() of Python: waits for shapes that are still to come, and
 * lets the application have its turns meanwhile. For PythonCommandServices::picture.
 *
 * @return the picture as a PNG file. Throws a CommandError if something of it is not there, or nobody draws.
 */
QByteArray draw_picture(const PythonPicture& picture);

} // namespace fennar
