// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/CommandButtonPanel.h"

#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/EntryButtons.h"
#include "workbench/host/navigation/PanelView.h"

#include <QFrame>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

constexpr int NarrowestButton = 28;
constexpr int WidestButton = 160;
/** What a button is wider than its picture. */
constexpr int Around = 12;
constexpr int LargestIcon = 64;

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

using namespace fennar;

int CommandButtons::mPanelButtonWidth = 36;

struct CommandButtonPanel::Private
{
    explicit Private(CommandButtonPanel* panel)
        : view(new ButtonRows(CommandButtons::mPanelButtonWidth, panel))
    {}

    ButtonRows* view; // a child of the panel
};

CommandButtonPanel::CommandButtonPanel(QWidget* parent)
    : TaskPanel(parent), mPrivate(std::make_unique<Private>(this))
{}

CommandButtonPanel::~CommandButtonPanel() = default;

void CommandButtonPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->view->cursor().set_model(model, root);
}

QModelIndex CommandButtonPanel::root_index() const
{
    return mPrivate->view->cursor().root();
}

QModelIndex CommandButtonPanel::current_index() const
{
    return mPrivate->view->cursor().current();
}

void CommandButtonPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->view->cursor().go_to(index);
}

#include "CommandButtonPanel.moc"
