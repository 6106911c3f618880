// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/component/modal_dialogs.h"

#include "files/modal_dialogs.h"

namespace fennar::modal_dialogs {

QString ask_open_file(QWidget* parent, const QString& caption, const QString& path, const QString& filters)
{
    return ::ask_open_file(parent, caption, path, filters);
}

QString ask_directory(QWidget* parent, const QString& caption, const QString& path)
{
    return ::ask_directory(parent, caption, path);
}

QMessageBox::StandardButton show_message(QMessageBox::Icon icon, QWidget* parent, const QString& title,
                                         const QString& text, QMessageBox::StandardButtons buttons)
{
    return ::show_message(icon, parent, title, text, buttons);
}

} // namespace fennar::modal_dialogs
