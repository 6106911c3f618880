// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/ostrelfw/HostMediator.h"

#include <QCoreApplication>

#include <algorithm>

namespace fennar {

HostMediator& HostMediator::instance()
{
    static HostMediator mediator;
    return mediator;
}

void HostMediator::request_exit()
{
    if (mExitHandler)
        mExitHandler();
}

void HostMediator::handle_new_event()
{
    if (mEventHandler)
        mEventHandler();
}

void HostMediator::add_component_tracker(ComponentTracker* tracker)
{
    // Added twice, it would be told everything twice and outlive its removal.
    if (tracker && std::find(mTrackers.begin(), mTrackers.end(), tracker) == mTrackers.end())
        mTrackers.push_back(tracker);
}

void HostMediator::remove_component_tracker(ComponentTracker* tracker)
{
    std::erase(mTrackers, tracker);
}

void HostMediator::tell_trackers(void (ComponentTracker::*step)(const char*), const QString& name)
{
    const QByteArray utf8 = name.toUtf8();
    const std::vector<ComponentTracker*> told = mTrackers;
    for (ComponentTracker* tracker : told) {
        if (std::find(mTrackers.begin(), mTrackers.end(), tracker) != mTrackers.end())
            (tracker->*step)(utf8.constData());
    }
}

void HostMediator::get_components(std::vector<ComponentRecord>& components)
{
    components.clear();
    if (mSource)
        components = mSource->component_records();
}

void HostMediator::get_component_path(QString& path)
{
    path = mSource ? mSource->component_path() : mComponentPath;
}

void HostMediator::set_component_path(const QString& path)
{
    if (mSource)
        mSource->set_component_path(path);
    else
        mComponentPath = path;
}

void HostMediator::get_component_directory(QString& directory)
{
    directory = mSource ? mSource->component_directory() : QCoreApplication::applicationDirPath();
}

} // namespace fennar
