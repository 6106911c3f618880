// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// How long a picture of 100,000 triangles takes while the view turns, with both ways to draw. OpenGL needs a
// display: ./bench runs this under a virtual one, where a driver in software does the work.

#include "bench.h"
#include "workbench/components/graphics/GraphicsView.h"
#include "workbench/components/graphics/OpenGlRenderer.h"
#include "workbench/components/graphics/pick.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QWindow>

#include <cmath>
#include <cstdio>
#include <numbers>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

namespace {

/** 20 pictures in a second. */
constexpr double aim_ms = 50;

/** Part of a torus with 2 * around * along triangles, and one line in ten. */
std::shared_ptr<SceneShape> make_torus(double distance, int around, int along)
{
    auto shape = std::make_shared<SceneShape>();
    shape->origin = {distance, 0, 0};
    const auto corner = [&](int i, int j, bool normal) {
        const double u = 2 * std::numbers::pi * i / around;
        const double v = 2 * std::numbers::pi * j / along;
        const double reach = normal ? std::cos(v) : 2 + 0.8 * std::cos(v);
        return QVector3D(float(reach * std::cos(u)), float(reach * std::sin(u)),
                         float((normal ? 1 : 0.8) * std::sin(v)));
    };
    for (int i = 0; i < around; ++i) {
        for (int j = 0; j < along; ++j) {
            for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}}) {
                shape->corners.push_back(corner(i + di, j + dj, false));
                shape->normals.push_back(corner(i + di, j + dj, true));
            }
            if ((i + j) % 10 == 0) {
                shape->lines.push_back(corner(i, j, false));
                shape->lines.push_back(corner(i + 1, j, false));
            }
        }
    }
    shape->update_box();
    return shape;
}

/** Turns the view as a mouse does, and tells how long one picture takes on the way, in milliseconds. */
double turn(GraphicsView& view)
{
    constexpr int pictures = 20;
    const auto send = [&view](QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons buttons) {
        const QPointF place(x, 300);
        QMouseEvent event(type, place, view.mapToGlobal(place), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    };
    send(QEvent::MouseButtonPress, 100, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, 140, Qt::NoButton, Qt::LeftButton);
    view.repaint();
    const double time = bench::seconds([&] {
        for (int i = 0; i < pictures; ++i) {
            send(QEvent::MouseMove, 150 + 10 * i, Qt::NoButton, Qt::LeftButton);
            view.repaint();
        }
    });
    send(QEvent::MouseButtonRelease, 150 + 10 * pictures, Qt::LeftButton, Qt::NoButton);
    return time / pictures * 1e3;
}

void print(const char* work, double milliseconds, double aim)
{
    std::printf("%s\t%.1f ms\t\t%.1f ms\t%g ms\n", work, milliseconds, milliseconds, aim);
    std::fflush(stdout);
}

double median_turn(GraphicsView& view)
{
    std::vector<double> times;
    times.reserve(5);
    turn(view);
    for (int round = 0; round < 5; ++round)
        times.push_back(turn(view));
    return bench::median(times);
}

} // namespace

int main(int argc, char** argv)
{
    bench::ignore_platform_warnings();
    const QApplication application(argc, argv);
    Scene scene;
    for (int i = 0; i < 5; ++i)
        scene.set_shape(scene.add(u"torus"_s), make_torus(6.0 * i, 200, 50));
    GraphicsState state(scene);
    GraphicsView view(state);
    view.resize(1000, 700);
    view.show();
    state.set_view(Camera::View::Iso);
    // Nothing is painted before the window system shows the window.
    const QDeadlineTimer patience(10'000);
    while (!view.windowHandle()->isExposed() && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    view.repaint();

    if (state.has_opengl()) {
        print("turning 100,000 triangles, OpenGL", median_turn(view), aim_ms);
        std::printf("OpenGL was %s.\n", qPrintable(OpenGlRenderer::create()->device()));
    } else {
        std::printf("There was no OpenGL to measure.\n");
    }
    state.set_display({.opengl = false});
    view.repaint();
    print("turning 100,000 triangles, painter", median_turn(view), aim_ms);

    std::vector<double> times;
    times.reserve(9);
    for (int i = 0; i < 9; ++i)
        times.push_back(bench::seconds([&] { pick(scene, state.camera(), {}, {500.0 + i, 350}); }) * 1e3);
    print("a click on 100,000 triangles", bench::median(times), aim_ms);
    return 0;
}
