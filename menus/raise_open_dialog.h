// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QDialog;

/** Brings @p dialog to the front if it is open as a modal one. Returns whether it is; it must not be run once
 * more then. Not null. */
bool raise_open_dialog(QDialog* dialog);
