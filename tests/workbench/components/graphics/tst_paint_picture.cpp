// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "boxes.h"
#include "support/TestCase.h"
#include "workbench/components/graphics/paint_picture.h"

#include <QPalette>
#include <QTest>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

namespace {

QPalette palette(bool dark)
{
    QPalette result;
    result.setColor(QPalette::Window, dark ? QColor(30, 30, 30) : QColor(240, 240, 240));
    result.setColor(QPalette::WindowText, dark ? QColor(240, 240, 240) : QColor(0, 0, 0));
    return result;
}

} // namespace

class TstPaintPicture : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void background_is_transparent_and_surface_is_not();
    void nearer_surface_hides_the_other_whatever_the_order();
    void surface_towards_the_light_is_lighter();
    void edges_are_seen_on_surfaces_and_hidden_behind_them();
    void options_decide_what_is_drawn();
    void solid_without_edges_is_seen_without_surfaces();
    void selected_item_has_another_color();
    void mesh_takes_the_place_of_the_surface();
    void ratio_makes_the_picture_larger_not_different();
    void draft_has_the_same_outline();
    void colors_stand_out_in_light_and_dark_schemes_data();
    void colors_stand_out_in_light_and_dark_schemes();
    void damaged_numbers_come_to_no_harm();
    void scene_is_drawn_whole_in_front_of_a_background();

private:
    QImage draw(double ratio = 1, bool draft = false)
    {
        return paint_picture({*mScene, mCamera, mDisplay, mColors, ratio, draft});
    }
    void look(Camera::View view)
    {
        mCamera.set_viewport({200, 100});
        mCamera.set_view(view);
        mCamera.fit(mScene->box());
    }
    QColor at(const QImage& image, const Point3& point) const
    {
        return image.pixelColor((mCamera.to_pixel(point) * image.devicePixelRatio()).toPoint());
    }
    static int count(const QImage& image, const QColor& color)
    {
        int result = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                result += image.pixelColor(x, y) == color;
        }
        return result;
    }

    std::unique_ptr<Scene> mScene;
    Camera mCamera;
    DisplayOptions mDisplay;
    ViewColors mColors;
};

void TstPaintPicture::set_up()
{
    mScene = std::make_unique<Scene>();
    mCamera = {};
    mDisplay = {};
    mColors = ViewColors::fitting(palette(false));
}

void TstPaintPicture::background_is_transparent_and_surface_is_not()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Front);
    const QImage image = draw();
    QCOMPARE(image.size(), QSize(200, 100));
    QCOMPARE(image.pixelColor(2, 50).alpha(), 0);
    QCOMPARE(image.pixelColor(100, 50).alpha(), 255);
    int solid = 0;
    for (int x = 0; x < 200; ++x)
        solid += image.pixelColor(x, 50).alpha() == 255;
    QVERIFY2(std::abs(solid - 85) <= 3, qPrintable(QString::number(solid))); // what fit() fills of the height
}

void TstPaintPicture::nearer_surface_hides_the_other_whatever_the_order()
{
    const int a = add_box(*mScene, u"a"_s, {0, -5, 0}, {2, 1, 2});
    const int b = add_box(*mScene, u"b"_s, {0, 5, 0}, {2, 1, 2});
    for (const bool first_selected : {true, false}) {
        mScene->select({first_selected ? a : b});
        look(Camera::View::Front);
        const QColor front = draw().pixelColor(100, 40);
        look(Camera::View::Back);
        const QColor back = draw().pixelColor(100, 40);
        const bool front_is_orange = front.red() > front.blue();
        QCOMPARE(front_is_orange, first_selected);
        QCOMPARE(back.red() > back.blue(), !first_selected);
    }
}

void TstPaintPicture::surface_towards_the_light_is_lighter()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Iso);
    const QImage image = draw();
    const int top = at(image, {0, 0, 1}).lightness();
    const int front = at(image, {0, -1, 0}).lightness();
    const int right = at(image, {1, 0, 0}).lightness();
    QVERIFY2(top > front && front > right, qPrintable(u"%1 %2 %3"_s.arg(top).arg(front).arg(right)));
}

