// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as a document that was kept before a crash.

#include "fuzz/fuzz_target.h"
#include "workbench/components/recovery/KeptDocument.h"

using namespace fennar::recovery;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    const KeptDocument document = KeptDocument::decode(bytes);
    const KeptDocument again = KeptDocument::decode(document.encode().join());
    expect(again.text == document.text, "the text comes back");
    expect(again.kind == document.kind, "the kind of work comes back");
    expect(again.data.join() == document.data.join(), "the work comes back");
    expect(again.file == document.file, "the file comes back");
    expect(again.changed == document.changed, "the time comes back");
    static const QDateTime now = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
    expect(document.text.isEmpty() || document.data.isEmpty(), "a document is a text or other work");
    document.title(now);
    // The list of what can be recovered reads the first line alone.
    const KeptDocument head = KeptDocument::decode(bytes.left(bytes.indexOf('\n') + 1));
    if (bytes.contains('\n'))
        expect(head.file == document.file && head.kind == document.kind, "the first line says what follows");
    return 0;
}
