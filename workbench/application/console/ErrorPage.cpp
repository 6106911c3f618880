// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/console/ErrorPage.h"

#include "frame/Alive.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** What the page knows about a line of its text. */
struct BlockPlace : QTextBlockUserData
{
    int error = 0;
    std::optional<JournalPlace> place;
};

const BlockPlace* place_of(const QTextBlock& block)
{
    return static_cast<const BlockPlace*>(block.userData());
}

/** A place as the text of an error gives it. */
struct NamedPlace
{
    QString name;
    int line = 0;
    /** Where it stands in the text. */
    qsizetype start = 0;
    qsizetype size = 0;
};

/** "ERROR: plate.jou:3: ...", "Interrupted: plate.jou:3", "  played from plate.jou:3" and the lines of a
 * Python traceback. */
std::optional<NamedPlace> named_place(const QString& text)
{
    static const QRegularExpression command(
        u"^(?:ERROR: |Interrupted: |Stopped: |  played from )(.+?):([0-9]{1,9})(?::|$)"_s);
    static const QRegularExpression python(u"^\\s*File \"(.+)\", line ([0-9]{1,9})(?:,|$)"_s);
    for (const QRegularExpression& pattern : {command, python}) {
        const QRegularExpressionMatch match = pattern.match(text);
        if (match.hasMatch())
            return NamedPlace{match.captured(1), match.captured(2).toInt(), match.capturedStart(1),
                              match.capturedEnd(2) - match.capturedStart(1)};
    }
    return std::nullopt;
}

} // namespace

ErrorPage::ErrorPage(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    // The caret shows which error Enter is for.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setToolTip(tr("Double-click an error, or press Enter on it, to see its line in the journal editor."));
}

void ErrorPage::add(const QString& text, const QString& context)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!context.isEmpty()) {
        end_error();
        if (!cursor.atBlockStart())
            cursor.insertBlock();
        cursor.insertText(mFolder.fold(context + u'\n'), QTextCharFormat());
    }
    cursor.insertText(mFolder.fold(text), QTextCharFormat());
    // From the end: lines at the top may have been dropped.
    QTextBlock block = document()->lastBlock();
    for (qsizetype more = text.count(u'\n') + (context.isEmpty() ? 0 : 1); block.isValid() && more >= 0;
         --more) {
        link(block);
        block = block.previous();
    }
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void ErrorPage::end_error()
{
    ++mError;
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(mFolder.end_line(), QTextCharFormat());
}

/** Notes the place that the line names, and underlines it. */
void ErrorPage::link(QTextBlock block)
{
    auto* known = new BlockPlace;
    known->error = mError;
    block.setUserData(known); // takes it over
    const std::optional<NamedPlace> named = named_place(block.text());
    if (!named)
        return;
    if (mFinder)
        known->place = mFinder(named->name);
    else if (QFileInfo(named->name).isAbsolute() && QFileInfo(named->name).isFile())
        known->place = JournalPlace{named->name, nullptr, 1};
    if (!known->place)
        return;
    known->place->line = std::max(named->line, 1);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + int(named->start));
    cursor.setPosition(cursor.position() + int(named->size), QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setFontUnderline(true);
    cursor.mergeCharFormat(format);
}

std::optional<JournalPlace> ErrorPage::place_at(const QTextBlock& block) const
{
    const BlockPlace* here = place_of(block);
    if (!here)
        return std::nullopt;
    const auto nearest = [&](QTextBlock (QTextBlock::*step)() const) {
        QTextBlock other = block;
        const BlockPlace* known = here;
        while (known && known->error == here->error && !known->place) {
            other = (other.*step)();
            known = place_of(other);
        }
        return known && known->error == here->error ? known->place : std::nullopt;
    };
    // What a traceback says last it says about the last place above.
    const std::optional<JournalPlace> above = nearest(&QTextBlock::previous);
    return above ? above : nearest(&QTextBlock::next);
}

void ErrorPage::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && activate(textCursor().block()))
        return;
    QPlainTextEdit::keyPressEvent(event);
}

void ErrorPage::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && activate(cursorForPosition(event->position().toPoint()).block()))
        return;
    QPlainTextEdit::mouseDoubleClickEvent(event);
}

void ErrorPage::contextMenuEvent(QContextMenuEvent* event)
{
    const bool by_mouse = event->reason() == QContextMenuEvent::Mouse;
    const QTextCursor cursor = by_mouse ? cursorForPosition(event->pos()) : textCursor();
    const std::optional<JournalPlace> place = place_at(cursor.block());
    // The page may go while its menu is open, and takes it with it.
    const Alive alive(this);
    const QPointer<QMenu> menu = createStandardContextMenu(event->pos());
    auto* show_action = new QAction(tr("&Show in Journal Editor"), menu);
    show_action->setObjectName(u"showPlaceAction"_s);
    show_action->setEnabled(place.has_value());
    menu->insertAction(menu->actions().value(0), show_action);
    menu->insertSeparator(menu->actions().value(1));
    const QAction* const chosen =
        menu->exec(by_mouse ? event->globalPos() : viewport()->mapToGlobal(cursorRect().bottomLeft()));
    const bool show = menu && chosen == show_action;
    delete menu.data();
    if (alive && show)
        emit place_activated(*place);
}

bool ErrorPage::activate(const QTextBlock& block)
{
    const std::optional<JournalPlace> place = place_at(block);
    if (place)
        emit place_activated(*place);
    return place.has_value();
}

} // namespace fennar
