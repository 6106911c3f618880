// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/RecoveryFolder.h"

#include <QObject>
#include <QSet>
#include <QThreadPool>

#include <chrono>
#include <functional>
#include <memory>

namespace fennar::recovery {

/**
 * Keeps copies of unsaved work on disk, in a folder of this program's own that is made with the first one.
 * They are written on another thread, one after the other, and go with the keeper.
 *
 * GUI thread only.
 */
class Keeper : public QObject
{
    Q_OBJECT

public:
    /** Is given a message for the user, of one line. */
    using Report = std::function<void(const QString& text)>;

    /** Removes all that is kept. */
    ~Keeper() override;

public slots:
    /** Keeps what has changed since the last pass. What could not be written then is tried again. */
    virtual void keep() = 0;
    /** Brings the pass that is under way to its end. Returns whether all could be kept. */
    virtual bool finish();

protected:
    /** Gets what is wrong, or nothing; @p lost tells that copies written earlier are not there any more. */
    using Written = std::function<void(const QString& error, bool lost)>;

    /**
     * @param root      where the folder is made.
     * @param interval  the time from one pass to the next; 0 leaves it to the caller to call keep().
     */
    Keeper(const QString& root, std::chrono::milliseconds interval, const Report& report);

    /** Writes a copy later; @p written is called on this thread. */
    void write(int number, KeptDocument copy, const Written& written);
    /** Removes a copy later; whether it was written does not count any more. */
    void remove(int number, const QString& kind = {});
    void set_written(int number) { mFailing.remove(number); }
    /** Tells the user of the first one that could not be kept. */
    void set_failed(int number, const QString& message);

private:
    QString write_now(int number, const KeptDocument& copy, bool& lost);

    const QString mRoot;
    const Report mReport;
    /** The numbers of the copies that could not be written, of which the user has been told. */
    QSet<int> mFailing;
    /** Used on the pool's thread only. */
    std::unique_ptr<RecoveryFolder> mFolder;
    /** Of one thread, so that things are done in the order in which they are asked for. */
    QThreadPool mPool;
};

} // namespace fennar::recovery
