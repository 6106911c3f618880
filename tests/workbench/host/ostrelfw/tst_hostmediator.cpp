// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "support/TestCase.h"
#include "workbench/host/ostrelfw/HostMediator.h"

#include <QCoreApplication>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstHostMediator : public TestCase
{
    Q_OBJECT

protected:
    void tear_down() override;

private slots:
    void broker_hands_it_out();
    void exit_request_reaches_the_handler();
    void new_event_reaches_the_handler();
    void requests_without_a_handler_do_nothing();
    void playback_directory_rule_is_kept();
    void trackers_stay_in_order_and_are_added_once();
    void unknown_and_null_trackers_are_ignored();
    void there_are_no_components();
    void component_path_is_kept();
    void search_for_components_starts_beside_the_program();
    void source_answers_for_the_components();
    void trackers_are_told_in_order_of_their_registration();
};

void TstHostMediator::tear_down()
{
    HostMediator::instance().set_exit_handler(nullptr);
    HostMediator::instance().set_event_handler(nullptr);
}

void TstHostMediator::broker_hands_it_out()
{
    QCOMPARE(Broker::instance(), &HostMediator::instance());
}

void TstHostMediator::exit_request_reaches_the_handler()
{
    int requests = 0;
    HostMediator::instance().set_exit_handler([&] { ++requests; });
    Broker::instance()->request_exit();
    QCOMPARE(requests, 1);
}

void TstHostMediator::new_event_reaches_the_handler()
{
    int events = 0;
    HostMediator::instance().set_event_handler([&] { ++events; });
    Broker::instance()->handle_new_event();
    Broker::instance()->handle_new_event();
    QCOMPARE(events, 2);
}

void TstHostMediator::requests_without_a_handler_do_nothing()
{
    bool called = false;
    HostMediator::instance().set_exit_handler([&] { called = true; });
    HostMediator::instance().set_exit_handler(nullptr);
    Broker::instance()->request_exit();
    Broker::instance()->handle_new_event();
    QVERIFY(!called);
}

void TstHostMediator::playback_directory_rule_is_kept()
{
    QVERIFY(!Broker::instance()->change_dir_on_playback());
    Broker::instance()->set_change_dir_on_playback(true);
    QVERIFY(Broker::instance()->change_dir_on_playback());
    Broker::instance()->set_change_dir_on_playback(false);
    QVERIFY(!Broker::instance()->change_dir_on_playback());
}

void TstHostMediator::trackers_stay_in_order_and_are_added_once()
{
    ComponentTracker first;
    ComponentTracker second;
    HostMediator& mediator = HostMediator::instance();
    mediator.add_component_tracker(&first);
    mediator.add_component_tracker(&second);
    mediator.add_component_tracker(&first);
    QCOMPARE(mediator.trackers(), (std::vector<ComponentTracker*>{&first, &second}));
    mediator.remove_component_tracker(&first);
    QCOMPARE(mediator.trackers(), std::vector<ComponentTracker*>{&second});
    mediator.remove_component_tracker(&second);
    QVERIFY(mediator.trackers().empty());
}

void TstHostMediator::unknown_and_null_trackers_are_ignored()
{
    ComponentTracker known;
    ComponentTracker unknown;
    HostMediator& mediator = HostMediator::instance();
    mediator.add_component_tracker(&known);
    mediator.add_component_tracker(nullptr);
    mediator.remove_component_tracker(&unknown);
    mediator.remove_component_tracker(nullptr);
    QCOMPARE(mediator.trackers(), std::vector<ComponentTracker*>{&known});
    mediator.remove_component_tracker(&known);
}

void TstHostMediator::there_are_no_components()
{
    std::vector<ComponentRecord> components(3);
    Broker::instance()->get_components(components);
    QVERIFY(components.empty());
}

void TstHostMediator::component_path_is_kept()
{
    Broker::instance()->set_component_path(u"/a;/b c"_s);
    QString path;
    Broker::instance()->get_component_path(path);
    QCOMPARE(path, u"/a;/b c"_s);
    Broker::instance()->set_component_path({});
    Broker::instance()->get_component_path(path);
    QCOMPARE(path, QString());
}

void TstHostMediator::search_for_components_starts_beside_the_program()
{
    QString directory;
    Broker::instance()->get_component_directory(directory);
    QCOMPARE(directory, QCoreApplication::applicationDirPath());
}

void TstHostMediator::source_answers_for_the_components()
{
    class Source : public ComponentSource
    {
    public:
        std::vector<ComponentRecord> component_records() override
        {
            return {{u"gear"_s, {}, {}, u"loaded"_s, 0}};
        }
        QString component_path() const override { return path; }
        void set_component_path(const QString& new_path) override { path = new_path; }
        QString component_directory() const override { return u"/directory"_s; }
        QString path = u"/a;/b"_s;
    };
    Source source;
    HostMediator::instance().set_component_source(&source);
    std::vector<ComponentRecord> records(3);
    QString path;
    QString directory;
    Broker::instance()->get_components(records);
    Broker::instance()->get_component_path(path);
    Broker::instance()->get_component_directory(directory);
    Broker::instance()->set_component_path(u"/c"_s);
    HostMediator::instance().set_component_source(nullptr);
    QCOMPARE(records.size(), 1U);
    QCOMPARE(records[0].name, u"gear"_s);
    QCOMPARE(path, u"/a;/b"_s);
    QCOMPARE(directory, u"/directory"_s);
    QCOMPARE(source.path, u"/c"_s);
}

void TstHostMediator::trackers_are_told_in_order_of_their_registration()
{
    static QStringList told;
    told.clear();
    class Tracker : public ComponentTracker
    {
    public:
        explicit Tracker(const QString& name) : mName(name)
        {
            HostMediator::instance().add_component_tracker(this);
        }
        ~Tracker() override { HostMediator::instance().remove_component_tracker(this); }
        void component_unloading(const char* name) override { told << mName + QString::fromUtf8(name); }

    private:
        QString mName;
    };
    const Tracker first(u"first "_s);
    const Tracker second(u"second "_s);
    HostMediator::instance().tell_trackers(&ComponentTracker::component_unloading, u"gear"_s);
    HostMediator::instance().tell_trackers(&ComponentTracker::component_loading, u"gear"_s);
    QCOMPARE(told, (QStringList{u"first gear"_s, u"second gear"_s}));
}

OSTREL_TEST(TstHostMediator)
#include "tst_hostmediator.moc"
