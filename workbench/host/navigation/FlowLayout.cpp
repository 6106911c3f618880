// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/FlowLayout.h"

#include <QHash>
#include <QStyle>

#include <algorithm>

namespace fennar {

namespace {

/** The width below which a line is not expected to be used. */
constexpr int NarrowestLine = 32;

} // namespace

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(2);
}

void FlowLayout::set_arrangement(Arrangement arrangement)
{
    if (mArrangement == arrangement)
        return;
    mArrangement = arrangement;
    invalidate();
}

void FlowLayout::set_full_width(const std::function<int(const QWidget& widget)>& full_width)
{
    mFullWidth = full_width;
    invalidate();
}

void FlowLayout::set_order(const QWidgetList& widgets)
{
    QHash<const QWidget*, qsizetype> places;
    for (qsizetype place = 0; place < widgets.size(); ++place)
        places.insert(widgets[place], place);
    std::ranges::stable_sort(mItems, {}, [&](const auto& item) { return places.value(item->widget()); });
    invalidate();
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? mItems[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    const auto item = mItems.begin() + index;
    QLayoutItem* taken = item->release();
    mItems.erase(item);
    return taken;
}

QSize FlowLayout::minimumSize() const
{
    const QMargins margins = contentsMargins();
    return {NarrowestLine + margins.left() + margins.right(), margins.top() + margins.bottom()};
}

void FlowLayout::setGeometry(const QRect& rectangle)
{
    QLayout::setGeometry(rectangle);
    lay_out(rectangle, true);
}

/** The width of all columns, which have @p room side by side. */
int FlowLayout::column_width(const std::vector<QLayoutItem*>& shown, int room) const
{
    int liked = 0;
    int full = 0;
    for (const QLayoutItem* item : shown) {
        liked = std::max(liked, item->sizeHint().width());
        if (const QWidget* widget = item->widget(); widget && mFullWidth)
            full = std::max(full, mFullWidth(*widget));
    }
    const int fitting = (room + spacing()) / (liked + spacing());
    const int columns = std::clamp(fitting, 1, std::max(1, static_cast<int>(shown.size())));
    const int share = (room + spacing()) / columns - spacing();
    return std::max(liked, std::min(full, share));
}

/** Returns the height used; places the items if @p apply is set. */
int FlowLayout::lay_out(const QRect& rectangle, bool apply) const
{
    const QRect area = rectangle.marginsRemoved(contentsMargins());
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;

    std::vector<QLayoutItem*> shown;
    for (const auto& item : mItems)
        if (!item->isEmpty())
            shown.push_back(item.get());
    const int widest = mArrangement == Arrangement::Columns ? column_width(shown, area.width()) : 0;
    const auto width = [&](const QLayoutItem* item) {
        const int wanted = mArrangement == Arrangement::Lines     ? area.width()
                           : mArrangement == Arrangement::Columns ? widest
                                                                  : item->sizeHint().width();
        return std::min(wanted, area.width());
    };

    int y = area.top();
    for (size_t first = 0; first < shown.size();) {
        // The items of one line, and the height that suits all of them.
        size_t end = first;
        int used = 0;
        int height = 0;
        do {
            used += width(shown[end]) + spacing();
            height = std::max(height, shown[end]->sizeHint().height());
            ++end;
        } while (end < shown.size() && used + width(shown[end]) <= area.width());

        for (int x = area.left(); first < end; ++first) {
            const QRect place(x, y, width(shown[first]), height);
            if (apply)
                shown[first]->setGeometry(QStyle::visualRect(direction, area, place));
            x += place.width() + spacing();
        }
        y += height + (end < shown.size() ? spacing() : 0);
    }
    return y - area.top() + contentsMargins().top() + contentsMargins().bottom();
}

} // namespace fennar
