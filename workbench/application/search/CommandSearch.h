// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/search/SearchEntry.h"

#include <QFrame>
#include <QList>
#include <QPointer>
#include <QStringList>

#include <array>
#include <memory>

class QMainWindow;

namespace Ui {
class QtCommandSearch;
}

namespace fennar {

class SearchModel;

/**
 * The field of the command search with the list of what it has found, which hangs below the menu bar of a
 * window. The field has the focus; the keys that move the choice go on to the list.
 *
 * It shows itself, and closes and deletes itself when the user has chosen or gives up, when the focus goes
 * elsewhere, and when the window is hidden. CommandFinder makes it and fills it.
 */
class CommandSearch : public QFrame
{
    Q_OBJECT

public:
    /**
     * @param window   owns the search; not null.
     * @param recent   see SearchModel::set_recent().
     */
    CommandSearch(QMainWindow* window, const QStringList& recent);
    ~CommandSearch() override;

    /** Replaces what can be found. What has been typed stays, and what is chosen if it is still there. */
    void set_entries(const QList<SearchEntry>& entries);
    /** Gives the focus to the field and comes to the front. */
    void activate();

    bool eventFilter(QObject* object, QEvent* event) override;

signals:
    /** The user has chosen an entry that can be run. The search is hidden, and the focus is back where it
     * was. */
    void chosen(const fennar::SearchEntry& entry);

protected:
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool handle_key(QKeyEvent* event);
    void choose_row(int row);
    void show_choice();
    void measure(const QList<SearchEntry>& entries);
    void share_width();
    void place();
    void run_choice();
    void leave();

    const std::unique_ptr<Ui::QtCommandSearch> mForm;
    SearchModel* mModel;
    QMainWindow* mWindow;
    /** What had the focus before. */
    QPointer<QWidget> mFocus;
    /** What each column needs, in pixels. */
    std::array<int, 3> mWidths = {};
};

} // namespace fennar
