// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennar_util/AppUtil.h"
#include "host/fennari19/FennarInterface.h"
#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/CLParser.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/Mediator.h"
#include "hostdouble/HostDouble.h"
#include "support/TestCase.h"

#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

} // namespace

/** The recording host: tests of the shell believe what it says. */
class TstHostDouble : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void each_call_is_recorded_with_its_arguments_data();
    void each_call_is_recorded_with_its_arguments();
    void reset_takes_calls_and_answers_back();
    void calls_are_taken_once();
    void mediator_gives_the_answers_that_were_set();
    void mediator_keeps_what_the_shell_sets();
    void mediator_lets_a_test_act_inside_its_calls();
    void stream_keeps_text_and_window();
    void parser_and_python_give_the_answers_that_were_set();
    void playback_remembers_its_pause();
    void navigation_gives_messages_and_keeps_the_model();
    void panels_remember_where_the_user_is();
};

void TstHostDouble::set_up()
{
    host().reset();
}

void TstHostDouble::each_call_is_recorded_with_its_arguments_data()
{
    QTest::addColumn<std::function<void()>>("call");
    QTest::addColumn<QStringList>("recorded");
    const auto row = [](const char* name, const std::function<void()>& call, const QStringList& recorded) {
        QTest::newRow(name) << call << recorded;
    };

    row("request_exit", [] { Broker::instance()->request_exit(); }, {u"Mediator::request_exit()"_s});
    row("handle_new_event", [] { Broker::instance()->handle_new_event(); },
        {u"Mediator::handle_new_event()"_s});
    row("set_change_dir_on_playback", [] { Broker::instance()->set_change_dir_on_playback(true); },
        {u"Mediator::set_change_dir_on_playback(true)"_s});
    row("change_dir_on_playback", [] { Broker::instance()->change_dir_on_playback(); },
        {u"Mediator::change_dir_on_playback()"_s});
    row("trackers",
        [] {
            ComponentTracker tracker;
            Broker::instance()->add_component_tracker(&tracker);
            Broker::instance()->remove_component_tracker(&tracker);
        },
        {u"Mediator::add_component_tracker(set)"_s, u"Mediator::remove_component_tracker(set)"_s});
    row("get_components",
        [] {
            std::vector<ComponentRecord> components;
            Broker::instance()->get_components(components);
        },
        {u"Mediator::get_components()"_s});
    row("component path",
        [] {
            QString path;
            Broker::instance()->get_component_path(path);
            Broker::instance()->set_component_path(u"/a;/b"_s);
            Broker::instance()->get_component_directory(path);
        },
        {u"Mediator::get_component_path()"_s, u"Mediator::set_component_path(\"/a;/b\")"_s,
         u"Mediator::get_component_directory()"_s});
    row("stream",
        [] {
            Broker::command.set_command_window(nullptr);
            Broker::command << u"a"_s << u"b\n"_s;
        },
        {u"BrokerCommand::set_command_window(null)"_s, u"BrokerCommand::operator<<(\"a\")"_s,
         u"BrokerCommand::operator<<(\"b\n\")"_s});
    row("command line",
        [] {
            CLOptions::instance()->set_graphics_state(2);
            CLOptions::instance()->batch_mode();
        },
        {u"CLParser::set_graphics_state(2)"_s, u"CLParser::batch_mode()"_s});
    row("interpreters",
        [] {
            Framework::python_interpreter();
            FennarPythonInterpreter* python = Framework::user_python_interpreter();
            python->IsInitialized();
            python->Run_SimpleString("x = 1");
            python->Run_SimpleString(nullptr);
        },
        {u"Framework::python_interpreter()"_s, u"Framework::user_python_interpreter()"_s,
         u"FennarPythonInterpreter::IsInitialized()"_s,
         u"FennarPythonInterpreter::Run_SimpleString(\"x = 1\")"_s,
         u"FennarPythonInterpreter::Run_SimpleString(null)"_s});
    row("version of Python",
        [] {
            FennarPythonInterpreter* python = Framework::python_interpreter();
            python->version_major();
            python->version_minor();
            python->version_micro();
        },
        {u"Framework::python_interpreter()"_s, u"FennarPythonInterpreter::version_major()"_s,
         u"FennarPythonInterpreter::version_minor()"_s, u"FennarPythonInterpreter::version_micro()"_s});
    row("interrupt", [] { FennarInterface::app_util()->set_interrupt(true); },
        {u"FennarInterface::app_util()"_s, u"AppUtil::set_interrupt(true)"_s});
    row("playback",
        [] {
            FennarInterface::stop_playback();
            FennarInterface::pause_playback();
            FennarInterface::resume_playback();
            FennarInterface::is_playback_paused();
        },
        {u"FennarInterface::stop_playback()"_s, u"FennarInterface::pause_playback()"_s,
         u"FennarInterface::resume_playback()"_s, u"FennarInterface::is_playback_paused()"_s});
    row("mode", [] { FennarInterface::command_is_python_mode(); },
        {u"FennarInterface::command_is_python_mode()"_s});
    row("resources",
        [] {
            NavigationResourcesDelay resources;
            resources.recheckResources();
        },
        {u"NavigationResourcesDelay()"_s, u"NavigationResourcesDelay::recheckResources()"_s,
         u"~NavigationResourcesDelay()"_s});
    row("reader",
        [] {
            NavigationReader reader;
            reader.setResources(nullptr);
            reader.setModel(nullptr, nullptr, nullptr);
            reader.buildNavigation(u"/xml"_s, u".xml"_s);
        },
        {u"NavigationReader()"_s, u"NavigationReader::setResources(null)"_s,
         u"NavigationReader::setModel(null, null, null)"_s,
         u"NavigationReader::buildNavigation(\"/xml\", \".xml\")"_s, u"~NavigationReader()"_s});
    row("button rows",
        [] {
            NavigationModel model(nullptr);
            model.appendRow(new QStandardItem);
            CommandButtonPanel panel(nullptr);
            panel.set_model(&model, QModelIndex());
            panel.set_current_index(model.index(0, 0));
        },
        {u"CommandButtonPanel::CommandButtonPanel"_s, u"CommandButtonPanel::set_model(set, invalid)"_s,
         u"CommandButtonPanel::set_current_index(row 0)"_s});
    row("breadcrumbs",
        [] {
            BreadcrumbsPanel panel(nullptr);
            panel.set_model(nullptr, QModelIndex());
            panel.set_current_index(QModelIndex());
            panel.setUsingLargeIcons(true);
        },
        {u"BreadcrumbsPanel::BreadcrumbsPanel"_s, u"BreadcrumbsPanel::set_model(null, invalid)"_s,
         u"BreadcrumbsPanel::set_current_index(invalid)"_s, u"BreadcrumbsPanel::setUsingLargeIcons(true)"_s});
}

