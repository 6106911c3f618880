// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "support/describe_window.h"
#include "support/dialogs.h"
#include "support/patience.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/component_manager/component_commands.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/sdk/component/describe_program.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"
#include "workbench/sdk/core/files/FormatRegistry.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

class RecordingTracker : public ComponentTracker
{
public:
    RecordingTracker() { Broker::instance()->add_component_tracker(this); }
    ~RecordingTracker() override { Broker::instance()->remove_component_tracker(this); }

    void component_loading(const char* name) override { record(u"loading"_s, name); }
    void component_loaded(const char* name) override { record(u"loaded"_s, name); }
    void component_unloading(const char* name) override { record(u"unloading"_s, name); }
    void component_unloaded(const char* name) override { record(u"unloaded"_s, name); }

    QStringList calls;
    /** The state word that the list of components had at each call. */
    QStringList states;

private:
    void record(const QString& step, const char* name)
    {
        calls << step + u' ' + QString::fromUtf8(name);
        std::vector<ComponentRecord> records;
        Broker::instance()->get_components(records);
        for (const ComponentRecord& one : records) {
            if (one.name == QLatin1StringView(name))
                states << one.state;
        }
    }
};

void run_deferred_deletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QStringList commands()
{
    return Fennar::instance().registry().names();
}

/** The program, and how many trackers there are. */
QStringList describe()
{
    QStringList rows = describe_program();
    rows << u"trackers %1"_s.arg(HostMediator::instance().trackers().size());
    return rows;
}

QAction* action_named(const QString& name)
{
    for (QWidget* widget : Ostrel::instance()->findChildren<QWidget*>()) {
        for (QAction* action : widget->actions()) {
            if (action->objectName() == name)
                return action;
        }
    }
    qFatal("no action %s", qPrintable(name));
}

} // namespace

class TstComponentManager : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void initTestCase();
    void cleanupTestCase();

    void components_tell_of_themselves_before_they_are_loaded();
    void first_directory_of_the_path_comes_first();
    void load_and_unload_tell_trackers_in_order();
    void state_words_select_the_icons();
    void main_window_and_navigation_hear_of_a_loaded_component();
    void tracker_may_leave_while_trackers_are_told();
    void command_of_a_component_runs_until_it_is_unloaded();
    void file_outside_the_path_is_loaded_by_its_name();
    void name_or_file_that_does_not_exist_is_refused();
    void component_is_loaded_once();
    void bad_components_are_refused_by_name_and_reason_data();
    void bad_components_are_refused_by_name_and_reason();
    void file_that_is_no_plugin_is_refused();
    void taken_name_is_refused_and_the_owner_named();
    void component_that_throws_leaves_nothing_data();
    void component_that_throws_leaves_nothing();
    void what_goes_round_the_context_is_found_by_its_description();
    void component_that_left_commands_behind_is_loaded_again();
    void unsaved_data_of_a_component_is_asked_about_before_it_goes_data();
    void unsaved_data_of_a_component_is_asked_about_before_it_goes();
    void unsaved_data_of_another_component_is_not_asked_about();
    void deferred_deletions_are_no_forgetting();
    void component_that_throws_at_its_end_is_unloaded();
    void running_command_keeps_its_component();
    void open_modal_dialog_keeps_all_components();
    void open_dialog_of_a_component_goes_with_it();
    void component_stays_off_until_it_is_loaded_by_name();
    void run_that_remembers_nothing_leaves_the_choice_alone();
    void crashed_component_is_left_out_and_can_be_turned_on();
    void changed_file_is_refused_until_the_next_start();
    void start_loads_in_turns_of_the_event_loop();
    void start_waits_for_a_running_command();
    void last_loaded_is_unloaded_first();
    void path_is_kept_in_the_settings();
    void path_of_the_environment_is_for_one_run();
    void records_are_filled_for_the_plugin_tool();
    void commands_list_load_and_unload();
    void commands_report_refusals_with_the_column();
    void without_a_window_there_are_commands_only();
    void hundred_cycles_leave_the_program_as_it_was_data();
    void hundred_cycles_leave_the_program_as_it_was();
    void components_add_the_commands_that_their_metadata_tell_data();
    void components_add_the_commands_that_their_metadata_tell();

private:
    /** Puts test components into the component path. */
    void offer(const QStringList& names, const QString& folder = u"a"_s);
    QString file(const QString& name) const
    {
        return QStringLiteral(TEST_COMPONENTS) + u'/' + name + u".so"_s;
    }
    void make_manager();
    ComponentManager::Component about(const QString& name);
    /** What a component has left outside of the window. */
    static void take_back_what_is_left(const QString& name);

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<MainFrame> mFrame;
    std::unique_ptr<ComponentManager> mManager;
    QString mReports;
};

