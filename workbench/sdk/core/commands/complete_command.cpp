// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/complete_command.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandVariables.h"
#include "workbench/sdk/core/commands/FormReader.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;

enum class Quote { None, Double, Single };

/** The words of a line up to the caret. */
struct Typed
{
    /** Those that are complete. */
    QList<CommandWord> words;
    /** The one that the caret ends, without quotes; empty if a new one would begin there. */
    QString word;
    /** Where that begins in the line. */
    qsizetype start = 0;
    bool in_comment = false;
};

Typed read_words(const QString& before, const CommandVariables& variables)
{
    // A variable that is not set must not spoil the words behind it.
    const auto lookup = [&variables](QStringView name) -> std::optional<QString> {
        return variables.value(name).value_or(QString());
    };
    // What is typed may be within quotes.
    CommandWords found;
    for (const QString& ending : {u""_s, u"\""_s, u"'"_s}) {
        found = tokenize(before + ending, lookup);
        if (!found.error)
            break;
    }
    Typed typed;
    typed.words = found.words;
    typed.start = before.size();
    const bool touches = !found.words.isEmpty() && found.end_column > before.size();
    if (touches) {
        typed.word = found.words.last().text;
        typed.start = found.words.last().column - 1;
        typed.words.removeLast();
    } else {
        typed.in_comment = !QStringView(before).sliced(found.end_column - 1).trimmed().isEmpty();
    }
    return typed;
}

/** Which quotes are open behind @p raw, the beginning of a word as typed. */
Quote open_quote(QStringView raw)
{
    Quote quote = Quote::None;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (quote == Quote::None)
            quote = raw[i] == u'"' ? Quote::Double : raw[i] == u'\'' ? Quote::Single : Quote::None;
        else if (quote == Quote::Double && raw[i] == u'\\')
            ++i;
        else if (raw[i] == (quote == Quote::Double ? u'"' : u'\''))
            quote = Quote::None;
    }
    return quote;
}

QString opening(Quote quote)
{
    return quote == Quote::Double ? u"\""_s : quote == Quote::Single ? u"'"_s : QString();
}

/**
 * Writes @p text so that it goes on behind open quotes. An empty result for a text that is not means that
 * these quotes cannot hold it.
 *
 * @param closed  whether the word ends with it.
 */
QString written(const QString& text, Quote quote, bool closed)
{
    switch (quote) {
    case Quote::Single:
        return text.contains(u'\'') ? QString() : closed ? text + u'\'' : text;
    case Quote::Double: {
        const QString quoted = quote_word(text + u' ');
        return quoted.mid(1).chopped(2) + (closed ? u"\""_s : QString());
    }
    case Quote::None:
        break;
    }
    const QString quoted = quote_word(text);
    return closed || quoted == text || text.isEmpty() ? (text.isEmpty() ? text : quoted) : quoted.chopped(1);
}

/** What could come next by the forms of a command. */
struct Expected
{
    struct Value
    {
        const CommandParameter* parameter;
        /** The values that it has already. */
        QStringList given = {};
        /** Those that it cannot have, as they must be distinct. */
        QStringList taken = {};
    };

    /** The words behind the command's name that were typed. */
    QStringList words = {};
    QStringList keywords = {};
    QList<Value> values = {};
};

/** The words that the wanted parameters have got in a line; none if they have no values yet. */
template <typename Wanted>
QStringList given_to(const Wanted& wanted, const CommandSyntax& form, const FormReading& reading,
                     const QStringList& words)
{
    QStringList given;
    for (qsizetype i = 0; i < form.clauses.size(); ++i) {
        const FormReading::Clause values = reading.clauses[i].value_or(FormReading::Clause());
        for (qsizetype j = 0; j < values.size(); ++j) {
            if (!wanted(form.clauses[i].parameters[j]))
                continue;
            for (const qsizetype word : values[j])
                given << words[word];
        }
    }
    return given;
}