void TstHostDouble::each_call_is_recorded_with_its_arguments()
{
    QFETCH(const std::function<void()>, call);
    QFETCH(const QStringList, recorded);
    call();
    QCOMPARE(host().calls, recorded);
}

void TstHostDouble::reset_takes_calls_and_answers_back()
{
    host().batch_mode = true;
    host().navigation_messages = QStringList{u"trouble"_s};
    FennarInterface::pause_playback();
    host().reset();
    QCOMPARE(host().calls, QStringList());
    QVERIFY(!CLOptions::instance()->batch_mode());
    QVERIFY(!FennarInterface::is_playback_paused());
    QCOMPARE(host().navigation_messages, QStringList());
}

void TstHostDouble::calls_are_taken_once()
{
    FennarInterface::stop_playback();
    QCOMPARE(host().take_calls(), QStringList{u"FennarInterface::stop_playback()"_s});
    QCOMPARE(host().take_calls(), QStringList());
}

void TstHostDouble::mediator_gives_the_answers_that_were_set()
{
    host().change_dir_on_playback = true;
    host().components = {{u"mesher"_s, {}, {}, u"loaded"_s}};
    host().component_path = u"/a"_s;
    host().component_directory = u"/b"_s;
    Mediator* mediator = Broker::instance();
    QVERIFY(mediator->change_dir_on_playback());
    std::vector<ComponentRecord> components;
    mediator->get_components(components);
    QCOMPARE(components.size(), 1U);
    QCOMPARE(components[0].name, u"mesher"_s);
    QCOMPARE(components[0].state, u"loaded"_s);
    QString text;
    mediator->get_component_path(text);
    QCOMPARE(text, u"/a"_s);
    mediator->get_component_directory(text);
    QCOMPARE(text, u"/b"_s);
}

