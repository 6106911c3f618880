// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a user waits for who starts the workbench: from the start of the process until its window has been
// painted and a key would arrive behind the prompt. The yardstick is a process that shows an empty main
// window.
//
// The same plug-in stops the time in both processes, which do not know of it.

#include "bench.h"

#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const auto show_empty_window = u"--empty"_s;

double now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/** How long @p program takes from its start to the mark of the plug-in. */
double run(const QString& program, const QStringList& arguments, const QString& prompt, bool idle)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(START_MARK_DIRECTORY));
    environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"startmark"_s);
    environment.insert(u"OSTREL_BENCH_PROMPT"_s, prompt);
    environment.insert(u"OSTREL_BENCH_IDLE"_s, idle ? u"1"_s : u"0"_s);
    process.setProcessEnvironment(environment);
    const double start = now();
    process.start(program, arguments);
    const bool finished = process.waitForFinished();
    bool is_number = false;
    const double end = process.readAllStandardOutput().trimmed().toDouble(&is_number);
    if (!finished || !is_number) {
        qFatal("%s has not come up: %s", qPrintable(program), process.readAllStandardError().constData());
    }
    return end - start;
}

double empty_window()
{
    return run(QCoreApplication::applicationFilePath(), {show_empty_window}, {}, false);
}

double workbench(const QStringList& more, bool idle)
{
    // As after an installation.
    const QTemporaryDir home;
    const QStringList arguments{u"--settings"_s, home.filePath(u"settings.ini"_s)};
    return run(QStringLiteral(FENNAR), arguments + more, u"Fennar>"_s, idle);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    bench::ignore_platform_warnings();
    if (argc > 1) {
        const QApplication application(argc, argv);
        QMainWindow window;
        window.setCentralWidget(new QWidget);
        window.resize(1016, 819);
        // The workbench's window is, if the screen is small.
        if (QGuiApplication::primaryScreen()->size().width() > 1026)
            window.show();
        else
            window.showMaximized();
        return QApplication::exec();
    }

    const QCoreApplication application(argc, argv);
    // So that the window is there before the wait is felt, which people say of a tenth of a second.
    constexpr double aim = 5;
    constexpr int rounds = 15;
    bench::compare(
        "start to a usable prompt, no components", aim, empty_window,
        [] { return workbench({u"--no-components"_s}, false); }, rounds);
    bench::compare(
        "start to a usable prompt, components to come", aim, empty_window,
        [] { return workbench({}, false); }, rounds);
    std::vector<double> times;
    times.reserve(5);
    for (int round = 0; round < 5; ++round)
        times.push_back(workbench({}, true));
    std::printf("All components of the workbench are there %.0f ms after its start.\n",
                bench::median(times) * 1e3);
    return 0;
}
