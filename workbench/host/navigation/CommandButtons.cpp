// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/CommandButtons.h"

int CommandButtons::mPanelButtonWidth = 36;
