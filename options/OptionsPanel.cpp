// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/OptionsPanel.h"

#include "frame/Alive.h"
#include "ui_QtOptionsPanel.h"

#include <QMap>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace {

struct PanelEntry
{
    /** Not owned; null for a mere group. */
    QPointer<QWidget> page;
    /** The tree's; null when an item above it has been deleted. */
    QTreeWidgetItem* item = nullptr;
};

/** The keys of all groups above the last part, the outermost one first. */
QStringList ancestor_keys(QStringList parts)
{
    QStringList keys;
    while (parts.size() >= 2) {
        parts.removeLast();
        keys.prepend(parts.join(u'/'));
    }
    return keys;
}

bool is_below(const QTreeWidgetItem* item, const QTreeWidgetItem* ancestor)
{
    for (const QTreeWidgetItem* above = item->parent(); above; above = above->parent())
        if (above == ancestor)
            return true;
    return false;
}

} // namespace

struct OptionsPanel::Form : Ui::QtOptionsPanel
{
    ~Form() { qDeleteAll(mPanels); }

    QMap<QString, PanelEntry*> mPanels;
    /** The labels of the page that was chosen last; empty for none. */
    QString chosen;
    /** Whether the stack goes to that page. */
    bool switching = false;
    /** Whether the pages load their controls. */
    bool refreshing = false;
    /** Whether exec() waits for the dialog to be closed. */
    bool running = false;
    /** Whether the dialog was closed and opened again while exec() still waits. */
    bool again = false;
};

OptionsPanel::OptionsPanel(QWidget* parent) : QDialog(parent), mForm(std::make_unique<Form>())
{
    mForm->setupUi(this);
    connect(mForm->mCancelButton, &QPushButton::clicked, this, &OptionsPanel::close);
    connect(mForm->mSaveButton, &QPushButton::clicked, this, &OptionsPanel::saveClicked);
    connect(mForm->mOptionList, &QTreeWidget::currentItemChanged, this, &OptionsPanel::changeWidget);
}

OptionsPanel::~OptionsPanel()
{
    // The tree changes its current item while it is torn down, when there are no entries to look up any more.
    mForm->mOptionList->disconnect(this);
    // While the dialog is whole, since a page may take itself or others out as it goes. Hidden before, so
    // that none comes up in place of another.
    hide();
    while (QWidget* const page =
               mForm->mOptionStack->widget(mForm->mOptionStack->indexOf(mForm->mBlankPage) + 1))
        delete page;
}

void OptionsPanel::add_panel(const QString& path, QWidget* page)
{
    if (path.isEmpty())
        return;
    if (PanelEntry* known = mForm->mPanels.value(path)) {
        if (page && !known->page) {
            known->page = page;
            mForm->mOptionStack->addWidget(page);
        }
        return;
    }

    const QStringList parts = path.split(u'/');
    const QStringList ancestors = ancestor_keys(parts);
    QTreeWidgetItem* parent = mForm->mOptionList->invisibleRootItem();
    // Counts down: new groups of three levels and more get their labels in reverse order (docs/surprises.md).
    qsizetype label = ancestors.size();
    for (const QString& key : ancestors) {
        --label;
        if (const PanelEntry* group = mForm->mPanels.value(key)) {
            if (group->item)
                parent = group->item;
            continue;
        }
        auto* item = new QTreeWidgetItem(parent, {parts[label]});
        mForm->mPanels.insert(key, new PanelEntry{{}, item});
        parent = item;
    }
    auto* leaf = new QTreeWidgetItem(parent, {parts.last()});
    mForm->mPanels.insert(path, new PanelEntry{page, leaf});
    if (page)
        mForm->mOptionStack->addWidget(page);
    mForm->mOptionList->sortItems(0, Qt::AscendingOrder);
}

void OptionsPanel::remove_panel(const QString& path)
{
    const std::unique_ptr<PanelEntry> entry(mForm->mPanels.take(path));
    if (!entry)
        return;
    QTreeWidget* const list = mForm->mOptionList;
    QStackedWidget* const stack = mForm->mOptionStack;
    const bool in_front = entry->page && stack->currentWidget() == entry->page;
    const bool shown = mForm->switching ? mForm->chosen == path : in_front;
    const QTreeWidgetItem* const current = list->currentItem();
    {
        // The pages are told when the tree is as it shall be: they may add and remove others.
        const QSignalBlocker blocker(list);
        if (entry->item) {
            forget_items_below(entry->item);
            // The tree selects a neighbor.
            delete entry->item;
        }
        if (entry->page && shown)
            list->setCurrentItem(nullptr);
    }
    if (list->currentItem() != current)
        changeWidget(list->currentItem(), nullptr);
    if (entry->page && stack->currentWidget() == entry->page)
        stack->setCurrentWidget(mForm->mBlankPage);
    if (entry->page)
        stack->removeWidget(entry->page);
}

void OptionsPanel::show_panel(const QString& path)
{
    const Alive alive(this);
    const PanelEntry* entry = mForm->mPanels.value(path);
    if (entry && entry->item)
        mForm->mOptionList->setCurrentItem(entry->item);
    if (!alive || !isHidden() || mForm->refreshing)
        return;
    refresh_settings();
    if (alive && isHidden())
        exec();
}

void OptionsPanel::refresh_settings()
{
    const Alive alive(this);
    mForm->refreshing = true;
    emit refreshSettings();
    if (alive)
        mForm->refreshing = false;
}

int OptionsPanel::exec()
{
    if (mForm->running) {
        mForm->again = isHidden();
        return Rejected;
    }
    const Alive alive(this);
    int result = Rejected;
    mForm->running = true;
    do {
        mForm->again = false;
        result = QDialog::exec();
    } while (alive && mForm->again);
    if (alive)
        mForm->running = false;
    return result;
}

void OptionsPanel::select_first()
{
    mForm->mOptionList->setCurrentItem(mForm->mOptionList->topLevelItem(0));
}

void OptionsPanel::saveClicked()
{
    const Alive alive(this);
    emit saveSettings();
    if (alive)
        close();
}

// By the labels shown, which components give, and not by the items, which they do not have.
void OptionsPanel::changeWidget(QTreeWidgetItem* current, QTreeWidgetItem*)
{
    QStringList labels;
    for (const QTreeWidgetItem* item = current; item; item = item->parent())
        labels.prepend(item->text(0));
    mForm->chosen = labels.join(u'/');
    // Pages that come and go may choose another one. That waits until the stack has done with them.
    if (mForm->switching)
        return;
    const QScopedValueRollback switching(mForm->switching, true);
    QString shown;
    do {
        mForm->mOptionStack->setCurrentWidget(mForm->mBlankPage);
        shown = mForm->chosen;
        const PanelEntry* entry = mForm->mPanels.value(shown);
        if (entry && entry->page)
            mForm->mOptionStack->setCurrentWidget(entry->page);
    } while (mForm->chosen != shown);
}

/** The items die with @p item; their entries stay and must not touch them again. */
void OptionsPanel::forget_items_below(QTreeWidgetItem* item)
{
    for (PanelEntry* entry : std::as_const(mForm->mPanels))
        if (entry->item && is_below(entry->item, item))
            entry->item = nullptr;
}
