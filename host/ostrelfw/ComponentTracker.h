// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/**
 * Is told when components load and unload.
 *
 * Derive from it, override what is of interest, and register the object with
 * Mediator::add_component_tracker(). The object must be taken out by Mediator::remove_component_tracker()
 * before it dies. All calls come on the GUI thread; each carries the component's name, which is valid during
 * the call only.
 */
class ComponentTracker
{
public:
    virtual ~ComponentTracker();

    /** @p name is about to be loaded. The base does nothing. */
    virtual void component_loading(const char* name);
    /** @p name has been loaded. The base does nothing. */
    virtual void component_loaded(const char* name);
    /** @p name is about to be unloaded. The base does nothing. */
    virtual void component_unloading(const char* name);
    /** @p name has been unloaded. The base does nothing. */
    virtual void component_unloaded(const char* name);
};
