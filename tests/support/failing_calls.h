// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <string>

// Makes a call of the system fail that writes, brings to the disk, renames or closes a file, as a full or
// broken disk does: the n-th of those in one folder. The library stands in front of the C library, in a test
// that is linked with it, and in programs that are started with LD_PRELOAD.

/** What fails. */
struct FailingCalls
{
    /** Calls about files below this folder count: its whole path. */
    std::string folder;
    /** The number of the call that fails, from 1 on; 0 only counts them. */
    int number = 0;
    /** Whether all later calls fail as well. The first one may then write a part of what it was given. */
    bool lasting = false;
};

/** Counts, and lets calls of this process fail, from now on. */
void begin_failing(const FailingCalls& calls);
/** Ends that. Returns how many calls there were. */
int end_failing();

/** The same for the next programs with the name @p program that this one starts. They write how many calls
 * there were to the file @p count. */
void begin_failing_in(const std::string& program, const FailingCalls& calls, const std::string& count);
void end_failing_in();
