// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPointer>

#include <deque>
#include <vector>

class RecentFile;

/**
 * The last five files that the user worked with, newest first, as numbered entries inside a menu.
 *
 * The list keeps its entries together at one place of a menu that may hold others; a separator stands below
 * them where something follows. It does not store itself: the owner saves what get_entries() gives, and
 * brings it back by calling add(), oldest first. A missing file stays in the list until the user chooses it.
 *
 * Its owner deletes it before the menu. GUI thread only.
 */
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    /**
     * Disables @p menu if it has no actions yet; it is enabled again by the first add().
     *
     * @param menu     must not be null; not owned.
     * @param index    the position among the menu's actions at which the newest entry stands; beyond the end
     *                 the entry is appended.
     * @param imports  whether the entries are import commands instead of file names, see RecentImport.
     */
    RecentFiles(QMenu* menu, int index, bool imports);
    /** Takes entries and separator out of the menu. */
    ~RecentFiles() override;

    /** Puts @p text on top of the list, as a new entry or by moving the one that stands for the same file;
     * a sixth entry drops the oldest. */
    void add(const QString& text);
    /** Appends the full text of every entry to @p entries, newest first. */
    void get_entries(std::vector<QString>& entries) const;

signals:
    /** The user has chosen an entry whose file exists; @p fileName is its full text. The entry moves to the
     * top of the list when all receivers have returned. */
    void recent_file_selected(const QString& fileName);

public slots:
    /** Acts on the choice of @p action; ignores one that is not of this list, and null. */
    void menu_selection(QAction* action);

private:
    void insert(QAction* action);
    void remove_missing(std::deque<RecentFile*>::iterator entry);
    void renumber();

    std::deque<RecentFile*> mEntries;
    QPointer<QMenu> mMenu;

public:
    /** The parent of the error message; not owned, null at first. The owner of the list may set it. */
    QPointer<QWidget> mParent;

private:
    QPointer<QAction> mSeparator;
    int mIndex;
    bool mImports;
};
