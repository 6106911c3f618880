// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstring>

namespace {

constexpr QByteArrayView call_begin = "fennar.cmd('";
constexpr QByteArrayView call_end = "')";

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

    /** A lone quote is taken for the begin of a string, save in a comment, where it is an apostrophe. */
    bool is_closed() const { return first_quote && first_quote == last_quote && *begin != '#'; }
    /** A closed line ends in the added quote, whatever stood there before. */
    bool is_continued() const { return begin != end && end[-1] == '\\' && !is_closed(); }
    /** Where the line's own text ends: before the backslash that continues it. */
    const char* content_end() const { return is_continued() ? end - 1 : end; }
    /** From the first quote up to here, backslashes are doubled. */
    const char* string_end() const { return is_closed() ? end : last_quote; }
};

/** Where one byte occurs in a text, asked for from its begin to its end. */
class Occurrences
{
public:
    Occurrences(char byte, QByteArrayView text) : mByte(byte), mEnd(text.end()) { search(text.begin()); }

    /** The first one at or behind @p at; the end of the text if there is none. */
    const char* from(const char* at)
    {
        if (mNext < at)
            search(at);
        return mNext;
    }

private:
    void search(const char* at)
    {
        const void* found = at == mEnd ? nullptr : std::memchr(at, mByte, static_cast<size_t>(mEnd - at));
        mNext = found ? static_cast<const char*>(found) : mEnd;
    }

    char mByte;
    const char* mEnd;
    const char* mNext;
};

/** Tells the lines of a text, one after the other. */
class Lines
{
public:
    explicit Lines(QByteArrayView text)
        : mFeeds('\n', text), mReturns('\r', text), mApostrophes('\'', text), mDoubleQuotes('"', text)
    {}

    /** The line that begins at @p begin, which never comes before that of an earlier call. */
    Line line_at(const char* begin)
    {
        Line line{begin, std::min(mFeeds.from(begin), mReturns.from(begin))};
        const char* quote = std::min(mApostrophes.from(begin), mDoubleQuotes.from(begin));
        if (quote >= line.end)
            return line;
        line.first_quote = quote;
        line.last_quote = line.end - 1;
        while (*line.last_quote != '\'' && *line.last_quote != '"')
            --line.last_quote;
        return line;
    }

private:
    Occurrences mFeeds;
    Occurrences mReturns;
    Occurrences mApostrophes;
    Occurrences mDoubleQuotes;
};

/** Bytes that are written one after the other. Whoever writes asks for room first, once for a whole line. */
class Output
{
public:
    explicit Output(qsizetype expected) : mBytes(expected, Qt::Uninitialized), mEnd(mBytes.data()) {}

    void make_room(qsizetype bytes)
    {
        const qsizetype size = mEnd - mBytes.constData();
        if (mBytes.size() - size >= bytes)
            return;
        mBytes.resize(2 * mBytes.size() + bytes);
        mEnd = mBytes.data() + size;
    }
    void add(const char* begin, const char* end)
    {
        std::memcpy(mEnd, begin, static_cast<size_t>(end - begin));
        mEnd += end - begin;
    }
    void add(QByteArrayView bytes) { add(bytes.begin(), bytes.end()); }
    void add(char byte) { *mEnd++ = byte; }

    QByteArrayView bytes() const { return QByteArrayView(mBytes.constData(), mEnd); }

private:
    QByteArray mBytes;
    char* mEnd;
};

class Translation
{
public:
    explicit Translation(qsizetype size) : mOut(size + size / 2) {}

    void run(QByteArrayView text);
    QByteArrayView result() const { return mOut.bytes(); }

private:
    void add(const Line& line);
    void add_content(const Line& line, QByteArrayView apostrophe);
    QByteArray add_leading_apostrophe_line(QByteArrayView text);

    Output mOut;
    /** Whether a command runs on, whether it began with a call, and whether it holds a ")" so far. */
    bool mPending = false;
    bool mInCall = false;
    bool mHasParenthesis = false;
};

