// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentFiles.h"

#include "files/RecentFile.h"
#include "files/RecentImport.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t most_entries = 5;

// Who watches the menu is told of it at once, and may do anything, as add to the list or delete it.
void take_out(const QPointer<QMenu>& menu, const QPointer<QAction>& action)
{
    if (menu && action)
        menu->removeAction(action);
    // Not at once: the action may be what has just been triggered.
    if (action)
        action->deleteLater();
}

} // namespace

RecentFiles::RecentFiles(QMenu* menu, int index, bool imports) : mMenu(menu), mIndex(index), mImports(imports)
{
    connect(menu, &QMenu::triggered, this, &RecentFiles::menu_selection);
    if (menu->actions().isEmpty())
        menu->setEnabled(false);
}

RecentFiles::~RecentFiles()
{
    // Without a menu nothing is added any more.
    const QPointer<QMenu> menu = std::exchange(mMenu, nullptr);
    for (RecentFile* entry : std::exchange(mEntries, {})) {
        take_out(menu, entry->mAction);
        delete entry;
    }
    take_out(menu, mSeparator);
}

void RecentFiles::add(const QString& text)
{
    const auto known = [&] {
        return std::find_if(mEntries.begin(), mEntries.end(),
                            [&text](RecentFile* candidate) { return candidate->matches(text); });
    };
    if (!mMenu || (known() != mEntries.end() && mEntries.size() == 1))
        return;
    const QPointer<QMenu> menu = mMenu;
    const Alive alive(this, menu.data());
    menu->setEnabled(true);
    const QPointer<QAction> action = alive ? new QAction(tr("Recent"), menu) : nullptr;
    if (!alive) {
        delete action;
        return;
    }
    // The list is as it shall be before the menu changes, see take_out().
    std::unique_ptr<RecentFile> entry;
    QPointer<QAction> old_action;
    if (const auto found = known(); found != mEntries.end()) {
        entry.reset(*found);
        old_action = entry->mAction;
        mEntries.erase(found);
    } else if (mImports) {
        entry = std::make_unique<RecentImport>(text);
    } else {
        entry = std::make_unique<RecentFile>(text);
    }
    entry->mAction = action;
    mEntries.push_front(entry.release());
    if (mEntries.size() > most_entries) {
        const std::unique_ptr<RecentFile> oldest(mEntries.back());
        mEntries.pop_back();
        old_action = oldest->mAction;
    }

    insert(action);
    take_out(menu, old_action);
    if (alive)
        renumber();
}

void RecentFiles::get_entries(std::vector<QString>& entries) const
{
    for (const RecentFile* entry : mEntries)
        entries.push_back(entry->mText);
}

void RecentFiles::menu_selection(QAction* action)
{
    // Null stands for entries that others took out of the menu.
    if (!action)
        return;
    const auto entry = std::find_if(mEntries.begin(), mEntries.end(), [action](RecentFile* candidate) {
        return candidate->has_action(action);
    });
    if (entry == mEntries.end())
        return;

    // Whoever is told, or answers the message, may delete the list.
    const Alive alive(this);
    if ((*entry)->exists()) {
        const QString text = (*entry)->mText;
        emit recent_file_selected(text);
        if (alive)
            add(text);
        return;
    }
    remove_missing(entry);
    if (!alive)
        return;
    show_message(QMessageBox::Critical, mParent, tr("File Error"), tr("The selected file does not exist."),
                 QMessageBox::Ok);
    if (alive && mMenu && mMenu->actions().isEmpty())
        mMenu->setEnabled(false);
}

/** Puts an action on top of the entries, and below the first of them a separator where something follows. */
void RecentFiles::insert(QAction* action)
{
    const Alive alive(this, mMenu.data());
    const QPointer<QAction> following = mMenu->actions().value(mIndex);
    const bool ends_list = mEntries.size() == 1 && !mSeparator && following;
    mMenu->insertAction(following, action);
    if (!alive || !ends_list || mEntries.empty())
        return;
    mSeparator = new QAction(mMenu);
    mSeparator->setSeparator(true);
    mMenu->insertAction(following, mSeparator);
}

void RecentFiles::remove_missing(std::deque<RecentFile*>::iterator position)
{
    const std::unique_ptr<RecentFile> entry(*position);
    mEntries.erase(position);
    const QPointer<QAction> separator = mEntries.empty() ? std::exchange(mSeparator, nullptr) : nullptr;
    const Alive alive(this);
    const QPointer<QMenu> menu = mMenu;
    take_out(menu, entry->mAction);
    take_out(menu, separator);
    if (alive)
        renumber();
}

void RecentFiles::renumber()
{
    const Alive alive(this);
    // By position: the list may change with each text.
    for (std::size_t i = 0; alive && i < mEntries.size(); ++i) {
        QString name;
        mEntries[i]->display_text(name);
        // An ampersand in a name is not doubled (docs/surprises.md).
        if (QAction* const action = mEntries[i]->mAction)
            action->setText(u"&%1 "_s.arg(i + 1) + name);
    }
}
