// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/FlowLayout.h"

#include <QModelIndexList>
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

    /** What the whole title needs, which may be more than the button wants to be. */
    int full_width() const { return QToolButton::sizeHint().width(); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool has_arrow() const;

    QPersistentModelIndex mEntry;
};

/** One level of a navigation model as buttons. A button stays the same object as long as its entry is shown,
 * so that a keyboard user keeps the place when the model changes. */
class EntryButtons : public QWidget
{
    Q_OBJECT

public:
    explicit EntryButtons(QWidget* parent);

    /** How the buttons look: pictures of @p icon_size pixels above the title in columns of at least
     * @p button_width pixels, or beside it, one button in a line. */
    void set_look(FlowLayout::Arrangement arrangement, int icon_size, int button_width);

    /** Shows @p entries. The button of @p chosen, if that is one of them, is down. */
    void set_entries(const QModelIndexList& entries, const QModelIndex& chosen);

    /** The buttons in the order of their entries. */
    QWidgetList buttons() const;

signals:
    /** The user has chosen @p entry. */
    void chosen(const QModelIndex& entry);

private:
    void update_look(EntryButton* button) const;

    FlowLayout* mLayout;
    QList<EntryButton*> mButtons;
    FlowLayout::Arrangement mArrangement = FlowLayout::Arrangement::Columns;
    int mIconSize = 24;
    int mButtonWidth = 0;
};

} // namespace fennar
