// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Completes whatever the fuzzer comes up with, at any place.

#include "fuzz/fuzz_target.h"
#include "fuzz/fuzz_text.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/complete_command.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

/** What there is to complete, in a folder of its own. */
struct World
{
    World()
    {
        QDir::setCurrent(folder.path());
        for (const QString& name :
             {u"a b.jou"_s, u"it's"_s, u"\"quoted\""_s, u"$x"_s, u"é.jou"_s, u".hidden"_s}) {
            QFile file(name);
            expect(file.open(QIODevice::WriteOnly), "the folder has files");
        }
        QDir().mkpath(u"sub folder/inner"_s);
        registry.entities().offer(u"solid"_s, {}, [] {
            return QStringList{u"brick1"_s, u"brick2"_s, u"a b"_s, u"it's"_s, u"\"q\""_s, u"😀"_s, u"😁"_s};
        });
        registry.entities().offer(u"variable"_s, {}, [this] { return variables.names(); });
        variables.set(u"radius"_s, u"5"_s);
        variables.set(u"rest"_s, u"a 'b' \"c\" $ /"_s);
        const CommandParameter number{.name = u"X"_s, .kind = Kind::Number};
        const CommandParameter whole{.name = u"N"_s, .kind = Kind::WholeNumber};
        const CommandParameter solids{.name = u"S"_s,
                                      .kind = Kind::Entity,
                                      .choices = {u"all"_s},
                                      .entity = u"solid"_s,
                                      .repeated = true,
                                      .at_least = 2};
        const CommandParameter choice{
            .name = u"C"_s, .kind = Kind::Choice, .choices = {u"on"_s, u"off"_s, u"a c"_s}};
        const CommandParameter variable{.name = u"V"_s, .kind = Kind::Variable};
        const CommandParameter file{.name = u"F"_s, .kind = Kind::InputFile, .filters = [] {
                                        return QList<CommandFileFilter>{{u"Journals"_s, u".jou"_s}};
                                    }};
        const CommandParameter words{.name = u"W"_s, .kind = Kind::Words};
        add(u"brick"_s, {{.clauses = {required_value(number),
                                      optional_value(number),
                                      {.keyword = u"at"_s, .parameters = {number, number}, .optional = true},
                                      {.keyword = u"name"_s, .parameters = {words}, .optional = true}}}});
        add(u"unite"_s, {{.clauses = {required_value(solids), {.keyword = u"keep"_s, .optional = true}}},
                         {.clauses = {required_value(choice), required_value(whole)}}});
        add(u"play"_s, {{.clauses = {required_value(file), optional_value(whole)}}});
        add(u"set"_s, {{}, {.clauses = {required_value(variable), optional_value(words)}}});
        add(u"any"_s, {{}});
    }
    void add(const QString& name, const QList<CommandSyntax>& forms)
    {
        registry.add({.name = name, .perform = [](CommandCall&, const CommandArguments&) {}, .forms = forms});
    }
    std::optional<QString> value(QStringView name) const { return variables.value(name).value_or(QString()); }

    QTemporaryDir folder;
    CommandRegistry registry;
    CommandVariables variables;
};

/** @p text without slashes that could lead out of the folder: what is elsewhere on the machine is long, and
 * changes. */
QString kept_inside(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'/' && (i == 0 || text[i - 1] != u'r'))
            text[i] = u'_';
    }
    return text;
}

/** What is put in behind @p before is the word that was offered. */
void check_candidates(const World& world, const QString& before)
{
    const LineCompletion found = complete_command(before, before.size(), world.registry, world.variables);
    const VariableLookup lookup = [&world](QStringView name) { return world.value(name); };
    expect(found.start >= 0 && found.start <= before.size(), "the part typed ends at the caret");
    expect(std::is_sorted(found.candidates.begin(), found.candidates.end(),
                          [](const auto& a, const auto& b) { return a.shown < b.shown; }),
           "candidates are sorted");
    expect(!found.followed || found.candidates.size() == 1, "only a single candidate ends the line");
    // Behind a fault there is no telling what a word is.
    const bool sound = std::ranges::any_of(QStringList{u""_s, u"\""_s, u"'"_s}, [&](const QString& ending) {
        return !tokenize(before + ending, lookup).error;
    });
    if (!sound)
        return;
    const bool variable =
        found.start > 0 && (before[found.start - 1] == u'$' || before[found.start - 1] == u'{');
    for (const LineCompletion::Candidate& candidate : found.candidates) {
        if (variable || candidate.shown.endsWith(u'/'))
            continue;
        const CommandWords words = tokenize(before.first(found.start) + candidate.inserted, lookup);
        expect(!words.error, "a completed word is sound");
        expect(!words.words.isEmpty() && words.words.last().text.endsWith(candidate.shown),
               "a completed word is the one that was offered");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const World world;
    if (size == 0)
        return 0;
    const QString line = kept_inside(fuzz_text(data + 1, size - 1));
    const qsizetype caret = data[0] % (line.size() + 1);
    complete_command(line, caret, world.registry, world.variables);
    check_candidates(world, line.first(caret));
    return 0;
}
