// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/CompletionKey.h"

#include "console/CommandWidget.h"
#include "workbench/sdk/core/commands/CommandError.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QTextCursor>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

/** Blanks between two columns. */
static constexpr qsizetype column_gap = 2;

CompletionKey::CompletionKey(CommandWidget* page, Complete complete)
    : mPage(page), mComplete(std::move(complete))
{
    page->installEventFilter(this);
}

bool CompletionKey::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Tab || key->modifiers() != Qt::NoModifier || mPage->isReadOnly())
        return false;
    complete();
    return true;
}

void CompletionKey::complete()
{
    QTextCursor cursor = mPage->textCursor();
    if (mPage->cursorIndex() < 0 || cursor.hasSelection()) {
        // As typing would: outside of the command it goes on at its end.
        if (mPage->cursorIndex() < 0)
            cursor.movePosition(QTextCursor::End);
        else
            cursor.clearSelection();
        mPage->setTextCursor(cursor);
    }
    const QString line = mPage->currentCommand();
    const qsizetype caret = mPage->cursorIndex();
    const LineCompletion completion = mComplete(line, caret);
    const bool again = mCaret == caret && mLine == line;
    mCaret = -1;
    if (const auto text = completed_text(completion, line, caret)) {
        replace_typed(mPage, completion.start, caret, *text);
        return;
    }
    if (again)
        list(completion);
    mLine = line;
    mCaret = caret;
}

void CompletionKey::list(const LineCompletion& completion)
{
    if (completion.candidates.isEmpty()) {
        if (!completion.hint.isEmpty())
            mPage->printOutput(completion.hint + u'\n');
        return;
    }
    QStringList names;
    for (const LineCompletion::Candidate& candidate :
         completion.candidates.first(std::min(completion.candidates.size(), list_limit)))
        names << CommandError::shown(candidate.shown, candidate.shown.size()).mid(1).chopped(1);
    const int character = std::max(QFontMetrics(mPage->font()).horizontalAdvance(u'x'), 1);
    QString text = in_columns(names, mPage->viewport()->width() / character);
    if (completion.candidates.size() > list_limit)
        text += u"... and %1 more\n"_s.arg(completion.candidates.size() - list_limit);
    mPage->printOutput(text);
}

std::optional<QString> completed_text(const LineCompletion& completion, const QString& line, qsizetype caret)
{
    if (completion.candidates.size() == 1) {
        const QString& text = completion.candidates[0].inserted;
        return completion.followed && caret == line.size() ? text + u' ' : text;
    }
    const QStringView typed = QStringView(line).sliced(completion.start, caret - completion.start);
    if (completion.candidates.isEmpty() || completion.common.isEmpty() || completion.common == typed)
        return std::nullopt;
    return completion.common;
}

void replace_typed(QPlainTextEdit* page, qsizetype start, qsizetype caret, const QString& text)
{
    QTextCursor cursor = page->textCursor();
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor,
                        static_cast<int>(caret - start));
    cursor.insertText(text);
    page->setTextCursor(cursor);
    page->ensureCursorVisible();
}

QString in_columns(const QStringList& names, qsizetype width)
{
    if (names.isEmpty())
        return {};
    qsizetype longest = 0;
    for (const QString& name : names)
        longest = std::max(longest, name.size());
    const qsizetype columns = std::max<qsizetype>((width + column_gap) / (longest + column_gap), 1);
    const qsizetype rows = (names.size() + columns - 1) / columns;
    QString text;
    for (qsizetype row = 0; row < rows; ++row) {
        for (qsizetype i = row; i < names.size(); i += rows)
            text += i + rows < names.size() ? names[i].leftJustified(longest + column_gap) : names[i];
        text += u'\n';
    }
    return text;
}

} // namespace fennar
