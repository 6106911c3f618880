// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "hostdouble/HostDouble.h"

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennar_util/AppUtil.h"
#include "host/fennari19/FennarInterface.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/CLParser.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/Mediator.h"
#include "host/ostrelfw/OstrelGUI.h"
#include "host/ostrelfw/OutputHandler.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString text(const QString& value)
{
    return u'"' + value + u'"';
}
QString text(const char* value)
{
    return value ? text(QString::fromUtf8(value)) : u"null"_s;
}
QString text(bool value)
{
    return value ? u"true"_s : u"false"_s;
}
QString text(int value)
{
    return QString::number(value);
}
QString text(const void* value)
{
    return value ? u"set"_s : u"null"_s;
}

HostDouble& host()
{
    return HostDouble::instance();
}

template <class... Arguments>
void record(const char* operation, const Arguments&... arguments)
{
    host().record(QString::fromLatin1(operation) + u'(' + QStringList{text(arguments)...}.join(u", ") + u')');
}

/** Lets a test act at the end of a call. */
class Call
{
public:
    template <class... Arguments>
    explicit Call(const char* operation, const Arguments&... arguments) : mOperation(operation)
    {
        record(operation, arguments...);
    }
    ~Call()
    {
        // A copy, since a test may take its own function back.
        if (const auto act = host().on_call)
            act(QString::fromLatin1(mOperation));
    }
    Q_DISABLE_COPY_MOVE(Call)

private:
    const char* mOperation;
};

class RecordingMediator : public Mediator
{
public:
    void request_exit() override
    {
        const Call call("Mediator::request_exit");
        if (host().on_request_exit)
            host().on_request_exit();
    }
    void handle_new_event() override
    {
        const Call call("Mediator::handle_new_event");
        if (host().on_handle_new_event)
            host().on_handle_new_event();
    }
    void set_change_dir_on_playback(bool change) override
    {
        const Call call("Mediator::set_change_dir_on_playback", change);
        host().change_dir_on_playback = change;
    }
    bool change_dir_on_playback() override
    {
        const Call call("Mediator::change_dir_on_playback");
        return host().change_dir_on_playback;
    }
    void add_component_tracker(ComponentTracker* tracker) override
    {
        const Call call("Mediator::add_component_tracker", static_cast<const void*>(tracker));
        host().trackers.push_back(tracker);
    }
    void remove_component_tracker(ComponentTracker* tracker) override
    {
        const Call call("Mediator::remove_component_tracker", static_cast<const void*>(tracker));
        std::erase(host().trackers, tracker);
    }
    void get_components(std::vector<ComponentRecord>& components) override
    {
        const Call call("Mediator::get_components");
        components = host().components;
    }
    void get_component_path(QString& path) override
    {
        const Call call("Mediator::get_component_path");
        path = host().component_path;
    }
    void set_component_path(const QString& path) override
    {
        const Call call("Mediator::set_component_path", path);
        host().component_path = path;
    }
    void get_component_directory(QString& directory) override
    {
        const Call call("Mediator::get_component_directory");
        directory = host().component_directory;
    }
};

class RecordingParser : public CLParser
{
public:
    void set_graphics_state(int state) override { record("CLParser::set_graphics_state", state); }
    bool batch_mode() override
    {
        record("CLParser::batch_mode");
        return host().batch_mode;
    }
};

} // namespace

HostDouble& HostDouble::instance()
{
    static HostDouble host;
    return host;
}

void HostDouble::reset()
{
    *this = HostDouble();
}

void HostDouble::record(const QString& call)
{
    calls << call;
    // It may set another one.
    if (const auto act = on_record)
        act(call);
}

QStringList HostDouble::take_calls()
{
    return std::exchange(calls, {});
}

// ostrelfw

BrokerCommand Broker::command;

Mediator* Broker::instance()
{
    static RecordingMediator mediator;
    return &mediator;
}

void BrokerCommand::set_command_window(OutputHandler* window)
{
    host().command_window = window;
    record("BrokerCommand::set_command_window", static_cast<const void*>(window));
}

BrokerCommand& BrokerCommand::operator<<(const QString& output)
{
    const Call call("BrokerCommand::operator<<", output);
    host().printed += output;
    return *this;
}

CLParser* CLOptions::instance()
{
    static RecordingParser parser;
    return &parser;
}