void TstComponentManager::initTestCase()
{
    PythonRuntime::start({});
    set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()), nullptr);
}

void TstComponentManager::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mReports.clear();
    qputenv("FENNAR_COMPONENT_PATH", {});
    mFrame = std::make_unique<MainFrame>();
    QVERIFY(mFrame->load_gui());
    // As the workbench does.
    Ostrel::instance()->options()->add_panel(u"Plugins"_s, nullptr);
    make_manager();
}

void TstComponentManager::tear_down()
{
    mManager.reset();
    if (mFrame)
        mFrame->unload_gui();
    mFrame.reset();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        delete window;
}

void TstComponentManager::cleanupTestCase()
{
    set_framework_interpreters(nullptr, nullptr);
    PythonRuntime::stop();
}

void TstComponentManager::make_manager()
{
    mManager.reset();
    mManager = std::make_unique<ComponentManager>(Fennar::instance().interpreter(),
                                                  mDirectory->filePath(u"loading"_s));
    mManager->set_report([this](const QString& text) { mReports += text; });
}

void TstComponentManager::offer(const QStringList& names, const QString& folder)
{
    const QString path = mDirectory->filePath(folder);
    QVERIFY(QDir().mkpath(path));
    for (const QString& name : names)
        QVERIFY2(QFile::exists(file(name)) && QFile::link(file(name), path + u'/' + name + u".so"_s),
                 qPrintable(name));
    const QByteArray before = qgetenv("FENNAR_COMPONENT_PATH");
    qputenv("FENNAR_COMPONENT_PATH", before.isEmpty() ? path.toUtf8() : before + ';' + path.toUtf8());
}

ComponentManager::Component TstComponentManager::about(const QString& name)
{
    for (const ComponentManager::Component& component : mManager->components()) {
        if (component.name == name)
            return component;
    }
    return {};
}

void TstComponentManager::take_back_what_is_left(const QString& name)
{
    Ostrel::instance()->set_graphics_widget(nullptr);
    Ostrel::instance()->file_menu()->set_open_save_handler(nullptr);
    Ostrel::instance()->file_menu()->remove_component_items(name.toUtf8().constData());
    OstrelFileMenu::set_file_name({});
    Fennar::instance().registry().remove(name + u"-other"_s);
    Fennar::instance().registry().remove_owner(name);
    FormatRegistry::instance().remove_owner(name);
    UnsavedWorks::instance().remove_owner(name);
    // Of all that this test knows, the last one added is the component's.
    Broker::instance()->remove_component_tracker(HostMediator::instance().trackers().back());
}

void TstComponentManager::components_tell_of_themselves_before_they_are_loaded()
{
    offer({u"second"_s, u"plain"_s});
    QFile other(mDirectory->filePath(u"a/readme.txt"_s));
    QVERIFY(other.open(QIODevice::WriteOnly));
    const std::vector<ComponentManager::Component> known = mManager->components();
    QCOMPARE(known.size(), 2U);
    QCOMPARE(known[0].name, u"plain"_s);
    QCOMPARE(known[0].file, QFileInfo(file(u"plain"_s)).canonicalFilePath());
    QCOMPARE(known[0].version, u"2.5"_s);
    QCOMPARE(known[0].state, ComponentManager::State::Unloaded);
    QCOMPARE(known[1].name, u"second"_s);
}

void TstComponentManager::first_directory_of_the_path_comes_first()
{
    offer({u"second"_s}, u"z"_s);
    offer({u"plain"_s}, u"a"_s);
    const std::vector<ComponentManager::Component> known = mManager->components();
    QCOMPARE(known.size(), 2U);
    QCOMPARE(known[0].name, u"second"_s);
    QCOMPARE(known[1].name, u"plain"_s);
}

void TstComponentManager::load_and_unload_tell_trackers_in_order()
{
    offer({u"plain"_s});
    const RecordingTracker tracker;
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(tracker.calls, (QStringList{u"loading plain"_s, u"loaded plain"_s}));
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QCOMPARE(tracker.calls,
             (QStringList{u"loading plain"_s, u"loaded plain"_s, u"unloading plain"_s, u"unloaded plain"_s}));
    QCOMPARE(mReports, QString());
}

void TstComponentManager::state_words_select_the_icons()
{
    offer({u"plain"_s});
    const RecordingTracker tracker;
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QCOMPARE(tracker.states, (QStringList{u"loading"_s, u"loaded"_s, u"unloading"_s, u"unloaded"_s}));
    for (const QString& state : tracker.states) {
        const QString icon = u":/ostrelgui/images/light/"_s + state + u"_ot.svg"_s;
        QCOMPARE(QFile::exists(icon), state != "unloaded"_L1);
    }
}

