// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/OstrelGUI.h"

#include <memory>

class EventCatcher;
class Ostrel;
class QApplication;
struct MainFramePrivate;

/**
 * The shell's entry object: what the framework creates after loading the library, and all that it sees of it.
 *
 * The framework creates and owns it. The usual order is start_splash(), load_gui(), finish_splash(),
 * run_application(), unload_gui(), destruction. It may exist before any application object does; until
 * load_gui() has found a QApplication, the application, progress and status operations do nothing.
 *
 * GUI thread only, but for new_event().
 */
class OSTRELGUI_EXPORT MainFrame : public OstrelGUI, public ComponentTracker
{
public:
    MainFrame();
    /** Takes down a splash screen that is still up. Does not delete the main window: call unload_gui() first.
     */
    ~MainFrame() override;

    /** Whether the main window exists. */
    bool is_loaded() override;
    /**
     * Builds and shows the main window, makes the console the framework's output, reads the navigation files,
     * prints what the reader has to say, and registers as a component tracker. While there is a window it
     * does nothing. After unload_gui() it warns and does nothing: another MainFrame can bring the interface
     * up again, and should only do so then, since there is one main window at a time.
     *
     * Without a QApplication nothing is built, but the tracker is registered all the same.
     *
     * @return is_loaded(); false if what it calls has called unload_gui().
     */
    bool load_gui() override;
    /**
     * Undoes load_gui() and deletes the splash screen. Afterwards the object is good for destruction only:
     * it cannot be loaded again.
     */
    void unload_gui() override;
    /** Posts one event to the GUI thread; each call leads to one Mediator::handle_new_event(). Does nothing
     * unless loaded. May come from any thread, but not while load_gui() or unload_gui() runs. */
    void new_event() override;
    /** Runs the event loop until it is ended. Returns at once unless load_gui() has found a QApplication. */
    void run_application() override;
    /**
     * Ends the event loop. Does nothing unless load_gui() has found a QApplication.
     *
     * Qt first asks every window that is still open to close, so an open main window saves its settings and
     * calls Mediator::request_exit(), and may refuse.
     */
    void end_application() override;

    /** Starts to show progress, and runs waiting events once if @p process is not 0. This and the next five
     * do nothing while there is no main window. */
    void start_progress_session(const char* title, int process) override;
    /** Shows @p percent if @p title is the running session's. */
    void update_progress_session(const char* title, int percent) override;
    /** Ends the session if it is the running one. */
    void end_progress_session(const char* title) override;
    /** Runs the event queue with user input swallowed, however short the time since the last run. @p title is
     * not used. */
    void check_interrupt_session(const char* title) override;
    /** Puts @p text (UTF-8, null counts as empty) before the percentage in the progress bar. */
    void set_status_text(const char* text) override;
    /** Enables the cancel button, or takes one such request back. */
    void enable_cancel(bool on) override;

    /**
     * Shows a splash screen, on top of all windows.
     *
     * Nothing happens if the user has switched it off, if one is up, after unload_gui(), or without a
     * QApplication. load_gui() is not needed.
     *
     * @param file  path of the picture, in UTF-8. One that cannot be read, or null, gives an empty splash
     * screen.
     */
    void start_splash(const char* file) override;
    /** Shows @p text (UTF-8) in white at the bottom of the splash screen. Does nothing if none is up. */
    void show_splash_message(const char* text) override;
    /** Closes and deletes the splash screen. Does nothing if none is up. */
    void finish_splash() override;

    /**
     * Looks again at the navigation entries that wait for a component, and has the main window emit
     * Ostrel::componentLoaded(). Without a main window only the former happens, after unload_gui() nothing.
     */
    void component_loaded(const char* name) override;

private:
    bool build_window();

    std::unique_ptr<MainFramePrivate> mPrivate;
    QApplication* mApplication;
    EventCatcher* mEventCatcher;
    Ostrel* mMainWindow;
};
