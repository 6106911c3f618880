// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/CLOptions.h"

#include "workbench/host/ostrelfw/CommandLine.h"

using namespace fennar;

CLParser* CLOptions::instance()
{
    return &CommandLine::of_application();
}
