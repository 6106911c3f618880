// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/TextCopy.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace fennar::recovery {

namespace {

/** How many lines are copied between two looks at the clock, which costs as much as a line. */
constexpr int lines_at_once = 64;

/** The longest change, in characters, that is taken over at once. */
constexpr int most_followed = 1000;

} // namespace

TextCopy::TextCopy(QTextDocument* document) : mDocument(document)
{
    // A document without a layout, which is made when it is asked for, does not tell of its changes.
    document->documentLayout();
    connect(document, &QTextDocument::contentsChange, this, &TextCopy::follow);
}

bool TextCopy::advance(const QDeadlineTimer& deadline)
{
    if (!mDocument)
        return false;
    // The last character of a document is no part of its text.
    const int end = mDocument->characterCount() - 1;
    // More than all is what a change leaves that was not told as it was; so begin anew.
    if (mText.size() > end)
        mText.clear();
    mText.reserve(end);
    QTextBlock block = mDocument->findBlock(int(mText.size()));
    while (mText.size() < end) {
        for (int line = 0; line < lines_at_once && block.isValid(); ++line, block = block.next()) {
            mText += QStringView(block.text()).sliced(mText.size() - block.position());
            if (block.next().isValid())
                mText += QChar::ParagraphSeparator;
        }
        if (deadline.hasExpired())
            break;
    }
    return mText.size() == end;
}

void TextCopy::follow(int from, int removed, int added)
{
    const auto copied = int(mText.size());
    if (from >= copied)
        return;
    // Some changes are told as though the end of the document were a character of theirs.
    if (added > most_followed || from + added >= mDocument->characterCount()) {
        mText.truncate(from);
        return;
    }
    QString text;
    for (int i = 0; i < added; ++i)
        text += mDocument->characterAt(from + i);
    mText.replace(from, std::min(removed, copied - from), text);
}

} // namespace fennar::recovery
