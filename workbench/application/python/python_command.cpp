// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/python_command.h"

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Framework.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** "python STATEMENT...": the words, joined with blanks, are one Python source. */
void run_python_command(CommandCall& call, const CommandArguments& arguments)
{
    const QByteArray source = arguments.texts("STATEMENT"_L1).join(u' ').toUtf8();
    FennarPythonInterpreter* python = Framework::user_python_interpreter();
    if (!python || !python->IsInitialized())
        throw call.error(0, u"Python is not available"_s);
    if (python->Run_SimpleString(source.constData()) != 0)
        throw call.error(1, u"the Python statement failed"_s);
}

} // namespace

void register_python_command(CommandRegistry& registry)
{
    registry.add(
        {.name = u"python"_s,
         .summary = u"Runs a Python statement."_s,
         .help = u"The words are joined with blanks. Quote the statement if it has quotes of its own, as\n"
                 "    python 'print(\"done\")'"_s,
         .owner = u"workbench"_s,
         .perform = &run_python_command,
         .forms = {{.clauses = {required_value({.name = u"STATEMENT"_s,
                                                .kind = CommandParameter::Kind::Text,
                                                .what = u"a Python statement"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Statement"),
                                                .repeated = true,
                                                .example = u"print('done')"_s})}}},
         .runs_commands = true,
         .long_running = true});
}

} // namespace fennar
