// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Compares the two translations of journals on whatever bytes the fuzzer comes up with.

#include "fuzz/fuzz_target.h"
#include "journal/literal_translation.h"
#include "journal/translate.h"

#include <QByteArray>
#include <QString>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const QString text = QString::fromUtf8(bytes);
    const MemoryBound bound(size);
    QString found = text;
    pythonize_text(found);
    QString expected = text;
    literally_pythonize_text(expected);
    if (found != expected) {
        std::fprintf(stderr, "text:     %s\nfound:    %s\nexpected: %s\n", qPrintable(text),
                     qPrintable(found), qPrintable(expected));
        std::abort();
    }
    return 0;
}
