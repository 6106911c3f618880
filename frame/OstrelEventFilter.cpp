// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/OstrelEventFilter.h"

#include "frame/Alive.h"
#include "frame/clock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <chrono>

namespace {

constexpr double shortest_interval = 0.5;

// Seconds on a clock that never goes back; its zero is of no meaning.
double steady_seconds()
{
    using namespace std::chrono;
    const auto now = duration_cast<microseconds>(shell_clock::now().time_since_epoch());
    return static_cast<double>(now.count()) / 1'000'000;
}

// Exactly these. Dropping, hovering in and the asking for shortcut overrides start nothing by themselves.
bool is_user_input(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Wheel:
    case QEvent::DragMove:
    case QEvent::ContextMenu:
    case QEvent::Shortcut:
    case QEvent::HoverMove:
        return true;
    default:
        return false;
    }
}

// Keeps a filter on the application as long as it lives, so that an exception takes it away too.
class ApplicationFilter
{
public:
    explicit ApplicationFilter(QObject* filter) : mFilter(filter)
    {
        QCoreApplication::instance()->installEventFilter(mFilter);
    }
    ~ApplicationFilter()
    {
        // One that has been deleted meanwhile is not called any more.
        if (mFilter)
            QCoreApplication::instance()->removeEventFilter(mFilter);
    }
    Q_DISABLE_COPY_MOVE(ApplicationFilter)

private:
    QPointer<QObject> mFilter;
};

} // namespace

OstrelEventFilter::OstrelEventFilter() : mLastProcess(0) {}

OstrelEventFilter::~OstrelEventFilter() = default;

void OstrelEventFilter::processEvents(bool force)
{
    const double now = steady_seconds();
    if (!force && now - mLastProcess < shortest_interval)
        return;
    const Alive alive(this);
    do_process();
    if (!alive)
        return;
    // The time before the run: a long one must not push the next one back.
    mLastProcess = now;
}

void OstrelEventFilter::addObject(QObject* object)
{
    // Another object may come to lie at the address of one that is gone.
    if (mAllowed.insert(object).second && object)
        connect(object, &QObject::destroyed, this, &OstrelEventFilter::removeObject, Qt::UniqueConnection);
}

void OstrelEventFilter::removeObject(QObject* object)
{
    mAllowed.erase(object);
}

void OstrelEventFilter::do_process()
{
    const ApplicationFilter installed(this);
    QCoreApplication::processEvents();
}

bool OstrelEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    // Most events are no input, and the type is the quickest to tell.
    if (!is_user_input(event->type()) || watched->isWindowType())
        return false;
    for (QObject* object = watched; object; object = object->parent()) {
        if (mAllowed.contains(object))
            return false;
    }
    return true;
}
