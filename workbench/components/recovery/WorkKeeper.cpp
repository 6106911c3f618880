// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/WorkKeeper.h"

#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <utility>

namespace fennar::recovery {

WorkKeeper::WorkKeeper(const QString& root, std::chrono::milliseconds interval, const Report& report)
    : Keeper(root, interval, report)
{
    connect(&UnsavedWorks::instance(), &UnsavedWorks::settled, this, &WorkKeeper::drop);
}

void WorkKeeper::keep()
{
    // By value: whoever is asked may add work.
    const QList<UnsavedWork> works = UnsavedWorks::instance().works();
    for (const UnsavedWork& work : works) {
        const std::optional<qint64> state = work.state();
        if (!state) {
            drop(work.kind);
            continue;
        }
        Kept& kept = mKept[work.kind];
        // A disk that does not keep up is not given more to do.
        if (kept.writing || kept.state == state)
            continue;
        if (kept.number == 0)
            kept.number = int(mKept.size());
        KeptDocument copy{work.file(), QDateTime::currentDateTimeUtc(), {}, work.kind};
        try {
            copy.data = work.take();
        } catch (const std::exception& error) {
            fail(kept, QString::fromUtf8(error.what()));
            continue;
        }
        kept.state = state;
        kept.writing = true;
        write(kept.number, std::move(copy),
              [this, kind = work.kind](const QString& error, bool lost) { work_written(kind, error, lost); });
    }
}

void WorkKeeper::work_written(const QString& kind, const QString& error, bool lost)
{
    for (Kept& one : mKept) {
        if (lost && !one.writing)
            one.state.reset();
    }
    Kept& kept = mKept[kind];
    kept.writing = false;
    if (error.isEmpty() || !kept.state) // or it is saved by now
        set_written(kept.number);
    else
        fail(kept, error);
}

void WorkKeeper::drop(const QString& kind)
{
    const auto kept = mKept.find(kind);
    if (kept == mKept.end())
        return;
    set_written(kept->number);
    if (std::exchange(kept->state, {}))
        remove(kept->number, kind);
}

void WorkKeeper::fail(Kept& kept, const QString& error)
{
    kept.state.reset();
    set_failed(kept.number,
               tr("Unsaved work cannot be kept for a recovery: %1. It will be tried again.").arg(error));
}

} // namespace fennar::recovery
