// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/MainFrame.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennar_util/AppUtil.h"
#include "host/fennari19/FennarInterface.h"
#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/CLParser.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/Mediator.h"
#include "host/ostrelfw/OstrelGUI.h"
#include "host/ostrelfw/OutputHandler.h"
#include "support/TestCase.h"
#include "support/virtual_slots.h"

#include <QTest>

#include <cstddef>
#include <type_traits>

namespace {

// Signatures. A change of any of them breaks hosts and components that were built before it.

template <class Actual, class Expected>
constexpr bool same = std::is_same_v<Actual, Expected>;

static_assert(std::is_abstract_v<OutputHandler> && std::has_virtual_destructor_v<OutputHandler>);
static_assert(same<decltype(&OutputHandler::set_read_only), void (OutputHandler::*)(bool)>);
static_assert(same<decltype(&OutputHandler::print_prompt), void (OutputHandler::*)(bool, const char*)>);
static_assert(same<decltype(&OutputHandler::print_data), void (OutputHandler::*)(const QString&)>);
static_assert(same<decltype(&OutputHandler::print_command), void (OutputHandler::*)(const QString&)>);
static_assert(same<decltype(&OutputHandler::append_command), void (OutputHandler::*)(const QString&)>);
static_assert(same<decltype(&OutputHandler::insert_command), void (OutputHandler::*)(const QString&)>);
static_assert(std::is_base_of_v<QWidget, CommandWindow> && std::is_base_of_v<OutputHandler, CommandWindow>);

// A tracker overrides what it is interested in, so the base is complete.
static_assert(!std::is_abstract_v<ComponentTracker> && std::has_virtual_destructor_v<ComponentTracker>);
static_assert(same<decltype(&ComponentTracker::component_loading), void (ComponentTracker::*)(const char*)>);
static_assert(same<decltype(&ComponentTracker::component_loaded), void (ComponentTracker::*)(const char*)>);
static_assert(
    same<decltype(&ComponentTracker::component_unloading), void (ComponentTracker::*)(const char*)>);
static_assert(same<decltype(&ComponentTracker::component_unloaded), void (ComponentTracker::*)(const char*)>);

static_assert(same<decltype(&Broker::instance), Mediator* (*)()>);
static_assert(same<decltype(&Broker::command), BrokerCommand*>);
static_assert(same<decltype(&BrokerCommand::set_command_window), void (BrokerCommand::*)(OutputHandler*)>);
static_assert(same<decltype(&BrokerCommand::operator<<), BrokerCommand& (BrokerCommand::*)(const QString&)>);

static_assert(std::is_abstract_v<Mediator>);
static_assert(same<decltype(&Mediator::request_exit), void (Mediator::*)()>);
static_assert(same<decltype(&Mediator::handle_new_event), void (Mediator::*)()>);
static_assert(same<decltype(&Mediator::set_change_dir_on_playback), void (Mediator::*)(bool)>);
static_assert(same<decltype(&Mediator::change_dir_on_playback), bool (Mediator::*)()>);
static_assert(same<decltype(&Mediator::add_component_tracker), void (Mediator::*)(ComponentTracker*)>);
static_assert(same<decltype(&Mediator::remove_component_tracker), void (Mediator::*)(ComponentTracker*)>);
static_assert(same<decltype(&Mediator::get_components), void (Mediator::*)(std::vector<ComponentRecord>&)>);
static_assert(same<decltype(&Mediator::get_component_path), void (Mediator::*)(QString&)>);
static_assert(same<decltype(&Mediator::set_component_path), void (Mediator::*)(const QString&)>);
static_assert(same<decltype(&Mediator::get_component_directory), void (Mediator::*)(QString&)>);

static_assert(same<decltype(&CLOptions::instance), CLParser* (*)()>);
static_assert(std::is_abstract_v<CLParser>);
static_assert(same<decltype(&CLParser::set_graphics_state), void (CLParser::*)(int)>);
static_assert(same<decltype(&CLParser::batch_mode), bool (CLParser::*)()>);

static_assert(same<decltype(&Framework::python_interpreter), FennarPythonInterpreter* (*)()>);
static_assert(same<decltype(&Framework::user_python_interpreter), FennarPythonInterpreter* (*)()>);

static_assert(!std::is_polymorphic_v<FennarPythonInterpreter>);
static_assert(same<decltype(&FennarPythonInterpreter::IsInitialized), bool (FennarPythonInterpreter::*)()>);
static_assert(same<decltype(&FennarPythonInterpreter::Run_SimpleString),
                   int (FennarPythonInterpreter::*)(const char*)>);
static_assert(same<decltype(&FennarPythonInterpreter::version_major), int (FennarPythonInterpreter::*)()>);
static_assert(same<decltype(&FennarPythonInterpreter::version_minor), int (FennarPythonInterpreter::*)()>);
static_assert(same<decltype(&FennarPythonInterpreter::version_micro), int (FennarPythonInterpreter::*)()>);

static_assert(same<decltype(&FennarInterface::app_util), std::shared_ptr<AppUtil> (*)()>);
static_assert(same<decltype(&FennarInterface::stop_playback), void (*)()>);
static_assert(same<decltype(&FennarInterface::pause_playback), void (*)()>);
static_assert(same<decltype(&FennarInterface::resume_playback), void (*)()>);
static_assert(same<decltype(&FennarInterface::is_playback_paused), bool (*)()>);
static_assert(same<decltype(&FennarInterface::command_is_python_mode), bool (*)()>);
static_assert(!std::is_polymorphic_v<AppUtil>);
static_assert(same<decltype(&AppUtil::set_interrupt), void (AppUtil::*)(bool)>);

static_assert(std::is_abstract_v<OstrelGUI> && std::has_virtual_destructor_v<OstrelGUI>);
static_assert(same<decltype(&OstrelGUI::is_loaded), bool (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::load_gui), bool (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::unload_gui), void (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::new_event), void (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::run_application), void (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::end_application), void (OstrelGUI::*)()>);
static_assert(same<decltype(&OstrelGUI::start_progress_session), void (OstrelGUI::*)(const char*, int)>);
static_assert(same<decltype(&OstrelGUI::update_progress_session), void (OstrelGUI::*)(const char*, int)>);
static_assert(same<decltype(&OstrelGUI::end_progress_session), void (OstrelGUI::*)(const char*)>);
static_assert(same<decltype(&OstrelGUI::check_interrupt_session), void (OstrelGUI::*)(const char*)>);
static_assert(same<decltype(&OstrelGUI::set_status_text), void (OstrelGUI::*)(const char*)>);
static_assert(same<decltype(&OstrelGUI::enable_cancel), void (OstrelGUI::*)(bool)>);
static_assert(same<decltype(&OstrelGUI::start_splash), void (OstrelGUI::*)(const char*)>);
static_assert(same<decltype(&OstrelGUI::show_splash_message), void (OstrelGUI::*)(const char*)>);
static_assert(same<decltype(&OstrelGUI::finish_splash), void (OstrelGUI::*)()>);
static_assert(std::is_base_of_v<OstrelGUI, MainFrame> && std::is_base_of_v<ComponentTracker, MainFrame>);

static_assert(std::is_base_of_v<QAbstractItemModel, NavigationModel>);
static_assert(std::is_constructible_v<NavigationModel, QObject*>);
static_assert(std::is_base_of_v<NavigationResources, NavigationResourcesDelay>);
static_assert(std::is_default_constructible_v<NavigationResourcesDelay>);
static_assert(std::has_virtual_destructor_v<NavigationResourcesDelay>);
static_assert(
    same<decltype(&NavigationResourcesDelay::recheckResources), void (NavigationResourcesDelay::*)()>);
static_assert(
    same<decltype(&NavigationResourcesDelay::model), NavigationModel * NavigationResourcesDelay::*>);
static_assert(std::is_default_constructible_v<NavigationReader> && !std::is_polymorphic_v<NavigationReader>);
static_assert(
    same<decltype(&NavigationReader::setResources), void (NavigationReader::*)(NavigationResources*)>);
static_assert(same<decltype(&NavigationReader::setModel),
                   void (NavigationReader::*)(NavigationModel*, QSet<NavigationNode*>*,
                                              QMap<NavigationNode*, QString>*)>);
static_assert(same<decltype(&NavigationReader::buildNavigation),
                   void (NavigationReader::*)(const QString&, const QString&)>);
static_assert(same<decltype(&NavigationReader::messages), QStringList NavigationReader::*>);

static_assert(std::is_base_of_v<QWidget, TaskPanel> && std::is_abstract_v<TaskPanel>);
static_assert(
    same<decltype(&TaskPanel::set_model), void (TaskPanel::*)(NavigationModel*, const QModelIndex&)>);
static_assert(same<decltype(&TaskPanel::current_index), QModelIndex (TaskPanel::*)() const>);
static_assert(same<decltype(&TaskPanel::set_current_index), void (TaskPanel::*)(const QModelIndex&)>);
static_assert(std::is_base_of_v<TaskPanel, CommandButtonPanel>);
static_assert(std::is_constructible_v<CommandButtonPanel, QWidget*>);
static_assert(std::is_base_of_v<TaskPanel, BreadcrumbsPanel>);
static_assert(std::is_constructible_v<BreadcrumbsPanel, QWidget*>);
static_assert(same<decltype(&BreadcrumbsPanel::setUsingLargeIcons), void (BreadcrumbsPanel::*)(bool)>);
static_assert(same<decltype(&BreadcrumbsPanel::usingLargeIcons), bool BreadcrumbsPanel::*>);
static_assert(same<decltype(&CommandButtons::mPanelButtonWidth), int*>);

static_assert(same<decltype(ComponentRecord::name), QString> &&
              same<decltype(ComponentRecord::text2), QString> &&
              same<decltype(ComponentRecord::text3), QString> &&
              same<decltype(ComponentRecord::state), QString>);
static_assert(offsetof(ComponentRecord, text2) == sizeof(QString) &&
              offsetof(ComponentRecord, text3) == 2 * sizeof(QString) &&
              offsetof(ComponentRecord, state) == 3 * sizeof(QString));
static_assert(sizeof(ComponentRecord) == 4 * sizeof(QString) + sizeof(void*));

} // namespace

