// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>

class QApplication;

/**
 * Carries the framework's announcements of waiting work onto the GUI thread.
 *
 * MainFrame creates one without a parent, owns it and posts events to it. Whatever event arrives, of any
 * type, is answered with Mediator::handle_new_event() and reaches nothing else.
 */
class EventCatcher : public QObject
{
    Q_OBJECT

public:
    /** Lives on the calling thread. @p app is not owned; null makes MainFrame::new_event() post nothing. */
    explicit EventCatcher(QApplication* app);
    ~EventCatcher() override;

    /** Calls Mediator::handle_new_event() and returns true. */
    bool event(QEvent* e) override;

    QApplication* application;
};
