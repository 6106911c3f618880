// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QSet>
#include <QTimer>
#include <QWidget>

#include <memory>

class QCheckBox;
class QComboBox;
class QDialog;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace fennar {

class ClauseRow;
struct Command;

/**
 * What panels and dialogs show of a command: title, purpose, a field for each of its values, the line that
 * they make, and the button that applies it.
 *
 * A line with nothing but the command's name begins with the values that were applied last, and what is
 * selected stands for the names.
 *
 * The fields are those that the registry describes, see FormServices. A command that it does not describe has
 * its usage and its line, to be completed by the user; so has any other while "Edit the line" is on.
 */
class CommandForm : public QWidget
{
    Q_OBJECT

public:
    /** @param buttons  of a dialog: "Ok" applies, and the title is left to the dialog; null for a button of
     * the form's own. */
    explicit CommandForm(QWidget* parent, QDialogButtonBox* buttons = nullptr);

    /**
     * Shows the command @p entry; an invalid index empties and hides the form.
     *
     * What the user has given stays as long as entry and command text remain the same.
     */
    void set_entry(const QModelIndex& entry);
    /** Shows the command of that name. */
    void set_command(const QString& name);
    /** Gives the keyboard to the first field, or to the line, behind its text. */
    void focus_first();
    /** The controls that take the keyboard, in order. */
    QWidgetList controls() const;

signals:
    /** controls() is another list now. */
    void controls_changed();
    /** The line is about to be sent. */
    void applying();
    /** The user wants to go back to the command's entry. */
    void left();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void set_fonts();
    void start(const QString& line, const QString& usage);
    bool read_line(const QString& line);
    void take_selection();
    void show_way(int way);
    void update_line();
    QList<ClauseValues> values() const;
    QString problem() const;
    void set_editing(bool on);
    void color_line();
    void refresh();
    void apply();

    bool is_described() const { return mCommand && !mEditing; }
    const CommandSyntax& form() const;

    bool mHasFonts = false;
    QLabel* mTitle;
    QLabel* mTip;
    QLabel* mUsage;
    QComboBox* mWays;
    /** Holds the fields; another one for each command. */
    QWidget* mFields = nullptr;
    QLabel* mMessage;
    QLineEdit* mLine;
    QCheckBox* mEdit;
    QPushButton* mApply;
    QPersistentModelIndex mEntry;
    QString mEntryLine;
    QString mEntryUsage;
    /** What the registry has had of that name; null if nothing. */
    std::shared_ptr<const Command> mRegistered;
    /** The same if the form has fields for it; null if it has nothing but the line. */
    std::shared_ptr<const Command> mCommand;
    int mWay = 0;
    /** A child of mFields for each clause. */
    QList<ClauseRow*> mRows;
    /** Whether the user writes the line. */
    bool mEditing = false;
    QSet<QString> mChangedEntities;
    QTimer mRefresh;
};

/**
 * A new dialog with the form of a command, which closes when the line is applied. It is not modal, not shown
 * yet, and deletes itself when it is closed.
 */
QDialog* new_command_dialog(const QString& command, const QString& title, QWidget* parent);

} // namespace fennar
