// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDialog>
#include <QList>
#include <QString>

class QDialogButtonBox;
class QLabel;
class QLineEdit;

/** What a CommandDialog asks for. */
struct CommandField
{
    enum class Kind {
        /** One number or more, separated by blanks. */
        Numbers,
        /** Names, separated by blanks. */
        Names,
    };

    /** Object name of the edit line. */
    QString name;
    QString label;
    /** The word in front of the values in the command; may be empty. */
    QString keyword;
    /** What the field holds at first. */
    QString value;
    Kind kind = Kind::Numbers;
    /** How many values there must be; 0 for any number of them, at least one. */
    int count = 1;
    /** Whether it may stay empty; it is then left out, with its keyword. */
    bool optional = false;
};

/**
 * A small form that puts a command together and sends it to the console, as though it had been typed.
 *
 * The command is shown while it grows. The button that sends it is enabled once every field holds what it
 * should; what else may be wrong the command itself tells. Deletes itself when it is closed.
 */
class CommandDialog : public QDialog
{
    Q_OBJECT

public:
    CommandDialog(const QString& title, const QString& command, const QList<CommandField>& fields,
                  QWidget* parent);

    /** The command as the fields have it; empty while a field is wrong. */
    QString command_line() const;

    void accept() override;

private:
    void update_command();

    QString mCommand;
    QList<CommandField> mFields;
    QList<QLineEdit*> mEdits;
    QLabel* mPreview;
    QDialogButtonBox* mButtons;
};
