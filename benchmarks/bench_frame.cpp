// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What the frame costs: one event through the event filter, and bringing the main window up.

#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

template <class Work>
double seconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

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
    std::vector<double> runs;
    for (int run = 0; run < 9; ++run) {
        runs.push_back(seconds([&] {
            for (int call = 0; call < calls; ++call)
                swallowed += filter.eventFilter(watched, &event);
        }));
    }
    const double nanoseconds = median(runs) / calls * 1e9;
    std::printf("one filtered event, ten levels deep | - | %.1f ns | - | <= 300 ns%s\n", nanoseconds,
                swallowed == 9 * calls ? "" : " (not swallowed)");
}

template <class Make>
double bring_up(Make make)
{
    std::unique_ptr<QWidget> window;
    const double time = seconds([&] {
        window = make();
        window->show();
        QCoreApplication::processEvents();
    });
    window->hide();
    return time;
}

void start()
{
    const auto empty_window = [] {
        auto window = std::make_unique<QMainWindow>();
        window->setCentralWidget(new QWidget);
        window->resize(1016, 819);
        return window;
    };
    const auto main_window = [] { return std::make_unique<Ostrel>(); };

    // Once each for what a process loads only once: fonts, style, image formats.
    bring_up(empty_window);
    bring_up(main_window);
    std::vector<double> yardstick;
    std::vector<double> runs;
    for (int run = 0; run < 25; ++run) {
        yardstick.push_back(bring_up(empty_window));
        runs.push_back(bring_up(main_window));
    }
    const double time = median(runs);
    const double ratio = time / median(yardstick);
    std::printf("main window made, shown and painted | empty QMainWindow | %.2f ms | %.2f x | <= 6 x\n",
                time * 1e3, ratio);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
    QCoreApplication::setOrganizationName(u"ostrel-bench"_s);
    QCoreApplication::setApplicationName(u"ostrel-bench"_s);
    const QApplication application(argc, argv);

    std::printf("work | yardstick | time | ratio | aim\n");
    filtered_event();
    start();
    return 0;
}
