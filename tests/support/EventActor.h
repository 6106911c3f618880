// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QEvent>
#include <QObject>

#include <functional>
#include <utility>

/** Acts once, from inside the next event of a type for an object: what a component's event filter may do. */
class EventActor : public QObject
{
public:
    /** @p act returns whether the event is swallowed, as for any filter. */
    EventActor(QObject* watched, QEvent::Type type, std::function<bool()> act)
        : mType(type), mAct(std::move(act))
    {
        watched->installEventFilter(this);
    }

    bool has_acted() const { return !mAct; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == mType && mAct && std::exchange(mAct, nullptr)();
    }

private:
    QEvent::Type mType;
    std::function<bool()> mAct;
};