OstrelGUI::~OstrelGUI() = default;

OutputHandler::~OutputHandler() = default;

ComponentTracker::~ComponentTracker() = default;
void ComponentTracker::component_loading(const char*) {}
void ComponentTracker::component_loaded(const char*) {}
void ComponentTracker::component_unloading(const char*) {}
void ComponentTracker::component_unloaded(const char*) {}

FennarPythonInterpreter* Framework::python_interpreter()
{
    static FennarPythonInterpreter interpreter(nullptr);
    record("Framework::python_interpreter");
    return &interpreter;
}

FennarPythonInterpreter* Framework::user_python_interpreter()
{
    static FennarPythonInterpreter interpreter(nullptr);
    record("Framework::user_python_interpreter");
    return host().has_user_interpreter ? &interpreter : nullptr;
}

// fennar_python

struct FennarPythonInterpreter::Private
{};

FennarPythonInterpreter::FennarPythonInterpreter(std::unique_ptr<Private> implementation)
    : mPrivate(std::move(implementation))
{}

FennarPythonInterpreter::~FennarPythonInterpreter() = default;

bool FennarPythonInterpreter::IsInitialized()
{
    record("FennarPythonInterpreter::IsInitialized");
    return host().python_initialized;
}

int FennarPythonInterpreter::Run_SimpleString(const char* command)
{
    record("FennarPythonInterpreter::Run_SimpleString", command);
    return host().python_result;
}

int FennarPythonInterpreter::version_major()
{
    record("FennarPythonInterpreter::version_major");
    return host().python_version[0];
}
int FennarPythonInterpreter::version_minor()
{
    record("FennarPythonInterpreter::version_minor");
    return host().python_version[1];
}
int FennarPythonInterpreter::version_micro()
{
    record("FennarPythonInterpreter::version_micro");
    return host().python_version[2];
}

// fennar_util

void AppUtil::set_interrupt(bool interrupt)
{
    record("AppUtil::set_interrupt", interrupt);
}

// fennari19

std::shared_ptr<AppUtil> FennarInterface::app_util()
{
    record("FennarInterface::app_util");
    static const auto util = std::make_shared<AppUtil>();
    return util;
}

void FennarInterface::stop_playback()
{
    record("FennarInterface::stop_playback");
}

void FennarInterface::pause_playback()
{
    record("FennarInterface::pause_playback");
    host().playback_paused = true;
}

void FennarInterface::resume_playback()
{
    record("FennarInterface::resume_playback");
    host().playback_paused = host().playback_paused && host().resume_refused;
}

bool FennarInterface::is_playback_paused()
{
    record("FennarInterface::is_playback_paused");
    return host().playback_paused;
}

bool FennarInterface::command_is_python_mode()
{
    record("FennarInterface::command_is_python_mode");
    return host().python_mode;
}

// navigation

NavigationResources::~NavigationResources() = default;
NavigationResourcesDelay::NavigationResourcesDelay()
{
    record("NavigationResourcesDelay");
}
NavigationResourcesDelay::~NavigationResourcesDelay()
{
    record("~NavigationResourcesDelay");
}

void NavigationResourcesDelay::recheckResources()
{
    host().resources_model = model;
    record("NavigationResourcesDelay::recheckResources");
}

NavigationReader::NavigationReader()
{
    record("NavigationReader");
}
NavigationReader::~NavigationReader()
{
    record("~NavigationReader");
}

void NavigationReader::setResources(NavigationResources* resources)
{
    mResources = resources;
    record("NavigationReader::setResources", static_cast<const void*>(resources));
}

void NavigationReader::setModel(NavigationModel* model, QSet<NavigationNode*>* nodes,
                                QMap<NavigationNode*, QString>* titles)
{
    mModel = model;
    mNodes = nodes;
    mTitles = titles;
    record("NavigationReader::setModel", static_cast<const void*>(model), static_cast<const void*>(nodes),
           static_cast<const void*>(titles));
}

void NavigationReader::buildNavigation(const QString& directory, const QString& extension)
{
    const auto* resources = dynamic_cast<const NavigationResourcesDelay*>(mResources);
    host().resources_model = resources ? resources->model : nullptr;
    messages = host().navigation_messages;
    record("NavigationReader::buildNavigation", directory, extension);
}
