// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/graphics/Camera.h"

#include <QRandomGenerator>
#include <QTest>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

namespace {

bool near(const Point3& a, const Point3& b, double tolerance = 1e-9)
{
    return length(a - b) <= tolerance;
}

bool near(const QPointF& a, const QPointF& b, double tolerance = 1e-6)
{
    return (a - b).manhattanLength() <= tolerance;
}

} // namespace

class TstCamera : public TestCase
{
    Q_OBJECT

private slots:
    void standard_views_are_exact_data();
    void standard_views_are_exact();
    void isometric_view_shows_the_axes_equally_long();
    void orbit_keeps_the_target_and_the_scale();
    void orbit_follows_the_hand();
    void orbit_stops_at_top_and_bottom();
    void standard_view_after_an_orbit_is_exact();
    void directions_stay_square_to_each_other();
    void pan_moves_the_picture_by_the_pixels();
    void zoom_keeps_the_point_at_the_cursor();
    void zoom_ignores_what_is_no_factor();
    void zoom_has_an_end_at_both_sides();
    void fit_contains_the_box_and_fills_the_view_data();
    void fit_contains_the_box_and_fills_the_view();
    void fit_of_a_point_or_nothing_comes_to_no_harm();
    void fit_works_far_from_the_origin();
    void resized_viewport_keeps_what_the_shorter_side_shows();
};

void TstCamera::standard_views_are_exact_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<QList<double>>("right");
    QTest::addColumn<QList<double>>("up");
    QTest::addColumn<QList<double>>("back");
    using List = QList<double>;
    const auto row = [](const char* name, Camera::View view, const List& right, const List& up,
                        const List& back) { QTest::newRow(name) << int(view) << right << up << back; };
    row("front", Camera::View::Front, {1, 0, 0}, {0, 0, 1}, {0, -1, 0});
    row("back", Camera::View::Back, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0});
    row("left", Camera::View::Left, {0, -1, 0}, {0, 0, 1}, {-1, 0, 0});
    row("right", Camera::View::Right, {0, 1, 0}, {0, 0, 1}, {1, 0, 0});
    row("top", Camera::View::Top, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    row("bottom", Camera::View::Bottom, {1, 0, 0}, {0, -1, 0}, {0, 0, -1});
}

void TstCamera::standard_views_are_exact()
{
    QFETCH(const int, view);
    QFETCH(const QList<double>, right);
    QFETCH(const QList<double>, up);
    QFETCH(const QList<double>, back);
    Camera camera;
    camera.set_view(Camera::View(view));
    QVERIFY((camera.right() == Point3{right[0], right[1], right[2]}));
    QVERIFY((camera.up() == Point3{up[0], up[1], up[2]}));
    QVERIFY((camera.back() == Point3{back[0], back[1], back[2]}));
}

void TstCamera::isometric_view_shows_the_axes_equally_long()
{
    Camera camera;
    camera.set_view(Camera::View::Front);
    camera.set_view(Camera::View::Iso);
    const double third = 1 / std::sqrt(3.0);
    QVERIFY(near(camera.back(), {third, -third, third}));
    QVERIFY(camera.up().z > 0);
}

void TstCamera::orbit_keeps_the_target_and_the_scale()
{
    Camera camera;
    camera.set_viewport({300, 200});
    camera.fit({{1, 2, 3}, {5, 6, 8}});
    const Point3 target = camera.target();
    const double unit = camera.units_per_pixel();
    for (int i = 0; i < 50; ++i)
        camera.orbit({7.0 * i, 3.0 - i});
    QVERIFY(camera.target() == target);
    QCOMPARE(camera.units_per_pixel(), unit);
    QVERIFY(near(camera.to_pixel(target), QPointF(150, 100)));
}

void TstCamera::orbit_follows_the_hand()
{
    Camera camera;
    camera.set_viewport({200, 200});
    camera.set_view(Camera::View::Front);
    const Point3 nearest{0, -1, 0};
    const QPointF before = camera.to_pixel(nearest);
    camera.orbit({10, 10});
    const QPointF after = camera.to_pixel(nearest);
    QVERIFY(after.x() > before.x());
    QVERIFY(after.y() > before.y());
}

void TstCamera::orbit_stops_at_top_and_bottom()
{
    Camera camera;
    camera.set_view(Camera::View::Front);
    camera.orbit({0, 10000});
    QVERIFY((camera.back() == Point3{0, 0, 1}));
    camera.orbit({0, -20000});
    QVERIFY((camera.back() == Point3{0, 0, -1}));
}

void TstCamera::standard_view_after_an_orbit_is_exact()
{
    Camera camera;
    camera.orbit({123.4, -56.7});
    camera.set_view(Camera::View::Right);
    QVERIFY((camera.back() == Point3{1, 0, 0}));
    QVERIFY((camera.up() == Point3{0, 0, 1}));
}

