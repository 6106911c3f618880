// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalDocument.h"

#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "journal/LineNumberArea.h"
#include "journal/color_scheme.h"
#include "journal/translate.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr QKeyCombination comment_shortcut = Qt::CTRL | Qt::Key_Slash;
constexpr QKeyCombination play_shortcut = Qt::CTRL | Qt::Key_F5;

bool is_comment(const QTextBlock& block)
{
    return block.text().startsWith(u'#');
}

/**
 * Brings the line that text is dropped into wholly into view first.
 *
 * The base class has an edit block open when it looks for the caret. If the line is cut off at the lower
 * edge, it asks for text that is not laid out yet, and crashes.
 */
class DropFilter : public QObject
{
public:
    DropFilter(QPlainTextEdit* edit, std::function<void(QEvent*)> deliver)
        : QObject(edit), mEdit(edit), mDeliver(std::move(deliver))
    {
        edit->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() != QEvent::Drop)
            return false;
        auto* const drop = static_cast<QDropEvent*>(e);
        const QTextCursor target = mEdit->cursorForPosition(drop->position().toPoint());
        if (!is_cut_off(target))
            return false;
        QScrollBar* const bar = mEdit->verticalScrollBar();
        const Alive alive(mEdit);
        while (alive && is_cut_off(target) && bar->value() < bar->maximum())
            bar->setValue(bar->value() + 1);
        if (!alive)
            return true;
        if (is_cut_off(target) || mEdit->cursorRect(target).top() < 0) {
            // A view lower than a line takes nothing.
            QDragLeaveEvent leave;
            mDeliver(&leave);
            drop->ignore();
            return true;
        }
        QDropEvent moved(mEdit->cursorRect(target).center(), drop->possibleActions(), drop->mimeData(),
                         drop->buttons(), drop->modifiers());
        moved.setDropAction(drop->dropAction());
        mDeliver(&moved);
        drop->setDropAction(moved.dropAction());
        drop->setAccepted(moved.isAccepted());
        return true;
    }

private:
    bool is_cut_off(const QTextCursor& cursor) const
    {
        const QRect line = mEdit->cursorRect(cursor);
        const int bottom = std::max(line.bottom(), line.top() + height_before_layout);
        return bottom > mEdit->viewport()->rect().bottom();
    }

    /** What the base class takes for the height of a line that is not laid out, in pixels. */
    static constexpr int height_before_layout = 10;

    QPlainTextEdit* mEdit;
    std::function<void(QEvent*)> mDeliver;
};

} // namespace

JournalDocument::JournalDocument(JournalEditor* editor, QTabWidget* parent, const char* name)
    : QPlainTextEdit(parent), mEditor(editor), mLineNumberArea(nullptr), mTabWidget(parent)
{
    setObjectName(QString::fromUtf8(name));
    setAccessibleName(tr("Journal"));
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
    new DropFilter(this, [this](QEvent* event) { viewportEvent(event); });
}

JournalDocument::~JournalDocument()
{
    // Those that are children of this die after the list of them.
    for (const QAction* action : std::as_const(mContextMenuItems))
        disconnect(action, &QObject::destroyed, this, nullptr);
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
    // A document whose tab was closed hears nothing from the editor any more.
    if (!mContextMenuItems.contains(action))
        connect(action, &QObject::destroyed, this, [this, action] { mContextMenuItems.removeAll(action); });
    mContextMenuItems.append(action);
}

void JournalDocument::remove_context_menu_item(QAction* action)
{
    // One that is no longer in the list may be dead.
    if (mContextMenuItems.removeAll(action) > 0)
        disconnect(action, &QObject::destroyed, this, nullptr);
}

void JournalDocument::comment_lines(int first, int last)
{
    if (last < 0)
        last = blockCount() - 1;
    for (int number = first; number <= last; ++number) {
        // Looked up anew: whoever hears of an edit may change the text, too.
        const QTextBlock block = document()->findBlockByNumber(number);
        if (!block.isValid())
            return;
        QTextCursor(block).insertText(u"#"_s);
    }
}

