// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "fuzz/CommandSession.h"

#include "fuzz/fuzz_target.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Variables that double with each line are what the interpreter bounds by far more than an input here could
 * need. */
constexpr qsizetype longest_value = 100;

void set(CommandCall& call, const CommandArguments& arguments)
{
    const QString value = arguments.text("VALUE"_L1);
    if (value.size() > longest_value)
        throw call.error(arguments.word("VALUE"_L1), u"the value is too long"_s);
    call.interpreter().variables().set(arguments.text("NAME"_L1), value);
}

void echo(CommandCall& call, const CommandArguments& arguments)
{
    for (const QString& word : arguments.texts("WORD"_L1))
        call.print(word + u'\n');
}

void add(CommandCall& call, const CommandArguments& arguments)
{
    call.print(QString::number(arguments.number("FIRST"_L1) + arguments.number("SECOND"_L1)) + u'\n');
}

void count(CommandCall& call, const CommandArguments& arguments)
{
    if (arguments.integer("MOST"_L1) < arguments.integer("LEAST"_L1))
        throw arguments.words().expected(arguments.word("MOST"_L1), u"the last"_s);
    call.print(QString::number(arguments.integer("MOST"_L1) / arguments.integer("STEP"_L1)) + u'\n');
}

/** Its lines run within its own. */
void run(CommandCall& call, const CommandArguments& arguments)
{
    if (call.interpreter().run(arguments.text("TEXT"_L1)) == CommandInterpreter::Result::Failed)
        throw CommandError::reported();
}

} // namespace

CommandSession::CommandSession()
{
    using Kind = CommandParameter::Kind;
    const auto add_command = [this](const QString& name, auto function, const QList<CommandClause>& clauses) {
        mRegistry.add({.name = name, .perform = function, .forms = {{.clauses = clauses}}});
    };
    const auto value = [](const QString& name, Kind kind) {
        return required_value({.name = name, .kind = kind});
    };
    add_command(u"set"_s, &set, {value(u"NAME"_s, Kind::Variable), value(u"VALUE"_s, Kind::Text)});
    add_command(u"echo"_s, &echo, {optional_value({.name = u"WORD"_s, .kind = Kind::Words})});
    add_command(
        u"add"_s, &add,
        {value(u"FIRST"_s, Kind::Number), optional_value({.name = u"SECOND"_s, .kind = Kind::Number})});
    add_command(u"count"_s, &count,
                {value(u"LEAST"_s, Kind::WholeNumber), value(u"MOST"_s, Kind::WholeNumber),
                 required_value({.name = u"STEP"_s, .kind = Kind::WholeNumber, .least = 1, .most = 9})});
    add_command(u"run"_s, &run, {value(u"TEXT"_s, Kind::Text)});
    mInterpreter.set_output([this](const QString& text) { mOutput += text; });
    mInterpreter.set_error_output([this](const QString& text) {
        expect(text.indexOf(u'\n') == text.size() - 1, "an error is one line");
        expect(!text.contains(u'\r'), "an error is one line");
        mErrors += text;
    });
}
