// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/LineInterpreter.h"

#include "workbench/host/fennar_python/PythonConsole.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/complete_command.h"

namespace fennar {

namespace {

class CommandLines : public LineInterpreter
{
public:
    Outcome enter(const QString& line) override
    {
        const CommandInterpreter::Result result = Fennar::instance().interpreter().enter(line);
        return {result == CommandInterpreter::Result::Incomplete,
                {},
                result == CommandInterpreter::Result::Failed};
    }
    void reset() override { Fennar::instance().interpreter().reset(); }
    LineCompletion complete(const QString& line, qsizetype caret) override
    {
        CommandInterpreter& interpreter = Fennar::instance().interpreter();
        return complete_commands(line, caret, interpreter.entered(), interpreter);
    }
};

LineCompletion completion_of(const PythonConsole::Names& names)
{
    LineCompletion completion{.start = names.start, .common = names.common, .hint = names.hint};
    for (const QString& name : names.names)
        completion.candidates << LineCompletion::Candidate{name, name};
    return completion;
}

class PythonLines : public LineInterpreter
{
public:
    Outcome enter(const QString& line) override
    {
        const PythonConsole::Outcome outcome = mConsole.enter(line);
        return {outcome.incomplete, outcome.indent, outcome.failed};
    }
    void reset() override { mConsole.reset(); }
    LineCompletion complete(const QString& line, qsizetype caret) override
    {
        return completion_of(mConsole.complete(line, caret));
    }

private:
    PythonConsole mConsole{PythonRuntime::user_namespace()};
};

} // namespace

std::unique_ptr<LineInterpreter> make_command_lines()
{
    return std::make_unique<CommandLines>();
}

std::unique_ptr<LineInterpreter> make_python_lines()
{
    return std::make_unique<PythonLines>();
}

LineCompletion complete_commands(const QString& line, qsizetype caret, const QString& before,
                                 CommandInterpreter& interpreter)
{
    LineCompletion completion = complete_command(before + line, before.size() + caret, interpreter.registry(),
                                                 interpreter.variables());
    completion.start -= before.size();
    // A word that has begun on an earlier line cannot be written anew.
    return completion.start < 0 ? LineCompletion{.start = caret} : completion;
}

LineCompletion complete_python(const QString& line, qsizetype caret, const QString& before)
{
    const PythonConsole console(PythonRuntime::user_namespace());
    return completion_of(console.complete(line, caret, before));
}

} // namespace fennar
