// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"

#include "console/trim.h"
#include "frame/Alive.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStringTokenizer>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/** "Inconsolata" at 10 points if it is there, else @p present with the hint that it be a typewriter font. */
QFont console_font(const QFont& present)
{
    const auto family = u"Inconsolata"_s;
    const QFont wanted(family, 10, -1, false);
    if (QFontInfo(wanted).family() == family)
        return wanted;
    QFont fallback(present);
    fallback.setStyleHint(QFont::TypeWriter, QFont::PreferDefault);
    return fallback;
}

QString without_final_newline(const QString& text)
{
    return text.endsWith(u'\n') ? text.chopped(1) : text;
}

/** With blanks for what ends a line for Qt: the beginning of the line behind would count as the prompt. */
QString on_one_line(QString text)
{
    for (const char16_t end : {u'\n', u'\r', u'\u2029', u'\uFDD0', u'\uFDD1'})
        text.replace(QChar(end), u' ');
    return text;
}

/**
 * Whether @p line starts with @p prompt, as each line does with an empty one.
 *
 * Said here, since to Qt an empty line may be a null text, which starts with nothing but null; which lines
 * are null differs between its versions.
 */
bool starts_with_prompt(QStringView line, QStringView prompt)
{
    return prompt.isEmpty() || line.startsWith(prompt);
}

/** As QTextCursor::EndOfBlock, but without laying the block out. */
QTextCursor end_of(const QTextBlock& block)
{
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + block.length() - 1);
    return cursor;
}

/**
 * Moves @p cursor over a prompt of @p length, or as far as the text goes.
 *
 * NextCharacter is what QTextCursor::Right is in left-to-right text. In a line that reads from right to left,
 * as one with a Hebrew command behind the "$ " does, Right would run back into the output.
 */
void step_over_prompt(QTextCursor& cursor, qsizetype length, QTextCursor::MoveMode mode)
{
    cursor.movePosition(QTextCursor::NextCharacter, mode, static_cast<int>(length));
}

/**
 * Keeps the text that an input method is composing at the caret, while others insert text ahead of that.
 *
 * Qt shows it as a part of the line, but not of its text: when the line is broken ahead of the caret it would
 * stay behind, on the finished line, for good.
 */
class KeptComposition
{
public:
    explicit KeptComposition(QPlainTextEdit* page) : mPage(page)
    {
        QTextLayout* const layout = page->textCursor().block().layout();
        mText = layout->preeditAreaText();
        if (mText.isEmpty())
            return;
        mStart = layout->preeditAreaPosition();
        mFormats = layout->formats();
        layout->setPreeditArea(-1, QString());
        layout->clearFormats();
    }
    ~KeptComposition()
    {
        if (mText.isEmpty())
            return;
        const QTextCursor caret = mPage->textCursor();
        const int moved = caret.positionInBlock() - mStart;
        for (QTextLayout::FormatRange& format : mFormats)
            format.start += moved;
        QTextLayout* const layout = caret.block().layout();
        layout->setPreeditArea(caret.positionInBlock(), mText);
        layout->setFormats(mFormats);
        mPage->document()->markContentsDirty(caret.block().position(), caret.block().length());
    }
    Q_DISABLE_COPY_MOVE(KeptComposition)

private:
    QPlainTextEdit* mPage;
    QString mText;
    /** In its line. */
    int mStart = 0;
    QList<QTextLayout::FormatRange> mFormats;
};

/**
 * Holds lines that are pasted and dropped back until the base class has done its work.
 *
 * The base class inserts from deep inside: behind insertFromMimeData() it goes on with the page, and a drop
 * has an edit block open meanwhile. What runs the lines may print, which needs the block closed, and may
 * delete the page; and where the caret is, is known when the block is closed. A drag from one page to another
 * ends within the mouse move of the first, so there is one such holder for all pages.
 */
