// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"

#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/EntryButtons.h"
#include "workbench/host/navigation/PanelView.h"

#include <QApplication>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace fennar {

/** A step of the way shows at most this many average letters of its title. */
constexpr int LongestCrumb = 18;

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

LevelView::LevelView(QWidget* panel)
    : PanelView(panel), mCrumbs(new QWidget(contents())), mEntries(new EntryButtons(contents()))
{
    mCrumbs->setObjectName(u"breadcrumbs"_s);
    mEntries->setObjectName(u"entries"_s);
    new FlowLayout(mCrumbs);
    levels()->addWidget(mCrumbs);
    levels()->addWidget(new_line());
    levels()->addWidget(mEntries);
    set_large_icons(false);
    connect(mEntries, &EntryButtons::chosen, this, &LevelView::choose);

    auto* up = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this);
    up->setContext(Qt::WidgetWithChildrenShortcut);
    connect(up, &QShortcut::activated, this, &LevelView::go_up);
}

void LevelView::set_large_icons(bool large)
{
    if (large)
        mEntries->set_look(FlowLayout::Arrangement::Columns, 36, 64);
    else
        mEntries->set_look(FlowLayout::Arrangement::Lines, 22, 0);
}

void LevelView::show_levels()
{
    show_crumbs();
    const QModelIndex current = cursor().current();
    const QModelIndex level = current.isValid() ? current : cursor().root();
    mEntries->set_entries(cursor().entries(level), {});
    mEntries->setVisible(!mEntries->buttons().isEmpty());
}

/** One flat button for each step from the root to the place; the last one, where the user is, is down. */
void LevelView::show_crumbs()
{
    const QObjectList old = mCrumbs->children();
    for (QObject* child : old)
        if (auto* widget = qobject_cast<QWidget*>(child)) {
            // The button may be the one whose click led here.
            mCrumbs->layout()->removeWidget(widget);
            widget->hide();
            widget->deleteLater();
        }
    mCrumbButtons.clear();

    const QModelIndexList steps = QModelIndexList{cursor().root()} + cursor().path();
    for (qsizetype step = 0; step < steps.size(); ++step) {
        const QString title = steps[step].isValid() ? steps[step].data().toString() : tr("Commands");
        auto* button = new QToolButton(mCrumbs);
        const int widest = LongestCrumb * button->fontMetrics().averageCharWidth();
        const QString text = button->fontMetrics().elidedText(title, Qt::ElideMiddle, widest);
        button->setText(QString(text).replace(u'&', u"&&"_s));
        button->setAutoRaise(true);
        button->setCheckable(true);
        button->setChecked(step == steps.size() - 1);
        button->setAccessibleName(title);
        button->setToolTip(tr("Go to %1").arg(title.toHtmlEscaped()));
        const QPersistentModelIndex target = steps[step];
        connect(button, &QToolButton::clicked, this, [this, target, is_root = step == 0] {
            // An entry that was removed meanwhile is no way to the root.
            if (is_root || target.isValid())
                choose_above(target);
        });
        if (step > 0) {
            auto* mark = new QLabel(u"\u203a"_s, mCrumbs);
            mCrumbs->layout()->addWidget(mark);
            mark->show();
        }
        mCrumbs->layout()->addWidget(button);
        button->show();
        mCrumbButtons << button;
    }
}

QWidgetList LevelView::level_controls() const
{
    return mCrumbButtons + mEntries->buttons();
}

void LevelView::choose(const QModelIndex& entry)
{
    const bool keyboard = has_keyboard();
    PanelView::choose(entry);
    focus_first_entry(keyboard);
}

void LevelView::choose_above(const QModelIndex& entry)
{
    const bool keyboard = has_keyboard();
    cursor().go_to(entry);
    focus_first_entry(keyboard);
}

/** Gives the keyboard back if the panel had it, since the button that had it is gone. */
void LevelView::focus_first_entry(bool had_keyboard)
{
    const QWidgetList entries = mEntries->buttons();
    if (had_keyboard && !entries.isEmpty())
        entries.first()->setFocus(Qt::OtherFocusReason);
}

void LevelView::go_up()
{
    const QModelIndexList path = cursor().path();
    if (!path.isEmpty())
        choose_above(path.size() > 1 ? path[path.size() - 2] : cursor().root());
}

bool LevelView::has_keyboard() const
{
    return isAncestorOf(QApplication::focusWidget());
}

} // namespace fennar

using namespace fennar;

struct BreadcrumbsPanel::Private
{
    LevelView* view; // a child of the panel
};

BreadcrumbsPanel::BreadcrumbsPanel(QWidget* parent)
    : TaskPanel(parent), mPrivate(std::make_unique<Private>(Private{new LevelView(this)}))
{}

BreadcrumbsPanel::~BreadcrumbsPanel() = default;

void BreadcrumbsPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->view->cursor().set_model(model, root);
}

QModelIndex BreadcrumbsPanel::root_index() const
{
    return mPrivate->view->cursor().root();
}

QModelIndex BreadcrumbsPanel::current_index() const
{
    return mPrivate->view->cursor().current();
}

void BreadcrumbsPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->view->cursor().go_to(index);
}

void BreadcrumbsPanel::setUsingLargeIcons(bool large)
{
    usingLargeIcons = large;
    mPrivate->view->set_large_icons(large);
}

#include "BreadcrumbsPanel.moc"
