// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QWidget>

#include <memory>

class Ostrel;

namespace Ui {
class QtPanelOptions;
}

namespace fennar {

/**
 * The page "Panel" of the options dialog: the kind of command panel, the size of its pictures, and how the
 * commands are arranged. All of it takes effect on save.
 */
class PanelOptions : public QWidget
{
    Q_OBJECT

public:
    /** @param window  not owned; outlives the page. */
    explicit PanelOptions(Ostrel* window);
    ~PanelOptions() override;

    /** Gives the panel the pictures of the size that is stored, which the window itself does not. */
    void apply_stored_size();

    /** Loads the controls from the window and the settings. */
    void refresh();
    /** Stores the controls and changes the panel. */
    void save();

private:
    void read_navigation(bool by_entity);

    const std::unique_ptr<Ui::QtPanelOptions> mForm;
    Ostrel* mWindow;
};

} // namespace fennar
