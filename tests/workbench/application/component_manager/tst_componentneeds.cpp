// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

/** Components that need each other, and what is told of those that are not loaded. Without a window. */
class TstComponentNeeds : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override { mManager.reset(); }

private slots:
    void needed_components_are_loaded_first();
    void start_loads_needed_components_first();
    void needed_component_is_switched_on_with_the_one_that_needs_it();
    void component_that_needs_what_is_off_is_refused();
    void component_that_needs_what_is_not_there_is_refused();
    void component_that_needs_what_fails_is_refused_with_the_reason();
    void components_that_need_each_other_are_refused();
    void needed_component_stays_until_nothing_needs_it();
    void what_needs_others_goes_before_them_at_the_end();

    void command_of_an_unloaded_component_names_it();
    void command_of_a_component_that_cannot_be_loaded_names_nothing();
    void command_of_a_component_that_has_failed_tells_why();
    void other_words_are_taken_for_the_nearest_command();
    void without_a_manager_nobody_tells();

private:
    void offer(const QStringList& names);
    QStringList loaded();

    std::unique_ptr<ComponentManager> mManager;
    QString mReports;
};

void TstComponentNeeds::set_up()
{
    mReports.clear();
    qputenv("FENNAR_COMPONENT_PATH", temp_path(u"components"_s).toUtf8());
    QVERIFY(QDir().mkpath(temp_path(u"components"_s)));
    mManager = std::make_unique<ComponentManager>(Fennar::instance().interpreter(), temp_path(u"loading"_s));
    mManager->set_report([this](const QString& text) { mReports += text; });
}

void TstComponentNeeds::offer(const QStringList& names)
{
    for (const QString& name : names)
        QVERIFY(QFile::link(QStringLiteral(TEST_COMPONENTS) + u'/' + name + u".so"_s,
                            temp_path(u"components/"_s + name + u".so"_s)));
}

QStringList TstComponentNeeds::loaded()
{
    QStringList names;
    for (const ComponentManager::Component& component : mManager->components()) {
        if (component.state == ComponentManager::State::Loaded)
            names << component.name;
    }
    return names;
}

void TstComponentNeeds::needed_components_are_loaded_first()
{
    offer({u"a_needing"_s, u"needed"_s, u"needing_more"_s});
    QCOMPARE(mManager->load(u"needing_more"_s), QString());
    QCOMPARE(loaded(), (QStringList{u"a_needing"_s, u"needed"_s, u"needing_more"_s}));
    QCOMPARE(mReports, QString());
}

void TstComponentNeeds::start_loads_needed_components_first()
{
    offer({u"a_needing"_s, u"needed"_s, u"needing_more"_s, u"plain"_s});
    bool done = false;
    mManager->start([&done] { done = true; });
    QTRY_VERIFY(done);
    QCOMPARE(loaded().size(), 4);
    QCOMPARE(mReports, QString());
}

void TstComponentNeeds::needed_component_is_switched_on_with_the_one_that_needs_it()
{
    offer({u"a_needing"_s, u"needed"_s});
    QCOMPARE(mManager->load(u"needed"_s), QString());
    QCOMPARE(mManager->unload(u"needed"_s), QString());
    QCOMPARE(mManager->load(u"a_needing"_s), QString());
    mManager->unload_all();
    mManager->load_all();
    QCOMPARE(loaded().size(), 2);
}

void TstComponentNeeds::component_that_needs_what_is_off_is_refused()
{
    offer({u"a_needing"_s, u"needed"_s});
    QCOMPARE(mManager->load(u"needed"_s), QString());
    QCOMPARE(mManager->unload(u"needed"_s), QString());
    mManager->load_all();
    QCOMPARE(loaded(), QStringList());
    QVERIFY2(mReports.endsWith(u"not loaded: it needs the component \"needed\", which is off\n"_s),
             qPrintable(mReports));
    QCOMPARE(mReports.count(u'\n'), 1);
}

void TstComponentNeeds::component_that_needs_what_is_not_there_is_refused()
{
    offer({u"needing_none"_s});
    QCOMPARE(mManager->load(u"needing_none"_s),
             u"it needs the component \"nowhere\", which is not in the component path"_s);
    QCOMPARE(loaded(), QStringList());
}

