// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/ostrelfw/LineFolder.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** As the page does: each begins a new block. */
bool ends_line(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator;
}

} // namespace

QString LineFolder::fold(const QString& text)
{
    if (mLength + text.size() <= shown_size) {
        const auto behind = std::find_if(text.crbegin(), text.crend(), ends_line).base();
        if (behind != text.cbegin()) {
            mOpen.clear();
            mLength = 0;
        }
        const QString open = text.sliced(behind - text.cbegin());
        mLength += open.size();
        if (mKeeps)
            mOpen += open;
        return text;
    }
    QString shown;
    const auto end = text.cend();
    for (auto position = text.cbegin(); position != end;) {
        const auto line_end = std::find_if(position, end, ends_line);
        const QStringView part(position, line_end);
        qsizetype room = std::clamp(shown_size - mLength, qsizetype(0), part.size());
        // A character of two halves is shown whole or not at all.
        if (room > 0 && room < part.size() && part[room - 1].isHighSurrogate())
            --room;
        shown += part.first(room);
        mLength += part.size();
        if (mKeeps && (line_end == end || mLength > shown_size))
            mOpen += part.first(std::min(part.size(), kept_size - mOpen.size()));
        position = line_end;
        if (line_end != end) {
            shown += end_line() + *line_end;
            ++position;
        }
    }
    return shown;
}

QString LineFolder::end_line()
{
    const QString text = std::exchange(mOpen, {});
    const qsizetype length = std::exchange(mLength, 0);
    if (length <= shown_size)
        return {};
    if (!mKeeps)
        return u" ... [%1 characters; the page of the commands says how to see the line whole]"_s.arg(length);
    keep(text);
    const QString more = length > text.size() ? u", of which %1 are kept"_s.arg(text.size()) : QString();
    return u" ... [%1 characters%2; \"edit line %3\" shows the line whole]"_s.arg(length).arg(more).arg(
        mCount);
}

void LineFolder::keep(const QString& text)
{
    mLines.append({++mCount, text});
    qsizetype size = 0;
    for (const Line& line : std::as_const(mLines))
        size += line.text.size();
    while (mLines.size() > kept_lines || size > kept_size) {
        size -= mLines.first().text.size();
        mLines.removeFirst();
    }
}

std::optional<QString> LineFolder::line(int number) const
{
    const auto found = std::find_if(mLines.begin(), mLines.end(),
                                    [number](const Line& line) { return line.number == number; });
    return found == mLines.end() ? std::nullopt : std::optional(found->text);
}

} // namespace fennar
