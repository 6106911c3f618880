// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

/**
 * @file
 * Dialogs that wait for the user, as the static functions of QFileDialog and QMessageBox make them, but for
 * one thing: the window above which they stand, and the dialog with it, may be deleted while they wait. What
 * comes back is then what a cancelled dialog gives, and the caller asks an Alive before it goes on.
 *
 * A parent may be null. @p path is where a file dialog starts: a folder, or a folder and a name in it; empty
 * stands for the folder used last. @p filter, unless it is null, goes in as the filter to start with, empty
 * for the first one, and comes out as the one that the user has left, unless the dialog was cancelled.
 */

/** The name of a file to open; empty if the user cancels. */
QString ask_open_file(QWidget* parent, const QString& caption, const QString& path, const QString& filters,
                      QString* filter = nullptr);
/** The names of one or more files to open; empty if the user cancels. */
QStringList ask_open_files(QWidget* parent, const QString& caption, const QString& path,
                           const QString& filters, QString* filter = nullptr);
/** The name of a file to save to; empty if the user cancels. The dialog asks before it gives the name of a
 * file that exists. */
QString ask_save_file(QWidget* parent, const QString& caption, const QString& path, const QString& filters,
                      QString* filter = nullptr);
/** The name of a folder; empty if the user cancels. */
QString ask_directory(QWidget* parent, const QString& caption, const QString& path);

/** Shows a message and gives the button that closed it; NoButton if it was deleted. */
QMessageBox::StandardButton show_message(QMessageBox::Icon icon, QWidget* parent, const QString& title,
                                         const QString& text, QMessageBox::StandardButtons buttons);
