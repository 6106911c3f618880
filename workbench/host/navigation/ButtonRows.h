// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/PanelView.h"

#include <vector>

class QFrame;

namespace fennar {

class EntryButtons;

/** The inside of a CommandButtonPanel: a row of buttons for each level, the path marked by buttons that are
 * down. */
class ButtonRows : public PanelView
{
    Q_OBJECT

public:
    /** @param button_width  the least width of a button in pixels; pictures are sized to suit it. Values that
     * make no sense are taken for the nearest that does. */
    ButtonRows(int button_width, QWidget* panel);

protected:
    void show_levels() override;
    QWidgetList level_controls() const override;

private:
    struct Row
    {
        EntryButtons* buttons;
        QFrame* line;
    };

    std::vector<Row> mRows;
    int mButtonWidth;
};

} // namespace fennar
