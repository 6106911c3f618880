// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "boxes.h"
#include "support/TestCase.h"
#include "workbench/components/graphics/GraphicsView.h"
#include "workbench/components/graphics/OpenGlRenderer.h"
#include "workbench/components/graphics/paint_picture.h"

#include <QPalette>
#include <QTest>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

/** The two ways to draw, side by side. */
class TstOpenGlRenderer : public TestCase
{
    Q_OBJECT

private slots:
    void both_draw_the_same_picture_data();
    void both_draw_the_same_picture();
    void solid_without_edges_is_seen_without_surfaces();
    void changed_shape_is_drawn_anew();
    void picture_changes_its_size();
    void view_uses_it_where_there_is_a_display();
    void view_changes_over_and_shows_the_same();
};

void TstOpenGlRenderer::both_draw_the_same_picture_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<bool>("shaded");
    QTest::addColumn<bool>("mesh");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("draft");
    QTest::addColumn<bool>("ball");
    QTest::newRow("iso") << int(Camera::View::Iso) << true << false << 1.0 << false << false;
    QTest::newRow("front") << int(Camera::View::Front) << true << false << 1.0 << false << false;
    QTest::newRow("bottom") << int(Camera::View::Bottom) << true << false << 1.0 << false << false;
    QTest::newRow("edges alone") << int(Camera::View::Iso) << false << false << 1.0 << false << false;
    QTest::newRow("mesh") << int(Camera::View::Iso) << true << true << 1.0 << false << false;
    QTest::newRow("high resolution") << int(Camera::View::Iso) << true << false << 2.0 << false << false;
    QTest::newRow("curves") << int(Camera::View::Iso) << false << false << 1.0 << false << true;
    QTest::newRow("draft") << int(Camera::View::Iso) << true << false << 1.0 << true << false;
}

void TstOpenGlRenderer::both_draw_the_same_picture()
{
    QFETCH(const int, view);
    QFETCH(const bool, shaded);
    QFETCH(const bool, mesh);
    QFETCH(const double, ratio);
    QFETCH(const bool, draft);
    QFETCH(const bool, ball);
    Scene scene;
    add_box(scene, u"a"_s, {0, 0, 0}, {4, 3, 2});
    const int meshed = add_box(scene, u"b"_s, {4, 1, 1}, {2, 2, 2});
    const int selected = add_box(scene, u"c"_s, {-1, -1, 2}, {1, 1, 1.5});
    add_box(scene, u"crossing a"_s, {1, 0, 1}, {1, 1, 1});
    if (ball)
        scene.set_shape(scene.add(u"ball"_s), make_ball({-4, 0, 0}));
    scene.set_mesh(meshed, make_box({4, 1, 1}, {2, 2, 2}));
    scene.select({selected});
    Camera camera;
    camera.set_viewport({320, 240});
    camera.set_view(Camera::View(view));
    camera.fit(scene.box());
    DisplayOptions display;
    display.shaded = shaded;
    display.mesh = mesh;
    const Picture picture{scene, camera, display, ViewColors::fitting(QPalette()), ratio, draft};
    const auto opengl = OpenGlRenderer::create();
    QVERIFY(opengl);
    const QImage one = opengl->render(picture);
    const QImage other = paint_picture(picture);
    QCOMPARE(one.size(), (QSizeF(320, 240) * ratio).toSize());
    QCOMPARE(one.size(), other.size());
    QCOMPARE(one.devicePixelRatio(), ratio);
    int covered = 0;
    int outline = 0;
    int colors = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            covered += a.alpha() > 127;
            outline += (a.alpha() > 127) != (b.alpha() > 127);
            colors += a.alpha() > 127 && b.alpha() > 127 &&
                      std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                              std::abs(a.blue() - b.blue()) >
                          40;
        }
    }
    const QString found = u"%1 covered, outline %2, colors %3"_s.arg(covered).arg(outline).arg(colors);
    QVERIFY2(covered > (shaded ? 8000 : 500) * ratio, qPrintable(found));
    // Lines may lie half a pixel apart.
    QVERIFY2(outline < covered / (shaded ? 30 : 2), qPrintable(found));
    QVERIFY2(colors < covered / (shaded ? 15 : 2), qPrintable(found));
}

