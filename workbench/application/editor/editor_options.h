// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/ComponentContext.h"

#include <functional>

namespace fennar {

// What the journal editor does with what it knows of languages.

/** Whether words are colored; they are at first. */
bool editor_colors();
/** Whether Tab completes; it does at first. */
bool editor_completes();

/** The page "Journal Editor" of the options dialog. @p saved  is called when the settings have been stored.
 */
OptionsPage make_editor_options(const std::function<void()>& saved);

} // namespace fennar
