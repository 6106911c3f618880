// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>

#include <memory>

class MenuSections;
class Ostrel;

/**
 * Keeps the place of a window menu: it has no menu, no actions and nothing in the menu bar. The main window
 * creates and owns it.
 */
class OstrelWindowMenu : public QObject
{
    Q_OBJECT

public:
    /** @param name  the object name, in UTF-8; with null it stays empty. */
    OstrelWindowMenu(Ostrel* parent, const char* name);
    ~OstrelWindowMenu() override;

private:
    std::unique_ptr<MenuSections> mSections;
};