void JournalDocument::uncomment_lines(int first, int last)
{
    if (last < 0)
        last = blockCount() - 1;
    const auto for_each_line = [&](auto&& work) {
        QTextBlock block = document()->findBlockByNumber(first);
        for (int number = first; number <= last && block.isValid(); ++number, block = block.next())
            work(block);
    };
    // The widget looks for the longest line whenever that gets shorter: among lines of one length, each time.
    // It passes over those that are not laid out. Selecting would lay them out, save in an edit that has
    // begun.
    for_each_line([](const QTextBlock& line) { line.layout()->clearLayout(); });
    for (int number = first; number <= last; ++number) {
        // Looked up anew: whoever hears of an edit may change the text, too.
        const QTextBlock line = document()->findBlockByNumber(number);
        if (!line.isValid())
            break;
        QTextCursor cursor(line);
        cursor.beginEditBlock();
        cursor.setPosition(line.position() + line.length() - 1, QTextCursor::KeepAnchor);
        QString text = cursor.selectedText();
        if (text.startsWith(u'#'))
            text.remove(0, 1);
        cursor.insertText(text);
        cursor.endEditBlock();
    }
    for_each_line([this](const QTextBlock& line) { blockBoundingRect(line); });
}

void JournalDocument::play_lines(int first, int last)
{
    const bool as_file = last == -1;
    if (last < 0)
        last = blockCount() - 1;
    const QStringList lines = collect_lines(first, last).split(u'\n');
    // Whoever hears that another window has become active may close this document, or the editor.
    const QPointer<JournalEditor> editor = mEditor;
    if (Ostrel* window = Ostrel::instance())
        window->activateWindow();
    if (!editor)
        return;
    if (as_file)
        emit editor->processCommandsAsFile(lines);
    else
        emit editor->processCommands(lines);
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
    const QTextBlock begin = document()->findBlockByNumber(first);
    const QTextBlock end = document()->findBlockByNumber(last);
    if (last < first || !begin.isValid() || !end.isValid())
        return {};
    QString text;
    if (first == 0 && end == document()->lastBlock()) {
        // Several times as fast as a selection, which looks each piece of text up.
        text = document()->toRawText();
    } else {
        QTextCursor cursor(begin);
        if (first > 0)
            cursor.setPosition(begin.position() - 1);
        cursor.setPosition(end.position() + end.length() - 1, QTextCursor::KeepAnchor);
        text = cursor.selectedText();
    }
    text.replace(QChar::ParagraphSeparator, u'\n');
    if (first == 0 && begin.length() == 1)
        text.prepend(u'\n');
    return text;
}

int JournalDocument::lineNumberAreaWidth() const
{
    const auto digits = static_cast<int>(QString::number(qMax(1, blockCount())).size());
    return 3 + digits * fontMetrics().horizontalAdvance(u'9');
}

void JournalDocument::lineNumberAreaPaintEvent(QPaintEvent* event)
{
    const QRect area = event->rect();
    QPainter painter(mLineNumberArea);
    // Black on light gray in any color scheme; intended.
    painter.fillRect(area, Qt::lightGray);
    painter.setPen(Qt::black);
    QTextBlock block = firstVisibleBlock();
    int number = block.blockNumber();
    int top = static_cast<int>(blockBoundingGeometry(block).translated(contentOffset()).top());
    int bottom = top + static_cast<int>(blockBoundingRect(block).height());
    while (block.isValid() && top <= area.bottom()) {
        if (block.isVisible() && bottom >= area.top()) {
            painter.drawText(0, top, mLineNumberArea->width(), fontMetrics().height(), Qt::AlignRight,
                             QString::number(number + 1));
        }
        block = block.next();
        top = bottom;
        bottom += static_cast<int>(blockBoundingRect(block).height());
        ++number;
    }
}

