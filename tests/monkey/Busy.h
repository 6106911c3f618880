// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <algorithm>

/**
 * As long as it lives Qt is in the middle of something, and goes on with it afterwards.
 *
 * Then nobody deletes anything or lets other events happen, and nobody takes pages or a graphics widget from
 * where Qt is at work: no shell could make up for that.
 */
class Busy
{
public:
    /** @param object  what Qt is at work on; may be null. */
    explicit Busy(const QObject* object) { objects().append(object); }
    ~Busy() { objects().removeLast(); }
    Q_DISABLE_COPY_MOVE(Busy)

    /** Whether Qt is in the middle of anything. */
    static bool with_anything() { return !objects().isEmpty(); }
    /** Whether Qt is at work on @p object or on what is in it. */
    static bool with(const QObject* object)
    {
        return std::any_of(objects().begin(), objects().end(), [object](const QObject* busy) {
            while (busy && busy != object)
                busy = busy->parent();
            return busy;
        });
    }

    /** Deletes @p object at once if Qt is idle, or else in delete_pending(). Null is ignored. */
    static void let_go(QObject* object)
    {
        if (with_anything())
            pending().append(object);
        else
            delete object;
    }
    /** Deletes what let_go() has left. Qt must be idle. */
    static void delete_pending()
    {
        while (!pending().isEmpty())
            delete pending().takeFirst();
    }

private:
    static QList<QPointer<const QObject>>& objects()
    {
        static QList<QPointer<const QObject>> stack;
        return stack;
    }
    static QList<QPointer<QObject>>& pending()
    {
        static QList<QPointer<QObject>> left;
        return left;
    }
};