class HeldLines
{
public:
    /** Lets the base class do @p work, then hands over what that has brought. */
    template <class Work>
    static void let_base(Work work)
    {
        if (depth == 0) {
            // What an exception has kept back does not come behind something else.
            unseen().clear();
            held().clear();
        }
        {
            ++depth;
            const auto done = qScopeGuard([] { --depth; });
            work();
        }
        if (depth > 0)
            return;
        const QList<QPointer<CommandWidget>> pages = std::exchange(unseen(), {});
        const QList<Lines> all_lines = std::exchange(held(), {});
        for (const QPointer<CommandWidget>& page : pages) {
            if (page)
                page->ensureCursorVisible();
        }
        for (const auto& [page, lines] : all_lines) {
            if (page)
                emit page->commandsEntered(lines);
        }
    }

    /** Hands over @p lines of @p page, as soon as that may be. */
    static void hand_over(CommandWidget* page, const QList<QString>& lines)
    {
        if (depth > 0)
            held().append({page, lines});
        else
            emit page->commandsEntered(lines);
    }

    /** Brings the caret of @p page into view, as soon as the text is laid out around it. */
    static void show_caret(CommandWidget* page)
    {
        if (depth > 0)
            unseen().append(page);
        else
            page->ensureCursorVisible();
    }

private:
    using Lines = std::pair<QPointer<CommandWidget>, QList<QString>>;

    static QList<Lines>& held()
    {
        static QList<Lines> lines;
        return lines;
    }

    /** Pages whose carets are to be brought into view. */
    static QList<QPointer<CommandWidget>>& unseen()
    {
        static QList<QPointer<CommandWidget>> pages;
        return pages;
    }

    inline static int depth = 0;
};

/**
 * Lets the base class do, with HeldLines, what it does on the mouse: the middle button pastes, and a drag
 * that begins in the page may end there.
 */
class MouseFilter : public QObject
{
public:
    MouseFilter(QWidget* viewport, QObject* parent, std::function<bool(QEvent*)> deliver)
        : QObject(parent), mDeliver(std::move(deliver))
    {
        viewport->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() != QEvent::MouseMove && e->type() != QEvent::MouseButtonRelease)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(e);
        const Qt::MouseButtons buttons = mouse->buttons() | mouse->button();
        if (!(buttons & (Qt::LeftButton | Qt::MiddleButton)))
            return false;
        bool taken = true;
        HeldLines::let_base([&] { taken = mDeliver(e); });
        return taken;
    }

private:
    std::function<bool(QEvent*)> mDeliver;
};

} // namespace

CommandWidget::CommandWidget(QWidget* parent)
    : QPlainTextEdit(parent),
      mPrompt(u"$ "_s),
      mFocusFollowsCursor(false),
      mOutputLineOpen(false),
      mPromptShown(false)
{
    // A limit switches undo off as well, for good, also if it is 0 later. The page relies on it: undo would
    // take output back.
    document()->setMaximumBlockCount(1000);
    setWordWrapMode(QTextOption::NoWrap);
    setFont(console_font(font()));
    // The base class's way to its mouse handlers.
    new MouseFilter(viewport(), this, [this](QEvent* e) { return viewportEvent(e); });
}

CommandWidget::~CommandWidget() = default;

QList<QString> CommandWidget::getCommands() const
{
    QList<QString> commands;
    // The text of all blocks at once: to ask each block for its own takes several times as long.
    const QString text = document()->toRawText();
    for (const QStringView line : qTokenize(text, QChar(QChar::ParagraphSeparator))) {
        if (starts_with_prompt(line, mPrompt))
            commands.append(line.sliced(mPrompt.size()).toString());
        else if (starts_with_prompt(line, mContinuationPrompt))
            commands.append(line.sliced(mContinuationPrompt.size()).toString());
    }
    return commands;
}

void CommandWidget::setFocusFollowsCursor(bool follows)
{
    mFocusFollowsCursor = follows;
}

