// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class CLParser;

/** Gives access to the application's command line. */
class CLOptions
{
public:
    /** The parsed command line. Available before the main window is constructed; owned by the framework. */
    static CLParser* instance();
};
