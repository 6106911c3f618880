// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/mark_python.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Kind = LineMark::Kind;

/** Sorted. */
constexpr std::array<QStringView, 35> keywords = {
    u"False", u"None",     u"True",  u"and",    u"as",   u"assert", u"async",  u"await",    u"break",
    u"class", u"continue", u"def",   u"del",    u"elif", u"else",   u"except", u"finally",  u"for",
    u"from",  u"global",   u"if",    u"import", u"in",   u"is",     u"lambda", u"nonlocal", u"not",
    u"or",    u"pass",     u"raise", u"return", u"try",  u"while",  u"with",   u"yield"};

bool is_letter(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool is_digit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/** Walks a line once; each function begins where the part does and leaves behind it. */
class Marker
{
public:
    explicit Marker(const QString& line) : mLine(line) {}

    PythonLine run(PythonString string)
    {
        if (string != PythonString::None)
            read_string(0, string);
        bool first = true;
        while (mAt < mLine.size()) {
            const QChar c = mLine[mAt];
            if (c == u'#')
                mark(Kind::Comment, mAt, mLine.size());
            else if (c == u'"' || c == u'\'')
                open_string(mAt);
            else if (is_letter(c))
                read_word();
            else if (is_digit(c) || (c == u'.' && is_digit(peek(1))))
                read_number();
            else if (c == u'@' && first)
                read_decorator();
            else
                ++mAt;
            first = first && c.isSpace();
        }
        return mResult;
    }

private:
    QChar peek(qsizetype ahead) const { return mAt + ahead < mLine.size() ? mLine[mAt + ahead] : QChar(); }

    /** Goes to the end of the part. */
    void mark(Kind kind, qsizetype start, qsizetype end)
    {
        if (end > start)
            mResult.marks.append({kind, start, end - start});
        mAt = end;
    }

    /** @param start  of the string's prefix. */
    void open_string(qsizetype start)
    {
        const QChar quote = mLine[mAt];
        const bool is_long = peek(1) == quote && peek(2) == quote;
        mAt += is_long ? 3 : 1;
        if (quote == u'\'')
            read_string(start, is_long ? PythonString::LongSingle : PythonString::Single);
        else
            read_string(start, is_long ? PythonString::LongDouble : PythonString::Double);
    }

    void read_string(qsizetype start, PythonString string)
    {
        const bool is_long = string == PythonString::LongSingle || string == PythonString::LongDouble;
        const QChar quote =
            string == PythonString::LongSingle || string == PythonString::Single ? u'\'' : u'"';
        bool goes_on = is_long;
        for (; mAt < mLine.size(); ++mAt) {
            if (mLine[mAt] == u'\\') {
                goes_on = is_long || mAt + 1 == mLine.size();
                ++mAt;
            } else if (mLine[mAt] == quote && (!is_long || (peek(1) == quote && peek(2) == quote))) {
                mark(Kind::String, start, mAt + (is_long ? 3 : 1));
                return;
            }
        }
        mark(Kind::String, start, mLine.size());
        mResult.string = goes_on ? string : PythonString::None;
    }

    void read_word()
    {
        const qsizetype start = mAt;
        while (mAt < mLine.size() && (is_letter(mLine[mAt]) || mLine[mAt].isDigit()))
            ++mAt;
        const QStringView word = QStringView(mLine).sliced(start, mAt - start);
        const bool prefix = word.size() <= 2 && std::all_of(word.begin(), word.end(), [](QChar c) {
                                return u"bBfFrRuU"_s.contains(c);
                            });
        if (prefix && (peek(0) == u'"' || peek(0) == u'\'')) {
            open_string(start);
        } else if (std::binary_search(keywords.begin(), keywords.end(), word)) {
            mark(Kind::Keyword, start, mAt);
            mNaming = word == u"def" || word == u"class";
            return;
        } else if (mNaming) {
            mark(Kind::Name, start, mAt);
        }
        mNaming = false;
    }

    void read_number()
    {
        const qsizetype start = mAt;
        const bool decimal = mLine[mAt] != u'0' || !u"xXoObB"_s.contains(peek(1));
        while (mAt < mLine.size()) {
            const QChar c = mLine[mAt];
            const bool exponent = decimal && (c == u'e' || c == u'E') && (peek(1) == u'-' || peek(1) == u'+');
            if (!exponent && !is_letter(c) && !is_digit(c) && c != u'.')
                break;
            mAt += exponent ? 2 : 1;
        }
        mark(Kind::Number, start, mAt);
    }

    void read_decorator()
    {
        const qsizetype start = mAt++;
        while (mAt < mLine.size() && (is_letter(mLine[mAt]) || mLine[mAt].isDigit() || mLine[mAt] == u'.'))
            ++mAt;
        mark(Kind::Command, start, mAt);
    }

    const QString& mLine;
    qsizetype mAt = 0;
    /** Whether the next word is a name that "def" or "class" gives. */
    bool mNaming = false;
    PythonLine mResult;
};

} // namespace

PythonLine mark_python(const QString& line, PythonString string)
{
    return Marker(line).run(string);
}

} // namespace fennar
