// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/LineNumberArea.h"

#include "journal/JournalDocument.h"

LineNumberArea::LineNumberArea(JournalDocument* document) : QWidget(document), mDocument(document) {}

QSize LineNumberArea::sizeHint() const
{
    return {mDocument->lineNumberAreaWidth(), 0};
}

void LineNumberArea::paintEvent(QPaintEvent* event)
{
    mDocument->lineNumberAreaPaintEvent(event);
}
