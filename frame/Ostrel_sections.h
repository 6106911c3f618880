// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/MenuSections.h"
#include "frame/Ostrel.h"

#include <QMap>

/** What the main window keeps of the toolbars and menus that components have made. Owns the lists. */
struct Ostrel::Sections
{
    Sections() = default;
    ~Sections()
    {
        qDeleteAll(menus);
        qDeleteAll(toolbars);
    }
    Q_DISABLE_COPY_MOVE(Sections)

    /** By object name. */
    QMap<QString, MenuSections*> toolbars;
    /** By title. */
    QMap<QString, MenuSections*> menus;
};
