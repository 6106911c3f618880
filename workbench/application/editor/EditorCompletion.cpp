// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/EditorCompletion.h"

#include "workbench/application/console/CompletionKey.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace fennar {

EditorCompletion::EditorCompletion(QPlainTextEdit* page, const Complete& complete)
    : QObject(page), mPage(page), mComplete(complete)
{
    mList.setModel(&mNames);
    mList.setWidget(page);
    mList.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    mList.popup()->setObjectName(u"editorCandidates"_s);
    // Ahead of the list's own, which would give Return and Tab to the document.
    mList.popup()->installEventFilter(this);
    connect(&mList, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) { choose(index.row()); });
    connect(page, &QPlainTextEdit::cursorPositionChanged, this, &EditorCompletion::narrow);
    page->installEventFilter(this);
}

bool EditorCompletion::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() != Qt::NoModifier && key->modifiers() != Qt::KeypadModifier)
        return false;
    if (object != mPage)
        return key_in_list(key->key());
    return key->key() == Qt::Key_Tab && complete();
}

/** Returns false for the key's own work. */
bool EditorCompletion::complete()
{
    const QTextCursor caret = mPage->textCursor();
    if (mPage->isReadOnly() || caret.hasSelection())
        return false;
    const LineCompletion completion = mComplete(caret);
    if (completion.candidates.isEmpty()) {
        if (!completion.hint.isEmpty())
            QToolTip::showText(mPage->viewport()->mapToGlobal(mPage->cursorRect().bottomLeft()),
                               completion.hint, mPage);
        return false;
    }
    const qsizetype column = caret.positionInBlock();
    if (const auto text = completed_text(completion, caret.block().text(), column))
        replace_typed(mPage, completion.start, column, *text);
    else
        list(completion);
    return true;
}

bool EditorCompletion::key_in_list(int key)
{
    if (key == Qt::Key_Escape) {
        mList.popup()->hide();
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Tab)
        return false;
    choose(mList.popup()->currentIndex().row());
    return true;
}

void EditorCompletion::list(const LineCompletion& completion)
{
    QStringList names;
    for (const LineCompletion::Candidate& candidate : completion.candidates)
        names << candidate.shown;
    mListed = completion;
    mNames.setStringList(names);
    QRect place = mPage->cursorRect().translated(mPage->viewport()->pos());
    place.setWidth(mList.popup()->sizeHintForColumn(0) +
                   mList.popup()->verticalScrollBar()->sizeHint().width());
    mList.complete(place);
    mList.popup()->setCurrentIndex(mList.completionModel()->index(0, 0));
}

/** Lists what still fits behind a change. */
void EditorCompletion::narrow()
{
    if (!mList.popup()->isVisible())
        return;
    const LineCompletion completion = mComplete(mPage->textCursor());
    if (completion.candidates.isEmpty() || completion.start != mListed.start)
        mList.popup()->hide();
    else
        list(completion);
}

void EditorCompletion::choose(int row)
{
    mList.popup()->hide();
    if (row >= 0 && row < mListed.candidates.size())
        replace_typed(mPage, mListed.start, mPage->textCursor().positionInBlock(),
                      mListed.candidates[row].inserted);
}

} // namespace fennar
