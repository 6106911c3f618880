// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/scene/Scene.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstScene : public TestCase
{
    Q_OBJECT

private slots:
    void ids_are_never_used_again();
    void changes_are_told_once();
    void what_does_not_exist_changes_nothing();
    void selection_is_told_when_it_differs();
    void selected_item_that_goes_changes_the_selection();
    void box_is_around_all_shapes();
    void first_and_last_viewer_are_told();
    void work_is_awaited_until_all_of_it_is_done();
    void flat_shape_has_no_curves();
    void curves_are_where_the_middle_planes_cut_what_is_curved();
    void select_command_selects_and_answers();
    void select_command_refuses_what_is_not_there();
    void taken_name_adds_no_command();
};

void TstScene::ids_are_never_used_again()
{
    Scene scene;
    const int first = scene.add(u"a"_s);
    scene.remove(first);
    const int second = scene.add(u"a"_s);
    QVERIFY(second != first && second > 0);
    QCOMPARE(scene.find(u"a"_s), second);
    QCOMPARE(scene.find(u"b"_s), 0);
    QCOMPARE(scene.items().size(), std::size_t(1));
}

void TstScene::changes_are_told_once()
{
    Scene scene;
    const QSignalSpy changed(&scene, &Scene::item_changed);
    const int id = scene.add(u"a"_s);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.last().first().toInt(), id);
    scene.set_name(id, u"b"_s);
    scene.set_name(id, u"b"_s);
    QCOMPARE(changed.size(), 2);
    const auto shape = std::make_shared<SceneShape>();
    scene.set_shape(id, shape);
    scene.set_shape(id, shape);
    QCOMPARE(changed.size(), 3);
    scene.set_mesh(id, shape);
    scene.set_mesh(id, shape);
    QCOMPARE(changed.size(), 4);
    scene.remove(id);
    QCOMPARE(changed.size(), 5);
}

void TstScene::what_does_not_exist_changes_nothing()
{
    Scene scene;
    const QSignalSpy changed(&scene, &Scene::item_changed);
    scene.remove(7);
    scene.set_name(7, u"a"_s);
    scene.set_shape(7, std::make_shared<SceneShape>());
    scene.set_mesh(7, std::make_shared<SceneShape>());
    scene.select({7});
    QCOMPARE(changed.size(), 0);
    QVERIFY(scene.items().empty());
    QCOMPARE(scene.selection(), QStringList());
}

