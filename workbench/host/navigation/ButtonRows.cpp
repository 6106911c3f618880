// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/ButtonRows.h"

#include "workbench/host/navigation/EntryButtons.h"

#include <QFrame>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

constexpr int NarrowestButton = 28;
constexpr int WidestButton = 160;
/** What a button is wider than its picture. */
constexpr int Around = 12;
constexpr int LargestIcon = 64;

} // namespace

ButtonRows::ButtonRows(int button_width, QWidget* panel)
    : PanelView(panel), mButtonWidth(std::clamp(button_width, NarrowestButton, WidestButton))
{}

void ButtonRows::show_levels()
{
    const QModelIndexList path = cursor().path();
    size_t used = 0;
    for (qsizetype level = 0; level <= path.size(); ++level) {
        const QModelIndex parent = level == 0 ? cursor().root() : path[level - 1];
        const QModelIndexList entries = cursor().entries(parent);
        if (entries.isEmpty())
            break;
        if (used == mRows.size()) {
            const Row row = {new EntryButtons(contents()), new_line()};
            row.buttons->set_look(FlowLayout::Arrangement::Columns,
                                  std::min(mButtonWidth - Around, LargestIcon), mButtonWidth);
            row.buttons->setObjectName(u"buttonRow%1"_s.arg(used));
            connect(row.buttons, &EntryButtons::chosen, this, &ButtonRows::choose);
            levels()->addWidget(row.buttons);
            levels()->addWidget(row.line);
            mRows.push_back(row);
        }
        mRows[used].buttons->set_entries(entries, path.value(level));
        ++used;
    }
    for (size_t row = 0; row < mRows.size(); ++row) {
        if (row >= used)
            mRows[row].buttons->set_entries({}, {});
        mRows[row].buttons->setVisible(row < used);
        mRows[row].line->setVisible(row < used);
    }
}

QWidgetList ButtonRows::level_controls() const
{
    QWidgetList controls;
    for (const Row& row : mRows)
        controls << row.buttons->buttons();
    return controls;
}

} // namespace fennar
