// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "page.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>

#include <utility>

using namespace Qt::StringLiterals;

Page::Page()
{
    connect(this, &CommandWidget::historyUpEvent, this, [this] { mSignals << u"up"_s; });
    connect(this, &CommandWidget::historyDownEvent, this, [this] { mSignals << u"down"_s; });
    connect(this, &CommandWidget::resetHistoryIndex, this, [this] { mSignals << u"reset"_s; });
    connect(this, &CommandWidget::contentsCleared, this, [this] { mSignals << u"cleared"_s; });
    connect(this, &CommandWidget::commandEntered, this,
            [this](const QString& command) { mSignals << u"entered: "_s + command; });
    connect(this, &CommandWidget::commandsEntered, this,
            [this](const QList<QString>& lines) { mSignals << u"lines: "_s + lines.join(u", "_s); });
}

void Page::set_state(const QString& state)
{
    QString text = state;
    qsizetype anchor = text.indexOf(u'^');
    qsizetype caret = text.indexOf(u'|');
    // The mark that comes first counts as a character before the other one.
    if (anchor >= 0 && anchor < caret)
        --caret;
    else if (anchor > caret && caret >= 0)
        --anchor;
    text.remove(u'^').remove(u'|');

    const qsizetype lastLine = text.lastIndexOf(u'\n') + 1;
    if (lastLine > 0)
        printOutput(text.first(lastLine));
    QString command = text.sliced(lastLine);
    if (command.startsWith(prompt())) {
        printPrompt();
        command.remove(0, prompt().size());
    }
    appendToCommand(command);
    if (caret < 0)
        caret = text.size();
    put_selection(static_cast<int>(anchor < 0 ? caret : anchor), static_cast<int>(caret));
}

QString Page::state() const
{
    QString state = text();
    const QTextCursor cursor = textCursor();
    const QString caret = u"|"_s;
    const QString anchor = cursor.hasSelection() ? u"^"_s : QString();
    const bool caretFirst = cursor.position() < cursor.anchor();
    state.insert(cursor.selectionEnd(), caretFirst ? anchor : caret);
    state.insert(cursor.selectionStart(), caretFirst ? caret : anchor);
    return state;
}

QString Page::text() const
{
    QStringList lines;
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next())
        lines << block.text();
    return lines.join(u'\n');
}

void Page::put_selection(int anchor, int position)
{
    QTextCursor cursor(document());
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QPoint Page::middle_of(int position) const
{
    QTextCursor cursor(document());
    cursor.setPosition(position);
    return cursorRect(cursor).center();
}

void Page::press(int key, Qt::KeyboardModifiers modifiers)
{
    press(key, modifiers, key_text(key, modifiers));
}

void Page::press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(this, &event);
}

void Page::type(const QString& text)
{
    for (const QChar character : text)
        press(character.toUpper().unicode(), Qt::NoModifier, character);
}

void Page::paste_text(const QString& text)
{
    QMimeData source;
    source.setText(text);
    insertFromMimeData(&source);
}

QStringList Page::take_signals()
{
    return std::exchange(mSignals, {});
}

QString key_text(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return u"\r"_s;
    case Qt::Key_Backspace:
        return u"\b"_s;
    case Qt::Key_Delete:
        return u"\x7f"_s;
    case Qt::Key_Escape:
        return u"\x1b"_s;
    case Qt::Key_Tab:
        return u"\t"_s;
    default:
        break;
    }
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde) {
        const QChar character(static_cast<char16_t>(key));
        if (modifiers.testFlag(Qt::ControlModifier))
            return character.isLetter() ? QString(QChar(static_cast<char16_t>(key - Qt::Key_A + 1)))
                                        : QString();
        return modifiers.testFlag(Qt::ShiftModifier) ? QString(character) : QString(character.toLower());
    }
    return {};
}
