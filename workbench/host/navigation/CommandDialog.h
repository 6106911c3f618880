// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDialog>

namespace fennar {

/**
 * The form of a command in a dialog, which closes when the line is applied. It is not modal, and deletes
 * itself when it is closed.
 */
class CommandDialog : public QDialog
{
    Q_OBJECT

public:
    CommandDialog(const QString& command, const QString& title, QWidget* parent);
};

} // namespace fennar