void TstComponentManager::main_window_and_navigation_hear_of_a_loaded_component()
{
    offer({u"plain"_s});
    QStringList heard;
    connect(Ostrel::instance(), &Ostrel::componentLoaded, this, [&heard](const char* name) {
        heard << QString::fromUtf8(name) + (is_component_loaded(u"plain"_s) ? u" known"_s : u" unknown"_s);
    });
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(heard, QStringList{u"plain known"_s});
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QVERIFY(!is_component_loaded(u"plain"_s));
}

void TstComponentManager::tracker_may_leave_while_trackers_are_told()
{
    class Leaving : public ComponentTracker
    {
    public:
        void component_loading(const char*) override
        {
            other.reset();
            Broker::instance()->remove_component_tracker(this);
        }
        std::unique_ptr<RecordingTracker> other;
    };
    offer({u"plain"_s});
    Leaving leaving;
    Broker::instance()->add_component_tracker(&leaving);
    leaving.other = std::make_unique<RecordingTracker>();
    const RecordingTracker last;
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(last.calls, (QStringList{u"loading plain"_s, u"loaded plain"_s}));
}

void TstComponentManager::command_of_a_component_runs_until_it_is_unloaded()
{
    offer({u"plain"_s});
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(run_line(u"plain"_s), u"plain ran\n"_s);
    QCOMPARE(about(u"plain"_s).version, u"2.5"_s);
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QVERIFY(run_line(u"plain"_s).startsWith(u"ERROR: plain: column 1: expected a command"_s));
}

void TstComponentManager::file_outside_the_path_is_loaded_by_its_name()
{
    QString name;
    QCOMPARE(mManager->load(file(u"second"_s), &name), QString());
    QCOMPARE(name, u"second"_s);
    QCOMPARE(about(u"second"_s).state, ComponentManager::State::Loaded);
    QCOMPARE(run_line(u"second"_s), u"second ran\n"_s);
}

void TstComponentManager::name_or_file_that_does_not_exist_is_refused()
{
    QCOMPARE(mManager->load(u"plain"_s), u"there is no component \"plain\" in the component path"_s);
    QCOMPARE(mManager->load(u"/no/such.so"_s), u"there is no file \"/no/such.so\""_s);
    QCOMPARE(mManager->load(u"/tmp/"_s), u"there is no file \"/tmp/\""_s);
    QCOMPARE(mManager->load({}), u"there is no component \"\" in the component path"_s);
    QCOMPARE(mManager->unload(u"plain"_s), u"there is no component \"plain\""_s);
    offer({u"plain"_s});
    QCOMPARE(mManager->unload(u"plain"_s), u"the component \"plain\" is not loaded"_s);
}

void TstComponentManager::component_is_loaded_once()
{
    offer({u"plain"_s});
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(mManager->load(u"plain"_s), u"the component \"plain\" is loaded"_s);
    QCOMPARE(mManager->load(file(u"plain"_s)), u"the component \"plain\" is loaded"_s);
    mManager->load_all();
    QCOMPARE(mReports, QString());
}

void TstComponentManager::bad_components_are_refused_by_name_and_reason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no metadata") << u"no_metadata"_s << u"not a component: "_s;
    QTest::newRow("another plugin") << u"foreign"_s
                                    << u"not a component, but a plugin of the kind \"other.Plugin\""_s;
    QTest::newRow("other kit") << u"old_kit"_s
                               << u"it was made with version 0.1.7 of the component kit; this program has "
                                  "version " FENNAR_SDK_VERSION ""_s;
    QTest::newRow("no kit") << u"no_kit"_s
                            << u"it was made with version (none) of the component kit; this program has "_s;
    QTest::newRow("bad name") << u"bad_name"_s << u"\"Bad Name\" is not a valid component name"_s;
    QTest::newRow("no name") << u"no_name"_s << u"\"\" is not a valid component name"_s;
    QTest::newRow("name of the program")
        << u"reserved"_s << u"the name \"workbench\" is taken by the program"_s;
    QTest::newRow("no object") << u"no_object"_s << u"its plugin holds no component"_s;
}

void TstComponentManager::bad_components_are_refused_by_name_and_reason()
{
    QFETCH(const QString, name);
    QFETCH(const QString, reason);
    offer({name, u"second"_s});
    const RecordingTracker tracker;
    const QStringList before = describe();
    mManager->load_all();
    QVERIFY2(mReports.startsWith(u"ERROR: component \"%1\" (%2): not loaded: %3"_s.arg(
                 name, QFileInfo(file(name)).canonicalFilePath(), reason)),
             qPrintable(mReports));
    QCOMPARE(mReports.count(u'\n'), 1);
    QCOMPARE(about(name).state, ComponentManager::State::Unloaded);
    QVERIFY(about(name).refusal.startsWith(reason));
    QVERIFY(mManager->load(name).startsWith(reason));
    // The next one is loaded all the same.
    QCOMPARE(tracker.calls, (QStringList{u"loading second"_s, u"loaded second"_s}));
    QCOMPARE(mManager->unload(u"second"_s), QString());
    QCOMPARE(describe(), before);
}

