// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "boxes.h"
#include "support/TestCase.h"
#include "workbench/components/graphics/GraphicsView.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

class TstGraphicsView : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void click_asks_for_a_selection();
    void click_with_control_adds_and_takes_away();
    void drag_orbits_and_selects_nothing();
    void middle_drag_pans();
    void wheel_zooms_at_the_cursor();
    void keys_orbit_pan_and_zoom();
    void new_shapes_are_brought_into_sight_until_the_user_looks_elsewhere();
    void selection_and_palette_are_seen_at_once();
    void painter_draws_where_there_is_no_display();
    void resolution_of_the_device_is_used();
    void view_counts_as_a_viewer();
    void picture_is_kept_until_something_changes();

private:
    QPointF at(const Point3& point) const { return mState->camera().to_pixel(point); }
    void drag(Qt::MouseButton button, const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(mView.get(), button, {}, from);
        // QTest::mouseMove() presses no button.
        for (const QPoint& point : {(from + to) / 2, to}) {
            QMouseEvent event(QEvent::MouseMove, point, mView->mapToGlobal(point), Qt::NoButton, button, {});
            QCoreApplication::sendEvent(mView.get(), &event);
        }
        QTest::mouseRelease(mView.get(), button, {}, to);
    }

    std::unique_ptr<Scene> mScene;
    std::unique_ptr<GraphicsState> mState;
    std::unique_ptr<GraphicsView> mView;
    std::unique_ptr<QSignalSpy> mCommands;
    int mLeft = 0;
    int mRight = 0;
};

void TstGraphicsView::set_up()
{
    mScene = std::make_unique<Scene>();
    mState = std::make_unique<GraphicsState>(*mScene);
    mView = std::make_unique<GraphicsView>(*mState);
    mView->resize(400, 300);
    mView->grab();
    mLeft = add_box(*mScene, u"left"_s, {-2, 0, 0}, {2, 2, 2});
    mRight = add_box(*mScene, u"right"_s, {2, 0, 0}, {2, 2, 2});
    mState->set_view(Camera::View::Front);
    mCommands = std::make_unique<QSignalSpy>(mView.get(), &GraphicsView::command_wanted);
}

void TstGraphicsView::tear_down()
{
    mCommands.reset();
    mView.reset();
    mState.reset();
    mScene.reset();
}

void TstGraphicsView::click_asks_for_a_selection()
{
    QTest::mouseClick(mView.get(), Qt::LeftButton, {}, at({-2, 0, 0}).toPoint());
    QCOMPARE(mCommands->size(), 1);
    QCOMPARE(mCommands->last().first().toString(), u"select left"_s);
    // The command decides, not the click.
    QCOMPARE(mScene->selection(), QStringList());
    mScene->select({mLeft});
    QTest::mouseClick(mView.get(), Qt::LeftButton, {}, at({-2, 0, 0}).toPoint());
    QCOMPARE(mCommands->size(), 1);
    QTest::mouseClick(mView.get(), Qt::LeftButton, {}, at({0, 0, 0}).toPoint());
    QCOMPARE(mCommands->last().first().toString(), u"select none"_s);
    mScene->select({});
    QTest::mouseClick(mView.get(), Qt::LeftButton, {}, at({0, 0, 0}).toPoint());
    QTest::mouseClick(mView.get(), Qt::RightButton, {}, at({2, 0, 0}).toPoint());
    QCOMPARE(mCommands->size(), 2);
}

void TstGraphicsView::click_with_control_adds_and_takes_away()
{
    mScene->select({mLeft});
    QTest::mouseClick(mView.get(), Qt::LeftButton, Qt::ControlModifier, at({2, 0, 0}).toPoint());
    QCOMPARE(mCommands->last().first().toString(), u"select left right"_s);
    mScene->select({mLeft, mRight});
    QTest::mouseClick(mView.get(), Qt::LeftButton, Qt::ShiftModifier, at({-2, 0, 0}).toPoint());
    QCOMPARE(mCommands->last().first().toString(), u"select right"_s);
    QTest::mouseClick(mView.get(), Qt::LeftButton, Qt::ControlModifier, at({0, 0, 0}).toPoint());
    QCOMPARE(mCommands->size(), 2);
}

void TstGraphicsView::drag_orbits_and_selects_nothing()
{
    const Camera before = mState->camera();
    drag(Qt::LeftButton, {200, 150}, {260, 120});
    QVERIFY(mState->camera().back() != before.back());
    QVERIFY(mState->camera().target() == before.target());
    QCOMPARE(mState->camera().units_per_pixel(), before.units_per_pixel());
    QCOMPARE(mCommands->size(), 0);
}

void TstGraphicsView::middle_drag_pans()
{
    const QPointF before = at({2, 0, 0});
    drag(Qt::MiddleButton, {200, 150}, {240, 130});
    const QPointF way = at({2, 0, 0}) - before - QPointF(40, -20);
    QVERIFY(way.manhattanLength() < 1e-6);
    QVERIFY((mState->camera().back() == Point3{0, -1, 0}));
}

