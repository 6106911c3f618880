// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/EventCatcher.h"

#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"

EventCatcher::EventCatcher(QApplication* app) : application(app) {}

EventCatcher::~EventCatcher() = default;

bool EventCatcher::event(QEvent*)
{
    // The type is not looked at: nothing but announcements is sent here on purpose (docs/surprises.md).
    Broker::instance()->handle_new_event();
    return true;
}