void TstScene::selection_is_told_when_it_differs()
{
    Scene scene;
    const int a = scene.add(u"a"_s);
    const int b = scene.add(u"b"_s);
    const QSignalSpy changed(&scene, &Scene::selection_changed);
    scene.select({b, a, 99});
    QCOMPARE(scene.selection(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(changed.size(), 1);
    scene.select({a, b});
    QCOMPARE(changed.size(), 1);
    scene.select({});
    QCOMPARE(changed.size(), 2);
    QCOMPARE(scene.selection(), QStringList());
}

void TstScene::selected_item_that_goes_changes_the_selection()
{
    Scene scene;
    const int a = scene.add(u"a"_s);
    const int b = scene.add(u"b"_s);
    scene.select({a});
    const QSignalSpy changed(&scene, &Scene::selection_changed);
    scene.remove(b);
    QCOMPARE(changed.size(), 0);
    scene.remove(a);
    QCOMPARE(changed.size(), 1);
}

void TstScene::box_is_around_all_shapes()
{
    Scene scene;
    QVERIFY(scene.box().empty());
    const int a = scene.add(u"a"_s);
    scene.add(u"without a shape"_s);
    auto shape = std::make_shared<SceneShape>();
    shape->origin = {1e7, 0, 0};
    shape->corners = {{-1, 0, 0}, {1, 2, 0}, {0, 0, 3}};
    shape->lines = {{0, -4, 0}, {0, 0, 0}};
    shape->update_box();
    scene.set_shape(a, shape);
    QVERIFY((scene.box().least == Point3{1e7 - 1, -4, 0}));
    QVERIFY((scene.box().most == Point3{1e7 + 1, 2, 3}));
}

void TstScene::first_and_last_viewer_are_told()
{
    Scene scene;
    const QSignalSpy changed(&scene, &Scene::viewers_changed);
    QVERIFY(!scene.has_viewers());
    scene.remove_viewer();
    QVERIFY(!scene.has_viewers());
    scene.add_viewer();
    scene.add_viewer();
    QCOMPARE(changed.size(), 1);
    scene.remove_viewer();
    QVERIFY(scene.has_viewers());
    scene.remove_viewer();
    QVERIFY(!scene.has_viewers());
    QCOMPARE(changed.size(), 2);
}

void TstScene::work_is_awaited_until_all_of_it_is_done()
{
    Scene scene;
    scene.end_work();
    QVERIFY(!scene.is_awaited());
    scene.begin_work();
    scene.begin_work();
    scene.end_work();
    QVERIFY(scene.is_awaited());
    scene.end_work();
    QVERIFY(!scene.is_awaited());
}

void TstScene::flat_shape_has_no_curves()
{
    SceneShape shape;
    shape.update_curves();
    QVERIFY(shape.curves.empty());
    shape.corners = {{-1, -1, -1}, {1, 2, 0}, {0, 0, 3}};
    shape.normals = {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}};
    shape.update_box();
    shape.update_curves();
    QVERIFY(shape.curves.empty());
}

void TstScene::curves_are_where_the_middle_planes_cut_what_is_curved()
{
    SceneShape shape;
    shape.origin = {1e6, 0, 0};
    shape.corners = {{-1, -1, 0}, {3, -1, 0}, {-1, 3, 0}};
    shape.normals = {{0, 0, 1}, {0.6F, 0, 0.8F}, {0, 0, 1}};
    shape.update_box();
    for (int round = 0; round < 2; ++round) { // the second replaces the first
        shape.update_curves();
        // Across x = 1, across y = 1, and nothing across z = 0, in which the triangle lies.
        QCOMPARE(shape.curves.size(), std::size_t(4));
        for (std::size_t i = 0; i < 2; ++i) {
            QCOMPARE(shape.curves[i].x(), 1.0F);
            QCOMPARE(shape.curves[2 + i].y(), 1.0F);
        }
        QCOMPARE((shape.curves[0] - shape.curves[1]).length(), 2.0F);
        QCOMPARE((shape.curves[2] - shape.curves[3]).length(), 2.0F);
    }
}

void TstScene::select_command_selects_and_answers()
{
    Scene scene;
    CommandSession session;
    QVERIFY(register_select_command(session.registry, scene));
    scene.add(u"a"_s);
    scene.add(u"b"_s);
    const auto run = [&session](const char* line) {
        session.interpreter.run(QString::fromLatin1(line));
        return session.take_output();
    };
    QCOMPARE(run("select"), u"Nothing is selected.\n"_s);
    QCOMPARE(run("select b"), u"Selected: b\n"_s);
    QCOMPARE(run("select b a b"), u"Selected: a, b\n"_s);
    QCOMPARE(run("select a"), u"Selected: a\n"_s);
    QCOMPARE(run("select all"), u"Selected: a, b\n"_s);
    QCOMPARE(run("select"), u"Selected: a, b\n"_s);
    QCOMPARE(run("select none"), u"Nothing is selected.\n"_s);
    QCOMPARE(scene.selection(), QStringList());
    QCOMPARE(session.take_errors(), QString());
}

void TstScene::select_command_refuses_what_is_not_there()
{
    Scene scene;
    CommandSession session;
    QVERIFY(register_select_command(session.registry, scene));
    scene.select({scene.add(u"a"_s)});
    session.interpreter.run(u"select a c"_s);
    QVERIFY(session.take_errors().contains(u"column 10: expected the name of an item, found \"c\""_s));
    session.interpreter.run(u"select none a"_s);
    QVERIFY(session.take_errors().contains(u"column 13: expected the end of the line, found \"a\""_s));
    QCOMPARE(scene.selection(), QStringList({u"a"_s}));
}

void TstScene::taken_name_adds_no_command()
{
    Scene scene;
    CommandSession session;
    session.add("select", [](CommandCall&) {});
    QVERIFY(!register_select_command(session.registry, scene));
}

OSTREL_TEST(TstScene)
#include "tst_scene.moc"
