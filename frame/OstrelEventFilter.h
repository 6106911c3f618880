// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>

#include <set>

/**
 * Runs the event queue while a command keeps the GUI thread busy, with the user's input swallowed.
 *
 * Commands run on the GUI thread. To keep the window painted and the cancel button alive, the framework calls
 * back now and then, and processEvents() then runs what is waiting. What the user has typed or clicked
 * meanwhile is lost for good, unless it is aimed at an allowed object or a child of one. Everything else
 * passes: painting, timers, closing, posted events. Between runs the filter has no effect at all.
 *
 * The main window creates and owns the one instance. GUI thread only.
 */
class OSTRELGUI_EXPORT OstrelEventFilter : public QObject
{
    Q_OBJECT

public:
    OstrelEventFilter();
    ~OstrelEventFilter() override;

    /**
     * Runs the event queue once, with this filter on the application.
     *
     * May be called from inside a handler that it runs. Each level puts the filter in place and takes it
     * away; so once an inner run has ended, the rest of the outer one goes unfiltered (docs/surprises.md).
     *
     * An exception from an event handler passes through. The filter is then gone as usual, and the run does
     * not count for the interval.
     *
     * A handler may destroy the filter, and so the main window. The rest of the run goes unfiltered then.
     *
     * @param force  false does nothing within 0.5 seconds of the start of the last run.
     */
    void processEvents(bool force);

    /**
     * Lets input to @p object and to everything below it pass. A second time makes no difference.
     *
     * The object is not owned. One that is deleted is allowed no more, and need not be removed. Null is
     * harmless.
     */
    void addObject(QObject* object);
    /** Takes back addObject(). An object that is not allowed is ignored. */
    void removeObject(QObject* object);

protected:
    /** Runs the event queue as processEvents() does, always, and without counting for the interval. */
    void do_process();
    /** Returns true, which swallows @p event, if it is user input not aimed at a window or an allowed object.
     */
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::set<QObject*> mAllowed;
    double mLastProcess;
};
