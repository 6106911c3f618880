// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/Mediator.h"

#include <QString>

#include <functional>

/** The workbench's side of everything that the shell asks of its framework. One object, behind
 * Broker::instance(). */
class HostMediator : public Mediator
{
public:
    static HostMediator& instance();

    /** Is called when the user has closed the main window; should end the event loop. Null for none. */
    void set_exit_handler(std::function<void()> handler);
    /** Does the work that OstrelGUI::new_event() announces, on the GUI thread. Null for none. */
    void set_event_handler(std::function<void()> handler);

    /** The objects to be told of components, in the order in which they were added. */
    const std::vector<ComponentTracker*>& trackers() const { return mTrackers; }

    void request_exit() override;
    void handle_new_event() override;
    void set_change_dir_on_playback(bool change) override;
    bool change_dir_on_playback() override;
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
    QString mComponentPath;
    bool mChangeDirOnPlayback = false;
};
