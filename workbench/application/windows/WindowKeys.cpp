// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/WindowKeys.h"

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/component/shell_access.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** The owner mark of what is added to the window. */
constexpr auto owner = "workbench";

bool takes_tab_focus(const QWidget* widget)
{
    return widget->focusPolicy() & Qt::TabFocus && widget->isEnabled() && widget->isVisible() &&
           !widget->focusProxy();
}

/** Where the focus goes in a pane: back to where it was, or else to the first widget that takes it. Null:
 * nowhere. */
QWidget* focus_target(QWidget* pane)
{
    if (takes_tab_focus(pane))
        return pane;
    QWidget* last = pane->focusWidget();
    if (last && last != pane && takes_tab_focus(last))
        return last;
    for (QWidget* next = pane->nextInFocusChain(); next != pane; next = next->nextInFocusChain()) {
        if (pane->isAncestorOf(next) && takes_tab_focus(next))
            return next;
    }
    return nullptr;
}

/** Gives the keyboard to the journal in sight. */
void focus_journal(const QTabWidget* tabs)
{
    if (QWidget* journal = tabs->currentWidget())
        journal->setFocus(Qt::OtherFocusReason);
}

} // namespace

WindowKeys::WindowKeys(Ostrel* window) : mWindow(window)
{
    std::vector<QAction*> actions = {
        nullptr, // parts them from the docks
        make_action(u"nextPane"_s, tr("&Next Pane"), u"F6"_s, 1),
        make_action(u"previousPane"_s, tr("&Previous Pane"), u"Shift+F6"_s, -1),
    };
    window->view_menu()->add_items(actions, owner);
    // Its keys are dead otherwise while the toolbar that shows it is hidden.
    window->addAction(window->tools_menu()->pause_action());
    mCancel = make_shortcut(Qt::Key_Escape);
    mPause = make_shortcut(Qt::Key_Pause);
    if (mCancel)
        connect(mCancel, &QShortcut::activated, window, &Ostrel::cancel_progress);
    if (mPause)
        connect(mPause, &QShortcut::activated, window->tools_menu()->pause_action(), &QAction::toggle);
    mJournals = journal_tabs(window->journal_editor());
    if (mJournals) {
        connect(mJournals, &QTabWidget::currentChanged, this, [tabs = mJournals.data()] {
            // Who goes through the tabs stays there.
            if (!tabs->tabBar()->hasFocus())
                focus_journal(tabs);
        });
        window->journal_editor()->installEventFilter(this);
    }
    set_busy(false);
}

WindowKeys::~WindowKeys()
{
    delete mCancel;
    delete mPause;
    if (!mWindow)
        return;
    mWindow->removeAction(mWindow->tools_menu()->pause_action());
    mWindow->view_menu()->remove_component_items(owner);
}

void WindowKeys::set_busy(bool busy)
{
    for (const QPointer<QShortcut>& shortcut : {mCancel, mPause})
        if (shortcut)
            shortcut->setEnabled(busy);
}

bool WindowKeys::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous() && mJournals)
        focus_journal(mJournals);
    return false;
}

QAction* WindowKeys::make_action(const QString& name, const QString& text, const QString& shortcut, int step)
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(QKeySequence(shortcut));
    connect(action, &QAction::triggered, this, [this, step] { go(step); });
    return action;
}

QShortcut* WindowKeys::make_shortcut(int key)
{
    // While a command runs input is dropped unless it is for the cancel button or for what belongs to it.
    QAbstractButton* const button = cancel_button(mWindow);
    if (!button)
        return nullptr;
    auto* shortcut = new QShortcut(QKeySequence(key), button);
    // The journal that runs may be that of the journal editor, with its own window in front.
    shortcut->setContext(Qt::ApplicationShortcut);
    shortcut->setAutoRepeat(false);
    return shortcut;
}

QWidgetList WindowKeys::panes() const
{
    QWidgetList panes;
    if (QWidget* center = mWindow->centralWidget())
        panes << center;
    // In the order of the View menu: that of the window's children changes whenever one is raised.
    std::vector<QAction*> toggles;
    mWindow->view_menu()->get_dock_items(toggles);
    for (const QAction* toggle : toggles) {
        auto* dock = toggle ? qobject_cast<QDockWidget*>(toggle->parent()) : nullptr;
        if (dock && !dock->isHidden())
            panes << dock;
    }
    return panes;
}

void WindowKeys::go(int step)
{
    const QWidgetList all = panes();
    const auto current = std::find_if(all.begin(), all.end(), [](const QWidget* pane) {
        const QWidget* focus = QApplication::focusWidget();
        return focus && (pane == focus || pane->isAncestorOf(focus));
    });
    const qsizetype count = all.size();
    qsizetype index = current == all.end() ? (step > 0 ? -1 : count) : current - all.begin();
    for (qsizetype tried = 0; tried < count; ++tried) {
        index = (index + step + count) % count;
        QWidget* pane = all[index];
        // It may stand behind others, or in a window of its own.
        pane->raise();
        pane->activateWindow();
        CommandWindow* console = mWindow->command_line();
        if (console && pane->isAncestorOf(console)) {
            mWindow->set_focus_to_command_window();
            return;
        }
        if (QWidget* target = focus_target(pane)) {
            target->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

} // namespace fennar
