// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** The parsed command line of the application. The order of the virtual functions is part of the interface.
 */
class CLParser
{
public:
    virtual ~CLParser() = default;

    /** Graphics widget left the main window (@p state 1), or has come into it (2). */
    virtual void set_graphics_state(int state) = 0;
    /** Whether the application was started to work through a script without a user. */
    virtual bool batch_mode() = 0;
};
