// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/fennari19/FennarInterface.h"

#include "host/fennar_util/AppUtil.h"
#include "workbench/sdk/core/commands/Fennar.h"

using namespace fennar;

std::shared_ptr<AppUtil> FennarInterface::app_util()
{
    static const auto util = std::make_shared<AppUtil>();
    return util;
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
