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

    /** Takes a menu out of @p bar and the list, and removes it, if it is empty and nobody is changing it. */
    void drop_empty_menu(const QString& title, QMenuBar* bar);
    /** The same for a toolbar that counts as empty, and @p view_menu, which may be null. */
    void drop_empty_toolbar(const QString& name, const OstrelViewMenu* view_menu);

    /** By object name. */
    QMap<QString, MenuSections*> toolbars;
    /** By title. */
    QMap<QString, MenuSections*> menus;
};
