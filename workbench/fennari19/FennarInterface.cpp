// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/fennari19/FennarInterface.h"

#include "workbench/fennari19/Fennar.h"

std::shared_ptr<AppUtil> FennarInterface::app_util()
{
    return Fennar::instance().app_util();
}

void FennarInterface::stop_playback()
{
    Fennar::instance().playback().stop();
}

void FennarInterface::pause_playback()
{
    Fennar::instance().playback().pause();
}

void FennarInterface::resume_playback()
{
    Fennar::instance().playback().resume();
}

bool FennarInterface::is_playback_paused()
{
    return Fennar::instance().playback().is_paused();
}

bool FennarInterface::command_is_python_mode()
{
    return Fennar::instance().python_mode();
}
