// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

class CommandWidget;
class QKeyEvent;
class QLabel;

namespace fennar {

class CommandHistory;

/**
 * Searches the history from the command line: Ctrl+R begins, each key typed narrows, Ctrl+R again goes to an
 * older match.
 *
 * The match stands on the command line; what is searched for stands in a hint beside it, since the page
 * itself holds nothing but commands and output. Return and Enter leave the match there, to be run by another
 * one; Escape brings back what was typed before. Any other key that does something leaves the match and does
 * it.
 *
 * The search is of the letters, large or small. A page that is read-only is not searched from. GUI thread
 * only.
 */
class HistorySearch : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this object, which belongs to the caller. */
    HistorySearch(CommandWidget* page, CommandHistory& history);

    bool is_active() const { return mActive; }

    /** Ends a search and leaves the match on the command line. */
    void take();
    /** Ends a search and brings back what was typed before it. */
    void give_up();
    /** Ends a search and leaves the page alone, for when the command line has gone. */
    void forget();

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void begin();
    void end();
    bool handle_key(const QKeyEvent* event);
    void set_text(const QString& text);
    void find(qsizetype before);
    void show_hint();
    void place_hint();

    CommandWidget* mPage;
    CommandHistory& mHistory;
    QLabel* mHint;
    QString mText;
    /** What the last search was for: Ctrl+R with nothing typed searches for it again. */
    QString mLastText;
    QString mTyped;
    /** Where the caret was, relative to the start of the command; below 0 for outside of it. */
    int mCaret = 0;
    /** The entry shown; -1 for none. */
    qsizetype mMatch = -1;
    bool mActive = false;
    bool mFailed = false;
};

} // namespace fennar
