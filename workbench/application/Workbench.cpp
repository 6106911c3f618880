// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/Workbench.h"

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/FileLineEdit.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/Mediator.h"
#include "host/ostrelfw/OutputHandler.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/component_manager/component_commands.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/LineInterpreter.h"
#include "workbench/application/journals/JournalFiles.h"
#include "workbench/application/playback/JournalPlayer.h"
#include "workbench/application/playback/RunRecord.h"
#include "workbench/application/python/apply_python_paths.h"
#include "workbench/application/python/python_literal.h"
#include "workbench/application/search/gather_entries.h"
#include "workbench/application/windows/ColorScheme.h"
#include "workbench/application/windows/FirstSize.h"
#include "workbench/application/windows/WindowCommands.h"
#include "workbench/application/windows/WindowParts.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/host/ostrelfw/HostMediator.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/scene/Scene.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <QAction>
#include <QApplication>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Nothing else would link the resources of a static library. Not in a namespace, as Qt demands.
static void init_resources()
{
    Q_INIT_RESOURCE(workbench);
}

namespace fennar {

namespace {

/** The field for a file in the forms of commands. */
QWidget* make_file_field(QWidget* parent, bool open, const QList<CommandFileFilter>& filters)
{
    auto* field = new FileLineEdit(parent);
    field->set_open_dialog(open);
    for (const CommandFileFilter& filter : filters)
        field->add_filter(filter.name, filter.extension);
    return field;
}

QWidget* open_form(const QString& command, const QString& title)
{
    auto* dialog = new_command_dialog(command, plain_menu_text(title), Ostrel::instance());
    dialog->show();
    dialog->activateWindow();
    return dialog;
}

/** How often, in milliseconds, work that goes on gives the shell its turn. */
constexpr qint64 turn_interval = 50;

/** How long a paused journal rests between its looks at the user's input. */
constexpr auto pause_interval = 10ms;

/** Leaves the file's error flag set if the text could not be written. */
void print_to(std::FILE* file, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
}

} // namespace

QString Workbench::default_data_directory()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

Workbench::Workbench(const QString& data_directory)
    : mDataDirectory(data_directory),
      mStart({[this](const auto& done) { mWithComponents ? mComponents->start(done) : done(); },
              [this](const QString& line, const auto& then) { mConsole->run_line(line, then); },
              [this](const QString& text) { report_error(text); }})
{
    init_resources();
    mComponents =
        std::make_unique<ComponentManager>(Fennar::instance().interpreter(), mDataDirectory + u"/loading"_s);
    mComponents->set_report([this](const QString& text) { report_error(text); });
    set_up_commands();
    set_up_python();
    HostMediator::instance().set_exit_handler([this] { end_run(); });
    HostMediator::instance().set_event_handler([] { PythonRuntime::deliver_output(); });
    OutputRouter::instance().set_window_listener([this](OutputHandler* window) { set_console(window); });
    mLastTurn.start();
}

Workbench::~Workbench()
{
    mComponents.reset();
    mScheme.reset();
    mWindowCommands.reset();
    PythonRuntime::stop();
    set_form_services({});
    Fennar::instance().application() = {};
    OutputRouter::instance().set_window_listener(nullptr);
    HostMediator::instance().set_event_handler(nullptr);
    HostMediator::instance().set_exit_handler(nullptr);
}

void Workbench::set_up_commands()
{
    Fennar& fennar = Fennar::instance();
    // A command that prints can be watched and cancelled, whether or not it tells its progress.
    fennar.interpreter().set_output([this](const QString& text) {
        if (!mQuiet)
            Broker::command << text;
        give_turn();
    });
    fennar.interpreter().set_error_output([this](const QString& text) { report_error(text); });
    fennar.services().history = [this] { return mConsole ? mConsole->history().entries() : QStringList(); };
    fennar.services().quit = [this] { quit(); };
    fennar.application() = {&mFrame, [this] { give_turn(); }, &open_form};
    fennar.playback().set_progress(
        [this](const QString& journal, int percent) { show_progress(journal, percent); });
    fennar.playback().set_echo([this](const QString& line) { echo(line); });
    fennar.playback().set_turn([this] { give_turn(); });
    fennar.playback().set_wait([this] {
        OutputRouter::instance().flush();
        std::this_thread::sleep_for(pause_interval);
        mFrame.check_interrupt_session(nullptr);
    });
    fennar.playback().set_python_hook([this](const Playback::PythonScript& script) {
        PythonScriptFailure failure;
        const bool done = PythonRuntime::run_file(script.path, script.source, script.piece, &failure);
        if (!done && mRecord)
            mRecord->add_script_failure(script.path, failure);
        return done;
    });
    fennar.playback().set_change_directory([] { return Broker::instance()->change_dir_on_playback(); });
    mWindowCommands = std::make_unique<WindowCommands>(
        fennar.registry(),
        [this] {
            mFrame.check_interrupt_session(nullptr);
            pass_interrupt_on();
        },
        [this](const QString& text) { report_error(text); });
    mScheme = std::make_unique<ColorScheme>(fennar.registry());
    set_form_services({&fennar.registry(), &fennar.interpreter().variables(), &make_file_field});
    register_component_commands(fennar.registry(), *mComponents);
    register_select_command(fennar.registry(), Scene::instance());
}

void Workbench::set_up_playback()
{
    Ostrel* window = Ostrel::instance();
    JournalEditor* editor = window->journal_editor();
    Playback& playback = Fennar::instance().playback();
    mConsole->offer_pages(editor);
    // The two have one font. When the window was built, the console had none of its own yet.
    editor->set_editor_font(window->command_line()->get_font());
    mPlayer = std::make_unique<JournalPlayer>(window, mConsole.get(), playback,
                                              [this](const QString& command) { run_panel_command(command); });
    playback.set_hints(true);
    // A pause may be over because the journal is.
    playback.set_pause_changed(
        [action = window->tools_menu()->pause_action()](bool paused) { action->setChecked(paused); });
    mCloseGuard.watch(window, [this] {
        stop_running();
        return true;
    });
    mCloseGuard.watch(editor, [editor] { return asks_before_it_closes(editor); });
}

void Workbench::add_start_error(const QString& error)
{
    if (!error.isEmpty())
        mErrors << error;
}

bool Workbench::load()
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        mScheme->restore();
    const FirstSize while_loading;
    mFrame.start_splash(":/workbench/splash.png");
    wait_for_windows();
    mFrame.show_splash_message(
        qUtf8Printable(QCoreApplication::translate("Workbench", "Loading the main window")));
    const bool loaded = mFrame.load_gui();
    mFrame.finish_splash();
    if (!loaded)
        return false;
    {
        const std::scoped_lock lock(mFrameMutex);
        mAnnounce = true;
    }
    // What Python's threads have written before could not be announced.
    PythonRuntime::deliver_output();
    set_command_sink([this](const QString& command) { run_panel_command(command); });
    mScheme->add_to_menu(Ostrel::instance());
    // Once all pages have written theirs.
    QObject::connect(
        Ostrel::instance()->options(), &OptionsPanel::saveSettings, Ostrel::instance(),
        [this] { check_settings(); }, Qt::QueuedConnection);
    set_up_playback();
    // Before components look at journals: what is not saved whole counts as unsaved when these are told.
    mParts = std::make_unique<WindowParts>(
        Ostrel::instance(), mConsole.get(),
        WindowParts::Services{[this](const QString& command) { run_panel_command(command); },
                              [this](const QString& name) { write_command(name); },
                              [this](const QString& text) { report_error(text); }});
    // The pages of components come below it and go with them; the group stays. Its name sorts behind the
    // pages of the shell, since the dialog opens on the first.
    Ostrel::instance()->options()->add_panel(QCoreApplication::translate("Workbench", "Plugins"), nullptr);
    tell_of_start();
    mConsole->prompt();
    Ostrel::instance()->set_focus_to_command_window();
    mStart.begin();
    return true;
}

