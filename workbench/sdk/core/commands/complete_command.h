// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/LineCompletion.h"
#include "workbench/sdk/core/export.h"

#include <QString>

namespace fennar {

class CommandRegistry;
class CommandVariables;

/**
 * What could stand at index @p caret of @p line, by the descriptions of the commands: a command, a keyword or
 * choice, the name of an entity, a variable, or a file.
 *
 * A command without a description gets names of files. Files are looked up from the current directory; hidden
 * ones are left out unless a dot was typed. A name that needs quotes gets them, and a word that is in quotes
 * already stays in them. Nothing is completed in a comment.
 */
FENNAR_CORE_EXPORT LineCompletion complete_command(const QString& line, qsizetype caret,
                                                   const CommandRegistry& registry,
                                                   const CommandVariables& variables);

} // namespace fennar
