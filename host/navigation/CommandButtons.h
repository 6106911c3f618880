// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** Measures that all button panels share. */
class CommandButtons
{
public:
    /** The width, in pixels, for which a CommandButtonPanel lays out its rows when it is built. */
    static int mPanelButtonWidth;
};
