// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <vector>

using std::size_t;
using std::string;
using std::string_view;

namespace {

constexpr string_view prefix = "fennar.cmd('";
constexpr string_view call_name = "fennar.cmd";
constexpr string_view closing = "')";

bool is_line_end(char byte)
{
    return byte == '\r' || byte == '\n';
}

bool is_quote(char byte)
{
    return byte == '"' || byte == '\'';
}

size_t line_end(string_view text, size_t start)
{
    return size_t(std::find_if(text.begin() + start, text.end(), is_line_end) - text.begin());
}

/** Closes a lone quote and doubles the backslashes of strings; returns where the line ends afterwards. */
size_t treat_quotes(string& buffer, size_t start, size_t eol)
{
    const string_view line = string_view(buffer).substr(start, eol - start);
    const auto first = std::find_if(line.begin(), line.end(), is_quote);
    if (first == line.end())
        return eol;
    const auto last = std::find_if(line.rbegin(), line.rend(), is_quote).base() - 1;
    const size_t q1 = start + size_t(first - line.begin());
    const size_t q2 = start + size_t(last - line.begin());
    if (q1 != q2)
        return eol + replace_backwards(buffer, q1, q2, "\\", "\\\\");
    // In a comment it is an apostrophe.
    if (buffer[start] == '#')
        return eol;
    buffer.insert(eol, 1, buffer[q1]);
    return eol + 1 + replace_backwards(buffer, q1, eol, "\\", "\\\\");
}

/**
 * Translates the line from @p start to @p eol in @p buffer; returns where it ends afterwards.
 *
 * @param pending  the command that the line continues, as it has been translated so far, without the
 *                 backslashes that continue it; empty if the line begins one. Afterwards that of the next
 *                 line.
 */
size_t translate_line(string& buffer, size_t start, size_t eol, string& pending)
{
    eol = treat_quotes(buffer, start, eol);
    const bool continued = eol > start && buffer[eol - 1] == '\\';
    // Where the line's content ends. Python reads the backslash behind it as the continuation of the string.
    size_t end = continued ? eol - 1 : eol;
    const auto escape_apostrophes = [&] { end += replace_backwards(buffer, start, end, "'", "\\'"); };
    const auto insert = [&](size_t at, string_view bytes) {
        buffer.insert(at, bytes);
        end += bytes.size();
    };

    if (pending.empty()) {
        const string_view content = string_view(buffer).substr(start, end - start);
        if (content.find_first_not_of(" \t\r") == string_view::npos) {
            // Blanks that a backslash follows begin a command that gets no call. Intended.
            if (continued)
                pending = content;
            return eol;
        }
        escape_apostrophes();
        if (!continued)
            insert(end, closing);
        insert(start, prefix);
        if (continued)
            pending.assign(buffer, start, end - start);
    } else {
        const bool call = pending.starts_with(call_name);
        if (call)
            escape_apostrophes();
        if (continued) {
            pending.append(buffer, start, end - start);
        } else {
            // A command with a ")" ahead of its last line is left open. Intended.
            if (pending.find(')') == string::npos)
                insert(end, call ? closing : ")");
            pending.clear();
        }
    }
    return continued ? end + 1 : end;
}

} // namespace

size_t replace_backwards(string& buffer, size_t begin, size_t end, string_view from, string_view to)
{
    if (begin > buffer.size() || end < begin)
        return 0;
    const string_view searched = string_view(buffer).substr(begin);
    // Most lines have none, which the search forwards finds out several times as fast.
    if (searched.find(from) == string_view::npos)
        return 0;
    std::vector<size_t> places;
    size_t place = searched.rfind(from, end - begin);
    while (place != string_view::npos) {
        places.push_back(begin + place);
        place = place < from.size() ? string_view::npos : searched.rfind(from, place - from.size());
    }
    if (places.empty())
        return 0;

    // All at once: one after the other each would move the rest of the buffer.
    string replaced;
    size_t done = places.back();
    for (auto next = places.rbegin(); next != places.rend(); ++next) {
        replaced.append(buffer, done, *next - done);
        replaced += to;
        done = *next + from.size();
    }
    replaced.append(buffer, done);
    buffer.replace(places.back(), string::npos, replaced);
    const bool starts_over = places.back() < from.size();
    return places.size() + (starts_over ? replace_backwards(buffer, begin, string::npos, from, to) : 0);
}

void pythonize_text(QString& text)
{
    if (text.isEmpty())
        return;
    const QByteArray utf8 = text.toUtf8();
    string_view rest(utf8.constData()); // up to its first NUL
    // Ends with the line that is translated, so that an insertion moves nothing but that.
    string buffer;
    buffer.reserve(rest.size() + rest.size() / 2);
    string pending;

    // A text that begins with an apostrophe is the one case in which replace_backwards() reaches beyond a
    // line: it escapes the apostrophes of the whole text, those of the first line twice. The end of that
    // line's call so lies as many bytes too far as there are later ones: in one of the later lines, maybe
    // inside a character. Intended; journals that were translated so must come out the same.
    string later;
    if (rest.starts_with('\'')) {
        buffer = rest;
        const size_t eol = translate_line(buffer, 0, line_end(buffer, 0), pending);
        later = buffer.substr(eol);
        rest = later;
        buffer.resize(eol);
    }
    while (!rest.empty()) {
        const auto start = size_t(std::find_if_not(rest.begin(), rest.end(), is_line_end) - rest.begin());
        const size_t eol = line_end(rest, start);
        const size_t done = buffer.size();
        buffer += rest.substr(0, eol);
        if (start < eol)
            translate_line(buffer, done + start, done + eol, pending);
        rest.remove_prefix(eol);
    }
    text = QString::fromUtf8(buffer.data(), qsizetype(buffer.size()));
}
