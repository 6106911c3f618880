// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** The application's utility object; FennarInterface::app_util() hands it out. */
class AppUtil
{
public:
    /** Raises or clears the flag that long computations test. The shell raises it and never clears it. */
    void set_interrupt(bool interrupt);
};
