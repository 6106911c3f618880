// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelSplitter.h"
#include "support/describe_window.h"
#include "support/patience.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The component in the whole application, with the solids of another one and without. */
class TstGraphicsComponent : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    // Models are thrown away without a question.
    void set_up_class() override { OstrelFileMenu::set_save_prompt(false); }
    void set_up() override;
    void tear_down() override;

private slots:
    void unloading_brings_the_black_area_back();
    void view_is_the_same_whichever_component_comes_first_data();
    void view_is_the_same_whichever_component_comes_first();
    void no_shape_is_made_while_nobody_looks();
    void click_tree_and_command_agree();
    void deleted_solid_is_selected_nowhere();
    void renamed_solid_keeps_shape_and_selection();
    void mesh_is_shown_until_the_solid_changes();
    void tools_send_commands_and_show_the_state();
    void display_is_kept_until_the_next_start();
    void every_solid_is_seen_without_surfaces_data();
    void every_solid_is_seen_without_surfaces();
    void shapes_of_fifty_solids_are_made();
    void python_draws_pictures_with_a_view_and_without_data();
    void python_draws_pictures_with_a_view_and_without();
    void python_helps_and_counts_on_the_console();

private:
    static QString command(const char* what, const char* file)
    {
        return QLatin1StringView(what) + u' ' + QLatin1StringView(file);
    }
    static const Scene::Item* item(const QString& name);
    static bool has_shapes();
    static QTreeWidget* tree() { return Ostrel::instance()->findChild<QTreeWidget*>(u"GeometryModelTree"_s); }
    static QStringList tree_selection();
    static QAction* tool(const char* name);
};

void TstGraphicsComponent::set_up()
{
    QVERIFY(!Ostrel::instance()->graphics_widget());
    QVERIFY(Scene::instance().items().empty());
    QSettings().remove(u"graphics"_s); // what a test has displayed
}

void TstGraphicsComponent::tear_down()
{
    for (const QString& name : {u"graphics"_s, u"geometry"_s}) {
        const QString answer = enter(u"unload "_s + name);
        QVERIFY2(!answer.contains(u"left behind"), qPrintable(answer));
    }
    flush();
    QVERIFY(!Scene::instance().has_viewers());
    QVERIFY(!Scene::instance().is_awaited());
}

const Scene::Item* TstGraphicsComponent::item(const QString& name)
{
    const Scene& scene = Scene::instance();
    const auto found = scene.items().find(scene.find(name));
    return found == scene.items().end() ? nullptr : &found->second;
}

bool TstGraphicsComponent::has_shapes()
{
    const auto& items = Scene::instance().items();
    return !items.empty() && std::all_of(items.begin(), items.end(),
                                         [](const auto& entry) { return entry.second.shape != nullptr; });
}

QStringList TstGraphicsComponent::tree_selection()
{
    flush();
    QStringList names;
    const QTreeWidgetItem* solids = tree()->topLevelItem(0);
    for (int i = 0; i < solids->childCount(); ++i) {
        if (solids->child(i)->isSelected())
            names << solids->child(i)->text(0);
    }
    return names;
}

QAction* TstGraphicsComponent::tool(const char* name)
{
    const auto* toolbar = Ostrel::instance()->findChild<QToolBar*>(u"GraphicsTools"_s);
    const QList<QAction*> actions = toolbar ? toolbar->actions() : QList<QAction*>();
    for (QAction* action : actions) {
        if (action->objectName() == u"graphics_"_s + QLatin1StringView(name))
            return action;
    }
    return nullptr;
}

