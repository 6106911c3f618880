// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The classes of the host's interface that only lead to the workbench's own.

#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/OstrelGUI.h"
#include "host/ostrelfw/OutputHandler.h"
#include "workbench/host/ostrelfw/CommandLine.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/host/ostrelfw/HostMediator.h"
#include "workbench/host/ostrelfw/OutputRouter.h"

#include <utility>

using namespace fennar;

namespace {

std::unique_ptr<FennarPythonInterpreter> framework_interpreter;
std::unique_ptr<FennarPythonInterpreter> user_interpreter;

} // namespace

void fennar::set_framework_interpreters(std::unique_ptr<FennarPythonInterpreter> framework,
                                        std::unique_ptr<FennarPythonInterpreter> user)
{
    framework_interpreter = std::move(framework);
    user_interpreter = std::move(user);
}

FennarPythonInterpreter* Framework::python_interpreter()
{
    return framework_interpreter.get();
}

FennarPythonInterpreter* Framework::user_python_interpreter()
{
    return user_interpreter.get();
}

BrokerCommand Broker::command;

Mediator* Broker::instance()
{
    return &HostMediator::instance();
}

void BrokerCommand::set_command_window(OutputHandler* window)
{
    OutputRouter::instance().set_window(window);
}

BrokerCommand& BrokerCommand::operator<<(const QString& text)
{
    OutputRouter::instance().print(text);
    return *this;
}

CLParser* CLOptions::instance()
{
    return &CommandLine::of_application();
}

ComponentTracker::~ComponentTracker() = default;
void ComponentTracker::component_loading(const char*) {}
void ComponentTracker::component_loaded(const char*) {}
void ComponentTracker::component_unloading(const char*) {}
void ComponentTracker::component_unloaded(const char*) {}

OstrelGUI::~OstrelGUI() = default;

OutputHandler::~OutputHandler() = default;
