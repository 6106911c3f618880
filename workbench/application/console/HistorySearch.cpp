// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/HistorySearch.h"

#include "console/CommandWidget.h"
#include "workbench/application/console/CommandHistory.h"

#include <QEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** How far the hint's text stands from its left side, in pixels. */
constexpr int indent = 4;

bool is_search_key(const QKeyEvent* event)
{
    return event->key() == Qt::Key_R && event->modifiers() == Qt::ControlModifier;
}

bool is_modifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

void move_to_end(CommandWidget* page)
{
    QTextCursor cursor = page->textCursor();
    cursor.movePosition(QTextCursor::End);
    page->setTextCursor(cursor);
}

} // namespace

HistorySearch::HistorySearch(CommandWidget* page, CommandHistory& history)
    : mPage(page), mHistory(history), mHint(new QLabel(page->viewport()))
{
    mHint->setObjectName(u"historySearchHint"_s);
    mHint->setTextFormat(Qt::PlainText);
    mHint->setAutoFillBackground(true);
    mHint->setBackgroundRole(QPalette::ToolTipBase);
    mHint->setForegroundRole(QPalette::ToolTipText);
    mHint->setIndent(indent);
    mHint->setContentsMargins(0, 0, indent, 0);
    mHint->setAttribute(Qt::WA_TransparentForMouseEvents);
    mHint->hide();
    page->installEventFilter(this);
    page->viewport()->installEventFilter(this);
    connect(page->verticalScrollBar(), &QScrollBar::valueChanged, this, &HistorySearch::place_hint);
    connect(page->document(), &QTextDocument::contentsChanged, this, &HistorySearch::place_hint);
}

void HistorySearch::take()
{
    if (!mActive)
        return;
    if (mMatch >= 0)
        mHistory.go_to(mMatch, mTyped);
    end();
}

void HistorySearch::give_up()
{
    if (!mActive)
        return;
    mPage->setCurrentCommand(mTyped);
    QTextCursor cursor = mPage->textCursor();
    cursor.movePosition(QTextCursor::End);
    if (mCaret >= 0)
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::MoveAnchor,
                            static_cast<int>(std::max<qsizetype>(mTyped.size() - mCaret, 0)));
    mPage->setTextCursor(cursor);
    end();
}

void HistorySearch::forget()
{
    if (mActive)
        end();
}

void HistorySearch::begin()
{
    mActive = true;
    mTyped = mPage->currentCommand();
    mCaret = mPage->cursorIndex();
    mText.clear();
    mMatch = -1;
    mFailed = false;
    move_to_end(mPage);
    show_hint();
}

void HistorySearch::end()
{
    mActive = false;
    if (!mText.isEmpty())
        mLastText = mText;
    mHint->hide();
}

bool HistorySearch::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // Else a shortcut of the window with one of these keys would end up there.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (object == mPage && (is_search_key(key) || (mActive && key->key() == Qt::Key_Escape))) {
            event->accept();
            return true;
        }
        return false;
    }
    case QEvent::KeyPress:
        return object == mPage && handle_key(static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
        if (object == mPage && mActive) {
            set_text(mText + static_cast<QInputMethodEvent*>(event)->commitString());
            return true;
        }
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::Drop:
        take();
        return false;
    case QEvent::FocusOut:
        if (object == mPage)
            take();
        return false;
    case QEvent::Resize:
        place_hint();
        return false;
    default:
        return false;
    }
}

bool HistorySearch::handle_key(const QKeyEvent* event)
{
    if (is_search_key(event)) {
        if (mPage->isReadOnly())
            return true;
        if (!mActive)
            begin();
        else if (mText.isEmpty())
            set_text(mLastText);
        else
            find(mMatch < 0 ? mHistory.entries().size() : mMatch);
        return true;
    }
    if (!mActive || is_modifier(event->key()))
        return false;
    switch (event->key()) {
    case Qt::Key_Escape:
        give_up();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take();
        return true;
    case Qt::Key_Backspace:
        // A character may be two units.
        if (!mText.isEmpty())
            set_text(mText.chopped(mText.size() > 1 && mText.back().isLowSurrogate() ? 2 : 1));
        return true;
    default:
        break;
    }
    const QString typed = event->text();
    const bool letters = !typed.isEmpty() && std::all_of(typed.begin(), typed.end(), [](QChar c) {
        return c.isPrint() || c.isSurrogate();
    });
    if (!letters || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier) {
        take();
        return false;
    }
    set_text(mText + typed);
    return true;
}

/** Searches from the newest entry, or, if the text has only grown, from the present match on. */
void HistorySearch::set_text(const QString& text)
{
    const bool grown = mMatch >= 0 && text.startsWith(mText);
    mText = text;
    if (text.isEmpty()) {
        mMatch = -1;
        mFailed = false;
        mPage->setCurrentCommand(mTyped);
        move_to_end(mPage);
        show_hint();
        return;
    }
    if (!grown)
        mMatch = -1;
    find(grown ? mMatch + 1 : mHistory.entries().size());
}

void HistorySearch::find(qsizetype before)
{
    // What is on screen already is not found again, however often it was entered.
    const bool again = mMatch >= 0 && before == mMatch;
    qsizetype found = mHistory.find(mText, before);
    while (again && found >= 0 && mHistory.entries()[found] == mHistory.entries()[mMatch])
        found = mHistory.find(mText, found);
    mFailed = found < 0;
    if (found >= 0) {
        mMatch = found;
        mPage->setCurrentCommand(mHistory.entries()[found]);
        move_to_end(mPage);
    }
    show_hint();
}

void HistorySearch::show_hint()
{
    mHint->setText((mFailed ? tr("Not in the history: %1") : tr("Search in the history: %1")).arg(mText));
    mHint->setAccessibleName(mHint->text());
    mHint->adjustSize();
    place_hint();
    mHint->show();
    mHint->raise();
}

/** Above the command line, or below it if it is the first one in sight. */
void HistorySearch::place_hint()
{
    if (!mActive)
        return;
    const QRect line = mPage->cursorRect(QTextCursor(mPage->document()->lastBlock()));
    const int above = line.top() - mHint->height();
    const int lowest = std::max(mPage->viewport()->height() - mHint->height(), 0);
    mHint->move(0, std::clamp(above >= 0 ? above : line.bottom() + 1, 0, lowest));
}

} // namespace fennar
