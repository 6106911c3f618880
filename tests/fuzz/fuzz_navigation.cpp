// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as a navigation file, and once more as a second file of the same
// set.

#include "fuzz/fuzz_target.h"
#include "workbench/host/navigation/NavigationFiles.h"

#include <QBuffer>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Groups stand in each other so deep at most; the page above and the command below come on top. */
constexpr int most_levels = 18;

int check_entry(const QStandardItem* item, int level)
{
    expect(level <= most_levels, "groups are not too deep");
    const auto* node = static_cast<const NavigationNode*>(item);
    expect(!node->text().isEmpty(), "an entry has a title");
    expect((node->kind() == NavigationKind::Page) == (level == 1), "pages are at the top");
    if (node->kind() == NavigationKind::Command) {
        const QString command = node->data(NavigationRole::Command).toString();
        expect(!command.isEmpty() && !command.contains(u'\n'), "a command is a line");
        expect(!node->hasChildren(), "a command holds nothing");
    }
    int count = 1;
    for (int row = 0; row < node->rowCount(); ++row)
        count += check_entry(node->child(row), level + 1);
    return count;
}

int read(QByteArray bytes, int times)
{
    QStringList messages;
    NavigationFiles files(&messages);
    for (int i = 0; i < times; ++i) {
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        const QString path = u"/nowhere/%1.xml"_s.arg(i);
        const qsizetype before = messages.size();
        files.read(device, path);
        expect(messages.size() - before <= 51, "messages about one file are counted");
        for (const QString& message : messages)
            expect(message.startsWith("/nowhere/"_L1) && !message.contains(u'\n'),
                   "a message is a line with the file");
    }
    int count = 0;
    for (const auto& page : files.take_pages())
        count += check_entry(page.get(), 1);
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    const int entries = read(bytes, 1);
    if (entries > 0)
        expect(read(bytes, 2) == entries, "the same file adds nothing");
    return 0;
}
