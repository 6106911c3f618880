// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <span>

class Stage;

/** What a user, a component or the host begins, and what leads the shell to call others. */
struct Flow
{
    const char* name;
    /** Each step looks whether what it needs is there still. */
    void (*run)(Stage& stage);
    /** Whether it starts without a window. */
    bool loads = false;
};

/** The frame, the window and its bars. */
std::span<const Flow> window_flows();
/** The console. */
std::span<const Flow> console_flows();
/** The file menu. */
std::span<const Flow> file_flows();
/** The journal editor. */
std::span<const Flow> journal_flows();
/** The options, the plugin tool and the help menu. */
std::span<const Flow> panel_flows();
/** The field for file names. */
std::span<const Flow> field_flows();
