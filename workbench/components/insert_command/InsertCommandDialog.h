// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDialog>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <memory>

namespace Ui {
class InsertCommandDialog;
}

namespace fennar {
class CommandRegistry;
}

namespace fennar::insert_command {

/**
 * Asks for a command of the command language: a list with usage and summary, which a filter narrows.
 *
 * The filter looks for its text anywhere in both columns, without regard to case. The first command that it
 * leaves is selected, and Up and Down in the filter move in the list.
 */
class InsertCommandDialog : public QDialog
{
    Q_OBJECT

public:
    /** Lists what is in @p registry now; commands that come or go later change nothing. */
    InsertCommandDialog(const CommandRegistry& registry, QWidget* parent);
    ~InsertCommandDialog() override;

    /** The name of the command that is selected; empty if none is. */
    QString name() const;
    /** How it is typed, as "set [NAME [VALUE...]]"; empty if none is selected. */
    QString usage() const;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void filter(const QString& text);
    void show_selected();
    QString selected(int role) const;

    std::unique_ptr<Ui::InsertCommandDialog> ui;
    QStandardItemModel mCommands;
    QSortFilterProxyModel mShown;
};

} // namespace fennar::insert_command
