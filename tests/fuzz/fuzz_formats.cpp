// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Looks whether whatever the fuzzer comes up with is a file of a format that the engine reads or writes.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/exchange/Format.h"

using namespace fennar::geometry;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QList<Format> all = formats();
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    for (const Format& format : all) {
        const QString reason = mismatch(format, content.left(4096), content.right(64), content.size());
        expect(!content.isEmpty() || !reason.isEmpty(), "an empty file is of no format");
        expect(!content.isEmpty() || !is_whole(format, content), "an empty file is not whole");
    }
    const QString name = QString::fromUtf8(content.left(64));
    if (const auto found = format_of_file(name))
        expect(name.contains(u'.') && find_format(found->name)->name == found->name,
               "a format is known by its name");
    find_format(name);
    return 0;
}
