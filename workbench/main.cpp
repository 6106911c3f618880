// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/Translations.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/settings/SettingsFile.h"
#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/application/settings/settings_checks.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QScreen>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <optional>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Takes the places of standard streams that were closed when the program was started. The files that it
 * opens first would get them, and what is printed would go there. */
void hold_closed_streams()
{
#ifdef Q_OS_UNIX
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDONLY); // whoever prints is told that it cannot be
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
#endif
}

/** Whether the arguments are wrong for sure. Those that Qt takes out are known to it alone, so with one of
 * them nothing is sure before there is an application. */
bool are_wrong_arguments(int argc, char** argv)
{
    static const QStringList of_qt{
        u"platform"_s,  u"platformpluginpath"_s, u"platformtheme"_s, u"plugin"_s,     u"qwindowgeometry"_s,
        u"session"_s,   u"qwindowtitle"_s,       u"qwindowicon"_s,   u"reverse"_s,    u"qmljsdebugger"_s,
        u"display"_s,   u"geometry"_s,           u"style"_s,         u"stylesheet"_s, u"widgetcount"_s,
        u"fontengine"_s};
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words << QString::fromLocal8Bit(argv[i]);
        const QString name = words.last().section(u'=', 0, 0);
        if (name.startsWith(u'-') && of_qt.contains(name.mid(name.startsWith("--"_L1) ? 2 : 1)))
            return false;
    }
    return !CommandLine(words).error().isEmpty();
}

/** Whether the program can do what it was asked to without a display. */
bool works_without_display(int argc, char** argv)
{
    return are_wrong_arguments(argc, argv) || std::any_of(argv + 1, argv + argc, [](const char* word) {
               return !std::strcmp(word, "--batch") || !std::strcmp(word, "--check") ||
                      !std::strcmp(word, "--help") || !std::strcmp(word, "-h") ||
                      !std::strcmp(word, "--version");
           });
}

/** Whether there is a place for windows. Qt ends the program with a stack of messages where there is none. */
bool has_display(int argc, char** argv)
{
#ifdef Q_OS_LINUX
    const bool chosen = std::any_of(argv + 1, argv + argc, [](const char* word) {
        return !std::strcmp(word, "-platform") || !std::strcmp(word, "--platform");
    });
    return chosen || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    Q_UNUSED(argc)
    Q_UNUSED(argv)
    return true;
#endif
}

/** The absolute path of a file that the command line names; empty for none. */
QString from_here(const QString& file)
{
    return file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath();
}

/** The values for the journal's parameters. */
QList<JournalSetting> settings_of(const CommandLine& command_line)
{
    QList<JournalSetting> settings;
    for (const auto& [name, value] : command_line.parameters())
        settings.append({name, value});
    return settings;
}

/** Where the record of a batch run goes, which changes no directory before it plays. */
QString record_of(const CommandLine& command_line)
{
    const QString record = command_line.record();
    return record == CommandLine::standard_output ? record : from_here(record);
}

/** @param windows  whether there can be windows. */
std::unique_ptr<QCoreApplication> make_application(int& argc, char** argv, bool windows)
{
    QCoreApplication::setOrganizationName(u"ostrel"_s);
    QCoreApplication::setApplicationName(u"fennar"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(OSTREL_VERSION));
    std::unique_ptr<QCoreApplication> application;
    if (!windows) {
        application = std::make_unique<QCoreApplication>(argc, argv);
    } else {
        application = std::make_unique<QApplication>(argc, argv);
        QApplication::setWindowIcon(QIcon(u":/ostrelgui/images/light/fennar.svg"_s));
    }
    // The application object has taken the numbers of the user's language over for all of the C library.
    // Commands, Python and files have a decimal point in every language.
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

} // namespace

int main(int argc, char** argv)
{
    hold_closed_streams();
    const bool display = has_display(argc, argv);
    const bool windows = display && !works_without_display(argc, argv);
    const std::unique_ptr<QCoreApplication> application = make_application(argc, argv, windows);
    CommandLine& command_line = CommandLine::of_application();
    if (!command_line.error().isEmpty()) {
        std::fprintf(stderr, "fennar: %s\n%s", qPrintable(command_line.error()),
                     qPrintable(CommandLine::usage()));
        return 2;
    }
    if (command_line.help()) {
        std::fputs(qPrintable(CommandLine::usage()), stdout);
        return 0;
    }
    if (command_line.version()) {
        std::puts("fennar " OSTREL_VERSION);
        return 0;
    }
    if (!display && !command_line.batch_mode()) {
        std::fputs("fennar: there is no display; without one there is --batch --play FILE\n", stderr);
        return 1;
    }

    TemporaryFolder::remove_on_signals();
    QSettings::setDefaultFormat(settings_format());

    // What a batch run prints is read by programs, and stays English.
    std::optional<Translations> translations;
    if (!command_line.batch_mode())
        translations.emplace();

    // Before the main window goes to the directory of the last run.
    const QString model = from_here(command_line.file());
    const QString journal = from_here(command_line.journal());
    const QString check = from_here(command_line.check());

    std::optional<SettingsFile> settings;
    if (!command_line.settings().isEmpty())
        settings.emplace(command_line.settings());
    const QString settings_error = settings ? settings->error() : keep_unreadable_settings();
    Workbench workbench(settings ? settings->data_directory() : Workbench::default_data_directory());
    workbench.add_start_error(settings_error);
    if (!command_line.components())
        workbench.leave_components_out();
    if (!command_line.check().isEmpty())
        return workbench.check_batch(check);
    if (command_line.batch_mode()) {
        const int status = workbench.play_batch(
            {command_line.journal(), model, settings_of(command_line), record_of(command_line)});
        TemporaryFolder::end_by_caught_signal();
        return status;
    }
    if (!settings)
        workbench.add_start_error(tell_unwritable_settings());
    bound_settings(QGuiApplication::primaryScreen()->availableVirtualGeometry());
    workbench.load();
    workbench.start_later(model, journal, settings_of(command_line));
    workbench.run();
    workbench.unload();
    return 0;
}