bool CommandWidget::focusFollowsCursor() const
{
    return mFocusFollowsCursor;
}

void CommandWidget::setPrompt(const QString& prompt)
{
    setPrompt(prompt, prompt);
    if (!mPromptShown)
        return;
    QTextCursor cursor(document()->lastBlock());
    // A pasted line separator makes several lines of one block.
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(mPrompt);
}

void CommandWidget::setPrompt(const QString& prompt, const QString& continuation)
{
    mPrompt = prompt;
    mContinuationPrompt = continuation;
}

QString CommandWidget::prompt() const
{
    return mPrompt;
}

int CommandWidget::cursorIndex() const
{
    return textCursor().position() - command_start().position();
}

QString CommandWidget::currentCommand() const
{
    const QTextCursor start = command_start();
    return start.block().text().sliced(start.positionInBlock());
}

void CommandWidget::printOutput(const QString& output)
{
    const QTextBlock commandLine = document()->lastBlock();
    // The open line is gone if the limit has dropped it, or if the page was emptied by other hands.
    const QTextBlock openLine = mOutputLineOpen ? commandLine.previous() : QTextBlock();
    const bool endsLine = output.endsWith(u'\n');

    QTextCursor cursor(commandLine);
    QString text = output;
    if (openLine.isValid()) {
        cursor = end_of(openLine);
        // The line has its end already. A carriage return belongs to the newline: alone it would end a line
        // too.
        if (endsLine)
            text.chop(output.endsWith("\r\n"_L1) ? 2 : 1);
    } else if (!endsLine) {
        text += u'\n';
    }
    mOutputLineOpen = !endsLine;

    const KeptComposition kept(this);
    cursor.insertText(text.mid(dropped_at_once(text, document()->maximumBlockCount())));
    scroll_to_end();
}

void CommandWidget::clearToPrompt()
{
    clear();
    mPromptShown = false;
    printPrompt();
    emit contentsCleared();
}

void CommandWidget::addExternalCommand(const QString& command)
{
    // A copy: a slot may change what the reference names.
    const QString shown = command;
    if (!mPromptShown)
        printPrompt();
    setCurrentCommand(shown);
    const KeptComposition kept(this);
    command_end().insertText(u"\n"_s);
    mPromptShown = false;
}

void CommandWidget::setCurrentCommand(const QString& command)
{
    QTextCursor cursor = command_start();
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(without_final_newline(command));
}

void CommandWidget::appendToCommand(const QString& command)
{
    command_end().insertText(command);
}

void CommandWidget::insertInCommand(const QString& command)
{
    const Alive alive(this);
    const QString inserted = command;
    if (cursorIndex() < 0)
        setTextCursor(command_end());
    if (alive)
        textCursor().insertText(inserted);
}

void CommandWidget::printPrompt(bool continuation, const char* indent)
{
    mOutputLineOpen = false;
    if (mPromptShown)
        return;
    // At the start of the line: what was typed ahead becomes part of the command.
    const QString beginning = QString::fromUtf8(indent);
    QTextCursor cursor(document()->lastBlock());
    // First, or a slot that prints a prompt would print another one.
    mPromptShown = true;
    const KeptComposition kept(this);
    cursor.insertText(continuation ? mContinuationPrompt : mPrompt);
    if (!beginning.isEmpty())
        cursor.insertText(beginning);
}

void CommandWidget::setReadOnly(bool readOnly)
{
    QPlainTextEdit::setReadOnly(readOnly);
}

bool CommandWidget::event(QEvent* e)
{
    const Alive alive(this);
    if (e->type() == QEvent::Enter && mFocusFollowsCursor)
        setFocus(Qt::OtherFocusReason);
    else if (e->type() == QEvent::InputMethod)
        keep_input_in_command(static_cast<QInputMethodEvent*>(e));
    return !alive || QPlainTextEdit::event(e);
}

