// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What the frame costs: one event through the event filter, one progress update, and bringing the main window
// up.

#include "bench.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"

#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class OpenFilter : public OstrelEventFilter
{
public:
    using OstrelEventFilter::eventFilter;
};

void filtered_event()
{
    OpenFilter filter;
    QObject allowed[2];
    for (QObject& object : allowed)
        filter.addObject(&object);
    QObject top;
    QObject* watched = &top;
    for (int level = 1; level < 10; ++level)
        watched = new QObject(watched);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);

    constexpr int calls = 1'000'000;
    int swallowed = 0;
    bench::measure("one filtered event, ten levels deep", 300, [&] {
        swallowed = 0;
        return bench::seconds([&] {
                   for (int call = 0; call < calls; ++call)
                       swallowed += filter.eventFilter(watched, &event);
               }) /
               calls;
    });
    if (swallowed != calls)
        qFatal("the filter let the event pass");
}

void progress_update()
{
    constexpr int calls = 1'000'000;
    MainFrame frame;
    frame.load_gui();
    frame.start_progress_session("Meshing", 0);
    frame.update_progress_session("Meshing", 40);
    bench::measure("a progress update that changes nothing", 100, [&] {
        return bench::seconds([&] {
                   for (int call = 0; call < calls; ++call)
                       frame.update_progress_session("Meshing", 40);
               }) /
               calls;
    });
    frame.end_progress_session("Meshing");
    frame.unload_gui();
}

std::unique_ptr<QMainWindow> empty_window()
{
    auto window = std::make_unique<QMainWindow>();
    window->setCentralWidget(new QWidget);
    window->resize(1016, 819);
    return window;
}

std::unique_ptr<QMainWindow> main_window()
{
    return std::make_unique<Ostrel>();
}

/** How long it takes to make a window, to show it and to paint it. */
double bring_up(std::unique_ptr<QMainWindow> (*make)())
{
    std::unique_ptr<QMainWindow> window;
    const double time = bench::seconds([&] {
        window = make();
        window->show();
        QCoreApplication::processEvents();
    });
    window->hide();
    return time;
}

/** The same for the first window of a process of its own, which main() runs for these @p arguments. */
double bring_up_first(const QStringList& arguments)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    const bool finished = process.waitForFinished();
    bool is_number = false;
    const double time = process.readAllStandardOutput().trimmed().toDouble(&is_number);
    if (!finished || !is_number)
        qFatal("the process for the first window failed: %s", process.readAllStandardError().constData());
    return time;
}

void start()
{
    constexpr double aim = 6;
    // The first text of a process makes Qt load the list of fonts, and the empty window has no text.
    bench::compare(
        "starting, first window of its process", aim,
        [] {
            return bring_up_first({u"--first"_s, u"empty"_s});
        },
        [] {
            return bring_up_first({u"--first"_s, u"main"_s});
        },
        15);
    // As MainFrame::load_gui() does it, which registers the console's font before it makes the window.
    bench::compare(
        "starting, first window, console font registered", aim,
        [] {
            return bring_up_first({u"--first"_s, u"empty"_s, u"--font"_s});
        },
        [] {
            return bring_up_first({u"--first"_s, u"main"_s, u"--font"_s});
        },
        15);
    bench::compare(
        "starting, another window in the same process", aim, [] { return bring_up(empty_window); },
        [] { return bring_up(main_window); }, 25);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    bench::ignore_platform_warnings();
    const QTemporaryDir home;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
    QCoreApplication::setOrganizationName(u"ostrel-bench"_s);
    QCoreApplication::setApplicationName(u"ostrel-bench"_s);
    const QApplication application(argc, argv);

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--first"_L1) {
        if (arguments.contains(u"--font"_s))
            QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);
        std::printf("%.9f\n", bring_up(arguments.value(2) == "main"_L1 ? main_window : empty_window));
        return 0;
    }
    filtered_event();
    progress_update();
    start();
    return 0;
}
