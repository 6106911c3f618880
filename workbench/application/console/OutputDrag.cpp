// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/OutputDrag.h"

#include "console/CommandWidget.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextDocumentFragment>

namespace fennar {

OutputDrag::OutputDrag(CommandWidget* page) : mPage(page)
{
    page->viewport()->installEventFilter(this);
}

bool OutputDrag::eventFilter(QObject*, QEvent* event)
{
    // Null for events of other kinds, which are not looked at.
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        mSelected = {};
        // With other keys, too, the page would begin a drag; only this one makes it select up to the mouse.
        if (mouse->button() == Qt::LeftButton && !(mouse->modifiers() & Qt::ShiftModifier) &&
            output_is_selected()) {
            mSelected = mPage->textCursor();
            mPressed = mouse->position().toPoint();
        }
        return false;
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        mSelected = {};
        return false;
    case QEvent::MouseMove: {
        if (mSelected.isNull() || !(mouse->buttons() & Qt::LeftButton))
            return false;
        // A press beside what is selected has taken the selection away, and this move makes another one.
        const QTextCursor cursor = mPage->textCursor();
        if (cursor.anchor() != mSelected.anchor() || cursor.position() != mSelected.position() ||
            !output_is_selected()) {
            mSelected = {};
            return false;
        }
        if ((mouse->position().toPoint() - mPressed).manhattanLength() > QApplication::startDragDistance())
            drag();
        return true;
    }
    default:
        return false;
    }
}

bool OutputDrag::output_is_selected() const
{
    const QTextCursor cursor = mPage->textCursor();
    const int command = cursor.position() - mPage->cursorIndex();
    return cursor.hasSelection() && cursor.selectionStart() < command;
}

void OutputDrag::drag()
{
    auto* text = new QMimeData;
    text->setText(mSelected.selection().toPlainText());
    mSelected = {};
    auto* drag = new QDrag(mPage->viewport());
    drag->setMimeData(text);
    // The page may be gone when this returns.
    drag->exec(Qt::CopyAction);
}

} // namespace fennar
