// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <vector>

class ComponentTracker;
class QString;
struct ComponentRecord;

/**
 * What the shell asks of the framework. Broker::instance() hands it out; the framework owns it.
 *
 * All calls come on the GUI thread. The shell tests no result for errors. The order of the virtual functions
 * is part of the interface.
 */
class Mediator
{
public:
    virtual ~Mediator() = default;

    /**
     * The user has closed the main window and every question about unsaved work has been answered.
     *
     * The application stops only if this leads to OstrelGUI::end_application().
     */
    virtual void request_exit() = 0;

    /** Work announced by OstrelGUI::new_event() is due. Called once for each announcement. */
    virtual void handle_new_event() = 0;

    /** Sets whether the working directory follows the journal that is played. */
    virtual void set_change_dir_on_playback(bool change) = 0;
    /** Whether the working directory follows the journal that is played. */
    virtual bool change_dir_on_playback() = 0;

    /** Adds @p tracker, which is not owned and must be removed before it dies. */
    virtual void add_component_tracker(ComponentTracker* tracker) = 0;
    /** Removes @p tracker; one that was never added is ignored. */
    virtual void remove_component_tracker(ComponentTracker* tracker) = 0;

    /** Fills @p components with one record for each component that is known. */
    virtual void get_components(std::vector<ComponentRecord>& components) = 0;
    /** Fills @p path with the directories searched for components, joined with ";". */
    virtual void get_component_path(QString& path) = 0;
    /** Replaces the directories searched for components; @p path joins them with ";". Empty means none. */
    virtual void set_component_path(const QString& path) = 0;
    /** Fills @p directory with the directory in which a search for components should start. */
    virtual void get_component_directory(QString& directory) = 0;
};
