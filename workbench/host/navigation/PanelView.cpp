// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/PanelView.h"

#include "host/navigation/TaskPanel.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/EntryButtons.h"
#include "workbench/host/navigation/NavigationEntries.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Around the contents, in pixels: narrow, since docks are. */
constexpr int Margin = 4;

} // namespace

PanelView::PanelView(QWidget* panel)
    : QScrollArea(panel),
      mCursor(new NavigationCursor(this)),
      mContents(new QWidget(this)),
      mLevels(new QVBoxLayout),
      mNothing(new QLabel(tr("There are no commands."), mContents)),
      mForm(new CommandForm(mContents))
{
    setObjectName(u"panelView"_s);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(mContents);
    mNothing->setObjectName(u"nothingLabel"_s);
    mNothing->setForegroundRole(QPalette::PlaceholderText);
    mNothing->setWordWrap(true);

    auto* layout = new QVBoxLayout(mContents);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->addLayout(mLevels);
    layout->addWidget(mNothing);
    layout->addWidget(mForm);
    layout->addStretch();

    auto* around = new QVBoxLayout(panel);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(this);

    connect(mCursor, &NavigationCursor::changed, this, &PanelView::show_place);
    connect(mForm, &CommandForm::controls_changed, this, &PanelView::chain_controls);
    connect(mForm, &CommandForm::left, this, &PanelView::leave_form);
}

QFrame* PanelView::new_line()
{
    auto* line = new QFrame(mContents);
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    return line;
}

void PanelView::choose(const QModelIndex& entry)
{
    if (!entry.isValid())
        return;
    mCursor->go_to(entry);
    if (!mForm->isVisible())
        return;
    mForm->focus_first();
    // Where the form will be is known when the levels above it have been laid out.
    QTimer::singleShot(0, mForm, [this] {
        // The last one goes first: if not all of it fits, the line is what matters.
        ensureWidgetVisible(mForm, 0, 0);
        const QWidgetList controls = mForm->controls();
        for (auto control = controls.rbegin(); control != controls.rend(); ++control)
            ensureWidgetVisible(*control, 0, 0);
    });
}

void PanelView::show_place()
{
    mOutdated = !isVisible();
    if (mOutdated)
        return;
    show_levels();
    const QModelIndex current = mCursor->current();
    const bool command = current.isValid() && entry_kind(current) == NavigationKind::Command;
    mForm->set_entry(command ? current : QModelIndex());
    mNothing->setVisible(mCursor->entries(mCursor->root()).isEmpty());
    chain_controls();
}

/** Makes Tab go through the levels first and then through the form. */
void PanelView::chain_controls()
{
    const QWidgetList controls = level_controls() + mForm->controls();
    for (qsizetype next = 1; next < controls.size(); ++next)
        setTabOrder(controls[next - 1], controls[next]);
}

/** Goes back to the entries that the command is one of, and gives the keyboard to its own. */
void PanelView::leave_form()
{
    const QPersistentModelIndex command = mCursor->current();
    mCursor->go_to(command.parent());
    const QWidgetList controls = level_controls();
    for (QWidget* control : controls) {
        const auto* button = qobject_cast<const EntryButton*>(control);
        if (button && button->entry() == command) {
            control->setFocus(Qt::OtherFocusReason);
            ensureWidgetVisible(control, 0, 0);
        }
    }
}

void PanelView::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    if (mOutdated)
        show_place();
}

} // namespace fennar

TaskPanel::TaskPanel(QWidget* parent) : QWidget(parent) {}

TaskPanel::~TaskPanel() = default;
