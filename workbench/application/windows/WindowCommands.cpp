// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/WindowCommands.h"

#include "frame/Ostrel.h"
#include "host/navigation/NavigationModel.h"
#include "journal/JournalEditor.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "workbench/application/windows/command_panel.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/component/shell_access.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/builtin_commands.h"
#include "workbench/sdk/core/files/write_whole_file.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QApplication>
#include <QBuffer>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fennar {

namespace {

using Kind = CommandParameter::Kind;
using Turn = std::function<void()>;
using Report = std::function<void(const QString&)>;

constexpr auto owner = "workbench"_L1;
constexpr auto command_names = {"show"_L1, "hide"_L1, "edit"_L1, "form"_L1, "picture"_L1};

/** How long, in milliseconds, a command waits for a window to come to the screen, and a picture for shapes.
 */
constexpr qint64 window_patience = 2000;
constexpr qint64 shape_patience = 30'000;
/** How long a command that waits rests between its looks. */
constexpr auto rest = 5ms;
/** The longest time, in seconds, until a picture. */
constexpr double longest_delay = 3600;

constexpr auto page_entity = "options page"_L1;

QStringList windows()
{
    return {u"main"_s, u"editor"_s, u"options"_s, u"plugins"_s, u"about"_s};
}

/** The window of that name; null if it has not been made yet. There must be a main window. */
QWidget* find_window(const QString& name)
{
    Ostrel* main = Ostrel::instance();
    if (name == "editor"_L1)
        return main->journal_editor();
    if (name == "options"_L1)
        return main->options();
    if (name == "about"_L1)
        return main->help_menu()->get_help_about_dialog();
    if (name == "plugins"_L1)
        return plugin_tool(main);
    if (name == "active"_L1) {
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal;
        if (QWidget* active = QApplication::activeWindow())
            return active;
    }
    return main;
}

/** The pages of the options dialog; none without a window. */
QStringList present_pages()
{
    const Ostrel* main = Ostrel::instance();
    return main ? option_pages(main->options()) : QStringList();
}

/** The page that has that place in the list; empty if none has. */
QString numbered_page(const QString& word)
{
    bool is_number = false;
    const int number = word.toInt(&is_number);
    return is_number && number >= 1 ? present_pages().value(number - 1) : QString();
}

/** Whether there is a main window; says so if there is none. */
bool has_window(CommandCall& call)
{
    if (Ostrel::instance())
        return true;
    call.print(u"There is no window; \"%1\" was passed over.\n"_s.arg(call.words()[0].text));
    return false;
}

/** Returns why it failed; empty if the whole picture is there. */
QString save_picture(QWidget* window, const QString& file)
{
    OutputRouter::instance().flush();
    QBuffer picture;
    QImageWriter writer(&picture, QFileInfo(file).suffix().toLower().toLatin1());
    const QString reason = writer.write(window->grab().toImage()) ? write_whole_file(file, {picture.data()})
                                                                  : writer.errorString();
    return reason.isEmpty() ? reason : u"the picture cannot be written to \"%1\": %2"_s.arg(file, reason);
}

QList<CommandFileFilter> picture_filters()
{
    return {{u"PNG"_s, u".png"_s}, {u"JPEG"_s, u".jpg"_s}};
}

CommandParameter window_parameter(const QStringList& choices, const QString& default_value = {})
{
    return {.name = u"WINDOW"_s,
            .kind = Kind::Choice,
            .label = QT_TRANSLATE_NOOP("CommandParameter", "Window"),
            .default_value = default_value,
            .choices = choices};
}

Command show_command()
{
    return {.name = u"show"_s,
            .summary = u"Shows a window, or a page of the options."_s,
            .help = u"main     the main window\n"
                    "editor   the journal editor\n"
                    "options  the options; PAGE is a name from their list, or its number in the list\n"
                    "plugins  the plugin tool\n"
                    "about    the version of the program"_s,
            .forms = {{.clauses = {required_value(window_parameter(windows()))},
                       .title = QT_TRANSLATE_NOOP("CommandParameter", "A window")},
                      {.clauses = {{.keyword = u"options"_s,
                                    .parameters = {{.name = u"PAGE"_s,
                                                    .kind = Kind::Entity,
                                                    .what = u"a page of the options"_s,
                                                    .label = QT_TRANSLATE_NOOP("CommandParameter", "Page"),
                                                    .entity = page_entity,
                                                    .by_number = true}}}},
                       .title = QT_TRANSLATE_NOOP("CommandParameter", "A page of the options")}}};
}

Command hide_command()
{
    return {.name = u"hide"_s,
            .summary = u"Closes a window other than the main window."_s,
            .help = u"The names are those of \"show\". What is not saved in the options is dropped."_s,
            .forms = {{.clauses = {required_value(window_parameter(windows().sliced(1)))}}}};
}

Command edit_command()
{
    return {
        .name = u"edit"_s,
        .summary = u"Opens a journal or a Python script in the journal editor."_s,
        .help = u"A line that is too long for the console is folded there, and has a number in its mark.\n"
                "The newest ten are kept."_s,
        .forms = {{.clauses = {required_value({.name = u"FILE"_s,
                                               .kind = Kind::InputFile,
                                               .what = u"the name of a journal file"_s,
                                               .label = QT_TRANSLATE_NOOP("CommandParameter", "Journal"),
                                               .filters = &journal_filters,
                                               .example = u"example.jou"_s})},
                   .title = QT_TRANSLATE_NOOP("CommandParameter", "A file")},
                  {.clauses = {{.keyword = u"line"_s,
                                .parameters = {{.name = u"NUMBER"_s,
                                                .kind = Kind::WholeNumber,
                                                .what = u"the number of a folded line"_s,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Line number"),
                                                .least = 1,
                                                .example = u"1"_s}}}},
                   .title = QT_TRANSLATE_NOOP("CommandParameter", "A folded line of the console")}}};
}

Command form_command()
{
    return {.name = u"form"_s,
            .summary = u"Shows a command in the command panel."_s,
            .forms = {{.clauses = {required_value({.name = u"COMMAND"_s,
                                                   .kind = Kind::Entity,
                                                   .what = u"a command"_s,
                                                   .label = QT_TRANSLATE_NOOP("CommandParameter", "Command"),
                                                   .entity = command_entity(),
                                                   .example = u"help"_s})}}}};
}

void verify_picture(const CommandArguments& arguments, const CommandEntities&)
{
    const QString ending = QFileInfo(arguments.text("FILE"_L1)).suffix().toLower();
    if (!QImageWriter::supportedImageFormats().contains(ending.toLatin1()))
        throw arguments.error(
            arguments.word("FILE"_L1),
            QT_TRANSLATE_NOOP("CommandError",
                              "the ending of the file tells no format of pictures, as .png or .jpg does"));
}

Command picture_command()
{
    return {.name = u"picture"_s,
            .summary = u"Writes a picture of a window."_s,
            .help =
                u"The ending of FILE selects the format, as .png or .jpg. Without \"of\" it is the main "
                u"window;\n"
                "the other names are those of \"show\", and \"active\" is the window that has the keyboard.\n"
                "The command waits until shapes that are still being made are in sight.\n"
                "With \"after\" it does not wait: the picture is taken so many seconds later, even if\n"
                "another command is running or a dialog is open then."_s,
            .forms = {{.clauses = {required_value({.name = u"FILE"_s,
                                                   .kind = Kind::OutputFile,
                                                   .what = u"the name of a picture file"_s,
                                                   .label = QT_TRANSLATE_NOOP("CommandParameter", "Picture"),
                                                   .filters = &picture_filters,
                                                   .example = u"window.png"_s}),
                                   {.keyword = u"of"_s,
                                    .parameters = {window_parameter(windows() << u"active"_s, u"main"_s)},
                                    .optional = true},
                                   {.keyword = u"after"_s,
                                    .parameters = {{.name = u"SECONDS"_s,
                                                    .kind = Kind::Number,
                                                    .what = u"a number of seconds"_s,
                                                    .label = QT_TRANSLATE_NOOP("CommandParameter", "Delay"),
                                                    .unit = u"s"_s,
                                                    .least = 0,
                                                    .most = longest_delay,
                                                    .example = u"0"_s}},
                                    .optional = true}},
                       .verify = &verify_picture}}};
}

/** Waits until the window is on the screen, where it has been laid out, and nothing in it is to come. */
void wait_until_complete(const CommandCall& call, const QWidget* window, const Turn& turn)
{
    const QDeadlineTimer window_deadline(window_patience);
    const QDeadlineTimer shape_deadline(shape_patience);
    const auto incomplete = [&] {
        return (!window->windowHandle()->isExposed() && !window_deadline.hasExpired()) ||
               (Scene::instance().is_awaited() && !shape_deadline.hasExpired());
    };
    turn();
    while (incomplete() && !call.interrupted()) {
        std::this_thread::sleep_for(rest);
        turn();
    }
}

void show_window(CommandCall& call, const CommandArguments& arguments, const Turn& turn)
{
    if (!has_window(call))
        return;
    const bool with_page = arguments.has("options"_L1);
    const QString name = with_page ? u"options"_s : arguments.text("WINDOW"_L1);
    Ostrel* main = Ostrel::instance();
    if (name == "editor"_L1) {
        main->tools_menu()->show_journal_editor();
    } else if (name == "plugins"_L1) {
        main->tools_menu()->show_component_tool();
    } else if (name == "options"_L1) {
        // Not modal, or the command would last until the user closes it.
        OptionsPanel* options = main->options();
        if (options->isHidden()) {
            options->refresh_settings();
            options->select_first();
            options->show();
        }
        if (with_page)
            options->show_panel(arguments.text("options"_L1));
    } else {
        if (name == "about"_L1)
            main->help_menu()->get_help_about_dialog()->finish_populating_dialog();
        find_window(name)->show();
        find_window(name)->raise();
    }
    wait_until_complete(call, find_window(name), turn);
}

void hide_window(CommandCall& call, const CommandArguments& arguments)
{
    if (!has_window(call))
        return;
    if (QWidget* window = find_window(arguments.text("WINDOW"_L1)); window && window->isVisible())
        window->close();
}

void edit(CommandCall& call, const CommandArguments& arguments, const Turn& turn)
{
    const bool folded = arguments.has("line"_L1);
    const QString name = arguments.text("FILE"_L1);
    const QFileInfo file(name);
    if (!folded && (!file.isFile() || !file.isReadable()))
        throw call.error(1, u"cannot read \"%1\""_s.arg(name));
    if (!has_window(call))
        return;
    const auto line =
        folded ? OutputRouter::instance().folded_line(arguments.integer("line"_L1)) : std::nullopt;
    if (folded && !line)
        throw call.error(2, u"there is no such line, or it is no longer kept"_s);
    Ostrel* main = Ostrel::instance();
    main->tools_menu()->show_journal_editor();
    if (folded)
        main->journal_editor()->add_document(*line);
    else
        main->journal_editor()->open_file(file.absoluteFilePath());
    wait_until_complete(call, main->journal_editor(), turn);
}

void show_form(CommandCall& call, const CommandArguments& arguments)
{
    if (!has_window(call))
        return;
    const QString name = arguments.text("COMMAND"_L1);
    Ostrel* main = Ostrel::instance();
    const QModelIndex entry = navigation_entries(*main->navigation_model()).value(name);
    if (!entry.isValid())
        throw call.error(1, u"the command panel has no entry for \"%1\""_s.arg(name));
    show_in_panel(*main, entry);
}

void take_picture(CommandCall& call, const CommandArguments& arguments, const Turn& turn,
                  const Report& report)
{
    if (!has_window(call))
        return;
    const QString file = arguments.text("FILE"_L1);
    const QString name = arguments.text("of"_L1);
    if (arguments.has("after"_L1)) {
        const auto delay = std::chrono::milliseconds(qint64(arguments.number("after"_L1) * 1000));
        // The current directory may be another one then.
        const QString path = QFileInfo(file).absoluteFilePath();
        QTimer::singleShot(delay, Ostrel::instance(), [=] {
            QWidget* window = find_window(name);
            if (!window || !window->isVisible())
                report(u"ERROR: picture: the window \"%1\" is not shown\n"_s.arg(name));
            else if (const QString failure = save_picture(window, path); !failure.isEmpty())
                report(u"ERROR: picture: %1\n"_s.arg(failure));
        });
        return;
    }
    QWidget* window = find_window(name);
    if (!window || !window->isVisible())
        throw call.error(0, u"the window is not shown; use \"show %1\" before"_s.arg(name));
    wait_until_complete(call, window, turn);
    if (const QString failure = save_picture(window, file); !failure.isEmpty())
        throw call.error(1, failure);
}

} // namespace

WindowCommands::WindowCommands(CommandRegistry& registry, const Turn& turn, const Report& report)
    : mRegistry(registry)
{
    // Without windows any page will do, since the command is passed over.
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        registry.entities().offer(page_entity, owner, &present_pages, &numbered_page);
    const auto with = [](Command command, const auto& perform) {
        command.perform = perform;
        return command;
    };
    registry.add_all(
        owner,
        {with(show_command(),
              [turn](auto& call, const auto& arguments) { show_window(call, arguments, turn); }),
         with(hide_command(), &hide_window),
         with(edit_command(), [turn](auto& call, const auto& arguments) { edit(call, arguments, turn); }),
         with(form_command(), &show_form),
         with(picture_command(), [turn, report](auto& call, const auto& arguments) {
             take_picture(call, arguments, turn, report);
         })});
}

WindowCommands::~WindowCommands()
{
    for (const QLatin1StringView name : command_names)
        mRegistry.remove(name);
}

} // namespace fennar
