// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What the translation of journals to Python costs. A program of its own: documents leave free memory behind,
// in which one text would fit without new pages and two would not.

#include "bench.h"
#include "journal/translate.h"
#include "journal_text.h"

#include <QString>

#ifdef __GLIBC__
#include <malloc.h>
#endif

int main()
{
#ifdef __GLIBC__
    // Otherwise short texts get memory that was used before, and long ones new pages for each run: the
    // allocator would be measured.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
    const QString text = bench::journal(1'000'000);
    const auto translate = [](const QString& before) {
        QString after = before;
        const double seconds = bench::seconds([&] { pythonize_text(after); });
        if (after.count(u'\n') != before.count(u'\n') || after.size() < before.size() + 10)
            qFatal("the text was not translated");
        return seconds;
    };
    bench::compare(
        "translating a journal of 1,000,000 lines", 6,
        [&] {
            QString back;
            const double seconds = bench::seconds([&] { back = QString::fromUtf8(text.toUtf8()); });
            if (back != text)
                qFatal("the text did not survive UTF-8");
            return seconds;
        },
        [&] { return translate(text); }, 11);
    const QString twice = text + u'\n' + text;
    bench::compare(
        "translating twice the text", 2.2, [&] { return translate(text); }, [&] { return translate(twice); },
        11);
}
