// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of JournalEditor that works on lines of the current document: playback, translation, comments.

#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"

#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

struct Blocks
{
    int first;
    int last;
};

/** The blocks that hold the ends of the selection, or the cursor if there is none. */
Blocks touched_blocks(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    return {document->findBlock(cursor.selectionStart()).blockNumber(),
            document->findBlock(cursor.selectionEnd()).blockNumber()};
}

/** The same, save that a line that was selected with its line end is taken alone. */
Blocks selected_blocks(const QTextCursor& cursor)
{
    Blocks blocks = touched_blocks(cursor);
    const QTextBlock start = cursor.document()->findBlock(cursor.selectionStart());
    const QTextBlock end = cursor.document()->findBlock(cursor.selectionEnd());
    // For one line only: of several, the line that the selection ends in front of belongs to them. Intended.
    if (cursor.selectionEnd() == end.position() && end.firstLineNumber() == start.firstLineNumber() + 1)
        blocks.last = blocks.first;
    return blocks;
}

} // namespace

void JournalEditor::playFile()
{
    if (JournalDocument* document = returnCurrentDocument())
        document->play_lines(0, -1);
}

void JournalEditor::playSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document || !document->textCursor().hasSelection())
        return;
    const Blocks blocks = selected_blocks(document->textCursor());
    document->play_lines(blocks.first, blocks.last);
}

void JournalEditor::pythonizeFile()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    document->pythonize_lines(0, document->blockCount() - 1);
    QTextCursor(document->document()).insertText(u"#!python\n"_s);
}

void JournalEditor::pythonizeSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document || !document->textCursor().hasSelection())
        return;
    const Blocks blocks = selected_blocks(document->textCursor());
    document->pythonize_lines(blocks.first, blocks.last);
}

void JournalEditor::commentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const Blocks blocks = touched_blocks(document->textCursor());
    document->comment_lines(blocks.first, blocks.last);
}

void JournalEditor::uncommentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const Blocks blocks = touched_blocks(document->textCursor());
    document->uncomment_lines(blocks.first, blocks.last);
}

void JournalEditor::commentOrUncommentSelected()
{
    JournalDocument* document = returnCurrentDocument();
    if (!document)
        return;
    const QTextBlock first = document->document()->findBlock(document->textCursor().selectionStart());
    if (first.isValid() && first.text().startsWith(u'#'))
        uncommentSelected();
    else
        commentSelected();
}