void TstGraphicsView::wheel_zooms_at_the_cursor()
{
    const double before = mState->camera().units_per_pixel();
    const QPointF cursor = at({2, 0, 0});
    QWheelEvent event(cursor, mView->mapToGlobal(cursor), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(mView.get(), &event);
    QVERIFY(mState->camera().units_per_pixel() < before);
    QVERIFY((at({2, 0, 0}) - cursor).manhattanLength() < 1e-6);
}

void TstGraphicsView::keys_orbit_pan_and_zoom()
{
    const Camera before = mState->camera();
    QTest::keyClick(mView.get(), Qt::Key_Left);
    QVERIFY(mState->camera().back() != before.back());
    QTest::keyClick(mView.get(), Qt::Key_Right);
    QVERIFY(mState->camera() == before);
    QTest::keyClick(mView.get(), Qt::Key_Down, Qt::ShiftModifier);
    QVERIFY(mState->camera().target() != before.target());
    QTest::keyClick(mView.get(), Qt::Key_Plus);
    QVERIFY(mState->camera().units_per_pixel() < before.units_per_pixel());
    QTest::keyClick(mView.get(), Qt::Key_Minus);
    QVERIFY(std::abs(mState->camera().units_per_pixel() / before.units_per_pixel() - 1) < 1e-9);
}

void TstGraphicsView::new_shapes_are_brought_into_sight_until_the_user_looks_elsewhere()
{
    add_box(*mScene, u"far"_s, {50, 0, 0}, {2, 2, 2});
    QVERIFY(mState->camera().contains(mScene->box()));
    const Camera fitted = mState->camera();
    add_box(*mScene, u"between"_s, {20, 0, 0}, {2, 2, 2});
    QVERIFY(mState->camera() == fitted); // seen already
    drag(Qt::LeftButton, {200, 150}, {260, 120});
    const Camera chosen = mState->camera();
    add_box(*mScene, u"farther"_s, {500, 0, 0}, {2, 2, 2});
    QVERIFY(mState->camera() == chosen);
    mState->fit();
    QVERIFY(mState->camera().contains(mScene->box()));
    add_box(*mScene, u"farthest"_s, {5000, 0, 0}, {2, 2, 2});
    QVERIFY(mState->camera().contains(mScene->box()));
}

void TstGraphicsView::selection_and_palette_are_seen_at_once()
{
    const QPoint middle = at({-2, 0, 0.3}).toPoint();
    const QColor before = mView->grab().toImage().pixelColor(middle);
    QVERIFY(before.blue() > before.red());
    mScene->select({mLeft});
    const QColor selected = mView->grab().toImage().pixelColor(middle);
    QVERIFY(selected.red() > selected.blue());

    QVERIFY(mView->grab().toImage().pixelColor(5, 5).lightness() > 128);
    QPalette dark = mView->palette();
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, Qt::white);
    mView->setPalette(dark);
    QVERIFY(mView->grab().toImage().pixelColor(5, 5).lightness() < 128);
    mScene->select({});
    QVERIFY(mView->grab().toImage().pixelColor(middle) != before);
}

void TstGraphicsView::painter_draws_where_there_is_no_display()
{
    QCOMPARE(QGuiApplication::platformName(), u"offscreen"_s);
    QVERIFY(mState->display().opengl);
    QVERIFY(!mState->has_opengl());
}

void TstGraphicsView::resolution_of_the_device_is_used()
{
    QImage image(800, 600, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    mView->render(&image);
    // The view takes the ratio of its screen, the picture is the same.
    const QPointF middle = at({-2, 0, 0.3});
    const QColor there = image.pixelColor((middle * 2).toPoint());
    QVERIFY(there.blue() > there.red() + 20);
    QCOMPARE(image.pixelColor(10, 10).lightness() > 200, true);
}

void TstGraphicsView::view_counts_as_a_viewer()
{
    QVERIFY(mScene->has_viewers());
    mView.reset();
    QVERIFY(!mScene->has_viewers());
}

void TstGraphicsView::picture_is_kept_until_something_changes()
{
    const QSignalSpy made(mView.get(), &GraphicsView::picture_made);
    mView->grab();
    QCOMPARE(made.size(), 1);
    mView->grab();
    mView->grab();
    QCOMPARE(made.size(), 1);
    mScene->select({mLeft});
    mState->set_display({true, false, false});
    mView->grab();
    QCOMPARE(made.size(), 2);
    mState->set_view(Camera::View::Top);
    mView->grab();
    QCOMPARE(made.size(), 3);
    mScene->remove(mRight);
    mView->grab();
    QCOMPARE(made.size(), 4);
}

OSTREL_TEST(TstGraphicsView)
#include "tst_graphicsview.moc"