void CommandWidget::keyPressEvent(QKeyEvent* e)
{
    const Alive alive(this);
    // Taken before anything moves: all that follows goes by where the caret was.
    const int index = cursorIndex();
    const bool control = e->modifiers().testFlag(Qt::ControlModifier);

    const bool outside = index < 0 || hasSelectionOutsideCommand();
    const bool copies = control && e->key() == Qt::Key_C;
    // A key without text stays where it is, also one that edits, as Shift+Insert does (docs/surprises.md).
    if (outside && !copies && !e->text().isEmpty())
        bring_caret_home(index);
    if (!alive)
        return;

    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QString command = currentCommand();
        moveCursor(QTextCursor::End);
        if (!alive)
            return;
        // Without modifiers, or Shift+Return would break the line inside the block.
        QKeyEvent plain(e->type(), e->key(), Qt::NoModifier, e->text(), false,
                        static_cast<quint16>(e->count()));
        HeldLines::let_base([&] { QPlainTextEdit::keyPressEvent(&plain); });
        if (alive)
            scroll_to_end();
        if (alive)
            new_command(command);
        return;
    }
    case Qt::Key_Home: {
        QTextCursor cursor = textCursor();
        if (cursor.block() != document()->lastBlock())
            break;
        const auto mode =
            e->modifiers().testFlag(Qt::ShiftModifier) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
        cursor.movePosition(QTextCursor::StartOfLine, mode);
        step_over_prompt(cursor, mPrompt.size(), mode);
        setTextCursor(cursor);
        return;
    }
    case Qt::Key_Backspace:
        if (index <= 0 && !textCursor().hasSelection())
            return;
        if (e->matches(QKeySequence::DeleteStartOfWord))
            keep_word_in_command();
        break;
    case Qt::Key_Up:
        if (index < 0)
            break;
        emit historyUpEvent();
        return;
    case Qt::Key_Down:
        if (index < 0)
            break;
        emit historyDownEvent();
        return;
    case Qt::Key_K:
        if (!control)
            break;
        if (index >= 0)
            setCurrentCommand(currentCommand().left(index));
        return;
    case Qt::Key_U:
        if (!control)
            break;
        if (index >= 0)
            setCurrentCommand(currentCommand().mid(index));
        return;
    case Qt::Key_T: {
        if (!control)
            break;
        QTextCursor cursor = command_end();
        cursor.insertText(u"fennar.cmd()"_s);
        cursor.movePosition(QTextCursor::PreviousCharacter);
        setTextCursor(cursor);
        return;
    }
    default:
        break;
    }
    if (alive)
        HeldLines::let_base([&] { QPlainTextEdit::keyPressEvent(e); });
}

void CommandWidget::contextMenuEvent(QContextMenuEvent* e)
{
    // Guarded, since a command that runs while the menu is open may delete the page and the menu with it.
    const QPointer<QMenu> menu = new QMenu(this);
    const bool hasSelection = textCursor().hasSelection();
    const bool hasBlocks = document()->blockCount() > 0;
    const QClipboard* clipboard = QGuiApplication::clipboard();

    // What is chosen is done when the menu has closed: it may delete the page, and the menu still works on
    // itself behind its action.
    using Slot = void (CommandWidget::*)();
    Slot chosen = nullptr;
    const auto add = [&](const QString& text, const QKeySequence& shortcut, Slot slot, bool enabled) {
        QAction* action = menu->addAction(text);
        action->setShortcut(shortcut);
        action->setEnabled(enabled);
        // The menu does not outlive this function.
        connect(action, &QAction::triggered, menu, [chosen = &chosen, slot] { *chosen = slot; });
    };
    // Not guarded as the keys are: the user who asks the menu to cut output gets it cut.
    add(tr("Cu&t"), QKeySequence::Cut, &CommandWidget::cut, hasSelection);
    add(tr("&Copy"), QKeySequence::Copy, &CommandWidget::copy, hasSelection);
    add(tr("&Paste"), QKeySequence::Paste, &CommandWidget::paste, clipboard && !clipboard->text().isEmpty());
    add(tr("Clear"), {}, &CommandWidget::clearToPrompt, hasBlocks);
    menu->addSeparator();
    add(tr("Select All"), {}, &CommandWidget::selectAll, hasBlocks);
    menu->exec(e->globalPos());
    if (!menu)
        return;
    delete menu;
    if (chosen)
        (this->*chosen)();
}

