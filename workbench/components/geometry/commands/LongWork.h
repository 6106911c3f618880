// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/engine_process.h"

namespace fennar {
class CommandCall;
struct ApplicationServices;
} // namespace fennar

namespace fennar::geometry {

/** What a command that waits for the engine shows meanwhile: the shell's progress bar, and the engine's lines
 * on the console. */
class LongWork
{
public:
    /**
     * All must outlive this object.
     *
     * @param title    the title of the progress session.
     * @param verbose  whether to print more than warnings and errors.
     */
    LongWork(CommandCall& call, const ApplicationServices& services, const char* title, bool verbose = false);
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /** Works as long as this object. A click on the cancel button ends the engine's program. */
    MesherListener listener();

    /** Shows how far the work is; @p stage as MesherReport has it, or empty. */
    void show(int percent, const QString& stage);
    /** Gives the window its turn. False once the user has cancelled the work. */
    bool go_on();

private:
    void print(const MesherReport::Message& message);

    CommandCall& mCall;
    const ApplicationServices& mServices;
    const char* mTitle;
    bool mVerbose;
    QString mLastError;
};

} // namespace fennar::geometry