void Workbench::run()
{
    mFrame.run_application();
}

void Workbench::unload()
{
    {
        const std::scoped_lock lock(mFrameMutex);
        mAnnounce = false;
    }
    mComponents->unload_all();
    set_command_sink(nullptr);
    Fennar::instance().playback().set_pause_changed(nullptr);
    Fennar::instance().playback().set_hints(false);
    mPlayer.reset();
    if (Ostrel* window = Ostrel::instance())
        mScheme->remove_from_menu(window);
    mParts.reset();
    mFrame.unload_gui();
    check_settings();
}

void Workbench::check_settings()
{
    // Another object, since a failure of before stays with one.
    QSettings now;
    now.sync();
    if (now.status() != QSettings::AccessError)
        return;
    const QString text =
        u"ERROR: the settings cannot be written in \"%1\", and are as they were before\n"_s.arg(
            now.fileName());
    mConsole ? report_error(text) : print_to(stderr, text);
}

void Workbench::start_later(const QString& model, const QString& journal,
                            const QList<JournalSetting>& parameters)
{
    mStart.add(model, journal, parameters);
}

int Workbench::play_batch(const BatchJob& job)
{
    // A signal may come before anything runs.
    const InterruptScope scope;
    const bool json = job.record == CommandLine::standard_output;
    return run_batch(json ? stderr : stdout, [&] {
        return play_job(
            job, mRecord, [this](const QString& text) { report_error(text); }, [this] { return mQuitting; });
    });
}

int Workbench::check_batch(const QString& journal)
{
    return run_batch(stdout, [&] {
        CommandInterpreter& interpreter = Fennar::instance().interpreter();
        try {
            check_file(interpreter, journal);
        } catch (...) {
            // No column: nobody has typed a line.
            if (const CommandError error = CommandError::caught(); !error.is_reported())
                interpreter.report(error.message());
            return 1;
        }
        return 0;
    });
}

