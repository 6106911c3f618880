// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/ContinuedCommand.h"

#include <algorithm>

using namespace Qt::StringLiterals;

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

ContinuedCommand ContinuedCommand::read(QStringView text, qsizetype& start)
{
    ContinuedCommand command;
    for (bool complete = false; !complete && start < text.size();) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text.size() : found + 1;
        complete = command.add(text.sliced(start, end - start));
        start = end;
    }
    return command;
}

CommandError ContinuedCommand::unended() const
{
    return CommandError(u"expected another line behind the backslash, found the end of the text"_s,
                        mText.size() + 1);
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
