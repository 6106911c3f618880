// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QWidget>

#include <memory>

namespace Ui {
class QtProgressControl;
}

/**
 * The progress bar and the cancel button at the right of the status bar.
 *
 * It shows one named session at a time on behalf of the framework, which reaches it through MainFrame. A
 * click on cancel stops script playback and raises the interrupt flag that the framework's work tests;
 * nothing here clears it. The main window creates the one instance, after the event filter that keeps the
 * button alive while a command runs. GUI thread only.
 */
class ProgressControl : public QWidget
{
    Q_OBJECT

public:
    /** The main window and its event filter must exist. */
    explicit ProgressControl(QWidget* parent);
    ~ProgressControl() override;

    /**
     * Starts a session and resets the bar. Does nothing while another session is running; that one's updates
     * and end are then ignored as well, since the names differ.
     *
     * @param name     null counts as empty, which starts no session.
     * @param process  whether to run waiting events, at most twice a second.
     */
    void start_session(const char* name, bool process);
    /**
     * Shows @p percent, and runs waiting events, at most twice a second, if that changes the bar.
     *
     * @param name     does nothing unless it is the running session's; null counts as empty.
     * @param percent  above 100 counts as 100; the bar ignores negative values.
     */
    void update_session(const char* name, int percent);
    /** Ends the session and resets the bar if @p name is its name; null counts as empty. */
    void end_session(const char* name);

    /** Sets what the bar reads, in the form that QProgressBar::setFormat() takes. It stays until set again.
     */
    void set_format(const QString& format);

    /**
     * Enables the cancel button, or takes one such request back. The button is disabled when all requests
     * have been taken back; a surplus one does no harm.
     */
    void enable_cancel(bool on);

public slots:
    /** Stops script playback and raises the interrupt flag. */
    void cancel_progress();

private:
    static void run_waiting_events();

    QString mSession;
    std::unique_ptr<Ui::QtProgressControl> ui;
    int mCancelCount = 0;
};