/** The face between shell and host. Most of it is checked while this file is compiled. */
class TstHostFaces : public TestCase
{
    Q_OBJECT

private slots:
    void slots_of_output_handler_are_in_order();
    void slots_of_component_tracker_are_in_order();
    void slots_of_ostrel_gui_are_in_order();
    void slots_of_mediator_are_in_order();
    void slots_of_command_line_parser_are_in_order();
    void slots_of_task_panel_are_in_order_with_one_unused();
    void function_that_is_not_virtual_has_no_slot();
    void messages_lead_the_navigation_reader();
    void bases_of_main_frame_are_in_order();
    void bases_of_command_window_are_in_order();
};

void TstHostFaces::slots_of_output_handler_are_in_order()
{
    QCOMPARE(slots_of(&OutputHandler::set_read_only, &OutputHandler::print_prompt, &OutputHandler::print_data,
                      &OutputHandler::print_command, &OutputHandler::append_command,
                      &OutputHandler::insert_command),
             slots_from(behind_destructor, 6));
}

void TstHostFaces::slots_of_component_tracker_are_in_order()
{
    QCOMPARE(slots_of(&ComponentTracker::component_loading, &ComponentTracker::component_loaded,
                      &ComponentTracker::component_unloading, &ComponentTracker::component_unloaded),
             slots_from(behind_destructor, 4));
}

