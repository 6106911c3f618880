// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that ends the program while it is loaded.

#include "workbench/sdk/component/component.h"

#include <cstdlib>

namespace {

void load()
{
    std::abort();
}

void unload() {}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "crashing", "1", &load, &unload};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
