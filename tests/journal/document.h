// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "journal/JournalDocument.h"

#include <QTextBlock>

/** The text of each block. */
inline QStringList lines(const QPlainTextEdit& document)
{
    QStringList found;
    for (QTextBlock block = document.document()->firstBlock(); block.isValid(); block = block.next())
        found << block.text();
    return found;
}

/** Selects from @p column_from of block @p from to @p column_to of block @p to, where the caret then is. */
inline void select(QPlainTextEdit& document, int from, int column_from, int to, int column_to)
{
    QTextCursor cursor(document.document()->findBlockByNumber(from));
    cursor.setPosition(cursor.position() + column_from);
    cursor.setPosition(document.document()->findBlockByNumber(to).position() + column_to,
                       QTextCursor::KeepAnchor);
    document.setTextCursor(cursor);
}
