// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Starts the program, as far as its arguments go, with whatever the fuzzer comes up with.

#include "fuzz/fuzz_target.h"
#include "fuzz/fuzz_text.h"
#include "workbench/host/ostrelfw/CommandLine.h"

using namespace fennar;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QStringList words = fuzz_text(data, size).split(QChar::Null);
    const MemoryBound bound(size);
    CommandLine line(words);
    if (!line.error().isEmpty())
        return 0;
    expect(!line.batch_mode() || !line.journal().isEmpty() || line.help() || line.version(),
           "a batch run has a journal");
    expect(line.batch_mode() || line.journal() != CommandLine::standard_input,
           "a window does not wait for input");
    for (const QString& name : {line.file(), line.journal(), line.settings()})
        expect(name.isEmpty() || words.contains(name), "names are taken as they stand");
    return 0;
}
