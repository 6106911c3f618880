// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Busy.h"
#include "Monkey.h"
#include "acts.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/OutputHandler.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"

#include <QAction>
#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

// --- Output

void prints_a_line(Monkey& monkey)
{
    if (OutputHandler* const output = host().command_window)
        output->print_data(monkey.fresh_text() + u'\n');
}

void prints_a_part_of_a_line(Monkey& monkey)
{
    if (OutputHandler* const output = host().command_window)
        output->print_data(monkey.fresh_text());
}

void prints_a_prompt(Monkey& monkey)
{
    if (OutputHandler* const output = host().command_window)
        output->print_prompt(monkey.one_in(3), monkey.one_in(3) ? "  " : nullptr);
}

void shows_a_command(Monkey& monkey)
{
    if (OutputHandler* const output = host().command_window)
        output->print_command(monkey.fresh_text());
}

void writes_into_the_command(Monkey& monkey)
{
    OutputHandler* const output = host().command_window;
    if (!output)
        return;
    if (monkey.one_in(2))
        output->append_command(monkey.fresh_text());
    else
        output->insert_command(monkey.fresh_text());
}

void locks_or_unlocks_the_console(Monkey& monkey)
{
    if (OutputHandler* const output = host().command_window)
        output->set_read_only(monkey.one_in(3));
}

void clears_the_console(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->command_line()->clear_contents();
}

void changes_the_limits_of_the_console(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window()) {
        if (monkey.one_in(2))
            window->command_line()->set_cmd_max_lines(monkey.below(20));
        else
            window->command_line()->set_other_max_lines(monkey.below(20));
    }
}

void changes_the_mode(Monkey& monkey)
{
    host().python_mode = !host().python_mode;
    if (Ostrel* const window = monkey.window())
        window->command_line()->set_python_mode(host().python_mode);
}

// --- Work

void starts_work(Monkey& monkey)
{
    monkey.world().frame().start_progress_session("work", monkey.below(2));
}

void goes_on_with_work(Monkey& monkey)
{
    monkey.world().frame().update_progress_session("work", monkey.below(120));
}

void ends_work(Monkey& monkey)
{
    monkey.world().frame().end_progress_session("work");
}

void tells_how_work_goes(Monkey& monkey)
{
    monkey.world().frame().set_status_text(qPrintable(monkey.fresh_text()));
}

void lets_work_be_canceled_or_not(Monkey& monkey)
{
    monkey.world().frame().enable_cancel(monkey.one_in(2));
}

void checks_for_an_interrupt(Monkey& monkey)
{
    monkey.world().frame().check_interrupt_session(nullptr);
}

void announces_work(Monkey& monkey)
{
    monkey.world().frame().new_event();
}

void lets_events_happen(Monkey& /*monkey*/)
{
    QCoreApplication::processEvents();
}

void pauses_or_resumes_playback(Monkey& monkey)
{
    host().playback_paused = !host().playback_paused;
    host().resume_refused = monkey.one_in(4);
    if (Ostrel* const window = monkey.window())
        window->tools_menu()->pause_action()->setChecked(host().playback_paused);
}

void tells_of_a_component(Monkey& monkey)
{
    using Notice = void (ComponentTracker::*)(const char*);
    static const std::vector<Notice> notices{
        &ComponentTracker::component_loading, &ComponentTracker::component_loaded,
        &ComponentTracker::component_unloading, &ComponentTracker::component_unloaded};
    const Notice notice = monkey.one_of(notices);
    const char* const name = monkey.component().name;
    for (ComponentTracker* const tracker : std::vector(host().trackers)) {
        const auto& registered = host().trackers;
        if (std::find(registered.begin(), registered.end(), tracker) != registered.end())
            (tracker->*notice)(name);
    }
}

// --- The window

void unloads_the_window(Monkey& monkey)
{
    // Too often, and nothing else would happen.
    if (!monkey.window() || !monkey.one_in(3) || Busy::with_anything())
        return;
    monkey.note(u"done"_s);
    monkey.world().unload();
    if (monkey.one_in(2))
        monkey.world().load();
}

void loads_the_window(Monkey& monkey)
{
    monkey.world().load();
}

void saves_the_settings(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->save_settings();
}

void shows_or_ends_the_splash_screen(Monkey& monkey)
{
    MainFrame& frame = monkey.world().frame();
    if (monkey.one_in(2))
        frame.start_splash(nullptr);
    else
        frame.finish_splash();
    frame.show_splash_message("own");
}

void names_the_window(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window()) {
        window->set_title(monkey.fresh_text());
        window->set_prompt(monkey.fresh_text());
    }
}

void names_the_current_file(Monkey& monkey)
{
    OstrelFileMenu::set_file_name(monkey.one_in(3) ? QString() : monkey.file_name());
    if (Ostrel* const window = monkey.window())
        window->update_title();
}

void changes_the_directory(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->file_menu()->user_changed_directory(monkey.file_name());
}

void remembers_a_file(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    if (monkey.one_in(2))
        window->file_menu()->recent_file(monkey.file_name());
    else
        window->file_menu()->recent_import(u"import \""_s + monkey.file_name() + u'"');
}

void asks_about_unsaved_data_or_not(Monkey& monkey)
{
    OstrelFileMenu::set_save_prompt(!monkey.one_in(4));
    JournalEditor::set_save_prompt(!monkey.one_in(4));
}

void changes_the_command_panel(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    switch (monkey.below(3)) {
    case 0:
        window->setUsingButtonRows(!window->usingButtonRows());
        break;
    case 1:
        window->setPanelButtonWidth(1 + monkey.below(50));
        break;
    default:
        window->setUsingLargeButtonIcons(monkey.one_in(2));
        break;
    }
}

} // namespace

const std::vector<Act>& host_acts()
{
    static const std::vector<Act> acts{
        {"prints a line", prints_a_line, true},
        {"prints a part of a line", prints_a_part_of_a_line},
        {"prints a prompt", prints_a_prompt},
        {"shows a command", shows_a_command},
        {"writes into the command", writes_into_the_command},
        {"locks or unlocks the console", locks_or_unlocks_the_console},
        {"clears the console", clears_the_console},
        {"changes the limits of the console", changes_the_limits_of_the_console},
        {"changes the mode", changes_the_mode},
        {"starts work", starts_work, true},
        {"goes on with work", goes_on_with_work, true},
        {"ends work", ends_work},
        {"tells how work goes", tells_how_work_goes},
        {"lets work be canceled or not", lets_work_be_canceled_or_not},
        {"checks for an interrupt", checks_for_an_interrupt, true},
        {"announces work", announces_work},
        {"lets events happen", lets_events_happen, true},
        {"pauses or resumes playback", pauses_or_resumes_playback},
        {"tells of a component", tells_of_a_component},
        {"unloads the window", unloads_the_window, true},
        {"loads the window", loads_the_window, true},
        {"saves the settings", saves_the_settings},
        {"shows or ends the splash screen", shows_or_ends_the_splash_screen, true},
        {"names the window", names_the_window},
        {"names the current file", names_the_current_file},
        {"changes the directory", changes_the_directory},
        {"remembers a file", remembers_a_file},
        {"asks about unsaved data or not", asks_about_unsaved_data_or_not},
        {"changes the command panel", changes_the_command_panel},
    };
    return acts;
}
