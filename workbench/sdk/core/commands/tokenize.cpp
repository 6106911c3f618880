// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/tokenize.h"

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

// Letters and digits of the language are those of ASCII, as its blanks are.

bool is_name_start(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
}

bool is_name_part(QChar c)
{
    return is_name_start(c) || (c >= u'0' && c <= u'9');
}

/** Walks the line once; each function stands at the character that it is about and leaves behind it. */
class Tokenizer
{
public:
    Tokenizer(QStringView line, const VariableLookup& variable) : mLine(line), mVariable(variable) {}

    CommandWords run()
    {
        CommandWords result;
        try {
            while (skip_to_word()) {
                mWord = CommandWord{{}, mAt + 1, false};
                read_word();
                result.words.append(std::move(mWord));
                result.end_column = mAt + 1;
            }
        } catch (const CommandError& error) {
            result.error = error;
        }
        return result;
    }

private:
    bool at_end() const { return mAt == mLine.size(); }

    bool skip_to_word()
    {
        while (!at_end() && is_command_blank(mLine[mAt]))
            ++mAt;
        return !at_end() && mLine[mAt] != u'#';
    }

    void read_word()
    {
        while (!at_end() && !is_command_blank(mLine[mAt])) {
            if (mLine[mAt] == u'"')
                read_double_quotes();
            else if (mLine[mAt] == u'\'')
                read_single_quotes();
            else if (mLine[mAt] == u'$')
                read_dollar();
            else
                read_plain();
        }
    }

    void read_plain()
    {
        const qsizetype start = mAt;
        while (!at_end() && !is_command_blank(mLine[mAt]) && mLine[mAt] != u'"' && mLine[mAt] != u'\'' &&
               mLine[mAt] != u'$')
            ++mAt;
        mWord.text += mLine.sliced(start, mAt - start);
    }

    void read_single_quotes()
    {
        const qsizetype start = mAt++;
        const qsizetype end = mLine.indexOf(u'\'', mAt);
        if (end < 0)
            throw unterminated(u'\'', start);
        mWord.quoted = true;
        mWord.text += mLine.sliced(mAt, end - mAt);
        mAt = end + 1;
    }

    void read_double_quotes()
    {
        const qsizetype start = mAt++;
        mWord.quoted = true;
        while (true) {
            const qsizetype run = mAt;
            while (!at_end() && mLine[mAt] != u'"' && mLine[mAt] != u'\\' && mLine[mAt] != u'$')
                ++mAt;
            mWord.text += mLine.sliced(run, mAt - run);
            if (at_end())
                throw unterminated(u'"', start);
            if (mLine[mAt] == u'"')
                break;
            if (mLine[mAt] == u'$')
                read_dollar();
            else
                read_escape(start);
        }
        ++mAt;
    }

    void read_escape(qsizetype quote)
    {
        const qsizetype start = mAt++;
        if (at_end())
            throw unterminated(u'"', quote);
        const qsizetype which = QStringView(u"\"\\$nrt").indexOf(mLine[mAt]);
        if (which < 0)
            throw CommandError::expected(uR"(an escape (\" \\ \$ \n \r \t))"_s,
                                         CommandError::shown(character(start, 1)), start + 1);
        mWord.text += QStringView(u"\"\\$\n\r\t")[which];
        ++mAt;
    }

    /** A variable, or a dollar sign that stands for itself since no name follows. */
    void read_dollar()
    {
        const qsizetype start = mAt++;
        const bool braces = !at_end() && mLine[mAt] == u'{';
        if (braces)
            ++mAt;
        const qsizetype name_start = mAt;
        if (!at_end() && is_name_start(mLine[mAt])) {
            while (!at_end() && is_name_part(mLine[mAt]))
                ++mAt;
        }
        const QStringView name = mLine.sliced(name_start, mAt - name_start);
        if (braces) {
            if (name.isEmpty())
                throw CommandError::expected(u"the name of a variable"_s, found(), mAt + 1);
            if (at_end() || mLine[mAt] != u'}')
                throw CommandError::expected(u"\"}\""_s, found(), mAt + 1);
            ++mAt;
        } else if (name.isEmpty()) {
            mWord.text += u'$';
            return;
        }
        append_value(name, start);
    }

    void append_value(QStringView name, qsizetype start)
    {
        const std::optional<QString> value = mVariable ? mVariable(name) : std::nullopt;
        if (!value)
            throw CommandError(u"unknown variable %1"_s.arg(CommandError::shown(name)), start + 1);
        mExpanded += value->size();
        if (mExpanded > expansion_limit)
            throw CommandError(
                u"the variables of this command expand to more than %1 characters"_s.arg(expansion_limit),
                start + 1);
        mWord.text += *value;
    }

    /** The character at @p at with the @p extra ones behind it, surrogate pairs kept whole. */
    QStringView character(qsizetype at, qsizetype extra) const
    {
        qsizetype size = std::min(extra + 1, mLine.size() - at);
        if (mLine[at + size - 1].isHighSurrogate() && at + size < mLine.size())
            ++size;
        return mLine.sliced(at, size);
    }

    QString found() const
    {
        return at_end() ? u"the end of the line"_s : CommandError::shown(character(mAt, 0));
    }

    static CommandError unterminated(QChar quote, qsizetype start)
    {
        const QString name = quote == u'"' ? u"double quote"_s : u"single quote"_s;
        return CommandError::expected(u"a closing "_s + name, u"the end of the line"_s, start + 1);
    }

    const QStringView mLine;
    const VariableLookup& mVariable;
    qsizetype mAt = 0;
    qsizetype mExpanded = 0;
    CommandWord mWord;
};

} // namespace

CommandError CommandWords::expected(qsizetype i, const CommandMessage& what, const QString& remedy) const
{
    const CommandMessage found =
        i < words.size() ? CommandMessage(CommandError::shown(words[i].text))
                         : CommandMessage(QT_TRANSLATE_NOOP("CommandError", "the end of the line"));
    return CommandError::expected(what, found, column(i), remedy);
}

CommandWords tokenize(QStringView line, const VariableLookup& variable)
{
    return Tokenizer(line, variable).run();
}

QString quote_word(QStringView word)
{
    // A backslash at its end would continue the line, so a word with one is quoted.
    const auto is_plain = [](QChar c) {
        return !is_command_blank(c) && c != u'"' && c != u'\'' && c != u'$' && c != u'\\' && c != u'#';
    };
    if (!word.isEmpty() && std::all_of(word.begin(), word.end(), is_plain))
        return word.toString();

    QString quoted = word.toString();
    for (const auto& [character, escape] : {std::pair(u'\\', "\\\\"_L1),
                                            {u'"', "\\\""_L1},
                                            {u'$', "\\$"_L1},
                                            {u'\n', "\\n"_L1},
                                            {u'\r', "\\r"_L1},
                                            {u'\t', "\\t"_L1}})
        quoted.replace(character, escape);
    return u'"' + quoted + u'"';
}

bool is_variable_name(QStringView name)
{
    return !name.isEmpty() && is_name_start(name[0]) && std::all_of(name.begin(), name.end(), is_name_part);
}

} // namespace fennar
