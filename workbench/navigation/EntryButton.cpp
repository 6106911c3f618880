// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/navigation/EntryButton.h"

#include "workbench/navigation/NavigationRoles.h"

#include <QIcon>

using namespace Qt::StringLiterals;

namespace {

/** Titles longer than this are broken into two lines below their picture. */
constexpr int LongTitle = 10;
/** No button wants to be wider than this many average letters; what is longer ends in dots. */
constexpr int WidestTitle = 18;

/** @p title with a line break at the blank nearest to its middle. */
QString in_two_lines(const QString& title)
{
    if (title.size() <= LongTitle)
        return title;
    const qsizetype middle = title.size() / 2;
    const qsizetype before = title.lastIndexOf(u' ', middle);
    const qsizetype behind = title.indexOf(u' ', middle);
    const qsizetype at = before < 0 || (behind >= 0 && behind - middle < middle - before) ? behind : before;
    QString broken = title;
    if (at >= 0)
        broken[at] = u'\n';
    return broken;
}

/** @p text for a place that looks for keyboard marks: an ampersand stands for itself. */
QString without_mnemonic(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace

EntryButton::EntryButton(const QModelIndex& entry, QWidget* parent) : QToolButton(parent), mEntry(entry)
{
    setAutoRaise(true);
    setCheckable(true);
}

void EntryButton::update_texts()
{
    const QString title = mEntry.data(Qt::DisplayRole).toString();
    const QString tip = mEntry.data(NavigationRole::Tip).toString();
    const bool below = toolButtonStyle() == Qt::ToolButtonTextUnderIcon;
    setText(without_mnemonic(below ? in_two_lines(title) : title));
    setIcon(mEntry.data(Qt::DecorationRole).value<QIcon>());
    setAccessibleName(title);
    setAccessibleDescription(tip);
    // As rich text a long tip is wrapped; the title is there because the button may show only part of it.
    QString tool_tip = u"<qt><b>%1</b>"_s.arg(title.toHtmlEscaped());
    if (!tip.isEmpty())
        tool_tip += u"<br/>"_s + tip.toHtmlEscaped();
    setToolTip(tool_tip + u"</qt>"_s);
}

QSize EntryButton::sizeHint() const
{
    const QSize hint = QToolButton::sizeHint();
    const int widest = iconSize().width() + WidestTitle * fontMetrics().averageCharWidth();
    return {std::max(std::min(hint.width(), widest), minimumWidth()), hint.height()};
}

QSize EntryButton::minimumSizeHint() const
{
    // A narrow dock may have less room than the title needs.
    return {iconSize().width(), sizeHint().height()};
}
