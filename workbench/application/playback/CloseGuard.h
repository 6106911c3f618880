// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace fennar {

/**
 * Puts off the closing of windows while something runs.
 *
 * A window may ask about unsaved changes when it closes. While something runs the shell swallows all input
 * but that to a few buttons, so that nobody could answer. The guard keeps such a window open and closes it
 * once the run has ended. GUI thread only.
 */
class CloseGuard : public QObject
{
    Q_OBJECT

public:
    /** Is asked each time that the window is to be closed during a run; false lets it close at once. */
    using Hold = std::function<bool()>;

    /** Watches @p window, which is not owned and may go at any time. */
    void watch(QWidget* window, const Hold& hold);

    /** Tells that a run begins or has ended. */
    void set_running(bool running);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Window
    {
        QPointer<QWidget> window;
        Hold hold;
        bool close_later = false;
    };

    QList<Window> mWindows;
    bool mRunning = false;
};

} // namespace fennar
