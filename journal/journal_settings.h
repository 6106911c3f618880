// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class JournalEditor;
class RecentFiles;

/** Gives the editor what was saved: place and size, whether it asks before changes are lost, and the recent
 * journals, which go to @p recent unless that is null. */
void restore_settings(JournalEditor& editor, RecentFiles* recent);
/** Saves what restore_settings() restores. */
void save_settings(const JournalEditor& editor, const RecentFiles* recent);