void TstComponentManager::file_that_is_no_plugin_is_refused()
{
    offer({});
    QFile text(mDirectory->filePath(u"a/text.so"_s));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("not a shared object");
    text.close();
    mManager->load_all();
    QVERIFY2(mReports.contains(u"component \"text\" ("_s) &&
                 mReports.contains(u"not loaded: not a component: "_s),
             qPrintable(mReports));
}

void TstComponentManager::taken_name_is_refused_and_the_owner_named()
{
    offer({u"plain"_s, u"twin"_s});
    mManager->load_all();
    QVERIFY2(mReports.contains(QFileInfo(file(u"twin"_s)).canonicalFilePath()) &&
                 mReports.contains(u"the name \"plain\" is taken by "_s +
                                   QFileInfo(file(u"plain"_s)).canonicalFilePath()),
             qPrintable(mReports));
    // It can have the name once that is free.
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QCOMPARE(mManager->load(file(u"twin"_s)), QString());
    QVERIFY(mManager->load(file(u"plain"_s)).contains(u"twin.so"_s));
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QCOMPARE(about(u"plain"_s).state, ComponentManager::State::Unloaded);
}

void TstComponentManager::component_that_throws_leaves_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a standard exception") << u"throwing"_s << u"it failed: out of luck"_s;
    QTest::newRow("anything else") << u"throwing_other"_s << u"it failed: an exception of an unknown kind"_s;
}

void TstComponentManager::component_that_throws_leaves_nothing()
{
    QFETCH(const QString, name);
    QFETCH(const QString, reason);
    offer({name});
    const QStringList before = describe();
    RecordingTracker tracker;
    QCOMPARE(mManager->load(name), reason);
    QCOMPARE(tracker.calls, (QStringList{u"loading "_s + name, u"unloaded "_s + name}));
    Broker::instance()->remove_component_tracker(&tracker);
    QCOMPARE(describe(), before);
    QVERIFY(!is_component_loaded(name));
    QCOMPARE(about(name).refusal, reason);
    mManager->load_all();
    QVERIFY2(mReports.contains(u"not loaded: "_s + reason), qPrintable(mReports));
}

void TstComponentManager::what_goes_round_the_context_is_found_by_its_description()
{
    offer({u"forgetful"_s});
    Ostrel* window = Ostrel::instance();
    window->update_title();
    const QStringList before = describe();
    QCOMPARE(mManager->load(u"forgetful"_s), QString());
    QCOMPARE(mManager->unload(u"forgetful"_s), QString());
    QCOMPARE(mReports, QString());
    const QStringList left = added_lines(before, describe());
    for (const QString& forgotten : {u"command forgetful-command"_s,
                                     u"command forgetful-other"_s,
                                     u"trackers "_s,
                                     u"format LEFT"_s,
                                     u"unsaved work left"_s,
                                     u"graphics widget"_s,
                                     u"console page Left"_s,
                                     u"left entry"_s,
                                     u"left view"_s,
                                     u"left tool"_s,
                                     u"left help"_s,
                                     u"left button"_s,
                                     u"left button 5"_s,
                                     u"LeftDock"_s,
                                     u"Ctrl+Shift+L"_s,
                                     u"leftLabel"_s,
                                     u"leftAbout"_s,
                                     u"window leftWindow"_s,
                                     u"left in the bar"_s,
                                     u"\nopen/save handler"_s,
                                     u"imports Left (*.left)"_s,
                                     u"exports Left Out (*.lft)"_s,
                                     u"file left.file"_s,
                                     u"left import"_s,
                                     u"options Left Group/Left Page"_s,
                                     u"options Left Top"_s})
        QVERIFY2(left.join(u'\n').contains(forgotten), qPrintable(forgotten + u" in "_s + left.join(u'\n')));
    // What is left can be used, and goes with the window.
    action_named(u"left entry"_s)->trigger();
    run_line(u"forgetful-command"_s);
    take_back_what_is_left(u"forgetful"_s);
    QCOMPARE(added_lines(before, describe()).filter(u"command"_s), QStringList());
}