void CommandWidget::dropEvent(QDropEvent* e)
{
    const Alive alive(this);
    // The base class takes the selection away when the text comes from this page; without one, output is
    // copied.
    if (hasSelectionOutsideCommand()) {
        // The view stays: the base class has yet to see what the pointer is over.
        const int x = horizontalScrollBar()->value();
        const int y = verticalScrollBar()->value();
        moveCursor(QTextCursor::End);
        if (alive)
            horizontalScrollBar()->setValue(x);
        if (alive)
            verticalScrollBar()->setValue(y);
    }
    if (alive)
        HeldLines::let_base([&] { QPlainTextEdit::dropEvent(e); });
}

void CommandWidget::insertFromMimeData(const QMimeData* source)
{
    const QString text = source->text();
    const QStringList lines = text.split(u'\n');
    if (lines.size() > 1) {
        HeldLines::hand_over(this, lines);
        return;
    }
    const Alive alive(this);
    insertInCommand(on_one_line(text));
    if (alive)
        HeldLines::show_caret(this);
}

void CommandWidget::scroll_to_end()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

bool CommandWidget::hasSelectionOutsideCommand() const
{
    const QTextCursor cursor = textCursor();
    return cursor.hasSelection() &&
           cursor.selectionStart() < document()->lastBlock().position() + mPrompt.size();
}

void CommandWidget::new_command(const QString& command)
{
    const Alive alive(this);
    // A copy: a slot may change what the reference names.
    const QString entered = command;
    mPromptShown = false;
    emit resetHistoryIndex();
    if (alive)
        emit commandEntered(entered);
}

QTextCursor CommandWidget::command_start() const
{
    QTextCursor cursor(document()->lastBlock());
    step_over_prompt(cursor, mPrompt.size(), QTextCursor::MoveAnchor);
    return cursor;
}

QTextCursor CommandWidget::command_end() const
{
    return end_of(document()->lastBlock());
}

void CommandWidget::bring_caret_home(int index)
{
    const bool inPrompt = index < 0 && index + mPrompt.size() >= 0;
    const Alive alive(this);
    setTextCursor(inPrompt ? command_start() : command_end());
    if (alive)
        scroll_to_end();
}

void CommandWidget::keep_word_in_command()
{
    QTextCursor cursor = textCursor();
    if (isReadOnly() || cursor.hasSelection())
        return;
    const int start = command_start().position();
    QTextCursor word = cursor;
    word.movePosition(QTextCursor::PreviousWord);
    if (word.position() >= start)
        return;
    cursor.setPosition(start, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void CommandWidget::keep_input_in_command(QInputMethodEvent* input)
{
    // What the base class takes for input, even if it only ends a composition: it removes the selection then.
    if (input->commitString().isEmpty() && input->replacementLength() == 0 &&
        input->preeditString() == textCursor().block().layout()->preeditAreaText())
        return;
    const int index = cursorIndex();
    if (index < 0 || hasSelectionOutsideCommand()) {
        bring_caret_home(index);
        // What the input method wanted to replace stands where the caret was.
        input->setCommitString(on_one_line(input->commitString()));
        return;
    }
    const int start = command_start().position();
    const int first = std::max(input->replacementStart(), start - textCursor().selectionStart());
    const int behind = input->replacementStart() + input->replacementLength();
    input->setCommitString(on_one_line(input->commitString()), first, std::max(behind - first, 0));
}
