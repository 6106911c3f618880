// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/RecoveryWriter.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QThreadPool>

#include <chrono>
#include <functional>
#include <optional>

namespace fennar::recovery {

/**
 * Keeps the unsaved work of components on disk, as DocumentKeeper does with journals: a copy that goes as
 * soon as the work is saved or given up, and with the keeper. It is written on another thread.
 *
 * GUI thread only.
 */
class WorkKeeper : public QObject
{
    Q_OBJECT

public:
    /** Is given a message for the user, of one line. */
    using Report = std::function<void(const QString& text)>;

    /** As those of DocumentKeeper. */
    WorkKeeper(const QString& root, std::chrono::milliseconds interval, const Report& report);
    /** Removes all that is kept. */
    ~WorkKeeper() override;

public slots:
    /** Keeps what has changed since the last pass. What could not be written then is tried again. */
    void keep();
    /** Brings what is being written to its end. Returns whether all could be kept. */
    bool finish();

private:
    struct Kept
    {
        /** Of its copy, in the folder. */
        int number = 0;
        /** Of which state there is a copy, or will be; nothing if there is none. */
        std::optional<qint64> state;
        bool writing = false;
    };

    void written(const QString& kind, const std::optional<qint64>& state, const QString& error, bool lost);
    void drop(const QString& kind);
    void fail(const QString& kind, const QString& error);

    Report mReport;
    /** By kind. */
    QHash<QString, Kept> mKept;
    /** What could not be kept, of which the user has been told. */
    QSet<QString> mFailing;
    /** Used on the pool's thread only. */
    RecoveryWriter mWriter;
    /** Of one thread, so that things are done in the order in which they are asked for. */
    QThreadPool mPool;
};

} // namespace fennar::recovery
