// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class JournalEditor;
class QAction;

namespace fennar {

class CommandInterpreter;

/**
 * Looks for errors in the journals of the editor without running them: the entry "Check" in the context menu
 * of its documents, with the key F7.
 *
 * Each wrong line is marked until it is edited, or the journal is checked again, and is told as an error of a
 * run would be; the caret goes to the first. GUI thread only.
 */
class JournalCheck : public QObject
{
    Q_OBJECT

public:
    /** Is given whole lines. */
    using Print = std::function<void(const QString& text)>;

    /**
     * @param editor       stays the caller's, and may go earlier.
     * @param interpreter  has the commands and variables. Not owned; outlives the object.
     */
    JournalCheck(JournalEditor* editor, CommandInterpreter& interpreter, const Print& print,
                 const Print& print_error);
    /** Takes the entry away again; marks stay. */
    ~JournalCheck() override;

public slots:
    /** Checks the current document. */
    void check();

private:
    QPointer<JournalEditor> mEditor;
    CommandInterpreter& mInterpreter;
    Print mPrint;
    Print mPrintError;
    QAction* mAction;
};

} // namespace fennar
