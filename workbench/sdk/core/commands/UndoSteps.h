// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace fennar {

/**
 * What commands have done to the model, step by step, and what of it was undone.
 *
 * A command that changes the model (Command::changes_model) is a step, with all commands that it runs: the
 * interpreter calls commit() at its end. Those of a journal stay together: once it is over undo() takes the
 * whole journal back, unless it is asked for one step. A change behind an undo drops the steps that could be
 * redone. What can change is known to its owners alone, the sources. GUI thread only.
 */
class FENNAR_CORE_EXPORT UndoSteps : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 usual_limit = qint64(256) << 20;

    /** What a step has changed in one source. None of the functions throws. */
    class FENNAR_CORE_EXPORT Change
    {
    public:
        Change() = default;
        virtual ~Change();
        Q_DISABLE_COPY_MOVE(Change)

        /** Puts back what was there before. All changes behind this one are undone. */
        virtual void undo() = 0;
        /** The reverse. */
        virtual void redo() = 0;
        /** About how many bytes it keeps from being freed while it is done, or while it is undone. */
        virtual qint64 memory(bool done) const = 0;
    };
    /** Hands out what has changed since it was asked last, undo() and redo() of its changes left out; null if
     * nothing has. It must not throw. */
    using Source = std::function<std::unique_ptr<Change>()>;

    /** One that can be undone or redone. */
    struct Step
    {
        /** The command as it can be typed; empty for what no command has changed. */
        QString command;
        /** The number of the journal that it was part of; 0 for none. */
        int journal = 0;
        /** At least one. */
        std::vector<std::unique_ptr<Change>> changes = {};

        /** About how many bytes it keeps from being freed. */
        qint64 memory(bool done) const;
    };

    /** Asks @p source from the next step on. Null is ignored. */
    void add_source(const QString& owner, const Source& source);
    /** Asks the sources of @p owner no more. If there are any, all steps are dropped. */
    void remove_owner(const QString& owner);

    /** The owners of the sources. */
    QStringList owners() const;

    /** Says how to find the number of the journal that is played, 0 for none. Null for none ever. */
    void set_journal(const std::function<int()>& journal) { mJournal = journal; }

    /** Makes a step of what has changed since the last one, if anything has. Ignored while undo() or redo()
     * works: it is for the next one then. */
    void commit(const QString& command);
    /** Drops all steps: what there is now has nothing to do with them. Called by what a step changes, that is
     * done behind that step. */
    void clear();

    /** The oldest first. */
    const std::vector<Step>& steps() const { return mSteps; }
    /** How many of them are done; those behind were undone. */
    std::size_t done() const { return mDone; }
    bool can_undo() const { return mDone > 0; }
    bool can_redo() const { return mDone < mSteps.size(); }

    /**
     * Takes the last step back, or the last journal.
     *
     * @param single  one step even if it was part of a journal.
     * @return how many steps that were; 0 if there is none, or if it is called by what one of them changes.
     */
    std::size_t undo(bool single) { return move(true, single); }
    /** The same forwards. */
    std::size_t redo(bool single) { return move(false, single); }

    /** About how many bytes the steps keep from being freed. */
    qint64 memory() const { return mMemory; }
    qint64 limit() const { return mLimit; }
    /** How many bytes it may be: beyond that the steps that are farthest away are forgotten. */
    void set_limit(qint64 bytes);

Q_SIGNALS:
    /** There are other steps, or another number of them is done. */
    void changed();

private:
    struct OwnedSource
    {
        QString owner;
        Source take;
    };

    int journal() const { return mJournal ? mJournal() : 0; }
    std::size_t move(bool back, bool single);
    void move_one(bool back);
    void drop_surplus();

    std::vector<OwnedSource> mSources;
    std::function<int()> mJournal;
    std::vector<Step> mSteps;
    std::size_t mDone = 0;
    bool mMoving = false;
    /** Whether the steps are to be dropped when the move is over. */
    bool mDropped = false;
    qint64 mMemory = 0;
    qint64 mLimit = usual_limit;
};

} // namespace fennar
