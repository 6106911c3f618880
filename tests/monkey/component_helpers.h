// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "Monkey.h"

#include <QAction>
#include <QList>
#include <QPointer>

/** A new action of @p owner. */
inline QAction* make_action(Monkey& monkey, Component& owner)
{
    auto* const action = new QAction(monkey.fresh_text());
    action->setCheckable(monkey.one_in(3));
    owner.actions << action;
    monkey.watch(action);
    return action;
}

/** Takes one of @p objects that still exist out of the list; null if there is none. */
template <class Object>
QPointer<Object> take_any(Monkey& monkey, QList<QPointer<Object>>& objects)
{
    objects.removeAll(nullptr);
    return objects.isEmpty() ? nullptr : objects.takeAt(monkey.below(objects.size()));
}
