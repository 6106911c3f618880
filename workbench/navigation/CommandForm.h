// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

/** What both panels show of a command: title, purpose, usage, and its line, to be completed and applied. */
class CommandForm : public QWidget
{
    Q_OBJECT

public:
    explicit CommandForm(QWidget* parent);

    /**
     * Shows the command @p entry; an invalid index empties and hides the form.
     *
     * What the user has typed into the line stays as long as entry and command text remain the same.
     */
    void set_entry(const QModelIndex& entry);
    /** Gives the keyboard to the line, behind its text. */
    void focus_line();
    /** The controls that take the keyboard, in order. */
    QWidgetList controls() const;

private:
    void apply();

    QLabel* mTitle;
    QLabel* mTip;
    QLabel* mUsage;
    QLineEdit* mLine;
    QPushButton* mApply;
    QPersistentModelIndex mEntry;
    QString mCommand;
};
