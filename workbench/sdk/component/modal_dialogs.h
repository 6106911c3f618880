// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/export.h"

#include <QMessageBox>
#include <QString>

namespace fennar::modal_dialogs {

// Dialogs that wait for the user, as the shell's own do: the window above which they stand may be deleted
// while they wait, and they give then what a cancelled dialog gives. So the caller asks, before it goes on,
// whether what it works with is still there.
//
// A parent may be null. @p path is where the dialog starts: a folder, or a folder and a name in it; empty
// stands for the folder used last.

/** The name of a file to open; empty if the user cancels. @p filters are written as QFileDialog has them. */
FENNAR_COMPONENT_EXPORT QString ask_open_file(QWidget* parent, const QString& caption, const QString& path,
                                              const QString& filters);
/** The name of a folder; empty if the user cancels. */
FENNAR_COMPONENT_EXPORT QString ask_directory(QWidget* parent, const QString& caption, const QString& path);
/** Shows a message and gives the button that closed it; NoButton if it was deleted. */
FENNAR_COMPONENT_EXPORT QMessageBox::StandardButton show_message(QMessageBox::Icon icon, QWidget* parent,
                                                                 const QString& title, const QString& text,
                                                                 QMessageBox::StandardButtons buttons);

} // namespace fennar::modal_dialogs