void TstPaintPicture::edges_are_seen_on_surfaces_and_hidden_behind_them()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Iso);
    const QImage image = draw(3);
    const auto dark = [&](const Point3& point) { return at(image, point).lightness() < 90; };
    QVERIFY(dark({1, -1, 0.3}));  // the edge that is nearest
    QVERIFY(!dark({0.2, -1, 0})); // on a face, where no edge is
    mDisplay.shaded = false;
    const QImage bare = draw(3);
    // The edge that is farthest away is seen only without the surfaces.
    QVERIFY(at(bare, {-1, 1, -0.6}).alpha() > 200);
    QVERIFY(at(bare, {-1, 1, -0.6}).lightness() < 90);
    QVERIFY(!dark({-1, 1, -0.6}));
}

void TstPaintPicture::options_decide_what_is_drawn()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Iso);
    QVERIFY(count(draw(), mColors.edge) > 50);
    mDisplay.wireframe = false;
    QCOMPARE(count(draw(), mColors.edge), 0);
    QVERIFY(at(draw(), {0, 0, 1}).alpha() == 255);
    mDisplay.shaded = false;
    const QImage nothing = draw();
    QCOMPARE(count(nothing, QColor(0, 0, 0, 0)), 200 * 100);
}

void TstPaintPicture::solid_without_edges_is_seen_without_surfaces()
{
    const int id = mScene->add(u"ball"_s);
    mScene->set_shape(id, make_ball({100, 0, 0}));
    look(Camera::View::Front);
    QCOMPARE(count(draw(3), mColors.edge), 0); // its surface needs no curves
    mDisplay.shaded = false;
    const QImage bare = draw(3);
    // The outline at 45 degrees, the circle through the poles seen from the side, and that of the equator.
    const double part = std::sqrt(0.5);
    for (const Point3& point : {Point3{100 + part, 0, part}, Point3{100, 0, 0.5}, Point3{100.5, 0, 0}}) {
        int near = 0;
        for (const double step : {-0.02, -0.01, 0.0, 0.01, 0.02})
            near = std::max(near, at(bare, point + Point3{step, 0, step}).alpha());
        QVERIFY2(near > 200, qPrintable(u"%1 %2"_s.arg(point.x).arg(point.z)));
    }
    QCOMPARE(at(bare, {100.4, 0, 0.4}).alpha(), 0);
    mDisplay.wireframe = false;
    QCOMPARE(count(draw(3), QColor(0, 0, 0, 0)), 600 * 300);
    // A mesh has lines enough.
    mScene->set_mesh(id, make_box({100, 0, 0}, {0.5, 0.5, 0.5}));
    mDisplay.wireframe = true;
    mDisplay.mesh = true;
    QCOMPARE(at(draw(3), {100, 0, 0.5}).alpha(), 0);
}

void TstPaintPicture::selected_item_has_another_color()
{
    const int id = add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Top);
    QVERIFY(at(draw(), {0.4, 0, 1}).blue() > at(draw(), {0.4, 0, 1}).red());
    mScene->select({id});
    QVERIFY(at(draw(), {0.4, 0, 1}).red() > at(draw(), {0.4, 0, 1}).blue());
    QCOMPARE(count(draw(), mColors.edge), 0);
    QVERIFY(count(draw(), mColors.selected_edge) > 50);
}

void TstPaintPicture::mesh_takes_the_place_of_the_surface()
{
    const int id = add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    mScene->set_mesh(id, make_box({0, 0, 0}, {1, 1, 1}));
    look(Camera::View::Top);
    mDisplay.mesh = false;
    QCOMPARE(count(draw(), mColors.mesh_line), 0);
    mDisplay.mesh = true;
    QVERIFY(count(draw(), mColors.mesh_line) > 50);
    QCOMPARE(at(draw(), {0.8, 0, 1}).alpha(), 0);
    const QColor mesh = at(draw(), {0.1, 0.2, 1});
    QVERIFY(mesh.green() > mesh.blue() && mesh.green() > mesh.red());
}

void TstPaintPicture::ratio_makes_the_picture_larger_not_different()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Iso);
    const QImage one = draw(1);
    const QImage two = draw(2);
    QCOMPARE(two.size(), QSize(400, 200));
    QCOMPARE(two.devicePixelRatio(), 2.0);
    for (const Point3& point : {Point3{0, 0, 1}, Point3{0, -1, 0}, Point3{1, 0, 0}})
        QCOMPARE(at(two, point), at(one, point));
    // Lines are twice as wide in pixels of the device.
    const auto line_width = [this](const QImage& image) {
        const double ratio = image.devicePixelRatio();
        const QPoint middle = (mCamera.to_pixel({1, -1, 0}) * ratio).toPoint();
        int width = 0;
        for (int x = middle.x() - 10; x < middle.x() + 10; ++x)
            width += image.pixelColor(x, middle.y()).lightness() < 90;
        return width;
    };
    QVERIFY(line_width(one) >= 1 && line_width(one) <= 2);
    QVERIFY(line_width(two) >= 2 && line_width(two) <= 4);
    QVERIFY(line_width(two) > line_width(one));
}

