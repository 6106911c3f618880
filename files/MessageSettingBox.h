// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QDialog>

#include <memory>

class QPixmap;
class QPushButton;

/**
 * A modal question with up to three buttons and a check box below the message, by which the user may ask not
 * to be asked again.
 *
 * Buttons are named by the numeric values of QMessageBox::StandardButton: Ok, Yes, YesToAll, No, NoToAll,
 * Abort, Retry, Ignore and Cancel have texts of their own. Ok, Yes, YesToAll and Retry accept the dialog, all
 * others reject it. The bare keys O, C, Y, N, A, R and I press the button of that letter if it is offered.
 *
 * The box stores nothing beyond its life; whoever shows it keeps the answer. OstrelMessageBox shows one in a
 * single call. GUI thread only.
 */
class OSTRELGUI_EXPORT MessageSettingBox : public QDialog
{
    Q_OBJECT

public:
    /** Offers Yes, No and Cancel until set_buttons() is called. */
    explicit MessageSettingBox(QWidget* parent = nullptr);
    ~MessageSettingBox() override;

    /** Sets the picture beside the message; a null one leaves the place empty. */
    void set_icon(const QPixmap& icon);
    /** Sets the message; a line feed starts a new line. */
    void set_message(const QString& message);
    /**
     * Sets the codes of the three buttons, from left to right.
     *
     * A code that a button before has already, and 0, hides the button for good. A code without a text of its
     * own leaves the button's text and visibility alone.
     */
    void set_buttons(int yes, int no, int cancel);
    /** Sets the text of the check box. */
    void set_prompt_text(const QString& text);
    /** Ticks the check box, or takes the tick away: true ticks it. */
    void set_prompt_again(bool checked);
    /** Whether the user is to be asked again: true without a tick. */
    bool do_prompt_again() const;
    /** Fits the dialog to the message and fixes its size. To be called last, before the dialog is shown. */
    void adjust_size();
    /** The code of the button that closed the dialog; 0 if it is still open or was closed without one. */
    int get_result() const;

public slots:
    /** Closes the dialog with the code of the first button. */
    void yes_clicked();
    /** Closes the dialog with the code of the second button. */
    void no_clicked();
    /** Closes the dialog with the code of the third button. */
    void cancel_clicked();

private slots:
    void handle_shortcut();

private:
    struct Form;

    void set_result(int code);
    void update_button(QPushButton* button, int code);

    std::unique_ptr<Form> ui;
    int mYesCode;
    int mNoCode;
    int mCancelCode;
    int mResult = 0;
};
