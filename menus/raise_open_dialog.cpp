// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/raise_open_dialog.h"

#include <QDialog>

bool raise_open_dialog(QDialog* dialog)
{
    if (!dialog->isVisible() || !dialog->isModal())
        return false;
    dialog->raise();
    dialog->activateWindow();
    return true;
}
