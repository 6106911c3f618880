// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "literal_translation.h"

#include <QByteArray>
#include <QString>

using std::size_t;
using std::string;

size_t literally_replace_backwards(string& buffer, size_t begin, size_t end, std::string_view from,
                                   std::string_view to)
{
    size_t count = 0;
    size_t position = buffer.rfind(from, end);
    while (position != string::npos && position >= begin) {
        buffer.replace(position, from.size(), to);
        ++count;
        // Wraps around at 0 to the largest value, from which the search covers the whole buffer.
        position = buffer.rfind(from, position - from.size());
    }
    return count;
}

namespace {

const string prefix = "fennar.cmd('";
const string closing = "')";

size_t line_end(const string& buffer, size_t start)
{
    const size_t found = buffer.find_first_of("\r\n", start);
    return found == string::npos ? buffer.size() : found;
}

/** The quotes of the line from @p start to @p eol. Returns the line's end as it is afterwards. */
size_t treat_quotes(string& buffer, size_t start, size_t eol)
{
    const size_t q1 = buffer.find_first_of("\"'", start);
    if (q1 == string::npos || q1 >= eol)
        return eol;
    const size_t q2 = buffer.find_last_of("\"'", eol - 1);
    size_t doubled = 0;
    if (q1 == q2) {
        if (buffer[start] == '#')
            return eol;
        const size_t old_eol = eol;
        buffer.insert(eol, 1, buffer[q1]);
        eol += 1;
        doubled = literally_replace_backwards(buffer, q1, old_eol, "\\", "\\\\");
    } else {
        doubled = literally_replace_backwards(buffer, q1, q2, "\\", "\\\\");
    }
    return doubled > 0 ? line_end(buffer, start) : eol;
}

} // namespace

void literally_pythonize_text(QString& text)
{
    if (text.isEmpty())
        return;
    string buffer = text.toUtf8().constData(); // up to its first NUL
    string pending;
    size_t start = 0;
    while (true) {
        size_t eol = line_end(buffer, start);
        eol = treat_quotes(buffer, start, eol);

        const bool continued = eol > start && buffer[eol - 1] == '\\';
        size_t end = continued ? eol - 1 : eol;
        // Whatever is inserted at or before the line's end moves both.
        const auto grow = [&](size_t bytes) {
            end += bytes;
            eol += bytes;
        };

        if (pending.empty()) {
            const size_t first = buffer.find_first_not_of(" \t\r", start);
            if (first == string::npos || first >= end) {
                if (continued)
                    pending = buffer.substr(start, end - start);
            } else {
                grow(literally_replace_backwards(buffer, start, end, "'", "\\'"));
                if (!continued) {
                    buffer.insert(end, closing);
                    grow(closing.size());
                }
                buffer.insert(start, prefix);
                grow(prefix.size());
                if (continued)
                    pending = buffer.substr(start, end - start);
            }
        } else {
            const bool call = pending.starts_with("fennar.cmd");
            if (call)
                grow(literally_replace_backwards(buffer, start, end, "'", "\\'"));
            if (continued) {
                pending += buffer.substr(start, end - start);
            } else {
                if (pending.find(')') == string::npos) {
                    buffer.insert(end, ")");
                    if (call)
                        buffer.insert(end, "'");
                    grow(call ? 2 : 1);
                }
                pending.clear();
            }
        }

        start = buffer.find_first_not_of("\r\n", eol);
        if (start == string::npos)
            break;
    }
    text = QString::fromUtf8(buffer.data(), static_cast<qsizetype>(buffer.size()));
}
