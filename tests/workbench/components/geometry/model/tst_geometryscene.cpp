// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/GeometryScene.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

/** Solids on their way into the scene: with tessellations that wait until a test lets them go on. */
class TstGeometryScene : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void shape_is_made_for_viewers_only();
    void model_goes_on_while_shapes_are_made();
    void solid_that_changes_meanwhile_gets_its_last_shape();
    void solid_deleted_meanwhile_is_not_awaited();
    void replaced_solids_get_their_new_shapes();
    void shape_that_fails_is_none_data();
    void shape_that_fails_is_none();
    void end_does_not_wait_for_the_rest();
    void surfaces_face_outwards_and_are_closed_data();
    void surfaces_face_outwards_and_are_closed();
    void edges_are_those_that_are_seen();
    void mesh_is_shown_by_its_surface_unless_that_is_damaged_data();
    void mesh_is_shown_by_its_surface_unless_that_is_damaged();
    void mesh_stays_when_changes_of_other_solids_are_undone();
    void mesh_is_shown_on_solids_that_do_not_change_meanwhile();

private:
    /** A solid "a" with a mesh, in a scene that is seen and does not wait. */
    void make_meshed_solid(const QByteArray& surface);
    std::shared_ptr<const SceneShape> shape_of_mesh() const
    {
        return mScene->items().at(mScene->find(u"a"_s)).mesh;
    }
    /** A scene whose shapes each wait for mGo. */
    void make_waiting_scene();
    std::shared_ptr<const SceneShape> shape(const QString& name) const
    {
        return mScene->items().at(mScene->find(name)).shape;
    }

    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<Scene> mScene;
    std::unique_ptr<GeometryScene> mSolids;
    QSemaphore mGo;
    std::atomic<int> mMade = 0;
};

void TstGeometryScene::set_up()
{
    mModel = std::make_unique<GeometryModel>();
    mScene = std::make_unique<Scene>();
    mMade = 0;
}

void TstGeometryScene::tear_down()
{
    mGo.release(1000);
    mSolids.reset();
    QVERIFY(mScene->items().empty());
    QVERIFY(!mScene->is_awaited());
    mScene.reset();
    mModel.reset();
    mGo.acquire(mGo.available());
}

void TstGeometryScene::make_waiting_scene()
{
    mSolids = std::make_unique<GeometryScene>(*mModel, *mScene, [this](const Shape& shape) -> Tessellation {
        return [this, real = shape.prepare_tessellation()](const std::atomic<bool>& stop) {
            ++mMade;
            while (!mGo.tryAcquire(1, 10)) {
                if (stop)
                    return std::shared_ptr<const SceneShape>();
            }
            return real(stop);
        };
    });
}

void TstGeometryScene::shape_is_made_for_viewers_only()
{
    make_waiting_scene();
    mGo.release(1000);
    mModel->brick({1, 1, 1}, {}, u"a"_s);
    QVERIFY(!mScene->is_awaited());
    QCoreApplication::processEvents();
    QCOMPARE(mMade, 0);
    mScene->add_viewer();
    QVERIFY(mScene->is_awaited());
    QTRY_VERIFY(!mScene->is_awaited());
    QVERIFY(shape(u"a"_s));
    mScene->remove_viewer();
    const auto before = shape(u"a"_s);
    mModel->move({1}, {1, 0, 0});
    QVERIFY(!mScene->is_awaited());
    QCOMPARE(shape(u"a"_s), before); // shown until there is another
    mScene->add_viewer();
    QTRY_VERIFY(!mScene->is_awaited());
    QVERIFY(shape(u"a"_s) != before);
    QCOMPARE(mMade, 2);
}

void TstGeometryScene::model_goes_on_while_shapes_are_made()
{
    mScene->add_viewer();
    make_waiting_scene();
    QSignalSpy finished(mSolids.get(), &GeometryScene::finished);
    for (int i = 0; i < 50; ++i)
        mModel->torus(2, 0.5, {6.0 * i, 0, 0});
    QTRY_VERIFY(mMade > 0);
    QCoreApplication::processEvents();
    QVERIFY(mScene->is_awaited() && mSolids->is_busy());
    for (const auto& [id, item] : mScene->items())
        QVERIFY(!item.shape);
    mGo.release(50);
    QTRY_VERIFY(!mScene->is_awaited());
    QCOMPARE(mMade, 50);
    QCOMPARE(finished.size(), 1);
    for (const auto& [id, item] : mScene->items())
        QVERIFY(item.shape);
}