/** Whether what was read as numbers is some. */
bool holds_numbers(const CommandSyntax& form, const FormReading& reading, const QStringList& words)
{
    return std::ranges::all_of(given_to(std::mem_fn(&CommandParameter::is_number), form, reading, words),
                               [](const QString& word) { return parse_number(word).has_value(); });
}

/** What all texts begin with. */
QString common_beginning(const QStringList& texts)
{
    QString common = texts.value(0);
    for (const QString& text : texts) {
        const auto end = std::mismatch(common.begin(), common.end(), text.begin(), text.end()).first;
        common.truncate(end - common.begin());
    }
    if (!common.isEmpty() && common.back().isHighSurrogate())
        common.chop(1);
    return common;
}

/** Puts candidates together that begin with what was typed. */
class Collector
{
public:
    /**
     * @param typed  the part typed, without quotes.
     * @param start  where it begins in the line.
     * @param quote  the quotes that are open there.
     */
    Collector(const QString& typed, qsizetype start, Quote quote) : mTyped(typed), mQuote(quote)
    {
        mResult.start = start;
    }

    /** @param more  whether the word goes on behind it, as behind a directory. */
    void add(const QString& text, bool more = false)
    {
        if (!text.startsWith(mTyped) || text.isEmpty() || mSeen.contains(text))
            return;
        const QString inserted = written(text, mQuote, !more);
        if (inserted.isEmpty())
            return;
        mSeen << text;
        mTexts << text;
        mMore = more;
        mResult.candidates << LineCompletion::Candidate{text, inserted};
    }

    bool is_empty() const { return mTexts.isEmpty(); }

    LineCompletion result()
    {
        mResult.followed = mTexts.size() == 1 && !mMore;
        std::sort(mResult.candidates.begin(), mResult.candidates.end(),
                  [](const auto& a, const auto& b) { return a.shown < b.shown; });
        if (!mTexts.isEmpty())
            mResult.common = written(common_beginning(mTexts), mQuote, false);
        return mResult;
    }

private:
    const QString mTyped;
    const Quote mQuote;
    QStringList mTexts;
    QSet<QString> mSeen;
    bool mMore = false;
    LineCompletion mResult;
};

/** Adds the files in @p directory: those with the endings that are asked for, or all if there are none. */
void add_files(Collector& collector, const QString& directory, const QString& typed,
               const CommandParameter* parameter)
{
    QDir::Filters filters = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot;
    if (typed.startsWith(u'.'))
        filters |= QDir::Hidden;
    const QDir folder(directory.isEmpty() ? u"."_s : directory);
    const QFileInfoList files = folder.entryInfoList(filters, QDir::Name);
    const QList<CommandFileFilter> wanted =
        parameter && parameter->filters ? parameter->filters() : QList<CommandFileFilter>();
    const auto is_wanted = [&wanted](const QFileInfo& file) {
        return wanted.isEmpty() || file.isDir() ||
               std::any_of(wanted.begin(), wanted.end(), [&file](const CommandFileFilter& filter) {
                   return file.fileName().endsWith(filter.extension, Qt::CaseInsensitive);
               });
    };
    const auto add = [&collector](const QFileInfo& file) {
        collector.add(file.isDir() ? file.fileName() + u'/' : file.fileName(), file.isDir());
    };
    for (const QFileInfo& file : files) {
        if (is_wanted(file))
            add(file);
    }
    if (!collector.is_empty())
        return;
    for (const QFileInfo& file : files)
        add(file);
}

/** Where the name of the variable begins that the caret is in, if any. */
std::optional<qsizetype> variable_start(const QString& before, const CommandVariables& variables)
{
    static const QRegularExpression pattern(u"\\$\\{?([A-Za-z_][A-Za-z0-9_]*)?$"_s);
    const QRegularExpressionMatch match = pattern.match(before);
    if (!match.hasMatch())
        return std::nullopt;
    const QString ahead = before.first(match.capturedStart());
    const Typed typed = read_words(ahead, variables);
    const QString word = ahead.sliced(typed.start);
    const Quote quote = open_quote(word);
    // A backslash ahead of it, in double quotes, would as well keep the quotes from being closed here.
    const bool escaped = quote == Quote::Double && open_quote(QString(word + u'"')) == Quote::Double;
    if (typed.in_comment || word.startsWith(u'#') || quote == Quote::Single || escaped)
        return std::nullopt;
    const qsizetype brace = QStringView(before).sliced(match.capturedStart()).startsWith("${"_L1) ? 1 : 0;
    return match.capturedStart() + 1 + brace;
}

