// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/BrokerCommand.h"

class Mediator;

/**
 * The way from the shell into the framework.
 *
 * Both members are available before MainFrame::load_gui() runs and until MainFrame::unload_gui() has ended.
 */
class Broker
{
public:
    /** The framework's mediator. Never null while the shell lives; owned by the framework. */
    static Mediator* instance();

    /** The framework's text stream. What is written to it reaches the console through the OutputHandler. */
    static BrokerCommand command;
};
