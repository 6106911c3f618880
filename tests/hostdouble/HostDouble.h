// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/ComponentRecord.h"

#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class AppUtil;
class ComponentTracker;
class NavigationModel;
class OutputHandler;

/**
 * The recording host: every call that the shell makes into the host is appended to calls, and every answer
 * can be set. Not recorded are Broker::instance(), CLOptions::instance(), the making of a NavigationModel,
 * and root_index() and current_index() of the panels, which change nothing.
 *
 * A call is recorded as "Class::operation(arguments)", with texts in double quotes, pointers as "null" or
 * "set", and booleans as "true" or "false".
 */
class HostDouble
{
public:
    /** The one recorder. */
    static HostDouble& instance();

    /** Forgets all calls and takes every answer back to its first value. */
    void reset();
    /** Takes the calls recorded so far out. */
    QStringList take_calls();
    void record(const QString& call) { calls << call; }

    QStringList calls;

    // Answers.
    bool change_dir_on_playback = false;
    std::vector<ComponentRecord> components;
    QString component_path;
    QString component_directory;
    bool batch_mode = false;
    bool python_mode = false;
    bool playback_paused = false;
    /** Whether playback stays paused when it is asked to go on. */
    bool resume_refused = false;
    bool python_initialized = true;
    bool has_user_interpreter = true;
    int python_result = 0;
    int python_version[3] = {3, 11, 2};
    /** What each NavigationReader says in its messages. */
    QStringList navigation_messages;

    // What the shell has handed over.
    OutputHandler* command_window = nullptr;
    QString printed;
    std::vector<ComponentTracker*> trackers;
    NavigationModel* resources_model = nullptr;

    // Called after the recording, so that a test can act from inside the host.
    std::function<void()> on_handle_new_event;
    std::function<void()> on_request_exit;
    /** The same, for all calls of the mediator and for what is written to the console; called with the class
     * and the operation when the answer is there. */
    std::function<void(const QString& operation)> on_call;
};
