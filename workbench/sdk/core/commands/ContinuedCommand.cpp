// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/ContinuedCommand.h"

#include <algorithm>

namespace fennar {

bool ContinuedCommand::add(QStringView line)
{
    if (line.endsWith(u'\n'))
        line.chop(1);
    if (line.endsWith(u'\r'))
        line.chop(1);
    mIncomplete = line.endsWith(u'\\');
    if (mIncomplete)
        line.chop(1);
    mStarts.append(mText.size());
    mText += line;
    return !mIncomplete;
}

void ContinuedCommand::clear()
{
    *this = ContinuedCommand();
}

ContinuedCommand::Position ContinuedCommand::position(qsizetype column) const
{
    if (mStarts.isEmpty())
        return {0, column};
    const qsizetype index = std::clamp(column - 1, qsizetype(0), mText.size());
    const auto behind = std::upper_bound(mStarts.begin(), mStarts.end(), index);
    const qsizetype line = std::max(qsizetype(behind - mStarts.begin()) - 1, qsizetype(0));
    const QStringView in_front = QStringView(mText).sliced(mStarts[line], index - mStarts[line]);
    qsizetype characters = 0;
    for (qsizetype i = 0; i < in_front.size(); ++i, ++characters) {
        if (in_front[i].isHighSurrogate() && i + 1 < in_front.size() && in_front[i + 1].isLowSurrogate())
            ++i;
    }
    return {line, characters + 1};
}

} // namespace fennar