void TstComponentManager::component_that_left_commands_behind_is_loaded_again()
{
    offer({u"forgetful"_s});
    CommandRegistry& registry = Fennar::instance().registry();
    QCOMPARE(mManager->load(u"forgetful"_s), QString());
    const auto first = registry.find(u"forgetful-command"_s);
    QVERIFY(first);
    QCOMPARE(mManager->unload(u"forgetful"_s), QString());
    QCOMPARE(registry.find(u"forgetful-command"_s), first);
    QCOMPARE(mManager->load(u"forgetful"_s), QString());
    QVERIFY(registry.find(u"forgetful-command"_s) && registry.find(u"forgetful-command"_s) != first);
    QCOMPARE(mManager->unload(u"forgetful"_s), QString());
    take_back_what_is_left(u"forgetful"_s);
}

void TstComponentManager::unsaved_data_of_a_component_is_asked_about_before_it_goes_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("goes");
    QTest::newRow("no") << u"mNoButton"_s << true;
    QTest::newRow("cancel") << u"mCancelButton"_s << false;
    QTest::newRow("yes") << u"mYesButton"_s << true;
}

void TstComponentManager::unsaved_data_of_a_component_is_asked_about_before_it_goes()
{
    QFETCH(const QString, button);
    QFETCH(const bool, goes);
    offer({u"document"_s});
    QCOMPARE(mManager->load(u"document"_s), QString());
    run_line(u"change"_s);
    DialogDriver driver;
    QString meanwhile;
    driver.expect(u"MessageSettingBox"_s, [&](QWidget* dialog) {
        meanwhile = mManager->unload(u"document"_s);
        press(button)(dialog);
    });
    QCOMPARE(mManager->unload(u"document"_s),
             goes ? QString() : u"the component \"document\" holds unsaved data"_s);
    QVERIFY(driver.finish());
    QVERIFY(!meanwhile.isEmpty());
    QCOMPARE(about(u"document"_s).state,
             goes ? ComponentManager::State::Unloaded : ComponentManager::State::Loaded);
    QCOMPARE(about(u"document"_s).off, goes);
    if (!goes) {
        Ostrel::instance()->file_menu()->get_open_save_handler()->set_modified(false);
        QCOMPARE(mManager->unload(u"document"_s), QString());
    }
}

void TstComponentManager::unsaved_data_of_another_component_is_not_asked_about()
{
    offer({u"document"_s, u"plain"_s});
    mManager->load_all();
    run_line(u"change"_s);
    // A question would be dismissed, and refuse this.
    DialogDriver driver;
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QVERIFY(driver.finish());
    Ostrel::instance()->file_menu()->get_open_save_handler()->set_modified(false);
    QCOMPARE(mManager->unload(u"document"_s), QString());
}

void TstComponentManager::deferred_deletions_are_no_forgetting()
{
    offer({u"later"_s});
    const QStringList before = describe();
    QCOMPARE(mManager->load(u"later"_s), QString());
    QVERIFY(describe() != before);
    QCOMPARE(mManager->unload(u"later"_s), QString());
    QCOMPARE(mReports, QString());
    // A toolbar that loses many buttons at once stays until the next component goes.
    QVERIFY(!added_lines(before, describe()).filter(u"Left Tools"_s).isEmpty());
    Ostrel::instance()->remove_toolbar_items("later");
    QCOMPARE(describe(), before);
}

void TstComponentManager::component_that_throws_at_its_end_is_unloaded()
{
    offer({u"unload_throws"_s});
    const RecordingTracker tracker;
    QCOMPARE(mManager->load(u"unload_throws"_s), QString());
    QCOMPARE(mManager->unload(u"unload_throws"_s), QString());
    QVERIFY2(mReports.startsWith(u"ERROR: component \"unload_throws\" ("_s) &&
                 mReports.endsWith(u"): something could not be taken away: no way out\n"_s),
             qPrintable(mReports));
    // The rest goes all the same.
    QVERIFY(!commands().contains(u"unload_throws-told"_s));
    take_back_what_is_left(u"unload_throws"_s);
    QCOMPARE(tracker.calls.last(), u"unloaded unload_throws"_s);
    QCOMPARE(about(u"unload_throws"_s).state, ComponentManager::State::Unloaded);
}

void TstComponentManager::running_command_keeps_its_component()
{
    offer({u"plain"_s, u"second"_s});
    mManager->load_all();
    QString refusal;
    QString other;
    Fennar::instance().registry().add(plain_command(u"busy"_s, u"plain"_s, [&](CommandCall&) {
        refusal = mManager->unload(u"plain"_s);
        other = mManager->unload(u"second"_s);
    }));
    run_line(u"busy"_s);
    QCOMPARE(refusal, u"a command of the component \"plain\" is running"_s);
    QCOMPARE(other, QString());
    QCOMPARE(about(u"plain"_s).state, ComponentManager::State::Loaded);
    Fennar::instance().registry().remove(u"busy"_s);
    QCOMPARE(mManager->unload(u"plain"_s), QString());
}

