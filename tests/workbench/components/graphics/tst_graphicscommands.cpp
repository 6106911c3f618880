// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "boxes.h"
#include "support/TestCase.h"
#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/components/graphics/graphics_commands.h"
#include "workbench/sdk/core/commands/CommandSession.h"

#include <QTest>

using namespace fennar;
using namespace fennar::graphics;
using namespace Qt::StringLiterals;

class TstGraphicsCommands : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void view_turns_the_camera_and_fits();
    void fit_keeps_the_direction();
    void display_sets_and_tells();
    void wrong_words_change_nothing_data();
    void wrong_words_change_nothing();
    void every_command_is_explained();
    void taken_name_of_a_command_adds_none();

private:
    QString run(const QString& line)
    {
        mSession->interpreter.run(line);
        return mSession->take_errors() + mSession->take_output();
    }

    std::unique_ptr<Scene> mScene;
    std::unique_ptr<GraphicsState> mState;
    std::unique_ptr<CommandSession> mSession;
};

void TstGraphicsCommands::set_up()
{
    mSession = std::make_unique<CommandSession>();
    mScene = std::make_unique<Scene>();
    mState = std::make_unique<GraphicsState>(*mScene);
    QVERIFY(register_graphics_commands(mSession->registry, u"graphics"_s, *mState));
}

void TstGraphicsCommands::view_turns_the_camera_and_fits()
{
    add_box(*mScene, u"a"_s, {100, 0, 0}, {2, 2, 2});
    QVERIFY(!mState->camera().contains(mScene->box()));
    const std::pair<const char*, Point3> views[] = {{"front", {0, -1, 0}}, {"back", {0, 1, 0}},
                                                    {"left", {-1, 0, 0}},  {"right", {1, 0, 0}},
                                                    {"top", {0, 0, 1}},    {"bottom", {0, 0, -1}}};
    for (const auto& [name, back] : views) {
        QCOMPARE(run(u"view "_s + QLatin1StringView(name)), QString());
        QVERIFY(mState->camera().back() == back);
        QVERIFY(mState->camera().contains(mScene->box()));
    }
    QCOMPARE(run(u"view iso"_s), QString());
    QVERIFY(std::abs(mState->camera().back().x + mState->camera().back().y) < 1e-12);
}

void TstGraphicsCommands::fit_keeps_the_direction()
{
    run(u"view left"_s);
    add_box(*mScene, u"a"_s, {100, 0, 0}, {2, 2, 2});
    QCOMPARE(run(u"fit"_s), QString());
    QVERIFY(mState->camera().contains(mScene->box()));
    QVERIFY((mState->camera().back() == Point3{-1, 0, 0}));
}

void TstGraphicsCommands::display_sets_and_tells()
{
    QCOMPARE(run(u"display"_s), u"shaded on, wireframe on, mesh on, opengl on (not in use)\n"_s);
    mState->set_has_opengl(true);
    QCOMPARE(run(u"display"_s), u"shaded on, wireframe on, mesh on, opengl on\n"_s);
    QCOMPARE(run(u"display shaded off"_s) + run(u"display wireframe off"_s) + run(u"display mesh off"_s) +
                 run(u"display opengl off"_s),
             QString());
    QCOMPARE(run(u"display"_s), u"shaded off, wireframe off, mesh off, opengl off\n"_s);
    QCOMPARE(run(u"display shaded on"_s) + run(u"display mesh on"_s), QString());
    QVERIFY(mState->display().shaded && !mState->display().wireframe && mState->display().mesh);
}

void TstGraphicsCommands::wrong_words_change_nothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("no view") << u"view"_s
                             << u"\"front\", \"back\", \"left\", \"right\", \"top\", \"bottom\" or \"iso\""_s;
    QTest::newRow("unknown view") << u"view up"_s << u"found \"up\""_s;
    QTest::newRow("two views") << u"view top left"_s << u"found \"left\""_s;
    QTest::newRow("fit what") << u"fit a"_s << u"found \"a\""_s;
    QTest::newRow("display what") << u"display faces on"_s << u"found \"faces\""_s;
    QTest::newRow("display how") << u"display mesh"_s << u"\"on\" or \"off\""_s;
    QTest::newRow("neither on nor off") << u"display mesh yes"_s << u"found \"yes\""_s;
    QTest::newRow("too much") << u"display mesh on off"_s << u"found \"off\""_s;
}

void TstGraphicsCommands::wrong_words_change_nothing()
{
    QFETCH(const QString, line);
    QFETCH(const QString, error);
    add_box(*mScene, u"a"_s, {100, 0, 0}, {2, 2, 2});
    const Camera camera = mState->camera();
    const DisplayOptions display = mState->display();
    const QString answer = run(line);
    QVERIFY2(answer.contains(error), qPrintable(answer));
    QVERIFY(mState->camera() == camera);
    QVERIFY(mState->display() == display);
}

void TstGraphicsCommands::every_command_is_explained()
{
    QCOMPARE(mSession->registry.names(), QStringList({u"display"_s, u"fit"_s, u"note"_s, u"view"_s}));
    for (const QString& name : {u"display"_s, u"fit"_s, u"view"_s}) {
        const auto command = mSession->registry.find(name);
        QVERIFY(command->usage().startsWith(name));
        QVERIFY(command->summary.endsWith(u'.'));
        QCOMPARE(command->owner, u"graphics"_s);
    }
}

void TstGraphicsCommands::taken_name_of_a_command_adds_none()
{
    CommandSession session;
    session.add("display", [](CommandCall&) {});
    QVERIFY(!register_graphics_commands(session.registry, u"graphics"_s, *mState));
    QCOMPARE(session.registry.names(), QStringList({u"display"_s, u"note"_s}));
}

OSTREL_TEST(TstGraphicsCommands)
#include "tst_graphicscommands.moc"
