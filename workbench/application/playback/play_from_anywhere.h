// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/Playback.h"

#include <QString>

namespace fennar {

/**
 * Plays a journal that may come from another program.
 *
 * @param journal  a file or a pipe, or CommandLine::standard_input. The last two are read to their end first.
 * @param settings  values for its parameters.
 */
Playback::Outcome play_from_anywhere(Playback& playback, const QString& journal,
                                     const QList<JournalSetting>& settings);

} // namespace fennar
