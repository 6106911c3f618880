// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/statics.h"

#include "files/OstrelFileMenu.h"

void reset_statics()
{
    OstrelFileMenu::mFileName.clear();
    OstrelFileMenu::mPath.clear();
    OstrelFileMenu::mActiveImportFilter.clear();
    OstrelFileMenu::mDoPrompt = true;
}
