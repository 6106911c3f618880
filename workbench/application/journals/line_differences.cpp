// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/line_differences.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

constexpr qsizetype context = 3;

/** The largest number of pairs of lines that are compared. */
constexpr qsizetype most_pairs = 4'000'000;

/** The lines of both, marked; those that both have once. */
QStringList matched(const QStringList& before, const QStringList& after)
{
    const qsizetype rows = before.size();
    const qsizetype columns = after.size();
    // How many lines the rests from a pair of places on have in common.
    std::vector<int> common;
    const bool too_long = columns > 0 && rows > most_pairs / columns;
    const auto at = [&](qsizetype row, qsizetype column) -> int& {
        return common[std::size_t(row * (columns + 1) + column)];
    };
    if (!too_long) {
        common.assign(std::size_t((rows + 1) * (columns + 1)), 0);
        for (qsizetype row = rows - 1; row >= 0; --row)
            for (qsizetype column = columns - 1; column >= 0; --column)
                at(row, column) = before[row] == after[column]
                                      ? at(row + 1, column + 1) + 1
                                      : std::max(at(row + 1, column), at(row, column + 1));
    }
    QStringList lines;
    qsizetype row = 0;
    qsizetype column = 0;
    while (row < rows || column < columns) {
        if (!too_long && row < rows && column < columns && before[row] == after[column]) {
            lines << u"  "_s + before[row++];
            ++column;
        } else if (row < rows &&
                   (too_long || column == columns || at(row + 1, column) >= at(row, column + 1))) {
            lines << u"- "_s + before[row++];
        } else {
            lines << u"+ "_s + after[column++];
        }
    }
    return lines;
}

} // namespace

QStringList line_differences(const QStringList& before, const QStringList& after)
{
    if (before == after)
        return {};
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype head = 0;
    while (head < shorter && before[head] == after[head])
        ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    QStringList lines;
    for (qsizetype line = std::max<qsizetype>(0, head - context); line < head; ++line)
        lines << u"  "_s + before[line];
    lines += matched(before.sliced(head, before.size() - head - tail),
                     after.sliced(head, after.size() - head - tail));
    for (qsizetype line = before.size() - tail;
         line < std::min(before.size(), before.size() - tail + context); ++line)
        lines << u"  "_s + before[line];

    QStringList shown;
    bool left_out = head > context;
    for (qsizetype line = 0; line < lines.size(); ++line) {
        const auto from = lines.begin() + std::max<qsizetype>(0, line - context);
        const auto to = lines.begin() + std::min(lines.size(), line + context + 1);
        const bool near = std::any_of(from, to, [](const QString& one) { return !one.startsWith(u' '); });
        if (near && left_out)
            shown << u"..."_s;
        left_out = !near;
        if (near)
            shown << lines[line];
    }
    if (left_out || tail > context)
        shown << u"..."_s;
    return shown;
}

} // namespace fennar
