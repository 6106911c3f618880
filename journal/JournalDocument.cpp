// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalDocument.h"

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "journal/LineNumberArea.h"
#include "journal/color_scheme.h"
#include "journal/translate.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QTabWidget>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

constexpr auto comment_shortcut = Qt::CTRL | Qt::Key_Slash;
constexpr auto play_shortcut = Qt::CTRL | Qt::Key_F5;

} // namespace

JournalDocument::JournalDocument(JournalEditor* editor, QTabWidget* parent, const char* name)
    : QPlainTextEdit(parent), mEditor(editor), mLineNumberArea(nullptr), mTabWidget(parent)
{
    setObjectName(QString::fromUtf8(name));
    mLineNumberArea = new LineNumberArea(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &JournalDocument::updateLineNumberAreaWidth);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &JournalDocument::highlightCurrentLine);
    connect(this, &QPlainTextEdit::updateRequest, this, &JournalDocument::updateLineNumberArea);
    connect(this, &QPlainTextEdit::modificationChanged, this, &JournalDocument::doc_modified);
    auto* comment = new QShortcut(QKeySequence(comment_shortcut), this);
    connect(comment, &QShortcut::activated, mEditor, &JournalEditor::commentOrUncommentSelected);
    auto* play = new QShortcut(QKeySequence(play_shortcut), this);
    connect(play, &QShortcut::activated, mEditor, &JournalEditor::playSelected);
    setViewportMargins(lineNumberAreaWidth(), 0, 0, 0);
    highlightCurrentLine();
}

void JournalDocument::set_file_name(const QString& name)
{
    if (name == mFileName)
        return;
    mFileName = name;
    emit fileNameChanged(this);
}

void JournalDocument::add_context_menu_item(QAction* action)
{
    mContextMenuItems.append(action);
}

void JournalDocument::remove_context_menu_item(QAction* action)
{
    mContextMenuItems.removeAll(action);
}

void JournalDocument::comment_lines(int first, int last)
{
    if (last < 0)
        last = blockCount() - 1;
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next())
        QTextCursor(block).insertText(u"#"_s);
}

void JournalDocument::uncomment_lines(int first, int last)
{
    if (last < 0)
        last = blockCount() - 1;
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        QString text = cursor.selectedText();
        if (text.startsWith(u'#'))
            text.remove(0, 1);
        cursor.insertText(text);
    }
}

void JournalDocument::play_lines(int first, int last)
{
    const bool as_file = last == -1;
    if (last < 0)
        last = blockCount() - 1;
    const QStringList lines = collect_lines(first, last).split(u'\n');
    if (Ostrel* window = Ostrel::instance())
        window->activateWindow();
    if (as_file)
        emit mEditor->processCommandsAsFile(lines);
    else
        emit mEditor->processCommands(lines);
}

void JournalDocument::pythonize_lines(int first, int last)
{
    QString text = collect_lines(first, last);
    pythonize_text(text);
    QTextCursor cursor(document()->findBlockByNumber(first));
    cursor.select(QTextCursor::BlockUnderCursor);
    if (last > first) {
        cursor.setPosition(document()->findBlockByNumber(last).position(), QTextCursor::KeepAnchor);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    }
    cursor.insertText(text);
}

QString JournalDocument::collect_lines(int first, int last) const
{
    QString text;
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
        const QString line = block.text();
        if (number > 0 || line.isEmpty())
            text += u'\n';
        text += line;
    }
    return text;
}

int JournalDocument::lineNumberAreaWidth() const
{
    const auto digits = static_cast<int>(QString::number(qMax(1, blockCount())).size());
    return 3 + digits * fontMetrics().horizontalAdvance(u'9');
}

void JournalDocument::lineNumberAreaPaintEvent(QPaintEvent* event)
{
    QPainter painter(mLineNumberArea);
    painter.fillRect(event->rect(), Qt::lightGray);
}

void JournalDocument::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    const QRect contents = contentsRect();
    mLineNumberArea->setGeometry(contents.left(), contents.top(), lineNumberAreaWidth(), contents.height());
}

void JournalDocument::contextMenuEvent(QContextMenuEvent* event)
{
    QPlainTextEdit::contextMenuEvent(event);
}

void JournalDocument::updateLineNumberAreaWidth(int /*newBlockCount*/)
{
    setViewportMargins(lineNumberAreaWidth(), 0, 0, 0);
}

void JournalDocument::highlightCurrentLine()
{
    QList<QTextEdit::ExtraSelection> selections;
    if (!isReadOnly()) {
        QTextEdit::ExtraSelection line;
        line.format.setBackground(is_dark_color_scheme() ? QColor(75, 75, 75)
                                                         : QColor(Qt::yellow).lighter(160));
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = textCursor();
        line.cursor.clearSelection();
        selections.append(line);
    }
    setExtraSelections(selections);
}

void JournalDocument::updateLineNumberArea(const QRect& rect, int dy)
{
    if (dy != 0)
        mLineNumberArea->scroll(0, dy);
    else
        mLineNumberArea->update(0, rect.y(), mLineNumberArea->width(), rect.height());
    if (rect.contains(viewport()->rect()))
        updateLineNumberAreaWidth(0);
}

void JournalDocument::doc_modified(bool modified)
{
    const int index = mTabWidget->indexOf(this);
    QString title = mTabWidget->tabText(index);
    if (title.startsWith("* "_L1))
        title.remove(0, 2);
    mTabWidget->setTabText(index, modified ? u"* "_s + title : title);
}
