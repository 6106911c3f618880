// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Mediator.h"

#include <QString>

#include <functional>

namespace fennar {

/** Knows the components: what HostMediator asks on behalf of the shell. */
class ComponentSource
{
public:
    virtual ~ComponentSource() = default;

    /** One record for each component that is known. */
    virtual std::vector<ComponentRecord> component_records() = 0;
    /** The directories searched for components, joined with ";". */
    virtual QString component_path() const = 0;
    /** Replaces these directories; empty means none. */
    virtual void set_component_path(const QString& path) = 0;
    /** The directory in which a search for components should start. */
    virtual QString component_directory() const = 0;
};

/** The workbench's side of everything that the shell asks of its framework. One object, behind
 * Broker::instance(). */
class HostMediator : public Mediator
{
public:
    /** The one object; made at the first call. */
    static HostMediator& instance();

    /** Is called when the user has closed the main window; should end the event loop. Null for none. */
    void set_exit_handler(const std::function<void()>& handler) { mExitHandler = handler; }
    /** Does the work that OstrelGUI::new_event() announces, on the GUI thread. Null for none. */
    void set_event_handler(const std::function<void()>& handler) { mEventHandler = handler; }

    /**
     * Sets who knows the components. Not owned; null for none.
     *
     * Without one no components are listed, and the path is kept for this run only.
     */
    void set_component_source(ComponentSource* source) { mSource = source; }

    /**
     * Tells all trackers of a step in a component's life, as &ComponentTracker::component_loaded.
     *
     * A tracker that is removed meanwhile is not told; one that is added meanwhile is not told either.
     */
    void tell_trackers(void (ComponentTracker::*step)(const char*), const QString& name);

    /** The objects to be told of components, in the order in which they were added. */
    const std::vector<ComponentTracker*>& trackers() const { return mTrackers; }

    void request_exit() override;
    void handle_new_event() override;
    void set_change_dir_on_playback(bool change) override { mChangeDirOnPlayback = change; }
    bool change_dir_on_playback() override { return mChangeDirOnPlayback; }
    void add_component_tracker(ComponentTracker* tracker) override;
    void remove_component_tracker(ComponentTracker* tracker) override;
    void get_components(std::vector<ComponentRecord>& components) override;
    void get_component_path(QString& path) override;
    void set_component_path(const QString& path) override;
    void get_component_directory(QString& directory) override;

private:
    std::function<void()> mExitHandler;
    std::function<void()> mEventHandler;
    std::vector<ComponentTracker*> mTrackers;
    ComponentSource* mSource = nullptr;
    QString mComponentPath;
    bool mChangeDirOnPlayback = false;
};

} // namespace fennar
