// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QWidget;

/** Shows @p window and makes it the active one. Returns whether that worked, within @p patience milliseconds:
 * to be verified, never ignored. */
[[nodiscard]] bool show_active(QWidget* window, int patience = 5000);

/** Where the Tab key leads from @p widget. */
QWidget* next_tab_stop(const QWidget* widget);