void JournalDocument::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    // It may come while the strip is made, from whoever is told of that.
    if (!mLineNumberArea)
        return;
    const QRect contents = contentsRect();
    mLineNumberArea->setGeometry(contents.left(), contents.top(), lineNumberAreaWidth(), contents.height());
}

void JournalDocument::contextMenuEvent(QContextMenuEvent* event)
{
    const bool editable = !isReadOnly();
    const bool has_selection = textCursor().hasSelection();
    const bool has_text = !document()->isEmpty();

    // Guarded, since an event that comes while the menu is open may delete this document and the menu with
    // it.
    const QPointer<QMenu> menu = new QMenu(this);
    menu->setObjectName(u"qt_edit_menu"_s);
    QHash<const QAction*, std::function<void()>> effects;
    const auto add = [&](const QString& text, bool enabled, const QKeySequence& shown_shortcut,
                         const std::function<void()>& effect) {
        QAction* item = menu->addAction(text);
        item->setEnabled(enabled);
        item->setShortcut(shown_shortcut);
        effects.insert(item, effect);
    };
    // The editor works on the current document, which may have become another one meanwhile.
    const auto by_editor = [this](std::function<void()> effect) {
        return [this, effect = std::move(effect)] {
            if (mEditor->returnCurrentDocument() == this)
                effect();
        };
    };

    add(tr("Play Selected"), has_selection, play_shortcut, by_editor([this] { mEditor->playSelected(); }));
    add(tr("Translate Selected to Python"), has_selection, {},
        by_editor([this] { mEditor->pythonizeSelected(); }));
    menu->addSeparator();
    if (editable) {
        add(tr("&Undo"), document()->isUndoAvailable(), Qt::CTRL | Qt::Key_Z, [this] { undo(); });
        add(tr("&Redo"), document()->isRedoAvailable(), Qt::CTRL | Qt::Key_Y, [this] { redo(); });
        menu->addSeparator();
        add(tr("Cu&t"), has_selection, Qt::CTRL | Qt::Key_X, [this] { cut(); });
    }
    add(tr("&Copy"), has_selection, Qt::CTRL | Qt::Key_C, [this] { copy(); });
    if (editable) {
        add(tr("&Paste"), !QGuiApplication::clipboard()->text().isEmpty(), Qt::CTRL | Qt::Key_V,
            [this] { paste(); });
        menu->addSeparator();
        const bool commented = is_comment(document()->findBlock(textCursor().selectionStart()));
        const bool can_comment = has_selection && !commented;
        const bool can_uncomment = has_selection && commented;
        add(tr("Comment Selection"), can_comment,
            can_comment ? QKeySequence(comment_shortcut) : QKeySequence(),
            by_editor([this] { mEditor->commentSelected(); }));
        add(tr("Un-Comment Selection"), can_uncomment,
            can_uncomment ? QKeySequence(comment_shortcut) : QKeySequence(),
            by_editor([this] { mEditor->uncommentSelected(); }));
        menu->addSeparator();
        for (QAction* action : std::as_const(mContextMenuItems)) {
            add(action->text(), has_text, {}, [added = QPointer<QAction>(action)] {
                if (added)
                    added->trigger();
            });
        }
        if (!mContextMenuItems.isEmpty())
            menu->addSeparator();
        add(tr("Find..."), has_text, {}, by_editor([this] { mEditor->editFind(); }));
        add(tr("Clear"), has_text, {}, [this] {
            const Alive alive(this);
            selectAll();
            if (alive)
                cut();
        });
        menu->addSeparator();
    }
    add(tr("Select All"), has_text, Qt::CTRL | Qt::Key_A, [this] { selectAll(); });

    const QAction* chosen = menu->exec(event->globalPos());
    if (!menu)
        return;
    const std::function<void()> effect = effects.value(chosen);
    const Alive alive(this);
    delete menu;
    if (alive && effect)
        effect();
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
