// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QLayout>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace fennar {

/** Lays items out line by line, as many in a line as the width takes. No item is ever wider than the line. */
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    enum class Arrangement {
        Flowing, ///< each item as wide as it likes
        Columns, ///< all items as wide as the widest
        Lines    ///< one item in a line, over the whole width
    };

    explicit FlowLayout(QWidget* parent);

    void set_arrangement(Arrangement arrangement);
    /** How wide a widget must be to show all of itself, if that is more than it likes to be. Columns grow to
     * it as far as that takes none away. Null for what it likes to be. */
    void set_full_width(const std::function<int(const QWidget& widget)>& full_width);
    /** Lays the items out in the order of @p widgets, which are those that the layout has. */
    void set_order(const QWidgetList& widgets);

    void addItem(QLayoutItem* item) override { mItems.emplace_back(item); }
    int count() const override { return static_cast<int>(mItems.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return lay_out(QRect(0, 0, width, 0), false); }
    QSize minimumSize() const override;
    QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(const QRect& rectangle) override;

private:
    int lay_out(const QRect& rectangle, bool apply) const;
    int column_width(const std::vector<QLayoutItem*>& shown, int room) const;

    std::vector<std::unique_ptr<QLayoutItem>> mItems;
    std::function<int(const QWidget& widget)> mFullWidth;
    Arrangement mArrangement = Arrangement::Flowing;
};

} // namespace fennar
