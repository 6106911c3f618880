// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "World.h"

#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>

class QWidget;
struct Act;

/**
 * Plays on a shell what comes into its head: acts of the user, the host and the components, one after the
 * other and inside each other.
 *
 * With each step it may arm acts, which are played from inside what the shell calls meanwhile: the host, the
 * handlers, slots of signals, event filters, the ends of widgets. Dialogs and menus that come up are answered
 * after a while. All that happens follows from the seed.
 *
 * One at a time.
 */
class Monkey : public QObject
{
    Q_OBJECT

public:
    /** @param folder  an empty one, for what the user saves. */
    Monkey(quint32 seed, const QString& folder);
    ~Monkey() override;

    /** Plays an act, with others armed. */
    void step();
    /** Ends the run: all components leave. The window stays. */
    void leave();
    /** What is wrong with the shell between two steps; empty if nothing is. */
    QString wrong();

    /** What has been played, an act a line; those inside another one are indented. */
    QStringList trail() const { return mTrail; }

    /** Called by all that the shell calls; see tell_monkey(). */
    void called(const QString& by, const QObject* busy);

    // For the acts.

    int below(qsizetype bound) { return static_cast<int>(mRandom.bounded(bound)); }
    bool one_in(int count) { return below(count) == 0; }
    /** One of @p list, or a null element if that is empty. */
    template <class List>
    typename List::value_type one_of(const List& list)
    {
        return list.empty() ? typename List::value_type() : *(list.begin() + below(std::ssize(list)));
    }
    Component& component() { return mWorld.components.at(static_cast<std::size_t>(below(3))); }
    World& world() { return mWorld; }
    Ostrel* window() { return mWorld.window(); }
    /** A text like no other: "own 12". */
    QString fresh_text();
    /** A file in the folder that may or may not be there. */
    QString file_name();
    /** Looks out for the signals of @p object, which a component has made. */
    void watch(QObject* object);
    /** Notes down what an act works on. */
    void note(const QString& detail);

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void signal_emitted();

private:
    void play(const Act& act, const QString& by);
    void play_any(const QString& by);
    void watch_window();
    void close_what_is_open();
    void expect(QWidget* dialog);
    void meet(const QPointer<QWidget>& dialog, int loop_level, int turn);

    QRandomGenerator mRandom;
    QString mFolder;
    World mWorld;
    QStringList mTrail;
    /** How many calls are yet to come before each armed act is played. */
    QList<int> mArmed;
    int mDepth = 0;
    int mTexts = 0;
    bool mQuiet = false;
};
