// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <memory>

class AppUtil;

/** What the shell asks of the application proper: script playback and the console's mode. GUI thread only. */
namespace FennarInterface {

/** The application's utility object. Never null. */
std::shared_ptr<AppUtil> app_util();

/** Ends the playback of a script; does nothing if none is playing. */
void stop_playback();
/** Makes playback wait before its next command. */
void pause_playback();
/** Lets paused playback go on. */
void resume_playback();
/** Whether playback is paused. */
bool is_playback_paused();

/** Whether lines typed on the console are Python statements (true) or commands (false). */
bool command_is_python_mode();

} // namespace FennarInterface
