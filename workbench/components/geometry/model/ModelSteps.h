// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryModel.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <vector>

/**
 * The steps that have led to the model, and those that were undone. Each keeps what it replaced: solids with
 * their shapes, names and ids, and the mesh.
 *
 * A command that changes the model is a step. Those of a journal stay together: once it is over undo() takes
 * the whole journal back, unless it is asked for one step. A change behind an undo drops the steps that could
 * be redone; another model drops all. GUI thread only.
 */
class ModelSteps : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 usual_limit = qint64(256) << 20;

    struct Step
    {
        /** The command as it can be typed. */
        QString command;
        /** The number of the journal that it was part of; 0 for none. */
        int journal = 0;
        GeometryModel::Part before;
        GeometryModel::Part after;
    };

    /** @param model  owns it. */
    explicit ModelSteps(GeometryModel& model);

    /** Says how to find the number of the journal that is played, 0 for none. Null for none ever. */
    void set_journal(const std::function<int()>& journal) { mJournal = journal; }

    /** Makes a step of what has changed since the last one, if anything has. */
    void commit(const QString& command);

    /** The oldest first. */
    const std::vector<Step>& steps() const { return mSteps; }
    /** How many of them have led to the model; those behind were undone. */
    std::size_t done() const { return mDone; }
    bool can_undo() const { return mDone > 0; }
    bool can_redo() const { return mDone < mSteps.size(); }

    /**
     * Takes the last step back, or the last journal.
     *
     * @param single  one step even if it was part of a journal.
     * @return how many steps that were; 0 if there is none.
     */
    std::size_t undo(bool single);
    /** The same forwards. */
    std::size_t redo(bool single);

    /** About how many bytes the steps keep from being freed. */
    qint64 memory() const { return mMemory; }
    qint64 limit() const { return mLimit; }
    /** How many bytes it may be: beyond that the steps that are farthest away are forgotten. */
    void set_limit(qint64 bytes);

signals:
    /** There are other steps, or another number of them is done. */
    void changed();

private:
    void clear();
    std::size_t move(bool back, bool single);
    void drop_surplus();

    GeometryModel& mModel;
    std::function<int()> mJournal;
    std::vector<Step> mSteps;
    std::size_t mDone = 0;
    /** The whole model as the last step that is done has left it. */
    GeometryModel::Part mNow;
    /** The solids that have changed since. */
    QSet<int> mTouched;
    bool mMoving = false;
    qint64 mMemory = 0;
    qint64 mLimit = usual_limit;
};
