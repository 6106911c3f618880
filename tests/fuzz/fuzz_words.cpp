// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Splits whatever the fuzzer comes up with into words, as a line that was typed, and reads these as numbers.

#include "fuzz/fuzz_target.h"
#include "fuzz/fuzz_text.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QStringList>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

void check_places(const CommandWords& words, qsizetype size)
{
    qsizetype behind = 1;
    for (const CommandWord& word : words.words) {
        expect(word.column >= behind, "words follow each other");
        behind = word.column + 1;
    }
    expect(words.end_column >= behind && words.end_column <= size + 1, "the last word ends in the line");
    if (words.error)
        expect(words.error->column() >= 1 && words.error->column() <= size + 1, "a fault is in the line");
}

/** Words that were written with quotes come back. */
void check_quotes(const QStringList& words)
{
    QStringList written;
    for (const QString& word : words)
        written << quote_word(word);
    const CommandWords read = tokenize(written.join(u' '));
    expect(!read.error, "words that were quoted are sound");
    QStringList texts;
    for (const CommandWord& word : read.words)
        texts << word.text;
    expect(texts == words, "words that were quoted come back");
}

void check_numbers(const QString& word)
{
    bool ok = false;
    if (const std::optional<double> number = parse_number(word)) {
        expect(word.toDouble(&ok) == *number && ok, "a number is what Qt takes it for");
        expect(parse_number(QString::number(*number, 'g', 17)) == number,
               "a number that was written comes back");
    }
    if (const std::optional<qint64> number = parse_integer(word)) {
        expect(word.toLongLong(&ok) == *number && ok, "a whole number is what Qt takes it for");
        expect(parse_integer(QString::number(*number)) == number,
               "a whole number that was written comes back");
    }
}

void check_lines(const QString& text)
{
    ContinuedCommand lines;
    const QStringList typed = text.split(u'\n');
    for (const QString& line : typed) {
        if (!lines.add(line))
            continue;
        expect(!lines.is_incomplete(), "a command that is complete needs no other line");
        for (const qsizetype column :
             {qsizetype(0), qsizetype(1), lines.text().size() / 2, lines.text().size() + 9}) {
            const ContinuedCommand::Position at = lines.position(column);
            expect(at.line >= 0 && at.line < lines.line_count() && at.column >= 1, "each place is in a line");
        }
        lines.clear();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString line = fuzz_text(data, size);
    const MemoryBound bound(size);
    const CommandWords plain = tokenize(line);
    check_places(plain, line.size());
    QStringList words;
    for (const CommandWord& word : plain.words) {
        words << word.text;
        check_numbers(word.text);
    }
    check_quotes(words);
    check_quotes({line});
    check_numbers(line);
    check_places(
        tokenize(line, [](QStringView name) { return std::optional(u"\"'$ #"_s + name.toString()); }),
        line.size());
    check_lines(line);
    return 0;
}