void TstCamera::directions_stay_square_to_each_other()
{
    QRandomGenerator random(4711);
    Camera camera;
    for (int i = 0; i < 1000; ++i) {
        camera.orbit({random.bounded(200.0) - 100, random.bounded(200.0) - 100});
        QVERIFY(std::abs(dot(camera.right(), camera.up())) < 1e-12);
        QVERIFY(std::abs(dot(camera.right(), camera.back())) < 1e-12);
        QVERIFY(near(cross(camera.right(), camera.up()), camera.back(), 1e-12));
        QVERIFY(std::abs(length(camera.back()) - 1) < 1e-12);
    }
}

void TstCamera::pan_moves_the_picture_by_the_pixels()
{
    Camera camera;
    camera.set_viewport({640, 480});
    const Point3 point{1, 2, 3};
    const QPointF before = camera.to_pixel(point);
    camera.pan({12, -34});
    QVERIFY(near(camera.to_pixel(point), before + QPointF(12, -34)));
}

void TstCamera::zoom_keeps_the_point_at_the_cursor()
{
    QRandomGenerator random(815);
    for (int i = 0; i < 200; ++i) {
        Camera camera;
        camera.set_viewport({640, 480});
        camera.orbit({random.bounded(200.0) - 100, random.bounded(60.0) - 30});
        const QPointF cursor(random.bounded(640.0), random.bounded(480.0));
        // A point that is shown there.
        const double unit = camera.units_per_pixel();
        const Point3 point = camera.target() + camera.right() * ((cursor.x() - 320) * unit) +
                             camera.up() * ((240 - cursor.y()) * unit) + camera.back() * 0.5;
        QVERIFY(near(camera.to_pixel(point), cursor));
        const double factor = 0.5 + random.bounded(1.5);
        camera.zoom(factor, cursor);
        QVERIFY(near(camera.to_pixel(point), cursor));
        QVERIFY(std::abs(camera.units_per_pixel() * factor / unit - 1) < 1e-9);
    }
}

void TstCamera::zoom_ignores_what_is_no_factor()
{
    Camera camera;
    const Camera before = camera;
    for (const double factor : {0.0, -2.0, qQNaN(), qInf()})
        camera.zoom(factor, {10, 10});
    QVERIFY(camera == before);
}

void TstCamera::zoom_has_an_end_at_both_sides()
{
    Camera camera;
    camera.set_viewport({100, 100});
    for (int i = 0; i < 2000; ++i)
        camera.zoom(2, {50, 50});
    QVERIFY(camera.units_per_pixel() > 0);
    for (int i = 0; i < 4000; ++i)
        camera.zoom(0.5, {50, 50});
    QVERIFY(std::isfinite(camera.units_per_pixel()));
    QVERIFY(std::isfinite(length(camera.target())));
}

void TstCamera::fit_contains_the_box_and_fills_the_view_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<QSizeF>("size");
    for (const int view : {0, 1, 2, 3, 4, 5, 6}) {
        QTest::addRow("view %d, wide", view) << view << QSizeF(900, 300);
        QTest::addRow("view %d, high", view) << view << QSizeF(200, 700);
    }
}

void TstCamera::fit_contains_the_box_and_fills_the_view()
{
    QFETCH(const int, view);
    QFETCH(const QSizeF, size);
    const Box3 box{{-1, 5, 10}, {3, 6, 30}};
    Camera camera;
    camera.set_viewport(size);
    camera.set_view(Camera::View(view));
    camera.fit(box);
    QVERIFY(camera.contains(box));
    camera.zoom(1.25, {size.width() / 2, size.height() / 2});
    QVERIFY(!camera.contains(box));
}

void TstCamera::fit_of_a_point_or_nothing_comes_to_no_harm()
{
    Camera camera;
    const Camera before = camera;
    camera.fit({});
    QVERIFY(camera == before);
    camera.fit({{1, 1, 1}, {1, 1, 1}});
    QVERIFY((camera.target() == Point3{1, 1, 1}));
    QVERIFY(camera.units_per_pixel() > 0);
    camera.set_viewport({0, -5});
    QCOMPARE(camera.viewport(), QSizeF(1, 1));
}

void TstCamera::fit_works_far_from_the_origin()
{
    const Box3 box{{1e7, 1e7, 1e7}, {1e7 + 1, 1e7 + 1, 1e7 + 1}};
    Camera camera;
    camera.set_viewport({500, 500});
    camera.fit(box);
    QVERIFY(camera.contains(box));
    QVERIFY(camera.units_per_pixel() < 0.01);
}

void TstCamera::resized_viewport_keeps_what_the_shorter_side_shows()
{
    Camera camera;
    camera.set_viewport({400, 200});
    const double extent = camera.units_per_pixel() * 200;
    camera.set_viewport({300, 600});
    QVERIFY(std::abs(camera.units_per_pixel() * 300 - extent) < 1e-9);
}

OSTREL_TEST(TstCamera)
#include "tst_camera.moc"
