// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/MessageSettingBox.h"

/**
 * Asks a question that the user may silence, in one call that returns when it is answered.
 *
 * The functions differ in the picture. They return the code of the button pressed, or 0 if the dialog was
 * closed without one (Escape, the window's close box), which callers treat like Cancel.
 *
 *     bool ticked = false;
 *     const int answer = OstrelMessageBox::warning(window, title, message, ticked, QMessageBox::Yes,
 *                                                  QMessageBox::No, 0, tr("Do not ask again."));
 */
class OSTRELGUI_EXPORT OstrelMessageBox : public MessageSettingBox
{
    Q_OBJECT

public:
    using MessageSettingBox::MessageSettingBox;

    /**
     * Shows @p message and waits for the answer.
     *
     * @param parent      the window that is blocked and above which the dialog appears; may be null.
     * @param prompt      its sense depends on @p promptText. With a text it goes in and comes out as the
     *                    state of the check box, true for a tick, whichever button was pressed. Without a
     *                    text it goes in unread and comes out as the opposite, the wish to be asked again;
     *                    the check box is then shown with its own text (docs/surprises.md).
     * @param yes,no,cancel  see MessageSettingBox::set_buttons().
     * @param promptText  the text of the check box.
     */
    static int information(QWidget* parent, const QString& title, const QString& message, bool& prompt,
                           int yes, int no, int cancel, const QString& promptText);
    /** As information(), with the picture of a question. */
    static int question(QWidget* parent, const QString& title, const QString& message, bool& prompt, int yes,
                        int no, int cancel, const QString& promptText);
    /** As information(), with the picture of a warning. */
    static int warning(QWidget* parent, const QString& title, const QString& message, bool& prompt, int yes,
                       int no, int cancel, const QString& promptText);
    /** As information(), with the picture of an error. */
    static int critical(QWidget* parent, const QString& title, const QString& message, bool& prompt, int yes,
                        int no, int cancel, const QString& promptText);

private:
    static int message(QWidget* parent, const QString& title, const QPixmap& icon, const QString& text,
                       bool& prompt, int yes, int no, int cancel, const QString& promptText);
};