void Translation::run(QByteArrayView text)
{
    QByteArray rest;
    const bool starts_over = text.startsWith('\'');
    if (starts_over) {
        rest = add_leading_apostrophe_line(text);
        text = rest;
    }
    Lines lines(text);
    const char* at = text.begin();
    if (!starts_over) {
        const Line line = lines.line_at(at);
        add(line);
        at = line.end;
    }
    while (true) {
        const char* line_end = at;
        while (at != text.end() && (*at == '\r' || *at == '\n'))
            ++at;
        mOut.make_room(at - line_end);
        mOut.add(line_end, at);
        if (at == text.end())
            return;
        const Line line = lines.line_at(at);
        add(line);
        at = line.end;
    }
}

void Translation::add(const Line& line)
{
    // Each byte becomes two at most; the quote that closes the line, the call and a backslash come on top.
    mOut.make_room(2 * (line.end - line.begin + 1) + call_begin.size() + call_end.size());
    const bool continued = line.is_continued();
    const char* content_end = line.content_end();
    if (!mPending && is_blank(line.begin, content_end)) {
        mOut.add(line.begin, line.end);
        // Blanks that a backslash follows begin a command that gets no call. Intended.
        mPending = continued && line.begin != content_end;
        mInCall = mHasParenthesis = false;
        return;
    }
    if (!mPending) {
        mOut.add(call_begin);
        mInCall = true;
        mHasParenthesis = false;
    }
    if (mInCall)
        add_content(line, "\\'");
    else
        add_content(line, "'");
    if (continued) {
        // Python reads it as the continuation of the string.
        mOut.add('\\');
        mHasParenthesis = mHasParenthesis || has_parenthesis(line.begin, content_end);
        mPending = true;
        return;
    }
    // A command on one line is closed in any case, one on several only without a ")" ahead of its last line.
    // Intended.
    if (!mPending || !mHasParenthesis)
        mOut.add(mInCall ? call_end : QByteArrayView(")"));
    mPending = false;
}

/** Adds the line's own text with the backslashes of its string doubled, and @p apostrophe for each of those.
 */
void Translation::add_content(const Line& line, QByteArrayView apostrophe)
{
    const char* end = line.content_end();
    if (!line.first_quote) {
        mOut.add(line.begin, end);
        return;
    }
    mOut.add(line.begin, line.first_quote);
    const char* string_end = line.string_end();
    for (const char* at = line.first_quote; at != end; ++at) {
        if (*at == '\'') {
            mOut.add(apostrophe);
            continue;
        }
        if (*at == '\\' && at < string_end)
            mOut.add('\\');
        mOut.add(*at);
    }
    if (!line.is_closed())
        return;
    if (*line.first_quote == '\'')
        mOut.add(apostrophe);
    else
        mOut.add(*line.first_quote);
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
QByteArray Translation::add_leading_apostrophe_line(QByteArrayView text)
{
    const Line line = Lines(text).line_at(text.begin());
    const bool continued = line.is_continued();
    const QByteArrayView later(line.content_end(), text.end());
    const qsizetype too_far = std::count(later.begin(), later.end(), '\'');
    Output rest(later.size() + too_far);
    for (const char byte : later) {
        if (byte == '\'')
            rest.add('\\');
        rest.add(byte);
    }
    const QByteArrayView skipped = rest.bytes().first(too_far);

    mOut.make_room(3 * (line.end - line.begin + 1) + too_far + call_begin.size() + call_end.size());
    mOut.add(call_begin);
    add_content(line, "\\\\'");
    mOut.add(skipped);
    if (!continued) {
        mOut.add(call_end);
        return rest.bytes().sliced(too_far).toByteArray();
    }
    mPending = mInCall = true;
    mHasParenthesis =
        has_parenthesis(line.begin, line.content_end()) || has_parenthesis(skipped.begin(), skipped.end());
    // The byte that stands where the line's backslash was taken to be.
    mOut.add(rest.bytes().at(too_far));
    return rest.bytes().sliced(too_far + 1).toByteArray();
}

} // namespace

void pythonize_text(QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const QByteArrayView to_first_nul(bytes.constData());
    Translation translation(to_first_nul.size());
    translation.run(to_first_nul);
    text = QString::fromUtf8(translation.result());
}
