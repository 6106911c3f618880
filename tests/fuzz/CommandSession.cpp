// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "fuzz/CommandSession.h"

#include "fuzz/fuzz_target.h"
#include "workbench/sdk/core/commands/CommandCall.h"

using namespace Qt::StringLiterals;

namespace {

/** Variables that double with each line are what the interpreter bounds by far more than an input here could
 * need. */
constexpr qsizetype longest_value = 100;

void set(CommandCall& call)
{
    const QString name = call.text(1, u"a name");
    const QString value = call.text(2, u"a value");
    call.expect_end();
    if (value.size() > longest_value)
        throw call.error(2, u"the value is too long"_s);
    if (!call.interpreter().variables().set(name, value))
        throw call.expected(1, u"a name");
}

void echo(CommandCall& call)
{
    for (qsizetype i = 1; i < call.count(); ++i)
        call.print(call.words()[i].text + u'\n');
}

void add(CommandCall& call)
{
    const double sum = call.number(1, u"a number") + call.optional_number(2, u"another number").value_or(0);
    call.expect_end();
    call.print(QString::number(sum) + u'\n');
}

void count(CommandCall& call)
{
    const int least = call.integer(1, u"the first");
    const int most = call.integer(2, u"the last", least);
    const int step = call.integer(3, u"the step", 1, 9);
    call.expect_end();
    call.print(QString::number(most / step) + u'\n');
}

} // namespace

CommandSession::CommandSession()
{
    mRegistry.add({.name = u"set"_s, .run = &set});
    mRegistry.add({.name = u"echo"_s, .run = &echo});
    mRegistry.add({.name = u"add"_s, .run = &add});
    mRegistry.add({.name = u"count"_s, .run = &count});
    // Its lines run within its own.
    mRegistry.add({.name = u"run"_s, .run = [](CommandCall& call) {
                       const QString text = call.text(1, u"commands");
                       if (call.interpreter().run(text) == CommandInterpreter::Result::Failed)
                           throw CommandError::reported();
                   }});
    mInterpreter.set_output([this](const QString& text) { mOutput += text; });
    mInterpreter.set_error_output([this](const QString& text) {
        expect(text.indexOf(u'\n') == text.size() - 1, "an error is one line");
        expect(!text.contains(u'\r'), "an error is one line");
        mErrors += text;
    });
}