LineCompletion complete_variable(const QString& before, qsizetype start, const CommandVariables& variables)
{
    LineCompletion result;
    result.start = start;
    const QString typed = before.sliced(start);
    const bool brace = before[start - 1] == u'{';
    QStringList names = variables.names();
    names.removeIf([&typed](const QString& name) { return !name.startsWith(typed); });
    for (const QString& name : std::as_const(names))
        result.candidates << LineCompletion::Candidate{name, brace ? name + u'}' : name};
    result.common = common_beginning(names);
    return result;
}

/** What could come next behind the words that were typed. */
Expected expected_next(const Command& command, const Typed& typed)
{
    QStringList given;
    for (const CommandWord& word : typed.words.sliced(1))
        given << word.text;
    Expected expected{.words = given};
    for (const CommandSyntax& form : command.forms) {
        const FormReading reading = read_form(form, given, Missing::End);
        if (reading.next == given.size() && holds_numbers(form, reading, given)) {
            expected.keywords << reading.keywords;
            for (const CommandParameter* parameter : reading.parameters) {
                const auto same = [parameter](const CommandParameter& p) { return &p == parameter; };
                const auto shut_out = [parameter](const CommandParameter& p) {
                    return p.distinct && parameter->distinct && p.entity == parameter->entity;
                };
                expected.values.append({parameter, given_to(same, form, reading, given),
                                        given_to(shut_out, form, reading, given)});
            }
        }
    }
    return expected;
}

/** The names that can still be given; each once only where they must be distinct. */
QStringList names_left(const CommandParameter& parameter, const QStringList& taken,
                       const CommandEntities& entities)
{
    QStringList names = entities.names(parameter.entity);
    for (const QString& word : taken)
        names.removeAll(entities.find(parameter.entity, word));
    return names;
}

/**
 * The first word of a line with which the reader of arguments finds it wrong; the number of words, or more,
 * if words that follow could put it right.
 *
 * @param texts     the words behind the command's name, from 1.
 * @param entities  null if names are not to be looked up.
 */
qsizetype wrong_word(const Command& command, const QStringList& texts, const CommandEntities* entities)
{
    // The columns only tell the words apart.
    CommandWords words;
    words.words.append({command.name, 0});
    for (const QString& text : texts)
        words.words.append({text, words.end_column++});
    try {
        const CommandArguments arguments(words, command.forms, entities);
    } catch (const CommandError& error) {
        return error.column();
    }
    return words.end_column;
}

/** Whether a keyword is right behind what was typed, with values that its clause could have. */
bool takes_keyword(const Command& command, const QStringList& typed, const QString& keyword,
                   const CommandEntities& entities)
{
    return std::ranges::any_of(command.forms, [&](const CommandSyntax& form) {
        return std::ranges::any_of(form.clauses, [&](const CommandClause& clause) {
            if (clause.keyword != keyword)
                return false;
            QStringList words = typed + QStringList(keyword);
            for (const CommandParameter& parameter : clause.parameters)
                words << parameter.choices.value(0, parameter.example);
            // Other values may do where these are wrong, or what is ahead is with them.
            return wrong_word(command, words, &entities) != typed.size() + 1;
        });
    });
}

