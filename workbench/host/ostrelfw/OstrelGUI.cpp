// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/OstrelGUI.h"

OstrelGUI::~OstrelGUI() = default;
