// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with into the fields of a form, and writes the line anew.

#include "fuzz/fuzz_target.h"
#include "fuzz/fuzz_text.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <algorithm>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

const QList<CommandSyntax>& forms()
{
    static const CommandParameter number{.name = u"X"_s, .kind = Kind::Number};
    static const CommandParameter solid{
        .name = u"SOLID"_s, .kind = Kind::Entity, .entity = u"solid"_s, .reserved = {u"at"_s, u"name"_s}};
    static const CommandParameter solids{.name = u"SOLID"_s,
                                         .kind = Kind::Entity,
                                         .choices = {u"all"_s},
                                         .entity = u"solid"_s,
                                         .reserved = {u"at"_s},
                                         .repeated = true,
                                         .at_least = 2};
    static const CommandParameter file{.name = u"FILE"_s, .kind = Kind::InputFile};
    static const CommandParameter text{.name = u"TEXT"_s, .kind = Kind::Text};
    static const CommandParameter texts{.name = u"TEXT"_s, .kind = Kind::Text, .repeated = true};
    static const CommandParameter words{.name = u"WORD"_s, .kind = Kind::Words};
    static const CommandParameter choice{
        .name = u"C"_s, .kind = Kind::Choice, .choices = {u"on"_s, u"off"_s}};
    static const QList<CommandSyntax> all{
        {},
        {.clauses = {required_value(number), required_value(number), optional_value(number)}},
        {.clauses = {required_value(solids),
                     {.keyword = u"at"_s, .parameters = {number, number, number}, .optional = true},
                     {.keyword = u"name"_s, .parameters = {solid}, .optional = true}}},
        {.clauses = {required_value(solid),
                     optional_value(choice),
                     {.keyword = u"keep"_s, .optional = true}}},
        {.clauses = {required_value(file), {.keyword = u"as"_s, .parameters = {text}, .optional = true}}},
        {.clauses = {required_value(solid), optional_value(words)}},
        {.clauses = {{.keyword = u"of"_s, .parameters = {choice, solids}}}},
        {.clauses = {required_value(choice), optional_value(texts)}},
    };
    return all;
}

/** As the form splits a line: variables stay. */
CommandWords split(const QString& line)
{
    return tokenize(line, [](QStringView name) { return std::optional(u"${"_s + name.toString() + u'}'); });
}

QStringList texts(const CommandWords& words)
{
    QStringList result;
    for (const CommandWord& word : words.words)
        result << word.text;
    return result;
}

/** A line is read by its declaration, or the place of what is wrong is told. */
void check_arguments(const QString& line, const CommandSyntax& form)
{
    CommandWords whole = split(u"c "_s + line);
    if (whole.error)
        return;
    const QList<CommandSyntax> way{form};
    try {
        const CommandArguments arguments(whole, way, nullptr);
        expect(read_values(form, texts(whole).mid(1)).has_value(), "what runs can be shown in the form");
    } catch (const CommandError& error) {
        expect(error.column() > 1 && error.column() <= whole.end_column, "what is wrong is in the line");
        expect(!error.message().isEmpty(), "what is wrong is told");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString line = fuzz_text(data, size);
    const MemoryBound bound(size);
    is_variable_reference(line);
    const CommandWords found = split(line);
    const QStringList words = texts(found);
    // Without braces a variable that is quoted cannot be told from one that is not.
    if (found.error || std::any_of(words.begin(), words.end(), [](const QString& word) {
            return is_variable_reference(word) && !word.startsWith("${"_L1);
        }))
        return 0;
    for (const CommandSyntax& form : forms()) {
        check_arguments(line, form);
        const auto values = read_values(form, words);
        if (!values)
            continue;
        expect(values->size() == form.clauses.size(), "each clause has its values");
        const CommandWords written = split(command_line(u"c"_s, form, *values));
        expect(!written.error, "the line of a form is sound");
        expect(read_values(form, texts(written).mid(1)) == values, "values that were written come back");
    }
    return 0;
}
