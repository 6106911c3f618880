// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as a journal for the editor, and as two journals to be compared.

#include "fuzz/fuzz_target.h"
#include "journal/read_journal.h"
#include "workbench/application/journals/journal_text.h"
#include "workbench/application/journals/line_differences.h"

#include <QStringList>

#include <sstream>
#include <string>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Whether the lines of @p differences that @p mark leads, or two blanks, stand in @p text in their order. */
bool are_of(const QStringList& differences, const QString& mark, const QStringList& text)
{
    qsizetype next = 0;
    for (const QString& line : differences) {
        if (!line.startsWith(mark) && !line.startsWith("  "_L1))
            continue;
        next = text.indexOf(line.sliced(2), next) + 1;
        if (next == 0)
            return false;
    }
    return true;
}

void check_differences(const QStringList& before, const QStringList& after)
{
    const QStringList differences = line_differences(before, after);
    expect(differences.isEmpty() == (before == after), "texts that differ have differences");
    expect(are_of(differences, u"- "_s, before), "lines that were there are told as they were");
    expect(are_of(differences, u"+ "_s, after), "lines that are new are told as they are");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const MemoryBound bound(size);
    std::istringstream stream(bytes);
    const std::optional<QString> text = read_journal(stream);
    expect(text.has_value(), "what is there can be read");
    expect(*text == journal_text(QByteArray::fromStdString(bytes)),
           "editor and comparison read the same text");
    expect(text->endsWith(u'\n') && !text->contains(QChar::Null), "a text has lines");

    const std::size_t border = bytes.find('\xff');
    if (border != std::string::npos)
        check_differences(QString::fromStdString(bytes.substr(0, border)).split(u'\n'),
                          QString::fromStdString(bytes.substr(border + 1)).split(u'\n'));
    return 0;
}