int Workbench::run_batch(std::FILE* output, const std::function<int()>& work)
{
    begin_without_window([output](const QString& text) { print_to(output, text); });
    const int status = work();
    end_without_window();
    // That "quit" has stopped the journal it stands in is what was asked for.
    if (status != 0)
        print_to(stderr, mHeldBack.join(QString()));
    if (std::ferror(output)) {
        print_to(stderr, u"ERROR: the output could not be written\n"_s);
        return 1;
    }
    return status;
}

void Workbench::tell_of_start()
{
    mErrors << apply_python_paths(Framework::user_python_interpreter());
    for (const QString& text : std::exchange(mErrors, {}))
        report_error(text);
}

void Workbench::set_console(OutputHandler* window)
{
    mConsole.reset();
    auto* console = dynamic_cast<CommandWindow*>(window);
    if (!console)
        return;
    mConsole = std::make_unique<ConsoleOwner>(console, mDataDirectory + u"/history"_s);
    mConsole->set_interpreters(mCommands.get(), mPython.get());
    mConsole->set_busy_handler([this](bool busy) { set_busy(busy); });
    mConsole->set_mode_handler([](bool python) { Fennar::instance().set_python_mode(python); });
}

void Workbench::report_error(const QString& text)
{
    if (mRecord)
        mRecord->add_error(text);
    if (!mConsole) {
        if (mProcess.error_output)
            mProcess.error_output(text);
        else if (mQuitting)
            mHeldBack << text;
        else
            print_to(stderr, text);
        return;
    }
    Broker::command << text;
    mConsole->report_error(text);
}

void Workbench::echo(const QString& line, bool by_python)
{
    // A journal can be made of the page's commands. What Python has run of one is indented: the line that it
    // runs within is there already.
    const bool python = by_python || (mConsole && mConsole->python_mode());
    const bool inner = python && Fennar::instance().interpreter().is_running();
    // As output and not as a command of the window: a journal of many lines then reaches the page in few
    // pieces. With the prompt of commands also in Python mode.
    OutputRouter::instance().print_line((inner ? u"  "_s : QString()) + command_prompt + line);
}

void Workbench::announce_output()
{
    // Called on a thread of Python's: the window must not go meanwhile.
    const std::scoped_lock lock(mFrameMutex);
    if (mAnnounce)
        mFrame.new_event();
}

void Workbench::set_busy(bool busy)
{
    OutputRouter::instance().set_gathering(busy);
    mFrame.enable_cancel(busy);
    mWork.reset();
    if (busy)
        mWork.emplace();
    mInterruptsPassedOn = 0;
    mCloseGuard.set_running(busy);
    if (mParts)
        mParts->set_busy(busy);
}

void Workbench::show_progress(const QString& journal, int percent)
{
    const QByteArray title = journal.toUtf8();
    if (percent == 0)
        mFrame.start_progress_session(title.constData(), 1);
    else if (percent == 100)
        mFrame.end_progress_session(title.constData());
    else
        mFrame.update_progress_session(title.constData(), percent);
}

void Workbench::give_turn()
{
    if (mLastTurn.elapsed() < turn_interval)
        return;
    // Both before and after: what the turn lets in may print, and a long turn must not be followed by the
    // next.
    mLastTurn.start();
    OutputRouter::instance().flush();
    mFrame.check_interrupt_session(nullptr);
    if (mProcess.turn)
        mProcess.turn();
    pass_interrupt_on();
    mLastTurn.start();
}

void Workbench::pass_interrupt_on()
{
    // Each request once: code that cleans up after one must be able to finish.
    const int requests = interrupt_requests();
    if (requests > std::exchange(mInterruptsPassedOn, requests))
        PythonRuntime::request_interrupt();
}

void Workbench::run_panel_command(const QString& command)
{
    // The panel offers commands in Python mode, too.
    mConsole->run_line(mConsole->python_mode() ? u"fennar.cmd(%1)"_s.arg(python_literal(command)) : command);
}

void Workbench::write_command(const QString& name)
{
    CommandWidget* page = mConsole->command_page();
    const QString text = name + u' ';
    if (mConsole->python_mode()) {
        page->insertInCommand(u"fennar.cmd(%1)"_s.arg(python_literal(text)));
        QTextCursor caret = page->textCursor();
        caret.movePosition(QTextCursor::Left, QTextCursor::MoveAnchor, 2); // before quote and parenthesis
        page->setTextCursor(caret);
    } else {
        page->insertInCommand(text);
    }
    Ostrel::instance()->set_focus_to_command_window();
}

void Workbench::quit()
{
    mQuitting = true;
    Fennar::instance().playback().stop();
    if (!mConsole)
        return;
    mConsole->forget_waiting();
    // The command that asks for it must have ended before the window goes.
    QTimer::singleShot(0, Ostrel::instance(), &QWidget::close);
}

void Workbench::stop_running()
{
    Fennar::instance().playback().stop();
    request_interrupt();
    if (mConsole)
        mConsole->forget_waiting();
}

void Workbench::end_run()
{
    mQuitting = true;
    stop_running();
    mFrame.end_application();
}

} // namespace fennar