void TstOpenGlRenderer::solid_without_edges_is_seen_without_surfaces()
{
    Scene scene;
    scene.set_shape(scene.add(u"ball"_s), make_ball({0, 0, 0}));
    Camera camera;
    camera.set_viewport({200, 200});
    camera.fit(scene.box());
    const auto opengl = OpenGlRenderer::create();
    QVERIFY(opengl);
    for (const bool wireframe : {false, true}) {
        DisplayOptions display;
        display.shaded = false;
        display.wireframe = wireframe;
        const Picture picture{scene, camera, display, ViewColors::fitting(QPalette()), 1, false};
        const QImage one = opengl->render(picture);
        const QImage other = paint_picture(picture);
        int drawn = 0;
        int drawn_by_other = 0;
        int apart = 0;
        for (int y = 1; y < 199; ++y) {
            for (int x = 1; x < 199; ++x) {
                if (one.pixelColor(x, y).alpha() <= 127)
                    continue;
                ++drawn;
                int near = 0;
                for (int i = 0; i < 9; ++i)
                    near = std::max(near, other.pixelColor(x - 1 + i % 3, y - 1 + i / 3).alpha());
                apart += near < 64;
                drawn_by_other += other.pixelColor(x, y).alpha() > 63;
            }
        }
        const QString found = u"%1, by the other %2, apart %3"_s.arg(drawn).arg(drawn_by_other).arg(apart);
        QVERIFY2(wireframe ? drawn > 700 && drawn_by_other > drawn / 2 : drawn == 0, qPrintable(found));
        QVERIFY2(apart <= drawn / 50, qPrintable(found));
    }
}

void TstOpenGlRenderer::changed_shape_is_drawn_anew()
{
    Scene scene;
    const int id = add_box(scene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    Camera camera;
    camera.set_viewport({100, 100});
    camera.set_view(Camera::View::Front);
    camera.fit(scene.box());
    const auto opengl = OpenGlRenderer::create();
    QVERIFY(opengl);
    const auto draw = [&] {
        return opengl->render({scene, camera, {}, ViewColors::fitting(QPalette()), 1, false});
    };
    QCOMPARE(draw().pixelColor(50, 20).alpha(), 255);
    // Over and over, so that new shapes lie where old ones were.
    for (int i = 0; i < 20; ++i) {
        scene.set_shape(id, make_box({0, 0, 0}, {1, 1, i % 2 ? 2.0 : 1.0}));
        QCOMPARE(draw().pixelColor(50, 20).alpha(), i % 2 ? 255 : 0);
    }
    scene.remove(id);
    QCOMPARE(draw().pixelColor(50, 50).alpha(), 0);
}

void TstOpenGlRenderer::picture_changes_its_size()
{
    Scene scene;
    add_box(scene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    const auto opengl = OpenGlRenderer::create();
    QVERIFY(opengl);
    for (const QSize& size : {QSize(1, 1), QSize(333, 77), QSize(40, 500)}) {
        Camera camera;
        camera.set_viewport(size);
        camera.fit(scene.box());
        const QImage image = opengl->render({scene, camera, {}, ViewColors::fitting(QPalette()), 1, false});
        QCOMPARE(image.size(), size);
        QVERIFY(image.pixelColor(size.width() / 2, size.height() / 2).alpha() > 127);
    }
    Camera camera;
    camera.set_viewport({1e6, 10});
    QVERIFY(opengl->render({scene, camera, {}, ViewColors::fitting(QPalette()), 1, false}).isNull());
}

void TstOpenGlRenderer::view_uses_it_where_there_is_a_display()
{
    Scene scene;
    GraphicsState state(scene);
    {
        GraphicsView view(state);
        view.resize(300, 200);
        view.grab();
        QVERIFY(state.has_opengl());
    }
    QVERIFY(!state.has_opengl());
}

void TstOpenGlRenderer::view_changes_over_and_shows_the_same()
{
    Scene scene;
    add_box(scene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    GraphicsState state(scene);
    GraphicsView view(state);
    view.resize(300, 200);
    const QColor by_opengl = view.grab().toImage().pixelColor(150, 120);
    state.set_display({.opengl = false});
    const QColor by_painter = view.grab().toImage().pixelColor(150, 120);
    QVERIFY(!state.has_opengl());
    QVERIFY(std::abs(by_opengl.blue() - by_painter.blue()) < 8);
    state.set_display({});
    view.grab();
    QVERIFY(state.has_opengl());
}

OSTREL_TEST(TstOpenGlRenderer)
#include "tst_openglrenderer.moc"
