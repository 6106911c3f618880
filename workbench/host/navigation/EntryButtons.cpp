// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/EntryButtons.h"

#include "workbench/host/navigation/NavigationEntries.h"

#include <QHash>
#include <QIcon>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Titles longer than this are broken into two lines below their picture. */
constexpr int LongTitle = 10;
/** No button wants to be wider than this many average letters; where there is no more room longer titles are
 * shortened. In the usual font two such buttons stand side by side in a dock of 200 pixels. */
constexpr int WidestTitle = 14;
/** The side of the square, in pixels, that holds the arrow. */
constexpr int ArrowSize = 12;

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
    // A tool button would refuse the width that its level gives to all of its buttons.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
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
    const int widest = std::max(iconSize().width(), WidestTitle * fontMetrics().averageCharWidth());
    return {std::max(std::min(hint.width(), widest), minimumWidth()), hint.height()};
}

QSize EntryButton::minimumSizeHint() const
{
    // A narrow dock may have less room than the title needs.
    return {iconSize().width(), sizeHint().height()};
}

void EntryButton::paintEvent(QPaintEvent* event)
{
    if (!has_arrow()) {
        QToolButton::paintEvent(event);
        return;
    }
    const QRect arrow(width() - ArrowSize - ArrowSize / 2, (height() - ArrowSize) / 2, ArrowSize, ArrowSize);
    const QRect left_of_arrow(0, 0, arrow.left(), height());
    QStylePainter painter(this);
    QStyleOptionToolButton label;
    initStyleOption(&label);
    QStyleOptionToolButton panel = label;
    panel.text.clear();
    panel.icon = QIcon();
    painter.drawComplexControl(QStyle::CC_ToolButton, panel);

    const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &label, this);
    label.rect =
        QStyle::visualRect(layoutDirection(), rect(), left_of_arrow).adjusted(frame, frame, -frame, -frame);
    painter.drawControl(QStyle::CE_ToolButtonLabel, label);

    QStyleOption mark;
    mark.initFrom(this);
    mark.rect = QStyle::visualRect(layoutDirection(), rect(), arrow);
    painter.drawPrimitive(isRightToLeft() ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight,
                          mark);
}

bool EntryButton::has_arrow() const
{
    return toolButtonStyle() == Qt::ToolButtonTextBesideIcon && mEntry.isValid() &&
           entry_kind(mEntry) != NavigationKind::Command;
}

EntryButtons::EntryButtons(QWidget* parent) : QWidget(parent), mLayout(new FlowLayout(this))
{
    mLayout->set_arrangement(mArrangement);
    mLayout->set_full_width(
        [](const QWidget& button) { return static_cast<const EntryButton&>(button).full_width(); });
}

void EntryButtons::set_look(FlowLayout::Arrangement arrangement, int icon_size, int button_width)
{
    mArrangement = arrangement;
    mIconSize = icon_size;
    mButtonWidth = button_width;
    mLayout->set_arrangement(arrangement);
    for (EntryButton* button : std::as_const(mButtons)) {
        update_look(button);
        button->update_texts();
    }
}

void EntryButtons::update_look(EntryButton* button) const
{
    const bool lines = mArrangement == FlowLayout::Arrangement::Lines;
    button->setToolButtonStyle(lines ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonTextUnderIcon);
    button->setIconSize({mIconSize, mIconSize});
    button->setMinimumWidth(mButtonWidth);
    button->updateGeometry();
}

void EntryButtons::set_entries(const QModelIndexList& entries, const QModelIndex& chosen_entry)
{
    // By entry; those whose entry was removed share the invalid one.
    QMultiHash<QPersistentModelIndex, EntryButton*> left_over;
    for (EntryButton* button : std::exchange(mButtons, {}))
        left_over.insert(button->entry(), button);

    for (const QModelIndex& entry : entries) {
        EntryButton* button = left_over.take(entry);
        if (!button) {
            button = new EntryButton(entry, this);
            update_look(button);
            connect(button, &QToolButton::clicked, this, [this, button] { emit chosen(button->entry()); });
            mLayout->addWidget(button);
            button->show();
        }
        button->update_texts();
        button->setChecked(entry == chosen_entry);
        mButtons << button;
    }
    for (EntryButton* button : std::as_const(left_over)) {
        // The button may be the one whose click led here.
        mLayout->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    mLayout->set_order(buttons());
}

QWidgetList EntryButtons::buttons() const
{
    return {mButtons.begin(), mButtons.end()};
}

} // namespace fennar
