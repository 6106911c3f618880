// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/Ostrel.h"
#include "support/TestCase.h"

#include <memory>

namespace fennar {
class ConsoleOwner;
class Workbench;
} // namespace fennar

class CommandWidget;

/**
 * A test of the whole application: one workbench serves all functions of a class, since Python can be started
 * once in a process. The checks of TestCase are armed anew for each function; the windows that are open when
 * the workbench has been brought up may stay.
 */
class WorkbenchTest : public TestCase
{
    Q_OBJECT

protected:
    WorkbenchTest();
    ~WorkbenchTest() override;

    /** Called with the workbench before its window comes up. Does nothing here. */
    virtual void prepare(fennar::Workbench&) {}
    /** Called once, with the window active, before the first function. Does nothing here. */
    virtual void set_up_class() {}
    /** Called once, after the last function, while the window is still there. Does nothing here. */
    virtual void tear_down_class() {}
    /** Called once the window is gone. Does nothing here. */
    virtual void after_window() {}
    /** Called once the workbench is gone. Does nothing here. */
    virtual void after_workbench() {}

    /** The one workbench; to be used from set_up_class() to tear_down_class(). */
    fennar::Workbench& workbench() const { return *mWorkbench; }
    static Ostrel& window() { return *Ostrel::instance(); }
    /** The console's page for commands and Python. */
    CommandWidget* page() const;
    /** All that is on that page. */
    QString text() const;
    /** Runs a line on the cleared page and returns all that is on the page then. */
    QString enter(const QString& line);
    /** Types a line at the keyboard. */
    void type(const QString& line);
    /** Switches the console by keyboard. */
    void python_mode(bool on);
    /** Delivers what has been posted and deletes what waits for it. */
    static void flush();

protected slots:
    virtual void initTestCase() final;
    virtual void cleanupTestCase() final;

private:
    std::unique_ptr<fennar::Workbench> mWorkbench;
};

/** Runs a line where there is no console, and returns all that it has printed. */
QString run_line(const QString& line);
