// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as the history of commands, and walks through it.

#include "fuzz/fuzz_target.h"
#include "workbench/application/console/CommandHistory.h"

#include <QBuffer>

using namespace fennar;

namespace {

QStringList read(QByteArray bytes)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return CommandHistory::read(device);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryBound bound(size);
    const QStringList entries =
        read(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    // A byte order mark is one only at the beginning.
    QByteArray written = "first\n";
    CommandHistory history;
    for (const QString& entry : entries) {
        expect(!entry.isEmpty(), "an entry is a command");
        for (const QChar end : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::ParagraphSeparator)})
            expect(!entry.contains(end), "an entry is one line");
        written += entry.toUtf8() + '\n';
        history.add(entry);
    }
    expect(read(written).mid(1) == entries, "entries that were written come back");

    expect(history.entries().size() <= CommandHistory::limit, "old entries are forgotten");
    QString line;
    for (qsizetype i = 0; i < std::min<qsizetype>(history.entries().size() + 1, 8); ++i)
        line = history.previous(line);
    for (const QString& entry : history.entries())
        expect(history.find(entry, history.entries().size()) >= 0, "an entry can be found");
    history.next(line);
    return 0;
}