void TstGraphicsComponent::unloading_brings_the_black_area_back()
{
    Ostrel* window = Ostrel::instance();
    const QStringList before = describe_window(*window);
    QWidget* const placeholder = window->graphics_area()->widget(0);
    for (int i = 0; i < 3; ++i) {
        enter(command("load", GRAPHICS));
        QVERIFY(window->graphics_widget());
        QCOMPARE(window->graphics_widget()->objectName(), u"GraphicsView"_s);
        QVERIFY(window->graphics_widget()->isVisible());
        QCOMPARE(CommandLine::of_application().graphics_state(), 2);
        QVERIFY(!enter(u"unload graphics"_s).contains(u"left behind"));
        QVERIFY(!window->graphics_widget());
        QCOMPARE(CommandLine::of_application().graphics_state(), 1);
        QCOMPARE(window->graphics_area()->widget(0), placeholder);
        QCOMPARE(describe_window(*window), before);
    }
}

void TstGraphicsComponent::view_is_the_same_whichever_component_comes_first_data()
{
    QTest::addColumn<bool>("graphics_first");
    QTest::newRow("graphics first") << true;
    QTest::newRow("geometry first") << false;
}

void TstGraphicsComponent::view_is_the_same_whichever_component_comes_first()
{
    QFETCH(const bool, graphics_first);
    if (graphics_first)
        enter(command("load", GRAPHICS));
    enter(command("load", GEOMETRY));
    enter(u"brick 1 2 3 name a"_s);
    enter(u"sphere 1 at 5 0 0 name ball"_s);
    if (!graphics_first)
        enter(command("load", GRAPHICS));
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 20000);
    const SceneShape& brick = *item(u"a"_s)->shape;
    QCOMPARE(brick.corners.size(), std::size_t(36));
    QVERIFY(length(brick.box.least - Point3{-0.5, -1, -1.5}) < 1e-6);
    QVERIFY(length(brick.box.most - Point3{0.5, 1, 1.5}) < 1e-6);
    QVERIFY(brick.lines.size() >= 24);
    const SceneShape& ball = *item(u"ball"_s)->shape;
    QVERIFY(ball.corners.size() > 600 && ball.corners.size() < 10000);
    QVERIFY(ball.lines.empty()); // where it closes there is no edge
    for (const auto& shape : {item(u"a"_s)->shape, item(u"ball"_s)->shape}) {
        const Point3 middle = shape->box.center() - shape->origin;
        for (std::size_t i = 0; i < shape->corners.size(); ++i) {
            const QVector3D out =
                shape->corners[i] - QVector3D(float(middle.x), float(middle.y), float(middle.z));
            QVERIFY(QVector3D::dotProduct(out, shape->normals[i]) > 0);
            QVERIFY(std::abs(shape->normals[i].length() - 1) < 1e-4F);
            if (shape == item(u"ball"_s)->shape)
                QVERIFY(std::abs(out.length() - 1) < 0.02F);
        }
    }
    // The view shows them: its middle is not background alone.
    flush();
    QWidget* view = Ostrel::instance()->graphics_widget();
    const QImage picture = view->grab().toImage();
    QImage empty = picture;
    enter(u"delete all"_s);
    flush();
    empty = view->grab().toImage();
    QVERIFY(picture != empty);
    // Unloaded in either order, which cleanup() does in one and this in the other.
    if (graphics_first)
        enter(u"unload geometry"_s);
    QVERIFY(Scene::instance().items().empty());
}

void TstGraphicsComponent::no_shape_is_made_while_nobody_looks()
{
    enter(command("load", GEOMETRY));
    enter(u"brick 1 name a"_s);
    enter(u"select a"_s);
    QVERIFY(item(u"a"_s) && item(u"a"_s)->selected);
    flush();
    QVERIFY(!item(u"a"_s)->shape);
    enter(command("load", GRAPHICS));
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 20000);
    QTRY_VERIFY(!Scene::instance().is_awaited());
    enter(u"unload graphics"_s);
    const auto shape = item(u"a"_s)->shape;
    QVERIFY(shape); // it is still right
    enter(u"move a by 1 0 0"_s);
    QVERIFY(!Scene::instance().is_awaited()); // nobody wants it
    enter(command("load", GRAPHICS));
    QTRY_VERIFY_WITH_TIMEOUT(item(u"a"_s)->shape != shape, 20000);
    QVERIFY(std::abs(item(u"a"_s)->shape->box.most.x - 1.5) < 1e-6);
}

