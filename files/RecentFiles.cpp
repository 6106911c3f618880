// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentFiles.h"

#include "files/RecentFile.h"
#include "files/RecentImport.h"

#include <QMessageBox>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t most_entries = 5;

} // namespace

RecentFiles::RecentFiles(QMenu* menu, int index, bool imports) : mMenu(menu), mIndex(index), mImports(imports)
{
    connect(menu, &QMenu::triggered, this, &RecentFiles::menu_selection);
    if (menu->actions().isEmpty())
        menu->setEnabled(false);
}

RecentFiles::~RecentFiles()
{
    for (RecentFile* entry : mEntries) {
        take_from_menu(entry->mAction);
        delete entry;
    }
    take_from_menu(mSeparator);
}

void RecentFiles::add(const QString& text)
{
    if (!mMenu)
        return;
    const auto known = std::find_if(mEntries.begin(), mEntries.end(),
                                    [&text](RecentFile* candidate) { return candidate->matches(text); });
    std::unique_ptr<RecentFile> entry;
    if (known != mEntries.end()) {
        if (mEntries.size() == 1)
            return;
        entry.reset(*known);
        take_from_menu(entry->mAction);
        mEntries.erase(known);
    } else if (mImports) {
        entry = std::make_unique<RecentImport>(text);
    } else {
        entry = std::make_unique<RecentFile>(text);
    }

    mMenu->setEnabled(true);
    if (mEntries.empty() && mMenu->actions().size() > mIndex)
        mSeparator = mMenu->insertSeparator(mMenu->actions().value(mIndex));
    insert_action(*entry);
    mEntries.push_front(entry.release());

    if (mEntries.size() > most_entries) {
        const std::unique_ptr<RecentFile> oldest(mEntries.back());
        take_from_menu(oldest->mAction);
        mEntries.pop_back();
    }
    renumber();
}

void RecentFiles::get_entries(std::vector<QString>& entries) const
{
    for (const RecentFile* entry : mEntries)
        entries.push_back(entry->mText);
}

void RecentFiles::menu_selection(QAction* action)
{
    const auto entry = std::find_if(mEntries.begin(), mEntries.end(), [action](RecentFile* candidate) {
        return candidate->has_action(action);
    });
    if (entry == mEntries.end())
        return;

    // Whoever is told, or answers the message, may delete the list.
    const QPointer<RecentFiles> self = this;
    if ((*entry)->exists()) {
        const QString text = (*entry)->mText;
        emit recent_file_selected(text);
        if (self)
            add(text);
        return;
    }
    remove_missing(entry);
    QMessageBox::critical(mParent, tr("File Error"), tr("The selected file does not exist."),
                          QMessageBox::Ok);
    if (self && mMenu && mMenu->actions().isEmpty())
        mMenu->setEnabled(false);
}

void RecentFiles::insert_action(RecentFile& entry)
{
    entry.mAction = new QAction(tr("Recent"), mMenu);
    mMenu->insertAction(mMenu->actions().value(mIndex), entry.mAction);
}

void RecentFiles::take_from_menu(QPointer<QAction>& action)
{
    if (mMenu && action)
        mMenu->removeAction(action);
    // Not at once: the action may be what has just been triggered.
    if (action)
        action->deleteLater();
    action.clear();
}

void RecentFiles::remove_missing(std::deque<RecentFile*>::iterator position)
{
    const std::unique_ptr<RecentFile> entry(*position);
    take_from_menu(entry->mAction);
    mEntries.erase(position);
    if (mEntries.empty())
        take_from_menu(mSeparator);
    renumber();
}

void RecentFiles::renumber()
{
    int number = 0;
    for (RecentFile* entry : mEntries) {
        ++number;
        QString name;
        entry->display_text(name);
        // An ampersand in a name is not doubled, which is intended.
        if (entry->mAction)
            entry->mAction->setText(u"&%1 "_s.arg(number) + name);
    }
}
