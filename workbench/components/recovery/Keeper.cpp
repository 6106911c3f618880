// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/Keeper.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QTimer>

namespace fennar::recovery {

Keeper::Keeper(const QString& root, std::chrono::milliseconds interval, const Report& report)
    : mRoot(root), mReport(report)
{
    mPool.setMaxThreadCount(1);
    if (interval.count() > 0) {
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &Keeper::keep);
        timer->start(interval);
    }
}

Keeper::~Keeper()
{
    mPool.waitForDone();
    if (mFolder)
        mFolder->remove_all();
    // Unless others keep something in it.
    QDir().rmdir(mRoot);
}

bool Keeper::finish()
{
    mPool.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return mFailing.isEmpty();
}

void Keeper::write(int number, KeptDocument copy, const Written& written)
{
    mPool.start([this, number, copy = std::move(copy), written]() mutable {
        copy.text.replace(QChar::ParagraphSeparator, u'\n');
        bool lost = false;
        const QString error = write_now(number, copy, lost);
        QMetaObject::invokeMethod(
            this, [written, error, lost] { written(error, lost); }, Qt::QueuedConnection);
    });
}

QString Keeper::write_now(int number, const KeptDocument& copy, bool& lost)
{
    lost = mFolder && !mFolder->exists();
    if (!mFolder || lost)
        mFolder = RecoveryFolder::make(mRoot);
    return mFolder ? mFolder->write(number, copy)
                   : tr("no folder can be made in \"%1\"").arg(QDir::toNativeSeparators(mRoot));
}

void Keeper::remove(int number, const QString& kind)
{
    mFailing.remove(number);
    mPool.start([this, name = RecoveryFolder::name_of(number, kind)] {
        if (mFolder)
            mFolder->remove(name);
    });
}

void Keeper::set_failed(int number, const QString& message)
{
    const bool told = !mFailing.isEmpty();
    mFailing.insert(number);
    if (!told)
        mReport(message);
}

} // namespace fennar::recovery