void TstComponentManager::open_modal_dialog_keeps_all_components()
{
    offer({u"plain"_s});
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QDialog dialog(Ostrel::instance());
    QString refusal;
    QTimer::singleShot(0, &dialog, [&] {
        refusal = mManager->unload(u"plain"_s);
        dialog.reject();
    });
    dialog.exec();
    QVERIFY2(refusal.startsWith(u"a dialog or menu is open"_s), qPrintable(refusal));
    QCOMPARE(run_line(u"plain"_s), u"plain ran\n"_s);
    QCOMPARE(mManager->unload(u"plain"_s), QString());
}

void TstComponentManager::open_dialog_of_a_component_goes_with_it()
{
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    QCOMPARE(mManager->load(u"demo"_s), QString());
    action_named(u"demoDialog"_s)->trigger();
    const QPointer<QDialog> dialog = Ostrel::instance()->findChild<QDialog*>(u"demoDialog"_s);
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(mManager->unload(u"demo"_s), QString());
    QVERIFY(!dialog);
    QCOMPARE(mReports, QString());
}

void TstComponentManager::component_stays_off_until_it_is_loaded_by_name()
{
    offer({u"plain"_s, u"second"_s});
    mManager->load_all();
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QVERIFY(about(u"plain"_s).off);
    make_manager();
    mManager->load_all();
    QCOMPARE(about(u"plain"_s).state, ComponentManager::State::Unloaded);
    QCOMPARE(about(u"second"_s).state, ComponentManager::State::Loaded);
    QCOMPARE(mReports, QString());
    QCOMPARE(mManager->load(u"plain"_s), QString());
    make_manager();
    mManager->load_all();
    QCOMPARE(about(u"plain"_s).state, ComponentManager::State::Loaded);
    QVERIFY(!QSettings().contains(u"/fennar/components/off"_s));
}

void TstComponentManager::run_that_remembers_nothing_leaves_the_choice_alone()
{
    offer({u"plain"_s, u"second"_s});
    mManager->load_all();
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    mManager->set_remembering(false);
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(mManager->unload(u"second"_s), QString());
    QVERIFY(about(u"plain"_s).off);
    QVERIFY(!about(u"second"_s).off);
}

void TstComponentManager::crashed_component_is_left_out_and_can_be_turned_on()
{
    offer({u"plain"_s, u"second"_s});
    // What a program leaves that went down while it was loading.
    QVERIFY(QDir().mkpath(mDirectory->filePath(u"loading"_s)));
    QFile note(mDirectory->filePath(u"loading/1.loading"_s));
    QVERIFY(note.open(QIODevice::WriteOnly));
    note.write(QFileInfo(file(u"plain"_s)).canonicalFilePath().toUtf8());
    note.close();
    for (int start = 0; start < 2; ++start) {
        mReports.clear();
        make_manager();
        mManager->load_all();
        QVERIFY2(mReports.startsWith(u"ERROR: component \"plain\" ("_s) &&
                     mReports.contains(u"left out, since the program ended while it was being loaded; "
                                       "\"load plain\" turns it on again"_s),
                 qPrintable(mReports));
        QVERIFY(about(u"plain"_s).crashed);
        QCOMPARE(about(u"second"_s).state, ComponentManager::State::Loaded);
    }
    QCOMPARE(mManager->load(u"plain"_s), QString());
    QCOMPARE(about(u"plain"_s).refusal, QString());
    mReports.clear();
    make_manager();
    mManager->load_all();
    QCOMPARE(mReports, QString());
    QCOMPARE(about(u"plain"_s).state, ComponentManager::State::Loaded);
}

void TstComponentManager::changed_file_is_refused_until_the_next_start()
{
    const QString copy = mDirectory->filePath(u"plain.so"_s);
    QVERIFY(QFile::copy(file(u"plain"_s), copy));
    QCOMPARE(mManager->load(copy), QString());
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QCOMPARE(mManager->load(copy), QString());
    QCOMPARE(mManager->unload(u"plain"_s), QString());
    QFile changed(copy);
    QVERIFY(changed.open(QIODevice::ReadWrite));
    QVERIFY(changed.setFileTime(QDateTime::fromSecsSinceEpoch(1), QFileDevice::FileModificationTime));
    changed.close();
    QCOMPARE(mManager->load(copy),
             u"its file has changed since it was loaded first; the program must be started anew"_s);
}

