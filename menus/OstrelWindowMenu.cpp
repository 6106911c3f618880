// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/OstrelWindowMenu.h"

#include "frame/MenuSections.h"
#include "frame/Ostrel.h"

OstrelWindowMenu::OstrelWindowMenu(Ostrel* parent, const char* name) : QObject(parent)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
}

OstrelWindowMenu::~OstrelWindowMenu() = default;
