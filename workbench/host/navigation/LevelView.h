// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/PanelView.h"

class QToolButton;

namespace fennar {

class EntryButtons;

/** The inside of a BreadcrumbsPanel: one level as buttons, and above it the way that led there. */
class LevelView : public PanelView
{
    Q_OBJECT

public:
    explicit LevelView(QWidget* panel);

    /** Large pictures (36 pixels) stand above their titles in columns, small ones (22 pixels) before them in
     * lines. */
    void set_large_icons(bool large);

protected:
    void show_levels() override;
    QWidgetList level_controls() const override;
    void choose(const QModelIndex& entry) override;

private:
    void show_crumbs();
    void choose_above(const QModelIndex& entry);
    void go_up();
    bool has_keyboard() const;
    void focus_first_entry(bool had_keyboard);

    QWidget* mCrumbs;
    EntryButtons* mEntries;
    QWidgetList mCrumbButtons;
};

} // namespace fennar
