// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr QByteArrayView call_begin = "fennar.cmd('";
constexpr QByteArrayView call_end = "')";

/** What a byte may mean to the search for the end of a line and for its quotes. */
enum Kind : unsigned char { Plain, LineEnd, Quote };

constexpr std::array<Kind, 256> kinds = [] {
    std::array<Kind, 256> table{};
    // The NUL behind the text, which so ends the last line as well.
    table['\0'] = table['\r'] = table['\n'] = LineEnd;
    table['"'] = table['\''] = Quote;
    return table;
}();

Kind kind_of(char byte)
{
    return kinds[static_cast<unsigned char>(byte)];
}

bool is_blank(const char* begin, const char* end)
{
    return std::all_of(begin, end, [](char byte) { return byte == ' ' || byte == '\t'; });
}

bool has_parenthesis(const char* begin, const char* end)
{
    return begin != end && std::memchr(begin, ')', static_cast<size_t>(end - begin));
}

/** A line without its line end. */
struct Line
{
    const char* begin;
    const char* end;
    /** Null if there is none. */
    const char* first_quote = nullptr;
    const char* last_quote = nullptr;

    bool has_lone_quote() const { return first_quote && first_quote == last_quote; }
    /** A lone quote is taken for the begin of a string, save in a comment, where it is an apostrophe. */
    bool is_closed() const { return has_lone_quote() && *begin != '#'; }
    /** A closed line ends in the added quote, whatever stood there before. */
    bool is_continued() const { return begin != end && end[-1] == '\\' && !is_closed(); }
    /** Where the line's own text ends: before the backslash that continues it. */
    const char* content_end() const { return is_continued() ? end - 1 : end; }
    /** From the first quote up to here, backslashes are doubled. */
    const char* string_end() const { return is_closed() ? end : last_quote; }
};

/** The line that begins at @p begin of a text that a NUL ends. */
Line line_at(const char* begin)
{
    Line line{begin, begin};
    for (const char* at = begin;; ++at) {
        Kind kind = kind_of(*at);
        while (kind == Plain)
            kind = kind_of(*++at);
        if (kind == LineEnd) {
            line.end = at;
            return line;
        }
        if (!line.first_quote)
            line.first_quote = at;
        line.last_quote = at;
    }
}

class Translation
{
public:
    explicit Translation(const QByteArray& text) { mOut.reserve(text.size() + text.size() / 2 + 16); }

    void run(const char* text);
    const QByteArray& result() const { return mOut; }

private:
    void add(const Line& line);
    void add_content(const Line& line, QByteArrayView apostrophe);
    void copy(const char* begin, const char* end) { mOut.append(begin, end - begin); }
    QByteArray add_leading_apostrophe_line(const char* text);

    QByteArray mOut;
    /** Whether a command runs on, whether it began with a call, and whether it holds a ")" so far. */
    bool mPending = false;
    bool mInCall = false;
    bool mHasParenthesis = false;
};

void Translation::run(const char* text)
{
    QByteArray rest;
    if (*text == '\'') {
        rest = add_leading_apostrophe_line(text);
        text = rest.constData();
    } else {
        const Line line = line_at(text);
        add(line);
        text = line.end;
    }
    while (true) {
        const char* line_end = text;
        while (*text == '\r' || *text == '\n')
            ++text;
        copy(line_end, text);
        if (!*text)
            return;
        const Line line = line_at(text);
        add(line);
        text = line.end;
    }
}

void Translation::add(const Line& line)
{
    const bool continued = line.is_continued();
    const char* content_end = line.content_end();
    if (!mPending && is_blank(line.begin, content_end)) {
        copy(line.begin, line.end);
        // Blanks that a backslash follows begin a command that gets no call. Intended.
        mPending = continued && line.begin != content_end;
        mInCall = mHasParenthesis = false;
        return;
    }
    if (!mPending) {
        mOut += call_begin;
        mInCall = true;
        mHasParenthesis = false;
    }
    if (mInCall)
        add_content(line, "\\'");
    else
        add_content(line, "'");
    if (continued) {
        // Python reads it as the continuation of the string.
        mOut += '\\';
        mHasParenthesis = mHasParenthesis || has_parenthesis(line.begin, content_end);
        mPending = true;
        return;
    }
    // A command on one line is closed in any case, one on several only without a ")" ahead of its last line.
    // Intended.
    if (!mPending || !mHasParenthesis)
        mOut += mInCall ? call_end : QByteArrayView(")");
    mPending = false;
}

/** Adds the line's own text with the backslashes of its string doubled, and @p apostrophe for each of those.
 */
void Translation::add_content(const Line& line, QByteArrayView apostrophe)
{
    const char* end = line.content_end();
    if (!line.first_quote) {
        copy(line.begin, end);
        return;
    }
    const bool doubling = line.is_closed() || !line.has_lone_quote();
    const char* string_end = doubling ? line.string_end() : line.first_quote;
    const char* done = line.begin;
    for (const char* at = line.first_quote; at != end; ++at) {
        if (*at == '\'') {
            copy(done, at);
            mOut += apostrophe;
            done = at + 1;
        } else if (*at == '\\' && at < string_end) {
            copy(done, at);
            mOut += '\\';
            done = at;
        }
    }
    copy(done, end);
    if (line.is_closed()) {
        if (*line.first_quote == '\'')
            mOut += apostrophe;
        else
            mOut += *line.first_quote;
    }
}

/**
 * Adds the first line of a text that begins with an apostrophe. Returns what comes behind it, to be
 * translated from its begin on.
 *
 * Escaping the very first byte makes the search, which goes backwards, start again from the end of the whole
 * text. So the apostrophes of this line are escaped a second time and those of all later lines once, and the
 * end of this line's call lies as many bytes too far as there are later ones: in one of the later lines,
 * maybe inside a character. This is intended; journals that were translated so must come out the same.
 */
QByteArray Translation::add_leading_apostrophe_line(const char* text)
{
    const Line line = line_at(text);
    const bool continued = line.is_continued();
    mOut += call_begin;
    add_content(line, "\\\\'");

    const QByteArrayView later = QByteArrayView(line.content_end());
    const qsizetype too_far = std::count(later.begin(), later.end(), '\'');
    QByteArray rest;
    rest.reserve(later.size() + too_far);
    for (const char byte : later) {
        if (byte == '\'')
            rest += '\\';
        rest += byte;
    }
    mOut += QByteArrayView(rest).first(too_far);
    if (!continued) {
        mOut += call_end;
        return rest.sliced(too_far);
    }
    mPending = mInCall = true;
    mHasParenthesis = has_parenthesis(line.begin, line.content_end()) ||
                      has_parenthesis(rest.constData(), rest.constData() + too_far);
    // The byte that stands where the line's backslash was taken to be.
    mOut += rest.at(too_far);
    return rest.sliced(too_far + 1);
}

} // namespace

void pythonize_text(QString& text)
{
    const QByteArray bytes = text.toUtf8();
    Translation translation(bytes);
    // The walk ends at the first NUL: the one behind the text, or an earlier one of its own.
    translation.run(bytes.constData());
    text = QString::fromUtf8(translation.result());
}