/** Adds the words that are expected, but for the names of files. */
void add_expected(Collector& collector, const Command& command, const Expected& expected,
                  const CommandEntities& entities)
{
    const QStringList& typed = expected.words;
    const bool is_wrong = wrong_word(command, typed, &entities) <= typed.size();
    // Values that were given may not go together with what is expected by the form alone.
    const auto add_taken = [&](const QStringList& texts, const CommandEntities* known) {
        for (const QString& text : texts) {
            if (is_wrong || wrong_word(command, typed + QStringList(text), known) > typed.size() + 1)
                collector.add(text);
        }
    };
    for (const QString& keyword : expected.keywords) {
        if (is_wrong || takes_keyword(command, typed, keyword, entities))
            add_taken({keyword}, &entities);
    }
    for (const auto& [parameter, given, taken] : expected.values) {
        // What stands for entities must be the only value.
        if (parameter->kind != Kind::Entity || given.isEmpty())
            add_taken(parameter->choices, &entities);
        for (const QString& text :
             parameter->beginnings ? parameter->beginnings(expected.words) : QStringList())
            collector.add(text, true);
        if (parameter->kind == Kind::Variable && parameter->entity.isEmpty())
            add_taken(entities.names(u"variable"_s), nullptr);
        else if (parameter->kind == Kind::Entity || parameter->kind == Kind::Variable)
            add_taken(names_left(*parameter, taken, entities), nullptr);
    }
}

/** The file that is expected, the last one if several are; null if none is. */
const CommandParameter* expected_file(const Expected& expected)
{
    const auto found = std::find_if(expected.values.rbegin(), expected.values.rend(),
                                    [](const Expected::Value& value) { return value.parameter->is_file(); });
    return found == expected.values.rend() ? nullptr : found->parameter;
}

/** @param parameter  what is asked for; null if any file will do. */
LineCompletion complete_file(const QString& before, const Typed& typed, const CommandParameter* parameter,
                             const CommandVariables& variables)
{
    // Only the part behind the last slash is written anew; what is ahead may hold quotes and variables.
    const qsizetype start = std::max(before.lastIndexOf(u'/') + 1, typed.start);
    const Quote quote = open_quote(QStringView(before).sliced(typed.start, start - typed.start));
    // Within a word a "#" begins no comment.
    const QString ahead = quote == Quote::None ? u"''"_s : opening(quote);
    const QString name = read_words(ahead + before.sliced(start), variables).word;
    Collector files(name, start, quote);
    // One with a slash in it is a variable's, and nothing here could go on with it.
    if (!name.contains(u'/'))
        add_files(files, typed.word.chopped(name.size()), name, parameter);
    return files.result();
}

/** A quote that stands behind the caret closes the word already. */
void leave_out_quote(LineCompletion& completion, QChar behind)
{
    for (LineCompletion::Candidate& candidate : completion.candidates) {
        const bool closed = candidate.inserted.endsWith(u'"') || candidate.inserted.endsWith(u'\'');
        if (closed && behind == candidate.inserted.back())
            candidate.inserted.chop(1);
    }
}

} // namespace

LineCompletion complete_command(const QString& line, qsizetype caret, const CommandRegistry& registry,
                                const CommandVariables& variables)
{
    const QString before = line.first(std::clamp<qsizetype>(caret, 0, line.size()));
    if (const auto start = variable_start(before, variables))
        return complete_variable(before, *start, variables);
    const Typed typed = read_words(before, variables);
    if (typed.in_comment || QStringView(before).sliced(typed.start).startsWith(u'#'))
        return {before.size()};

    Collector words(typed.word, typed.start, Quote::None);
    if (typed.words.isEmpty()) {
        for (const QString& name : registry.names())
            words.add(name);
        return words.result();
    }
    const std::shared_ptr<const Command> command = registry.find(typed.words[0].text);
    const Expected expected = command ? expected_next(*command, typed) : Expected();
    if (command)
        add_expected(words, *command, expected, registry.entities());
    LineCompletion result = words.result();
    const CommandParameter* const file = expected_file(expected);
    if (result.candidates.isEmpty() && (file || !command))
        result = complete_file(before, typed, file, variables);
    if (caret < line.size())
        leave_out_quote(result, line[caret]);
    if (result.candidates.isEmpty() && command)
        result.hint = u"Usage: "_s + command->usage();
    return result;
}

} // namespace fennar
