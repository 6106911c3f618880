// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/**
 * The graphical shell as the framework sees it; the shell's MainFrame implements it.
 *
 * The order of the virtual functions is part of the interface. All texts are UTF-8 and are copied during the
 * call. Except for new_event(), everything is called on the GUI thread.
 */
class OstrelGUI
{
public:
    // The host's library has the body, and by that the class's type information.
    virtual ~OstrelGUI();

    /** Whether the main window exists. */
    virtual bool is_loaded() = 0;
    /**
     * Builds and shows the main window, connects the console and reads the navigation files.
     *
     * A QApplication must exist. To be called once only.
     *
     * @return is_loaded(): false if there is no QApplication.
     */
    virtual bool load_gui() = 0;
    /** Takes the main window down. Must be called before the object is destroyed; nothing works after it. */
    virtual void unload_gui() = 0;
    /**
     * Announces that work is waiting: Mediator::handle_new_event() will be called once on the GUI thread.
     *
     * May be called from any thread. Does nothing before load_gui().
     */
    virtual void new_event() = 0;
    /** Runs the event loop until end_application(). Returns at once if load_gui() has found no application.
     */
    virtual void run_application() = 0;
    /** Ends the event loop. */
    virtual void end_application() = 0;

    /**
     * Starts to show the progress of a piece of work. Ignored while another session is running.
     *
     * @param title    the session's name, which its updates and its end must repeat.
     * @param process  not 0 to run waiting events once.
     */
    virtual void start_progress_session(const char* title, int process) = 0;
    /** Shows @p percent (above 100 counts as 100) if @p title is the running session's name. */
    virtual void update_progress_session(const char* title, int percent) = 0;
    /** Ends the session if @p title is its name. */
    virtual void end_progress_session(const char* title) = 0;
    /** Runs waiting events with user input swallowed, so that the user can press cancel. @p title is not
     * used. */
    virtual void check_interrupt_session(const char* title) = 0;
    /** Puts @p text before the percentage in the progress bar; null counts as empty. */
    virtual void set_status_text(const char* text) = 0;
    /** Enables the cancel button, or takes one such request back. Requests nest. */
    virtual void enable_cancel(bool on) = 0;

    /**
     * Shows a splash screen unless the user has switched it off or one is up.
     *
     * @param file  the path of the picture; one that cannot be read gives an empty splash screen.
     */
    virtual void start_splash(const char* file) = 0;
    /** Shows @p text on the splash screen, if one is up. */
    virtual void show_splash_message(const char* text) = 0;
    /** Takes the splash screen down, if one is up. */
    virtual void finish_splash() = 0;
};
