// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/WorkKeeper.h"

#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

namespace fennar::recovery {

WorkKeeper::WorkKeeper(const QString& root, std::chrono::milliseconds interval, const Report& report)
    : mReport(report), mWriter(root)
{
    mPool.setMaxThreadCount(1);
    connect(&UnsavedWorks::instance(), &UnsavedWorks::settled, this, &WorkKeeper::drop);
    if (interval.count() > 0) {
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &WorkKeeper::keep);
        timer->start(interval);
    }
}

WorkKeeper::~WorkKeeper()
{
    mPool.waitForDone();
    mWriter.remove_all();
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
        KeptDocument copy{work.file(), QDateTime::currentDateTimeUtc(), {}, work.kind};
        try {
            copy.data = work.take();
        } catch (const std::exception& error) {
            fail(work.kind, QString::fromUtf8(error.what()));
            continue;
        }
        if (kept.number == 0)
            kept.number = int(mKept.size());
        kept.state = state;
        kept.writing = true;
        mPool.start([this, copy = std::move(copy), number = kept.number, state] {
            bool lost = false;
            const QString error = mWriter.write(number, copy, lost);
            QMetaObject::invokeMethod(
                this, [this, kind = copy.kind, state, error, lost] { written(kind, state, error, lost); },
                Qt::QueuedConnection);
        });
    }
}

bool WorkKeeper::finish()
{
    mPool.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return mFailing.isEmpty();
}

void WorkKeeper::written(const QString& kind, const std::optional<qint64>& state, const QString& error,
                         bool lost)
{
    for (Kept& one : mKept) {
        if (lost && !one.writing)
            one.state.reset();
    }
    Kept& kept = mKept[kind];
    kept.writing = false;
    if (error.isEmpty() || kept.state != state) // or it is saved by now
        mFailing.remove(kind);
    else
        fail(kind, error);
}

void WorkKeeper::drop(const QString& kind)
{
    const auto kept = mKept.find(kind);
    mFailing.remove(kind);
    if (kept == mKept.end() || !kept->state)
        return;
    kept->state.reset();
    mPool.start([this, name = RecoveryFolder::name_of(kept->number, kind)] { mWriter.remove(name); });
}

void WorkKeeper::fail(const QString& kind, const QString& error)
{
    mKept[kind].state.reset();
    const bool told = !mFailing.isEmpty();
    mFailing.insert(kind);
    if (!told)
        mReport(tr("Unsaved work cannot be kept for a recovery: %1. It will be tried again.").arg(error));
}

} // namespace fennar::recovery