void TstComponentManager::start_loads_in_turns_of_the_event_loop()
{
    offer({u"plain"_s, u"second"_s});
    const RecordingTracker tracker;
    // Stands for the window: it is served when nothing else waits.
    QList<qsizetype> seen_by_others{0};
    QTimer others;
    connect(&others, &QTimer::timeout, this, [&] {
        if (seen_by_others.last() != tracker.calls.size())
            seen_by_others << tracker.calls.size();
    });
    others.start(0);
    bool done = false;
    QStringList before_done;
    mManager->start([&] {
        done = true;
        before_done = tracker.calls;
    });
    QCOMPARE(tracker.calls, QStringList());
    QTRY_VERIFY(done);
    QCOMPARE(before_done,
             (QStringList{u"loading plain"_s, u"loaded plain"_s, u"loading second"_s, u"loaded second"_s}));
    QCOMPARE(seen_by_others.value(1), 2);
}

void TstComponentManager::start_waits_for_a_running_command()
{
    offer({u"plain"_s});
    const RecordingTracker tracker;
    bool done = false;
    mManager->start([&] { done = true; });
    QStringList during;
    bool waited = false;
    Fennar::instance().registry().add(plain_command(u"busy"_s, u"test"_s, [&](CommandCall&) {
        // More than the loading takes without the command.
        take_turns(20);
        waited = true;
        during = tracker.calls;
    }));
    run_line(u"busy"_s);
    Fennar::instance().registry().remove_owner(u"test"_s);
    QVERIFY(waited);
    QCOMPARE(during, QStringList());
    QTRY_VERIFY(done);
    QCOMPARE(tracker.calls, (QStringList{u"loading plain"_s, u"loaded plain"_s}));
}

void TstComponentManager::last_loaded_is_unloaded_first()
{
    offer({u"plain"_s, u"second"_s, u"slow"_s});
    mManager->load_all();
    const RecordingTracker tracker;
    mManager->unload_all();
    QCOMPARE(tracker.calls, (QStringList{u"unloading slow"_s, u"unloaded slow"_s, u"unloading second"_s,
                                         u"unloaded second"_s, u"unloading plain"_s, u"unloaded plain"_s}));
    // That the program ends is not the user's choice.
    QVERIFY(!about(u"plain"_s).off);
}

void TstComponentManager::path_is_kept_in_the_settings()
{
    qunsetenv("FENNAR_COMPONENT_PATH");
    QString path;
    QString directory;
    Broker::instance()->get_component_path(path);
    Broker::instance()->get_component_directory(directory);
    QCOMPARE(path, directory);
    QCOMPARE(QFileInfo(directory).canonicalFilePath(),
             QFileInfo(QStringLiteral(TREE_COMPONENTS)).canonicalFilePath());
    Broker::instance()->set_component_path(path);
    QVERIFY(!QSettings().contains(u"/fennar/components/path"_s));
    Broker::instance()->set_component_path(u"/a;/b c"_s);
    make_manager();
    Broker::instance()->get_component_path(path);
    QCOMPARE(path, u"/a;/b c"_s);
    Broker::instance()->set_component_path({});
    Broker::instance()->get_component_path(path);
    QCOMPARE(path, QString());
    QVERIFY(mManager->components().empty());
    Broker::instance()->set_component_path(directory);
    QVERIFY(!QSettings().contains(u"/fennar/components/path"_s));
}

void TstComponentManager::path_of_the_environment_is_for_one_run()
{
    QSettings().setValue(u"/fennar/components/path"_s, u"/stored"_s);
    qputenv("FENNAR_COMPONENT_PATH", "/a;/b");
    QCOMPARE(mManager->component_path(), u"/a;/b"_s);
    mManager->set_component_path(u"/c"_s);
    QCOMPARE(mManager->component_path(), u"/c"_s);
    QCOMPARE(QSettings().value(u"/fennar/components/path"_s).toString(), u"/stored"_s);
}

void TstComponentManager::records_are_filled_for_the_plugin_tool()
{
    offer({u"plain"_s, u"second"_s});
    QCOMPARE(mManager->load(u"second"_s), QString());
    std::vector<ComponentRecord> records(3);
    Broker::instance()->get_components(records);
    QCOMPARE(records.size(), 2U);
    QCOMPARE(records[0].name, u"plain"_s);
    QCOMPARE(records[0].state, u"unloaded"_s);
    QCOMPARE(records[1].name, u"second"_s);
    QCOMPARE(records[1].state, u"loaded"_s);
    mManager.reset();
    Broker::instance()->get_components(records);
    QVERIFY(records.empty());
}