void TstGeometryScene::solid_that_changes_meanwhile_gets_its_last_shape()
{
    mScene->add_viewer();
    make_waiting_scene();
    mModel->brick({1, 1, 1}, {}, u"a"_s);
    QTRY_COMPARE(mMade, 1);
    mModel->move({1}, {5, 0, 0});
    mModel->move({1}, {5, 0, 0});
    mGo.release(1);
    QTRY_COMPARE(mMade, 2);
    QVERIFY(!shape(u"a"_s)); // that of the first place is of no use
    mGo.release(1);
    QTRY_VERIFY(!mScene->is_awaited());
    QCOMPARE(shape(u"a"_s)->box.center(), (Point3{10, 0, 0}));
    QCOMPARE(mMade, 2);
}

void TstGeometryScene::solid_deleted_meanwhile_is_not_awaited()
{
    mScene->add_viewer();
    make_waiting_scene();
    mModel->brick({1, 1, 1});
    mModel->brick({1, 1, 1});
    QTRY_COMPARE(mMade, 1);
    mModel->remove({2});
    mModel->remove({1});
    QVERIFY(mScene->items().empty());
    mGo.release(2);
    QTRY_VERIFY(!mScene->is_awaited());
}

void TstGeometryScene::replaced_solids_get_their_new_shapes()
{
    mScene->add_viewer();
    make_waiting_scene();
    mGo.release(1000);
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
        mModel->brick({1, 1, 1}, {}, name);
    GeometryModel other;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
        other.brick({2, 2, 2}, {}, name);
    QTRY_VERIFY(!mScene->is_awaited());
    mModel->replace(other.contents());
    QTRY_VERIFY(!mScene->is_awaited());
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
        QVERIFY2(std::abs(shape(name)->box.most.x - 1) < 1e-6, qPrintable(name));
}

void TstGeometryScene::shape_that_fails_is_none_data()
{
    QTest::addColumn<bool>("at_once");
    QTest::newRow("when it is copied") << true;
    QTest::newRow("on the thread") << false;
}

void TstGeometryScene::shape_that_fails_is_none()
{
    QFETCH(const bool, at_once);
    mScene->add_viewer();
    mSolids = std::make_unique<GeometryScene>(*mModel, *mScene, [&](const Shape& shape) -> Tessellation {
        if (shape.measures().volume > 2)
            return shape.prepare_tessellation();
        if (at_once)
            throw GeometryError(u"no"_s);
        return [](const std::atomic<bool>&) { return nullptr; };
    });
    mModel->brick({1, 1, 1}, {}, u"a"_s);
    mModel->brick({2, 2, 2}, {}, u"b"_s);
    QTRY_VERIFY(!mScene->is_awaited());
    QVERIFY(!shape(u"a"_s));
    QVERIFY(shape(u"b"_s));
}

void TstGeometryScene::end_does_not_wait_for_the_rest()
{
    mScene->add_viewer();
    make_waiting_scene();
    for (int i = 0; i < 5; ++i)
        mModel->brick({1, 1, 1});
    QTRY_VERIFY(mMade > 0);
    const int made = mMade;
    mSolids.reset(); // with none of them released
    QCOMPARE(mMade, made);
}

void TstGeometryScene::surfaces_face_outwards_and_are_closed_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("tolerance");
    const char* const names[] = {"brick", "cylinder", "sphere", "cone", "torus", "hole", "pieces"};
    for (int kind = 0; kind < 7; ++kind)
        QTest::newRow(names[kind]) << kind << (kind == 0 ? 1e-6 : 0.03);
}

void TstGeometryScene::surfaces_face_outwards_and_are_closed()
{
    QFETCH(const int, kind);
    QFETCH(const double, tolerance);
    const Point3 center{100, 200, -300};
    const Point3 axis{1, 2, 3};
    switch (kind) {
    case 0:
        mModel->brick({1, 2, 3}, center);
        break;
    case 1:
        mModel->cylinder(1, 5, center, axis);
        break;
    case 2:
        mModel->sphere(3, center);
        break;
    case 3:
        mModel->cone(2, 0, 3, center, axis);
        break;
    case 4:
        mModel->torus(5, 2, center, axis);
        break;
    default:
        mModel->brick({4, 4, 4}, center);
        mModel->cylinder(1, 9, center + Point3{0, 0, kind == 5 ? 0.0 : 20.0});
        kind == 5 ? mModel->subtract(1, {2}) : mModel->unite({1, 2});
    }
    mModel->rotate({1}, 77, center, {3, 1, 0});
    const std::atomic<bool> stop = false;
    const auto shape = mModel->shape(1).prepare_tessellation()(stop);
    QVERIFY(shape && shape->normals.size() == shape->corners.size());
    double volume = 0;
    for (std::size_t i = 0; i < shape->corners.size(); i += 3) {
        const QVector3D* const corner = shape->corners.data() + i;
        const QVector3D across = QVector3D::crossProduct(corner[1] - corner[0], corner[2] - corner[0]);
        volume += double(QVector3D::dotProduct(corner[0], QVector3D::crossProduct(corner[1], corner[2]))) / 6;
        for (std::size_t j = i; j < i + 3; ++j) {
            QVERIFY(std::abs(shape->normals[j].length() - 1) < 1e-4F);
            QVERIFY(QVector3D::dotProduct(across.normalized(), shape->normals[j]) > 0.69F);
        }
    }
    const double expected = mModel->measures(1).volume;
    QVERIFY2(std::abs(volume - expected) < tolerance * expected,
             qPrintable(u"%1 of %2"_s.arg(volume).arg(expected)));
}

