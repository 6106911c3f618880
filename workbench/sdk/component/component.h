// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/** Changes when struct FennarComponent or what it promises changes. */
#define FENNAR_COMPONENT_INTERFACE 1

/**
 * What a component tells the workbench of itself.
 *
 * A component is a shared object that exports the C function fennar_component(), which returns one of these.
 * The record and its texts stay valid while the shared object is loaded.
 */
struct FennarComponent
{
    /** FENNAR_COMPONENT_INTERFACE as the component was compiled with. */
    int interface_version;
    /** What the workbench was when the component was compiled, as "0.1.0": FENNAR_WORKBENCH_VERSION. */
    const char* workbench_version;
    /**
     * The component's name: a lower-case letter, then lower-case letters, digits, "_" and "-".
     *
     * It is the owner mark of all that the component adds. The shared object is best called NAME.so: until
     * that has been looked into, the component goes by this name.
     */
    const char* name;
    /** The component's own version, for people to read. */
    const char* version;
    /**
     * Adds what the component offers. An exception that leaves it refuses the component; what it had added by
     * then is taken away without a call of unload.
     *
     * It is called again, in the same process and with all static variables as they were left, when the user
     * loads the component once more.
     *
     * Without a window (Ostrel::instance() is null, in a batch run) there are commands to add and nothing
     * else.
     */
    void (*load)();
    /**
     * Takes everything away again, in the reverse order, and deletes what the component owns. Must not throw.
     *
     * No command of the component runs then and no modal dialog is open. At the end of the program it is
     * called before the main window goes.
     */
    void (*unload)();
};

/** The type of fennar_component(). */
using FennarComponentEntry = const FennarComponent* (*)();

/** Exports @p record, a static FennarComponent. Once in a component, outside all namespaces. */
#define FENNAR_EXPORT_COMPONENT(record)                                                                      \
    extern "C" Q_DECL_EXPORT const FennarComponent* fennar_component()                                       \
    {                                                                                                        \
        return &(record);                                                                                    \
    }