void TstPaintPicture::draft_has_the_same_outline()
{
    add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    look(Camera::View::Iso);
    const QImage smooth = draw(1, false);
    const QImage draft = draw(1, true);
    QCOMPARE(draft.size(), smooth.size());
    int different = 0;
    int covered = 0;
    for (int y = 0; y < smooth.height(); ++y) {
        for (int x = 0; x < smooth.width(); ++x) {
            covered += draft.pixelColor(x, y).alpha() > 127;
            different += (smooth.pixelColor(x, y).alpha() > 127) != (draft.pixelColor(x, y).alpha() > 127);
        }
    }
    QVERIFY(covered > 2000);
    QVERIFY2(different * 20 < covered, qPrintable(QString::number(different)));
}

void TstPaintPicture::colors_stand_out_in_light_and_dark_schemes_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void TstPaintPicture::colors_stand_out_in_light_and_dark_schemes()
{
    QFETCH(const bool, dark);
    const ViewColors colors = ViewColors::fitting(palette(dark));
    QCOMPARE(colors.top.lightness() < 128, dark);
    QCOMPARE(colors.bottom.lightness() < 128, dark);
    for (const QColor& color : {colors.edge, colors.mesh_line})
        QCOMPARE(color.lightness() > 128, dark);
    const auto apart = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    };
    for (const QColor& ground : {colors.top, colors.bottom}) {
        for (const QColor& color : {colors.solid, colors.mesh, colors.selected, colors.edge})
            QVERIFY(apart(ground, color) > 60);
    }
    QVERIFY(apart(colors.solid, colors.edge) > 150);
    QVERIFY(apart(colors.solid, colors.selected) > 150);
    QVERIFY(apart(colors.mesh, colors.mesh_line) > 150);
    QVERIFY(apart(colors.selected, colors.selected_edge) > 100);
}

void TstPaintPicture::damaged_numbers_come_to_no_harm()
{
    const int id = add_box(*mScene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    auto shape = std::make_shared<SceneShape>();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float huge = std::numeric_limits<float>::max();
    shape->corners = {{nan, 0, 0}, {0, nan, 0}, {0, 0, nan}, {-huge, 0, 0}, {huge, 0, 0}, {0, huge, huge}};
    shape->normals.assign(6, {nan, nan, nan});
    shape->lines = {{nan, 0, 0}, {1, 1, 1}, {-huge, -huge, 0}, {huge, huge, huge}};
    look(Camera::View::Iso);
    mScene->set_shape(mScene->add(u"bad"_s), shape);
    const QImage image = draw();
    QCOMPARE(image.size(), QSize(200, 100));
    QVERIFY(mScene->items().contains(id));
}

void TstPaintPicture::scene_is_drawn_whole_in_front_of_a_background()
{
    const ViewColors colors = ViewColors::light();
    const QImage empty = draw_scene(*mScene, {120, 80});
    QCOMPARE(empty.size(), QSize(120, 80));
    QCOMPARE(empty.pixelColor(60, 0), colors.top);
    QVERIFY(empty.pixelColor(60, 79).lightness() < empty.pixelColor(60, 0).lightness());

    add_box(*mScene, u"a"_s, {100, 0, 0}, {20, 20, 20});
    const QImage drawn = draw_scene(*mScene, {120, 80});
    QVERIFY(drawn.pixelColor(60, 40) != empty.pixelColor(60, 40));
    QVERIFY(!drawn.hasAlphaChannel());
    for (int x = 0; x < drawn.width(); ++x) {
        QCOMPARE(drawn.pixelColor(x, 0), empty.pixelColor(x, 0));
        QCOMPARE(drawn.pixelColor(x, 79), empty.pixelColor(x, 79));
    }
    QCOMPARE(draw_scene(*mScene, {1, 1}).size(), QSize(1, 1));
}

OSTREL_TEST(TstPaintPicture)
#include "tst_paint_picture.moc"
