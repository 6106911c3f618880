// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/search/SearchEntry.h"

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

namespace fennar {

/**
 * The entries of the command search that have the words sought, the best first: a row for each, with what it
 * is called, its place and its keys.
 *
 * An entry has a word if the word is part of its text, its place, its keys or its further words; case does
 * not count, nor does the order of the words. Words of the text come before those found elsewhere, those that
 * begin it before those that begin a word of it, and these before those in the middle of a word; then short
 * texts before long ones, those that can be run before others, those used last, and the order given. Without
 * words all entries are there, those used last first.
 *
 * Entries that cannot be run can be chosen like any other, so that the user can read why; see EnabledRole.
 */
class SearchModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { TextColumn, PlaceColumn, KeyColumn, ColumnCount };
    /** bool: whether the entry can be run. */
    static constexpr int EnabledRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    /** Replaces all entries; the words sought stay. */
    void set_entries(const QList<SearchEntry>& entries);
    /** Sets the names (search_id()) of what was used, the last one first. */
    void set_recent(const QStringList& ids);
    /** Sets the words that are sought, with blanks between them. */
    void set_query(const QString& query);

    /** The entry in @p row, which must be there. */
    const SearchEntry& entry(int row) const { return mEntries[mRows[row]]; }
    /** The row of the entry of that name (search_id()); -1 if it is not shown. */
    int row_of(const QString& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /** What is compared of an entry, with its case folded. */
    struct Folded
    {
        QString text;
        QString rest;
        /** Its index among those used; behind them all if it is not one of them. */
        qsizetype recent = 0;
    };

    void note_recent();
    void find();

    QList<SearchEntry> mEntries;
    QList<Folded> mFolded;
    QStringList mRecent;
    QStringList mWords;
    /** The indices of the entries shown. */
    QList<qsizetype> mRows;
};

} // namespace fennar