void TstHostFaces::slots_of_ostrel_gui_are_in_order()
{
    QCOMPARE(slots_of(&OstrelGUI::is_loaded, &OstrelGUI::load_gui, &OstrelGUI::unload_gui,
                      &OstrelGUI::new_event, &OstrelGUI::run_application, &OstrelGUI::end_application,
                      &OstrelGUI::start_progress_session, &OstrelGUI::update_progress_session,
                      &OstrelGUI::end_progress_session, &OstrelGUI::check_interrupt_session,
                      &OstrelGUI::set_status_text, &OstrelGUI::enable_cancel, &OstrelGUI::start_splash,
                      &OstrelGUI::show_splash_message, &OstrelGUI::finish_splash),
             slots_from(behind_destructor, 15));
}

void TstHostFaces::slots_of_mediator_are_in_order()
{
    QCOMPARE(slots_of(&Mediator::request_exit, &Mediator::handle_new_event,
                      &Mediator::set_change_dir_on_playback, &Mediator::change_dir_on_playback,
                      &Mediator::add_component_tracker, &Mediator::remove_component_tracker,
                      &Mediator::get_components, &Mediator::get_component_path, &Mediator::set_component_path,
                      &Mediator::get_component_directory),
             slots_from(behind_destructor, 10));
}

void TstHostFaces::slots_of_command_line_parser_are_in_order()
{
    QCOMPARE(slots_of(&CLParser::set_graphics_state, &CLParser::batch_mode),
             slots_from(behind_destructor, 2));
}

void TstHostFaces::slots_of_task_panel_are_in_order_with_one_unused()
{
    // Behind those of QWidget, whose number is Qt's business.
    const std::ptrdiff_t first = slot(&TaskPanel::set_model);
    QVERIFY(first > slot(&QWidget::setVisible));
    QCOMPARE(slot(&TaskPanel::current_index), first + 2);
    QCOMPARE(slot(&TaskPanel::set_current_index), first + 3);
}

void TstHostFaces::function_that_is_not_virtual_has_no_slot()
{
    QCOMPARE(slot(&AppUtil::set_interrupt), -1);
    QCOMPARE(slot(&FennarPythonInterpreter::IsInitialized), -1);
}

void TstHostFaces::messages_lead_the_navigation_reader()
{
    const NavigationReader reader;
    QCOMPARE(static_cast<const void*>(&reader.messages), static_cast<const void*>(&reader));
}

void TstHostFaces::bases_of_main_frame_are_in_order()
{
    MainFrame frame;
    QCOMPARE(static_cast<void*>(static_cast<OstrelGUI*>(&frame)), static_cast<void*>(&frame));
    QCOMPARE(reinterpret_cast<char*>(static_cast<ComponentTracker*>(&frame)) -
                 reinterpret_cast<char*>(&frame),
             std::ptrdiff_t(sizeof(OstrelGUI)));
}

void TstHostFaces::bases_of_command_window_are_in_order()
{
    CommandWindow window;
    QCOMPARE(static_cast<void*>(static_cast<QWidget*>(&window)), static_cast<void*>(&window));
    QCOMPARE(reinterpret_cast<char*>(static_cast<OutputHandler*>(&window)) - reinterpret_cast<char*>(&window),
             std::ptrdiff_t(sizeof(QWidget)));
}

OSTREL_TEST(TstHostFaces)
#include "tst_hostfaces.moc"
