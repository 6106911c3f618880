// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class ModelSteps;

namespace fennar {
class ComponentContext;
}

/**
 * Lets the steps take as much memory as the user has chosen, and adds the page of the options dialog where it
 * is shown and chosen.
 *
 * @param steps  outlives the context.
 */
void add_geometry_options(fennar::ComponentContext& context, ModelSteps& steps);
