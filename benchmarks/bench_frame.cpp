// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What the frame costs: one event through the event filter, one progress update, and bringing the main window
// up.

#include "bench.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "plain_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QProcess>
#include <QSettings>
#include <QSplashScreen>
#include <QTemporaryDir>
#include <QWindow>

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

std::unique_ptr<QMainWindow> plain_window_with_all()
{
    return plain_window(true);
}

std::unique_ptr<QMainWindow> plain_window_as_seen()
{
    return plain_window(false);
}

using Make = std::unique_ptr<QMainWindow> (*)();

const std::pair<QLatin1StringView, Make> windows[] = {
    {"empty"_L1, empty_window},
    {"main"_L1, main_window},
    {"plain"_L1, plain_window_with_all},
    {"seen"_L1, plain_window_as_seen},
};

/** How long it takes to make a window, to show it and to paint it, until nothing is left to do for it. */
double bring_up(Make make)
{
    std::unique_ptr<QMainWindow> window;
    const double time = bench::seconds([&] {
        window = make();
        window->show();
        QAbstractEventDispatcher* const events = QAbstractEventDispatcher::instance();
        while (!window->windowHandle()->isExposed())
            events->processEvents(QEventLoop::WaitForMoreEvents);
        // Layouts are asked for again while the window comes up, and so is painting.
        while (events->processEvents(QEventLoop::AllEvents)) {
        }
    });
    window->hide();
    return time;
}

/** The same for the first window of a process of its own, which main() runs for these arguments. */
double bring_up_first(QLatin1StringView kind, const QStringList& more)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), QStringList{u"--first"_s, kind} + more);
    const bool finished = process.waitForFinished();
    bool is_number = false;
    const double time = process.readAllStandardOutput().trimmed().toDouble(&is_number);
    if (!finished || !is_number)
        qFatal("the process for the first window failed: %s", process.readAllStandardError().constData());
    return time;
}

/** What comes before the main window: the splash screen with its picture and text, and the console's font. */
void show_splash()
{
    QSplashScreen splash(QPixmap(u":/ostrelgui/images/halvane_fennar.png"_s));
    splash.show();
    splash.showMessage(u"Loading"_s);
    splash.close();
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
    QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);
}

/** One row against the empty window, and one against the window that consists of the same parts. */
template <typename BringUp>
void compare_start(const char* what, int rounds, BringUp&& bring_up_kind)
{
    constexpr double aim = 6;
    constexpr double own_aim = 1.1;
    const auto runs = [&](QLatin1StringView kind) {
        return [&bring_up_kind, kind] { return bring_up_kind(kind); };
    };
    const QByteArray row = QByteArrayLiteral("starting, ") + what;
    bench::compare(row.constData(), aim, runs("empty"_L1), runs("main"_L1), rounds);
    bench::compare((row + ", against plain Qt").constData(), own_aim, runs("plain"_L1), runs("main"_L1),
                   rounds);
    const auto [all, seen] = bench::medians(runs("plain"_L1), runs("seen"_L1), rounds);
    std::printf("Plain Qt, %s: the parts of the main window %.2f ms, only those that are seen %.2f ms.\n",
                what, all * 1e3, seen * 1e3);
}

void start()
{
    // Whatever is the first of its kind in a process costs more: the first text makes Qt read the list of
    // fonts, the first picture makes it load its plugins for pictures. The empty window has neither.
    compare_start("first thing on the screen", 15,
                  [](QLatin1StringView kind) { return bring_up_first(kind, {}); });
    // The usual order: see MainFrame.
    compare_start("behind a splash screen", 15,
                  [](QLatin1StringView kind) { return bring_up_first(kind, {u"--splash"_s}); });
    compare_start("another window in the same process", 25, [](QLatin1StringView kind) {
        for (const auto& [name, make] : windows) {
            if (name == kind)
                return bring_up(make);
        }
        return 0.0;
    });
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
        if (arguments.contains(u"--splash"_s))
            show_splash();
        for (const auto& [name, make] : windows) {
            if (name == arguments.value(2))
                std::printf("%.9f\n", bring_up(make));
        }
        return 0;
    }
    filtered_event();
    progress_update();
    start();
    return 0;
}