void TstGraphicsComponent::click_tree_and_command_agree()
{
    enter(command("load", GRAPHICS));
    enter(command("load", GEOMETRY));
    enter(u"brick 2 name a"_s);
    enter(u"brick 2 at 6 0 0 name b"_s);
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 20000);
    enter(u"view front"_s);
    flush();
    QWidget* view = Ostrel::instance()->graphics_widget();
    const QPoint middle = view->rect().center();

    QVERIFY(enter(u"select b"_s).contains(u"Selected: b\n"_s));
    QCOMPARE(tree_selection(), QStringList({u"b"_s}));

    // The scene is 8 wide, and its middle lies between the two.
    const int side = view->width() / 4;
    page()->clearToPrompt();
    QTest::mouseClick(view, Qt::LeftButton, {}, middle - QPoint(side, 0));
    flush();
    QVERIFY2(page()->toPlainText().startsWith(u"Fennar>select a\nSelected: a\n"_s),
             qPrintable(page()->toPlainText()));
    QCOMPARE(Scene::instance().selection(), QStringList({u"a"_s}));
    QCOMPARE(tree_selection(), QStringList({u"a"_s}));

    page()->clearToPrompt();
    tree()->topLevelItem(0)->child(1)->setSelected(true);
    flush();
    QVERIFY2(page()->toPlainText().startsWith(u"Fennar>select a b\nSelected: a, b\n"_s),
             qPrintable(page()->toPlainText()));
    QCOMPARE(Scene::instance().selection(), QStringList({u"a"_s, u"b"_s}));

    enter(u"select none"_s);
    QCOMPARE(tree_selection(), QStringList());
    // The tree that follows sends nothing.
    QVERIFY2(!page()->toPlainText().contains(u"Fennar>select none\nNothing is selected.\nFennar>select"_s),
             qPrintable(page()->toPlainText()));
}

void TstGraphicsComponent::deleted_solid_is_selected_nowhere()
{
    enter(command("load", GEOMETRY));
    enter(u"brick 2 name a"_s);
    enter(u"brick 2 name b"_s);
    enter(u"select a b"_s);
    enter(u"delete a"_s);
    flush();
    QVERIFY2(!page()->toPlainText().contains(u"select"_s), qPrintable(page()->toPlainText()));
    QCOMPARE(Scene::instance().selection(), QStringList({u"b"_s}));
    QCOMPARE(tree_selection(), QStringList({u"b"_s}));
}

void TstGraphicsComponent::renamed_solid_keeps_shape_and_selection()
{
    enter(command("load", GRAPHICS));
    enter(command("load", GEOMETRY));
    enter(u"brick 2 name a"_s);
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 20000);
    enter(u"select a"_s);
    const auto shape = item(u"a"_s)->shape;
    enter(u"rename a c"_s);
    QVERIFY(!item(u"a"_s));
    QCOMPARE(item(u"c"_s)->shape, shape);
    QCOMPARE(Scene::instance().selection(), QStringList({u"c"_s}));
    QCOMPARE(tree_selection(), QStringList({u"c"_s}));
}

