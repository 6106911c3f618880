// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/playback/CloseGuard.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace fennar {

void CloseGuard::watch(QWidget* window, const Hold& hold)
{
    mWindows.append({window, hold});
    window->installEventFilter(this);
}

void CloseGuard::set_running(bool running)
{
    mRunning = running;
    if (running)
        return;
    for (Window& one : mWindows) {
        // Queued: lines may follow on the one that has ended, and then the guard puts it off once more.
        if (std::exchange(one.close_later, false) && one.window)
            QMetaObject::invokeMethod(one.window, &QWidget::close, Qt::QueuedConnection);
    }
}

bool CloseGuard::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Close || !mRunning)
        return false;
    for (Window& one : mWindows) {
        if (one.window != object || !one.hold())
            continue;
        one.close_later = true;
        event->ignore();
        return true;
    }
    return false;
}

} // namespace fennar