void TstGeometryScene::edges_are_those_that_are_seen()
{
    const std::atomic<bool> stop = false;
    const auto pieces = [&](int id) {
        return mModel->shape(id).prepare_tessellation()(stop)->lines.size() / 2;
    };
    QCOMPARE(pieces(mModel->brick({1, 2, 3})), 12U);
    QCOMPARE(pieces(mModel->sphere(1)), 0U);
    QCOMPARE(pieces(mModel->torus(3, 1)), 0U);
    const std::size_t of_circles = pieces(mModel->cylinder(1, 1));
    QVERIFY2(of_circles >= 48 && of_circles < 64, qPrintable(QString::number(of_circles)));
}

namespace {

Surface tetrahedron()
{
    return {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {0, 3, 2}}};
}

} // namespace

void TstGeometryScene::make_meshed_solid(const QByteArray& surface)
{
    make_waiting_scene();
    mGo.release(1000);
    mScene->add_viewer();
    mModel->brick({1, 1, 1}, {}, u"a"_s);
    auto mesh = std::make_shared<Mesh>();
    mesh->solids << u"a"_s;
    mesh->surfaces << surface;
    mesh->revision = mModel->revision();
    mModel->set_mesh(mesh);
}

void TstGeometryScene::mesh_is_shown_by_its_surface_unless_that_is_damaged_data()
{
    QTest::addColumn<QByteArray>("surface");
    QTest::addColumn<bool>("shown");
    const Surface surface = tetrahedron();
    QTest::newRow("whole") << pack_surface(surface) << true;
    QTest::newRow("cut off") << pack_surface(surface).chopped(1) << false;
    QTest::newRow("corner that does not exist") << pack_surface({surface.points, {{0, 2, 4}}}) << false;
}

void TstGeometryScene::mesh_is_shown_by_its_surface_unless_that_is_damaged()
{
    QFETCH(const QByteArray, surface);
    QFETCH(const bool, shown);
    make_meshed_solid(surface);
    QTRY_VERIFY(!mScene->is_awaited());
    if (!shown) {
        QCoreApplication::processEvents();
        QVERIFY(!shape_of_mesh());
        return;
    }
    QTRY_VERIFY(shape_of_mesh());
    QCOMPARE(shape_of_mesh()->corners.size(), std::size_t(12));
    QCOMPARE(shape_of_mesh()->lines.size(), std::size_t(12)); // six edges
}

void TstGeometryScene::mesh_stays_when_changes_of_other_solids_are_undone()
{
    make_meshed_solid(pack_surface(tetrahedron()));
    QTRY_VERIFY(shape_of_mesh());
    mModel->brick({1, 1, 1}, {5, 0, 0}, u"b"_s);
    const GeometryModel::Part before = mModel->part({2, 3});
    mModel->brick({1, 1, 1}, {9, 0, 0}, u"c"_s);
    QVERIFY(shape_of_mesh());
    mModel->restore(before);
    QVERIFY(mModel->is_mesh_old());
    QVERIFY(shape_of_mesh());

    const GeometryModel::Part unmoved = mModel->part({1});
    mModel->move({1}, {1, 0, 0});
    QVERIFY(!shape_of_mesh());
    mModel->restore(unmoved);
    QVERIFY(!shape_of_mesh()); // an older mesh may fit it or not
}

void TstGeometryScene::mesh_is_shown_on_solids_that_do_not_change_meanwhile()
{
    make_meshed_solid(pack_surface(tetrahedron()));
    mModel->brick({1, 1, 1}, {5, 0, 0}, u"b"_s);
    QTRY_VERIFY(shape_of_mesh());

    mSolids.reset();
    mModel = std::make_unique<GeometryModel>();
    make_meshed_solid(pack_surface(tetrahedron()));
    mModel->move({1}, {1, 0, 0});
    QTRY_VERIFY(!mScene->is_awaited());
    QCoreApplication::processEvents();
    QVERIFY(!shape_of_mesh());
}

OSTREL_TEST(TstGeometryScene)

#include "tst_geometryscene.moc"
