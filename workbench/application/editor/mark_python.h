// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/mark_command.h"

#include <QList>
#include <QString>

namespace fennar {

/** The string of Python that a line ends in. */
enum class PythonString {
    None,
    /** In three single quotes. */
    LongSingle,
    /** In three double quotes. */
    LongDouble,
    /** In one single quote, with a backslash at the end of the line. */
    Single,
    /** In one double quote, with a backslash at the end of the line. */
    Double,
};

/** The parts of a line of Python. */
struct PythonLine
{
    /** In the order of the line. */
    QList<LineMark> marks;
    /** What the next line begins in. */
    PythonString string = PythonString::None;
};

/**
 * Marks comments, strings with their prefixes, numbers, keywords, decorators (as commands), and the names
 * that "def" and "class" give. What no Python is does no harm.
 *
 * @param string  what the line before has ended in.
 */
PythonLine mark_python(const QString& line, PythonString string = PythonString::None);

} // namespace fennar
