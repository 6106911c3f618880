// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>

namespace fennar {

class CommandRegistry;

/** What is wrong with a line of a journal. */
struct JournalFault
{
    /** The line, from 1: of several that are continued the one with the fault. */
    qsizetype line = 0;
    /** As the error of a run has it behind the place, as "brick: column 7: expected a width, found ...". */
    QString message;
};

/**
 * What is wrong in a text of commands, as far as can be seen without running any: commands that do not exist,
 * and words that do not fit what their command declares.
 *
 * Names are those that are there when it is checked and those that the lines ahead give (NewName); behind a
 * line that may give others, as one that makes something without a name (Command::makes), any will do, and
 * behind one that may bring commands any command. A name cannot be given twice unless a line in between that
 * changes the model may have freed it. Numbers from 1 on may stand for anything. What had a name and is gone
 * is not found.
 *
 * Variables have the values that the lines ahead set. Behind a line that runs other commands
 * (Command::runs_commands), which may set others, a line with a variable that is not known is passed over.
 * Journals that are played are not looked into.
 *
 * @param variables  those that are set when the journal begins.
 * @return in the order of the lines, one for each command that is wrong.
 */
FENNAR_CORE_EXPORT QList<JournalFault> check_journal(const QString& text, const CommandRegistry& registry,
                                                     CommandVariables variables);

} // namespace fennar
