// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace fennar::geometry {

/**
 * Asks before a file is replaced of which its file dialog has not asked.
 *
 * The file menu appends the ending to a name that was typed without one when the dialog has closed, and the
 * dialog has asked about the name that was typed. So this object follows the dialogs for saving, and knows
 * about which name the last one has asked.
 */
class SaveQuestion : public QObject
{
    Q_OBJECT

public:
    SaveQuestion();

    /**
     * Whether @p file may be written: it is new, or the user has agreed to its being replaced, here or in the
     * dialog before. False, too, if the window or this object have gone while the question was open.
     */
    bool may_write(QWidget* window, const QString& file);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QString mChosen;
};

} // namespace fennar::geometry