void TstComponentManager::commands_list_load_and_unload()
{
    register_component_commands(Fennar::instance().registry(), *mManager);
    offer({u"plain"_s, u"no_metadata"_s, u"second"_s});
    const QString plain = QFileInfo(file(u"plain"_s)).canonicalFilePath();
    const QString second = QFileInfo(file(u"second"_s)).canonicalFilePath();
    const QString no_metadata = QFileInfo(file(u"no_metadata"_s)).canonicalFilePath();
    const QString searched = u"Searched: "_s + mDirectory->filePath(u"a"_s) + u'\n';
    mManager->load_all();
    QCOMPARE(run_line(u"unload second"_s), u"The component \"second\" is unloaded.\n"_s);
    QCOMPARE(run_line(u"components"_s),
             u"no_metadata  refused  -    "_s + no_metadata + u"\n    "_s + about(u"no_metadata"_s).refusal +
                 u"\nplain        loaded   2.5  "_s + plain + u"\nsecond       off      2.5  "_s + second +
                 u"\n    commands: second\n"_s + searched);
    QCOMPARE(run_line(u"load second"_s), u"The component \"second\" is loaded.\n"_s);
    QVERIFY(run_line(u"components"_s).contains(u"second       loaded "_s));
    for (const QString& name : {u"components"_s, u"load"_s, u"unload"_s})
        QVERIFY2(run_line(u"help "_s + name).startsWith(u"Usage: "_s + name), qPrintable(name));
    mManager->unload_all();
    for (const QString& name : {u"components"_s, u"load"_s, u"unload"_s})
        Fennar::instance().registry().remove(name);
}

void TstComponentManager::commands_report_refusals_with_the_column()
{
    register_component_commands(Fennar::instance().registry(), *mManager);
    QCOMPARE(run_line(u"components"_s), u"The component path is empty.\n"_s);
    QCOMPARE(run_line(u"load none"_s),
             u"ERROR: load: column 6: there is no component \"none\" in the component path\n"_s);
    QCOMPARE(run_line(u"unload none"_s),
             u"ERROR: unload: column 8: expected a component that is loaded, found \"none\"\n"_s);
    QVERIFY(run_line(u"load"_s).startsWith(
        u"ERROR: load: column 5: expected the name of a component or a file"_s));
    QVERIFY(run_line(u"components all"_s).startsWith(u"ERROR: components: column 12: "_s));
    for (const QString& name : {u"components"_s, u"load"_s, u"unload"_s})
        Fennar::instance().registry().remove(name);
}

void TstComponentManager::without_a_window_there_are_commands_only()
{
    mFrame->unload_gui();
    mFrame.reset();
    offer({u"hello"_s, u"plain"_s});
    mManager->load_all();
    QCOMPARE(run_line(u"plain"_s), u"plain ran\n"_s);
    QCOMPARE(run_line(u"hello"_s), u"Hello, world!\n"_s);
    mManager->unload_all();
    QCOMPARE(mReports, QString());
}

void TstComponentManager::hundred_cycles_leave_the_program_as_it_was_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    const QFileInfoList files = QDir(QStringLiteral(TREE_COMPONENTS)).entryInfoList({u"*.so"_s}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& one : files)
        QTest::newRow(qPrintable(one.completeBaseName())) << one.completeBaseName() << one.filePath();
    QTest::newRow("template") << u"hello"_s << file(u"hello"_s);
}

void TstComponentManager::hundred_cycles_leave_the_program_as_it_was()
{
    QFETCH(const QString, name);
    QFETCH(const QString, file);
    // A hundred writings of the settings would take longer than all the rest.
    mManager->set_remembering(false);
    const Ostrel* window = Ostrel::instance();
    const QStringList pristine = describe();
    const auto cycle = [&] {
        QCOMPARE(mManager->load(file), QString());
        QCoreApplication::processEvents();
        QVERIFY(is_component_loaded(name));
        QCOMPARE(mManager->unload(name), QString());
        QCoreApplication::processEvents();
        run_deferred_deletions();
    };
    cycle();
    QCOMPARE(describe(), pristine);
    // A section's separator is the shell's own and stays with the section.
    const QStringList rows = describe_window(*window);
    const qsizetype objects = window->findChildren<QObject*>().size();
    const qsizetype top_levels = QApplication::topLevelWidgets().size();
    for (int i = 1; i < 100; ++i)
        cycle();
    QCOMPARE(describe(), pristine);
    QCOMPARE(describe_window(*window), rows);
    QCOMPARE(window->findChildren<QObject*>().size(), objects);
    QCOMPARE(QApplication::topLevelWidgets().size(), top_levels);
    QCOMPARE(mReports, QString());
}

void TstComponentManager::components_add_the_commands_that_their_metadata_tell_data()
{
    hundred_cycles_leave_the_program_as_it_was_data();
}

void TstComponentManager::components_add_the_commands_that_their_metadata_tell()
{
    QFETCH(const QString, name);
    QFETCH(const QString, file);
    const QStringList before = commands();
    QCOMPARE(mManager->load(file), QString());
    QStringList told = ComponentMetadata::read(file).commands;
    told.sort();
    QCOMPARE(added_lines(before, commands()), told);
    QCOMPARE(mManager->unload(name), QString());
}

OSTREL_TEST(TstComponentManager)
#include "tst_componentmanager.moc"
