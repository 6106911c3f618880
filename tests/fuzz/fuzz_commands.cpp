// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Runs whatever the fuzzer comes up with as commands, once as a text and once line by line.

#include "fuzz/CommandSession.h"
#include "fuzz/fuzz_target.h"
#include "fuzz/fuzz_text.h"
#include "workbench/sdk/core/commands/check_journal.h"

using namespace fennar;
using namespace Qt::StringLiterals;
using Result = CommandInterpreter::Result;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = fuzz_text(data, size);
    const MemoryBound bound(size);
    CommandSession at_once;
    const Result result = at_once.interpreter().run(text, u"fuzz.jou"_s);
    expect((result == Result::Failed) == !at_once.errors().isEmpty(), "what fails says so");
    expect(result == Result::Failed || result == Result::Done, "a text ends");
    expect(result == Result::Done || at_once.errors().startsWith(u"ERROR: "), "what fails says so");

    const qsizetype lines = text.count(u'\n') + 1;
    for (const JournalFault& fault : check_journal(text, at_once.interpreter().registry(), {}))
        expect(fault.line >= 1 && fault.line <= lines && !fault.message.isEmpty(), "a fault has its line");

    CommandSession by_line;
    Result last = Result::Done;
    for (qsizetype start = 0; start < text.size() && last != Result::Failed;) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text.size() : found;
        last = by_line.interpreter().enter(text.sliced(start, end - start));
        expect((last == Result::Incomplete) == by_line.interpreter().incomplete(),
               "a continued line is kept");
        start = end + 1;
    }
    expect((result == Result::Failed) == (last != Result::Done), "lines do what the text does");
    expect(by_line.output() == at_once.output(), "lines print what the text prints");
    return 0;
}
