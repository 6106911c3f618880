// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/line_ranges.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

LineRange touched_lines(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    return {document->findBlock(cursor.selectionStart()).blockNumber(),
            document->findBlock(cursor.selectionEnd()).blockNumber()};
}

LineRange selected_lines(const QTextCursor& cursor)
{
    LineRange lines = touched_lines(cursor);
    const QTextBlock start = cursor.document()->findBlock(cursor.selectionStart());
    const QTextBlock end = cursor.document()->findBlock(cursor.selectionEnd());
    if (cursor.selectionEnd() == end.position() && end.firstLineNumber() == start.firstLineNumber() + 1)
        lines.last = lines.first;
    return lines;
}
