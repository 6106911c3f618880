// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/Broker.h"

#include "workbench/host/ostrelfw/HostMediator.h"
#include "workbench/host/ostrelfw/OutputRouter.h"

using namespace fennar;

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
