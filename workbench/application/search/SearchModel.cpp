// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/search/SearchModel.h"

#include <QHash>

#include <algorithm>
#include <compare>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Where a word stands in a text, the best place first. */
enum Hit { BeginsText, BeginsWord, InsideWord };

std::optional<Hit> find_word(QStringView text, QStringView word)
{
    std::optional<Hit> best;
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        if (at == 0)
            return BeginsText;
        if (!text[at - 1].isLetterOrNumber())
            return BeginsWord;
        best = InsideWord;
    }
    return best;
}

/** How badly the words fit; nothing if one of them is missing. */
std::optional<int> misfit(QStringView text, QStringView rest, const QStringList& words)
{
    constexpr int elsewhere = InsideWord + 1;
    int sum = 0;
    for (const QString& word : words) {
        if (const auto hit = find_word(text, word))
            sum += *hit;
        else if (const auto other = find_word(rest, word))
            sum += elsewhere + *other;
        else
            return {};
    }
    return sum;
}

} // namespace

void SearchModel::set_entries(const QList<SearchEntry>& entries)
{
    beginResetModel();
    mEntries = entries;
    mFolded.clear();
    mFolded.reserve(entries.size());
    for (const SearchEntry& entry : entries) {
        const QString rest = entry.place + u' ' + entry.words + u' ' + entry.tip + u' ' + entry.key;
        mFolded << Folded{entry.text.toCaseFolded(), rest.toCaseFolded()};
    }
    note_recent();
    find();
    endResetModel();
}

void SearchModel::set_recent(const QStringList& ids)
{
    beginResetModel();
    mRecent = ids;
    note_recent();
    find();
    endResetModel();
}

void SearchModel::set_query(const QString& query)
{
    beginResetModel();
    mWords = query.toCaseFolded().simplified().split(u' ', Qt::SkipEmptyParts);
    find();
    endResetModel();
}

int SearchModel::row_of(const QString& id) const
{
    const auto found =
        std::find_if(mRows.begin(), mRows.end(), [&](qsizetype i) { return search_id(mEntries[i]) == id; });
    return found == mRows.end() ? -1 : int(found - mRows.begin());
}

int SearchModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(mRows.size());
}

int SearchModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SearchModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SearchEntry& found = entry(index.row());
    if (role == Qt::DisplayRole) {
        const QString* const columns[] = {&found.text, &found.place, &found.key};
        return *columns[index.column()];
    }
    if (role == EnabledRole)
        return found.refusal.isEmpty();
    // Who is read a row to hears all of it at once.
    if (role == Qt::AccessibleTextRole && index.column() == TextColumn) {
        QStringList texts = {found.text, found.place, found.key};
        texts.removeAll(QString());
        return texts.join(u", "_s);
    }
    if (role == Qt::AccessibleDescriptionRole && index.column() == TextColumn)
        return found.refusal.isEmpty() ? found.tip : found.refusal;
    return {};
}

void SearchModel::note_recent()
{
    QHash<QString, qsizetype> places;
    for (qsizetype i = 0; i < mRecent.size(); ++i)
        places.insert(mRecent[i], i);
    for (qsizetype i = 0; i < mEntries.size(); ++i)
        mFolded[i].recent = places.isEmpty() ? 0 : places.value(search_id(mEntries[i]), mRecent.size());
}

void SearchModel::find()
{
    struct Found
    {
        int misfit;
        qsizetype length;
        bool refused;
        qsizetype recent;
        qsizetype index;
        auto operator<=>(const Found&) const = default;
    };
    QList<Found> found;
    for (qsizetype i = 0; i < mFolded.size(); ++i) {
        const Folded& entry = mFolded[i];
        const auto fit = misfit(entry.text, entry.rest, mWords);
        if (fit && mWords.isEmpty())
            found << Found{0, 0, false, entry.recent, i};
        else if (fit)
            found << Found{*fit, entry.text.size(), !mEntries[i].refusal.isEmpty(), entry.recent, i};
    }
    std::ranges::sort(found);
    mRows.clear();
    mRows.reserve(found.size());
    for (const Found& one : found)
        mRows << one.index;
}

} // namespace fennar
