// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/EntryButtons.h"

#include "workbench/host/navigation/EntryButton.h"

#include <QHash>

namespace fennar {

EntryButtons::EntryButtons(QWidget* parent) : QWidget(parent), mLayout(new FlowLayout(this))
{
    mLayout->set_arrangement(mArrangement);
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
