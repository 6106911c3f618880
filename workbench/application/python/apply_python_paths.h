// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

class FennarPythonInterpreter;

namespace fennar {

/** The directories in a text in which ";" parts them. Blanks around a name, and empty names, do not count. */
QStringList split_python_paths(const QString& paths);

/**
 * Adds the directories that the user has set on the options page "General" to the end of Python's
 * sys.path, if "Use Paths" is on. A directory that is there already is not added again.
 *
 * @param python  null, or one that is not initialized, gets nothing.
 * @return a line for the user for each directory that could not be added; empty if all went well.
 */
QStringList apply_python_paths(FennarPythonInterpreter* python);

} // namespace fennar
