// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

namespace fennar {

class CommandInterpreter;
class ComponentContext;

/**
 * Adds the entry "Check", with the key F7, to the context menu of the documents of the journal editor: it
 * looks for errors in the current journal without running it.
 *
 * Each wrong line is marked until it is edited, or the journal is checked again, and is told as an error of a
 * run would be; the caret goes to the first.
 *
 * @param interpreter         has the commands and variables. Not owned; outlives the context.
 * @param print, print_error  are given whole lines.
 */
void add_journal_check(ComponentContext& context, CommandInterpreter& interpreter,
                       const std::function<void(const QString& text)>& print,
                       const std::function<void(const QString& text)>& print_error);

} // namespace fennar
