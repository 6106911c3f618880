// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/console/LineInterpreter.h"

#include <QString>

#include <memory>

namespace fennar {

/** Runs lines of the command language, and completes them. */
std::unique_ptr<LineInterpreter> make_command_lines();
/** Runs lines of Python as the user, and completes them. */
std::unique_ptr<LineInterpreter> make_python_lines();

/** Completes a line of Python that is not on the console, by the user's names. @p before has the lines ahead
 * of it in its statement. */
LineCompletion complete_python(const QString& line, qsizetype caret, const QString& before);

} // namespace fennar
