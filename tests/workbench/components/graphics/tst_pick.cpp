// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "boxes.h"
#include "support/TestCase.h"
#include "workbench/components/graphics/pick.h"

#include <QTest>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

class TstPick : public TestCase
{
    Q_OBJECT

private slots:
    void nearest_surface_is_picked_from_each_side();
    void nothing_is_picked_beside_the_surfaces();
    void gap_between_triangles_is_none();
    void item_without_a_shape_is_not_picked();
    void mesh_is_picked_where_it_is_shown();
    void picks_far_from_the_origin();
};

void TstPick::nearest_surface_is_picked_from_each_side()
{
    Scene scene;
    const int front = add_box(scene, u"front"_s, {0, -5, 0}, {2, 1, 2});
    const int rear = add_box(scene, u"rear"_s, {0, 5, 0}, {2, 1, 2});
    Camera camera;
    camera.set_viewport({200, 100});
    camera.set_view(Camera::View::Front);
    camera.fit(scene.box());
    QCOMPARE(pick(scene, camera, {}, {100, 50}), front);
    camera.set_view(Camera::View::Back);
    QCOMPARE(pick(scene, camera, {}, {100, 50}), rear);
    DisplayOptions bare;
    bare.shaded = false;
    QCOMPARE(pick(scene, camera, bare, {100, 50}), rear);
}

void TstPick::nothing_is_picked_beside_the_surfaces()
{
    Scene scene;
    add_box(scene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    Camera camera;
    camera.set_viewport({100, 100});
    camera.set_view(Camera::View::Iso);
    camera.fit(scene.box());
    QVERIFY(pick(scene, camera, {}, {50, 50}) != 0);
    // Within the box around the picture of the solid, but not on the solid.
    const QPointF corner = camera.to_pixel({-1, -1, 1});
    QVERIFY(pick(scene, camera, {}, corner + QPointF(3, 0)) != 0);
    QCOMPARE(pick(scene, camera, {}, {corner.x() + 3, camera.to_pixel({-1, 1, 1}).y() + 3}), 0);
    QCOMPARE(pick(scene, camera, {}, {1, 1}), 0);
    QCOMPARE(pick(scene, camera, {}, {-1000, 1e9}), 0);
    QCOMPARE(pick(Scene(), camera, {}, {50, 50}), 0);
}

void TstPick::gap_between_triangles_is_none()
{
    Scene scene;
    const int box = add_box(scene, u"a"_s, {0, 0, 0}, {2, 2, 2});
    Camera camera;
    camera.set_viewport({100, 100});
    camera.set_view(Camera::View::Front);
    camera.fit(scene.box());
    // The diagonal of the face runs through these points.
    for (double pixel = 10; pixel <= 90; pixel += 2.5)
        QCOMPARE(pick(scene, camera, {}, {pixel, 100 - pixel}), box);
}

void TstPick::item_without_a_shape_is_not_picked()
{
    Scene scene;
    scene.add(u"bare"_s);
    const int empty = scene.add(u"empty"_s);
    scene.set_shape(empty, std::make_shared<SceneShape>());
    QCOMPARE(pick(scene, Camera(), {}, {0.5, 0.5}), 0);
}

void TstPick::mesh_is_picked_where_it_is_shown()
{
    Scene scene;
    const int id = add_box(scene, u"a"_s, {0, 0, 0}, {4, 4, 4});
    scene.set_mesh(id, make_box({0, 0, 0}, {1, 1, 1}));
    Camera camera;
    camera.set_viewport({100, 100});
    camera.set_view(Camera::View::Front);
    camera.fit(scene.box());
    const QPointF pixel = camera.to_pixel({1.5, 0, 1.5});
    DisplayOptions without_mesh;
    without_mesh.mesh = false;
    QCOMPARE(pick(scene, camera, without_mesh, pixel), id);
    DisplayOptions meshed;
    meshed.mesh = true;
    QCOMPARE(pick(scene, camera, meshed, pixel), 0);
    QCOMPARE(pick(scene, camera, meshed, {50, 50}), id);
}

void TstPick::picks_far_from_the_origin()
{
    Scene scene;
    const int left = add_box(scene, u"left"_s, {1e7, 1e7, 1e7}, {0.1, 0.1, 0.1});
    const int right = add_box(scene, u"right"_s, {1e7 + 0.2, 1e7, 1e7}, {0.1, 0.1, 0.1});
    Camera camera;
    camera.set_viewport({300, 100});
    camera.set_view(Camera::View::Front);
    camera.fit(scene.box());
    QCOMPARE(pick(scene, camera, {}, camera.to_pixel({1e7, 1e7, 1e7})), left);
    QCOMPARE(pick(scene, camera, {}, camera.to_pixel({1e7 + 0.2, 1e7, 1e7})), right);
    QCOMPARE(pick(scene, camera, {}, camera.to_pixel({1e7 + 0.1, 1e7, 1e7})), 0);
}

OSTREL_TEST(TstPick)
#include "tst_pick.moc"
