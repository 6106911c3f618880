// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/ComponentContext.h"

class Ostrel;

namespace fennar {

/**
 * The page "Panel" of the options dialog: the kind of command panel, the size of its pictures, and how the
 * commands are arranged. All of it takes effect on save. @p window  not null; outlives the page.
 */
OptionsPage make_panel_options(Ostrel* window);

/** Gives the command panel the pictures of the size that is stored, which the window itself does not. */
void apply_panel_options(Ostrel* window);

} // namespace fennar
