// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/component/Component.h"

namespace fennar {

Component::~Component() = default;

} // namespace fennar