void TstComponentNeeds::component_that_needs_what_fails_is_refused_with_the_reason()
{
    offer({u"needing_failing"_s, u"throwing"_s});
    QCOMPARE(mManager->load(u"needing_failing"_s),
             u"it needs the component \"throwing\", which is refused: it failed: out of luck"_s);
    QCOMPARE(loaded(), QStringList());
}

void TstComponentNeeds::components_that_need_each_other_are_refused()
{
    offer({u"circle"_s, u"circle_back"_s});
    QCOMPARE(mManager->load(u"circle"_s),
             u"it needs the component \"circle_back\", which is refused: it needs the component \"circle\", "
             "which needs it in turn"_s);
    QCOMPARE(loaded(), QStringList());
}

void TstComponentNeeds::needed_component_stays_until_nothing_needs_it()
{
    offer({u"a_needing"_s, u"needed"_s});
    QCOMPARE(mManager->load(u"a_needing"_s), QString());
    QCOMPARE(mManager->unload(u"needed"_s), u"the component \"a_needing\" needs it; unload that first"_s);
    QCOMPARE(loaded().size(), 2);
    QCOMPARE(mManager->unload(u"a_needing"_s), QString());
    QCOMPARE(mManager->unload(u"needed"_s), QString());
}

void TstComponentNeeds::what_needs_others_goes_before_them_at_the_end()
{
    offer({u"a_needing"_s, u"needed"_s, u"needing_more"_s});
    mManager->load_all();
    QStringList order;
    CommandEntities& entities = Fennar::instance().registry().entities();
    connect(&entities, &CommandEntities::changed, &entities, [&](const QString& kind) {
        if (kind == "command"_L1)
            order << Fennar::instance().registry().names().filter(u"need"_s).join(u' ');
    });
    mManager->unload_all();
    disconnect(&entities, nullptr, &entities, nullptr);
    QCOMPARE(order, (QStringList{u"a_needing needed"_s, u"needed"_s, QString()}));
}

void TstComponentNeeds::command_of_an_unloaded_component_names_it()
{
    offer({u"needed"_s});
    QCOMPARE(run_line(u"needed"_s),
             u"ERROR: needed: column 1: expected a command, found \"needed\"; it comes with the component "
             "\"needed\", which \"load needed\" loads\n"_s);
    QVERIFY(run_line(u"help needed-more"_s).contains(u"which \"load needed\" loads"_s));
    QCOMPARE(mManager->load(u"needed"_s), QString());
    QCOMPARE(run_line(u"needed"_s), u"needed ran\n"_s);
    QCOMPARE(mManager->unload(u"needed"_s), QString());
    QVERIFY(run_line(u"needed"_s).contains(u"which \"load needed\" loads"_s));
}

void TstComponentNeeds::command_of_a_component_that_cannot_be_loaded_names_nothing()
{
    offer({u"old_kit"_s});
    QVERIFY(!run_line(u"old_kit"_s).contains(u"it comes with"_s));
}

void TstComponentNeeds::command_of_a_component_that_has_failed_tells_why()
{
    offer({u"needing_failing"_s, u"throwing"_s});
    const std::vector<ComponentRecord> records = mManager->component_records();
    QVERIFY2(records[0].text3.endsWith(u"/needing_failing.so\nCommands: needing_failing\nNeeds: throwing"_s),
             qPrintable(records[0].text3));
    QVERIFY(run_line(u"needing_failing"_s).contains(u"which \"load needing_failing\" loads"_s));
    const QString reason = mManager->load(u"needing_failing"_s);
    QVERIFY(!reason.isEmpty());
    const QString told = run_line(u"needing_failing"_s);
    QVERIFY2(told.endsWith(
                 u"; it comes with the component \"needing_failing\", which is refused: %1\n"_s.arg(reason)),
             qPrintable(told));
}

void TstComponentNeeds::other_words_are_taken_for_the_nearest_command()
{
    offer({u"needed"_s});
    QCOMPARE(mManager->load(u"needed"_s), QString());
    QVERIFY2(run_line(u"neede"_s).endsWith(u"did you mean \"needed\"?\n"_s),
             qPrintable(run_line(u"neede"_s)));
}

void TstComponentNeeds::without_a_manager_nobody_tells()
{
    offer({u"needed"_s});
    QVERIFY(run_line(u"needed"_s).contains(u"which \"load needed\" loads"_s));
    mManager.reset();
    QVERIFY(!run_line(u"needed"_s).contains(u"load"_s));
}

OSTREL_TEST(TstComponentNeeds)
#include "tst_componentneeds.moc"