void TstHostDouble::mediator_keeps_what_the_shell_sets()
{
    Mediator* mediator = Broker::instance();
    mediator->set_change_dir_on_playback(true);
    QVERIFY(mediator->change_dir_on_playback());
    mediator->set_component_path(u"/c"_s);
    QString path;
    mediator->get_component_path(path);
    QCOMPARE(path, u"/c"_s);
    ComponentTracker first;
    ComponentTracker second;
    mediator->add_component_tracker(&first);
    mediator->add_component_tracker(&second);
    mediator->remove_component_tracker(&first);
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&second});
}

void TstHostDouble::mediator_lets_a_test_act_inside_its_calls()
{
    QStringList acted;
    host().on_handle_new_event = [&] { acted << u"event"_s << host().calls; };
    host().on_request_exit = [&] { acted << u"exit"_s; };
    Broker::instance()->handle_new_event();
    Broker::instance()->request_exit();
    QCOMPARE(acted, QStringList({u"event"_s, u"Mediator::handle_new_event()"_s, u"exit"_s}));
}

void TstHostDouble::stream_keeps_text_and_window()
{
    Broker::command << u"one "_s << u"two\n"_s;
    QCOMPARE(host().printed, u"one two\n"_s);
    auto* window = reinterpret_cast<OutputHandler*>(this); // only kept, never called
    Broker::command.set_command_window(window);
    QCOMPARE(host().command_window, window);
}

void TstHostDouble::parser_and_python_give_the_answers_that_were_set()
{
    host().batch_mode = true;
    QVERIFY(CLOptions::instance()->batch_mode());
    host().python_mode = true;
    QVERIFY(FennarInterface::command_is_python_mode());
    host().has_user_interpreter = false;
    QVERIFY(!Framework::user_python_interpreter());
    FennarPythonInterpreter* python = Framework::python_interpreter();
    QVERIFY(python->IsInitialized());
    host().python_initialized = false;
    QVERIFY(!python->IsInitialized());
    host().python_result = -1;
    QCOMPARE(python->Run_SimpleString("x"), -1);
    host().python_version[0] = 4;
    host().python_version[1] = 5;
    host().python_version[2] = 6;
    QCOMPARE(python->version_major(), 4);
    QCOMPARE(python->version_minor(), 5);
    QCOMPARE(python->version_micro(), 6);
}

void TstHostDouble::playback_remembers_its_pause()
{
    FennarInterface::pause_playback();
    QVERIFY(FennarInterface::is_playback_paused());
    FennarInterface::resume_playback();
    QVERIFY(!FennarInterface::is_playback_paused());
}

void TstHostDouble::navigation_gives_messages_and_keeps_the_model()
{
    host().navigation_messages = QStringList{u"trouble"_s};
    NavigationModel model(nullptr);
    NavigationResourcesDelay resources;
    resources.model = &model;
    NavigationReader reader;
    reader.setResources(&resources);
    reader.buildNavigation(u"/xml"_s, u".xml"_s);
    QCOMPARE(reader.messages, QStringList{u"trouble"_s});
    QCOMPARE(host().resources_model, &model);
    host().resources_model = nullptr;
    resources.recheckResources();
    QCOMPARE(host().resources_model, &model);
}

void TstHostDouble::panels_remember_where_the_user_is()
{
    NavigationModel model(nullptr);
    model.appendRow(new QStandardItem);
    const QModelIndex entry = model.index(0, 0);
    BreadcrumbsPanel crumbs(nullptr);
    CommandButtonPanel rows(nullptr);
    for (TaskPanel* panel : {static_cast<TaskPanel*>(&crumbs), static_cast<TaskPanel*>(&rows)}) {
        panel->set_model(&model, entry);
        QCOMPARE(panel->root_index(), entry);
        QCOMPARE(panel->current_index(), QModelIndex());
        panel->set_current_index(entry);
        QCOMPARE(panel->current_index(), entry);
    }
    crumbs.setUsingLargeIcons(true);
    QVERIFY(crumbs.usingLargeIcons);
}

OSTREL_TEST(TstHostDouble)
#include "tst_hostdouble.moc"
