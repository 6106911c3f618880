// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QPersistentModelIndex>
#include <QToolButton>

namespace fennar {

/** The button of one entry of a navigation model: its picture and title, and what it is for as tool tip.
 * Where the title stands beside the picture, an arrow marks an entry that leads to others. */
class EntryButton : public QToolButton
{
    Q_OBJECT

public:
    EntryButton(const QModelIndex& entry, QWidget* parent);

    /** The entry; invalid once it was removed. */
    QModelIndex entry() const { return mEntry; }

    /** Takes title, picture and tool tip from the entry as it is now. */
    void update_texts();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool has_arrow() const;

    QPersistentModelIndex mEntry;
};

} // namespace fennar