void TstGraphicsComponent::mesh_is_shown_until_the_solid_changes()
{
    enter(command("load", GRAPHICS));
    enter(command("load", GEOMETRY));
    enter(u"brick 2 name a"_s);
    enter(u"sphere 1 at 5 0 0 name b"_s);
    QVERIFY(enter(u"mesh size 1"_s).contains(u"volume elements"_s));
    QTRY_VERIFY_WITH_TIMEOUT(item(u"a"_s)->mesh && item(u"b"_s)->mesh, 20000);
    const SceneShape& mesh = *item(u"a"_s)->mesh;
    QVERIFY(length(mesh.box.least - Point3{-1, -1, -1}) < 1e-5);
    QVERIFY(length(mesh.box.most - Point3{1, 1, 1}) < 1e-5);
    // A closed surface of triangles: three edges for two of them.
    QCOMPARE(mesh.lines.size() / 2 * 2, mesh.corners.size());
    double volume = 0;
    for (std::size_t i = 0; i < mesh.corners.size(); i += 3)
        volume += double(QVector3D::dotProduct(
                      mesh.corners[i], QVector3D::crossProduct(mesh.corners[i + 1], mesh.corners[i + 2]))) /
                  6;
    QVERIFY2(std::abs(volume - 8) < 1e-3, qPrintable(QString::number(volume))); // turned outwards
    enter(u"move a by 1 0 0"_s);
    QVERIFY(!item(u"a"_s)->mesh);
    QVERIFY(item(u"b"_s)->mesh);
}

void TstGraphicsComponent::tools_send_commands_and_show_the_state()
{
    enter(command("load", GRAPHICS));
    for (const char* name : {"front", "back", "left", "right", "top", "bottom", "iso", "fit"}) {
        QAction* action = tool(name);
        QVERIFY2(action, name);
        QVERIFY(!action->icon().pixmap(22).isNull());
        QVERIFY(!action->shortcut().isEmpty());
        page()->clearToPrompt();
        action->trigger();
        flush();
        const QString line = qstrcmp(name, "fit") == 0 ? u"fit"_s : u"view "_s + QLatin1StringView(name);
        QVERIFY2(page()->toPlainText().startsWith(u"Fennar>"_s + line + u'\n'),
                 qPrintable(page()->toPlainText()));
    }
    QVERIFY(tool("shaded")->isChecked() && tool("wireframe")->isChecked() && tool("mesh")->isChecked());
    enter(u"display mesh off"_s);
    QVERIFY(!tool("mesh")->isChecked());
    page()->clearToPrompt();
    tool("shaded")->trigger();
    flush();
    QVERIFY(page()->toPlainText().startsWith(u"Fennar>display shaded off\n"_s));
    QVERIFY(!tool("shaded")->isChecked());
    const auto menus = Ostrel::instance()->findChildren<QMenu*>();
    QVERIFY(std::any_of(menus.begin(), menus.end(),
                        [](const QMenu* menu) { return menu->actions().contains(tool("iso")); }));
}

void TstGraphicsComponent::display_is_kept_until_the_next_start()
{
    const QString at_first = u"shaded on, wireframe on, mesh on, opengl on"_s;
    enter(command("load", GRAPHICS));
    QVERIFY2(enter(u"display"_s).contains(at_first), qPrintable(page()->toPlainText()));
    QVERIFY(!QSettings().contains(u"graphics/shaded"_s)); // nothing was chosen
    for (const QString& line : {u"shaded off"_s, u"wireframe off"_s, u"mesh off"_s, u"opengl off"_s})
        enter(u"display "_s + line);
    enter(u"unload graphics"_s);
    enter(command("load", GRAPHICS));
    QVERIFY2(enter(u"display"_s).contains(u"shaded off, wireframe off, mesh off, opengl off"_s),
             qPrintable(page()->toPlainText()));
    QVERIFY(!tool("shaded")->isChecked() && !tool("wireframe")->isChecked() && !tool("mesh")->isChecked());
    // What makes no sense counts as yes, and as no where it is empty.
    QSettings().setValue(u"graphics/shaded"_s, u"perhaps"_s);
    QSettings().setValue(u"graphics/mesh"_s, QString());
    enter(u"unload graphics"_s);
    enter(command("load", GRAPHICS));
    QVERIFY(tool("shaded")->isChecked() && !tool("mesh")->isChecked());
}

