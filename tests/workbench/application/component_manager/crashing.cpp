// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that ends the program while it is loaded.

#include "workbench/sdk/component/ComponentContext.h"

#include <cstdlib>

using namespace fennar;

void fennar::load_component(ComponentContext&)
{
    std::abort();
}