void TstGraphicsComponent::every_solid_is_seen_without_surfaces_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("least_pixels");
    // In a picture of 300 by 300. Those that have edges show more than these.
    QTest::newRow("sphere, no edge") << QStringList{u"sphere 1"_s} << 500;
    QTest::newRow("torus, no edge") << QStringList{u"torus 3 1"_s} << 1000;
    QTest::newRow("cylinder, two edges") << QStringList{u"cylinder 1 2"_s} << 800;
    QTest::newRow("sphere without a corner")
        << QStringList{u"sphere 1 name a"_s, u"brick 2 at 1 1 1 name b"_s, u"subtract b from a"_s} << 650;
}

void TstGraphicsComponent::every_solid_is_seen_without_surfaces()
{
    QFETCH(const QStringList, lines);
    QFETCH(const int, least_pixels);
    enter(command("load", GEOMETRY));
    enter(command("load", GRAPHICS));
    for (const QString& line : lines)
        QVERIFY2(!enter(line).contains(u"ERROR"_s), qPrintable(page()->toPlainText()));
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 20000);
    enter(u"display shaded off"_s);
    QWidget* view = Ostrel::instance()->graphics_widget();
    const auto picture = [view] {
        flush();
        return view->grab().toImage();
    };
    const QImage with = picture();
    enter(u"display wireframe off"_s);
    const QImage without = picture();
    QCOMPARE(with.size(), without.size());
    int pixels = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x)
            pixels += with.pixel(x, y) != without.pixel(x, y);
    }
    // So much as the view is larger than the picture that the numbers are for.
    const double scale = std::min(with.width(), with.height()) / 300.0;
    QVERIFY2(pixels > least_pixels * scale, qPrintable(u"%1 of %2"_s.arg(pixels).arg(least_pixels * scale)));
}

void TstGraphicsComponent::shapes_of_fifty_solids_are_made()
{
    enter(command("load", GRAPHICS));
    enter(command("load", GEOMETRY));
    for (int i = 0; i < 50; ++i)
        enter(u"torus 2 0.5 at %1 0 0"_s.arg(6 * i));
    QTRY_VERIFY_WITH_TIMEOUT(has_shapes(), 50000);
}

void TstGraphicsComponent::python_draws_pictures_with_a_view_and_without_data()
{
    QTest::addColumn<bool>("seen");
    QTest::newRow("with shapes that are there") << true;
    QTest::newRow("with shapes that are still to come") << false;
}

void TstGraphicsComponent::python_draws_pictures_with_a_view_and_without()
{
    QFETCH(const bool, seen);
    enter(command("load", GEOMETRY));
    enter(command("load", GRAPHICS));
    enter(u"brick 10 20 30"_s);
    if (seen)
        QTRY_VERIFY(has_shapes());
    python_mode(true);
    const QString answer = enter(u"fennar.view('brick1', size=(80, 60))"_s);
    QVERIFY2(answer.contains(u"<picture of 80 x 60 pixels>"_s), qPrintable(answer));
    QVERIFY(has_shapes());
    QVERIFY(enter(u"_.png == fennar.view().png, fennar.view('brick1', size=(80, 60)).png == _.png"_s)
                .contains(u"(False, True)"_s));
    python_mode(false);
}

void TstGraphicsComponent::python_helps_and_counts_on_the_console()
{
    enter(command("load", GEOMETRY));
    python_mode(true);
    const QString help = enter(u"help(fennar.brick)"_s);
    QVERIFY2(help.contains(u"Makes a brick, or a cube."_s) && help.contains(u"at: Center ((x, y, z)"_s),
             qPrintable(help));
    enter(u"part = fennar.brick(10)"_s);
    QVERIFY(enter(u"len(part.faces), part.faces[0].number"_s).contains(u"(6, 1)"_s));
    python_mode(false);
}

OSTREL_TEST(TstGraphicsComponent)
#include "tst_graphicscomponent.moc"
