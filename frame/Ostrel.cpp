// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Alive.h"
#include "frame/InUse.h"
#include "frame/MenuSections.h"
#include "frame/OstrelEventFilter.h"
#include "frame/OstrelSplitter.h"
#include "frame/ProgressControl.h"
#include "frame/component_bars.h"
#include "frame/window_settings.h"
#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/CLParser.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/OstrelWindowMenu.h"
#include "menus/PyAction.h"
#include "options/OptionsPanel.h"
#include "options/OstrelGUIOptions.h"
#include "resources/load_icon.h"

#include <QAction>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPersistentModelIndex>
#include <QPixmapCache>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const auto default_title = u"Ostrel"_s;

QWidget* make_black_placeholder()
{
    auto* placeholder = new QWidget;
    placeholder->setObjectName(u"mDefaultWidget"_s);
    QPalette palette = placeholder->palette();
    palette.setBrush(placeholder->backgroundRole(), QBrush(Qt::black));
    placeholder->setPalette(palette);
    // A child shows its parent's background otherwise.
    placeholder->setAutoFillBackground(true);
    return placeholder;
}

QDockWidget* make_dock(const QString& name)
{
    auto* dock = new QDockWidget(name);
    dock->setObjectName(name);
    return dock;
}

// The text holds until the dock gets its final title, which the action then follows.
void set_up_toggle_action(QAction* action, const QString& text, const QString& toolTip, const char* icon)
{
    action->setText(text);
    action->setToolTip(toolTip);
    action->setCheckable(true);
    action->setChecked(true);
    action->setIcon(load_icon(icon));
}

// Qt takes no other.
bool is_one_area(Qt::DockWidgetArea area)
{
    switch (area) {
    case Qt::LeftDockWidgetArea:
    case Qt::RightDockWidgetArea:
    case Qt::TopDockWidgetArea:
    case Qt::BottomDockWidgetArea:
        return true;
    default:
        return false;
    }
}

} // namespace

Ostrel* Ostrel::mOstrel = nullptr;

Ostrel::Ostrel(QWidget* parent, const char* name) : QMainWindow(parent), mTitle(default_title)
{
    setObjectName(name ? QString::fromUtf8(name) : default_title);
    if (!mOstrel)
        mOstrel = this;
    make_graphics_area();
    // Before all widgets that register with it.
    mEventFilter = std::make_unique<OstrelEventFilter>();
    make_menus();
    make_file_tools();
    make_docks();
    make_windows();
    // Last, since it needs the console and the journal editor and may replace the command panel.
    restore_settings();
}

void Ostrel::make_graphics_area()
{
    setIconSize(QSize(22, 22));
    auto* central = new QWidget(this);
    central->setObjectName(u"qt_central_widget"_s);
    setCentralWidget(central);
    mLayout = new QVBoxLayout(central);
    mLayout->setObjectName(u"QtOstrelLayout"_s);
    mLayout->setContentsMargins(0, 0, 0, 0);
    mLayout->setSpacing(0);

    mGraphicsArea = new OstrelSplitter(Qt::Horizontal, central, "mGraphicsArea");
    mGraphicsArea->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    mGraphicsArea->setMinimumSize(5, 5);
    mLayout->addWidget(mGraphicsArea);

    resize(QSize(1016, 819).expandedTo(sizeHint()));

    mDefaultWidget = make_black_placeholder();
    mGraphicsArea->addWidget(mDefaultWidget);
}

void Ostrel::make_menus()
{
    mSections = std::make_unique<ComponentBars>();
    mMenuBar = menuBar();
    mFileMenu = new OstrelFileMenu(this);
    mViewMenu = new OstrelViewMenu(this);
    mToolsMenu = new OstrelToolsMenu(this);
    mWindowMenu = new OstrelWindowMenu(this, nullptr);
    mHelpMenu = new OstrelHelpMenu(this);
    mNavigationModel = new NavigationModel(this);
}

void Ostrel::make_file_tools()
{
    std::vector<QAction*> file_tools;
    if (mFileMenu)
        mFileMenu->get_items_for_toolbar(file_tools);
    if (mFileMenu && mToolsMenu)
        file_tools.push_back(nullptr);
    if (mToolsMenu)
        mToolsMenu->get_items_for_toolbar(file_tools);
    add_to_toolbar("FileTools", tr("File Tools"), file_tools, "framework", Qt::TopToolBarArea);
    // The pause button stays alive while a command runs.
    if (const MenuSections* const made = mSections->toolbars.value(u"FileTools"_s); made && mToolsMenu) {
        if (QWidget* const button = made->toolbar->widgetForAction(mToolsMenu->pause_action()))
            mEventFilter->addObject(button);
    }
}

void Ostrel::make_docks()
{
    // The side docks reach down beside the bottom dock.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);

    mCommandLineDock = make_dock(u"OstrelCommandWindow"_s);
    mCommandPanelDock = make_dock(u"FennarCommandPanel"_s);
    set_up_toggle_action(mCommandLineDock->toggleViewAction(), tr("&Command Line"),
                         tr("Show/hide command line workspace"), "cmdwindow_ot.svg");
    set_up_toggle_action(mCommandPanelDock->toggleViewAction(), tr("Command Panel"),
                         tr("Show/hide command panel"), "ctrlpanel_ot.svg");

    mLineupToolsAction = new QAction(this);
    mLineupToolsAction->setObjectName(u"lineupToolsAction"_s);
    mLineupToolsAction->setText(tr("Line up"));
    if (mViewMenu)
        connect(mLineupToolsAction, &QAction::triggered, mViewMenu, &OstrelViewMenu::lineup_tools);

    if (add_dock_window(mCommandLineDock, "framework", Qt::BottomDockWidgetArea, Qt::BottomDockWidgetArea)) {
        mCommandWindow = new CommandWindow(mCommandLineDock);
        mCommandLineDock->setWidget(mCommandWindow);
        mCommandLineDock->setWindowTitle(tr("Command Line"));
    } else {
        delete mCommandLineDock;
        mCommandLineDock = nullptr;
    }

    if (add_dock_window(mCommandPanelDock, "framework", Qt::RightDockWidgetArea,
                        Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea)) {
        mCommandPanel = new CommandButtonPanel(mCommandPanelDock);
        mCommandPanelDock->setWidget(mCommandPanel);
        mCommandPanelDock->setWindowTitle(tr("Command Panel"));
        mCommandPanel->set_model(mNavigationModel, QModelIndex());
    } else {
        delete mCommandPanelDock;
        mCommandPanelDock = nullptr;
    }
}

void Ostrel::make_windows()
{
    mJournalEditor = new JournalEditor(this);
    mOptionsPanel = new OptionsPanel(this);
    mGUIOptions = new OstrelGUIOptions(this);

    mProgress = new ProgressControl(statusBar());
    statusBar()->addPermanentWidget(mProgress, 0);

    auto* to_console = new QShortcut(QKeySequence(u"Ctrl+L"_s), this);
    connect(to_console, &QShortcut::activated, this, &Ostrel::set_focus_to_command_window);
}

Ostrel::~Ostrel()
{
    if (mOstrel == this)
        mOstrel = nullptr;
    // It goes with the window, which then has no place for another.
    if (mGraphicsWidget)
        disconnect(mGraphicsWidget, &QObject::destroyed, this, nullptr);
    InUse::spare(mGraphicsArea);
    QPixmapCache::clear();
    mSections.reset();
    // What goes last may still ask for what went first.
    delete std::exchange(mDefaultWidget, nullptr);
    delete std::exchange(mOptionsPanel, nullptr);
    delete std::exchange(mJournalEditor, nullptr);
    delete std::exchange(mFileMenu, nullptr);
    delete std::exchange(mViewMenu, nullptr);
    delete std::exchange(mToolsMenu, nullptr);
    delete std::exchange(mWindowMenu, nullptr);
    delete std::exchange(mHelpMenu, nullptr);
    delete std::exchange(mCommandWindow, nullptr);
    // After all widgets that may have registered with it.
    mEventFilter.reset();
}

Ostrel* Ostrel::instance()
{
    return mOstrel;
}

TaskPanel* Ostrel::command_buttons() const
{
    return mCommandPanel;
}

CommandWindow* Ostrel::command_line() const
{
    return mCommandWindow;
}

JournalEditor* Ostrel::journal_editor() const
{
    return mJournalEditor;
}

OptionsPanel* Ostrel::options() const
{
    return mOptionsPanel;
}

OstrelFileMenu* Ostrel::file_menu() const
{
    return mFileMenu;
}

OstrelViewMenu* Ostrel::view_menu() const
{
    return mViewMenu;
}

OstrelToolsMenu* Ostrel::tools_menu() const
{
    return mToolsMenu;
}

OstrelHelpMenu* Ostrel::help_menu() const
{
    return mHelpMenu;
}

QWidget* Ostrel::graphics_widget() const
{
    return mGraphicsWidget;
}

OstrelSplitter* Ostrel::graphics_area() const
{
    return mGraphicsArea;
}

OstrelEventFilter* Ostrel::event_filter() const
{
    return mEventFilter.get();
}

NavigationModel* Ostrel::navigation_model() const
{
    return mNavigationModel;
}

ProgressControl* Ostrel::progress() const
{
    return mProgress;
}

void Ostrel::set_title(const QString& t)
{
    mTitle = t.isEmpty() ? default_title : t;
    update_title();
}

QString Ostrel::get_title() const
{
    return mTitle;
}

void Ostrel::update_title()
{
    const QString& file = OstrelFileMenu::mFileName;
    setWindowTitle(file.isEmpty() ? mTitle : mTitle + u" - "_s + file);
}

void Ostrel::set_prompt(const QString& p)
{
    mPrompt = p.isEmpty() ? u"Fennar>"_s : p;
}

QString Ostrel::command_prompt() const
{
    return mPrompt;
}

void Ostrel::set_graphics_widget(QWidget* w)
{
    const Alive alive(this);
    const QPointer<QWidget> wanted(w);
    QWidget* const shown = mGraphicsWidget ? mGraphicsWidget : mDefaultWidget;
    const int index = mGraphicsArea->indexOf(shown);
    const bool was_graphics = mGraphicsWidget != nullptr;
    if (was_graphics)
        disconnect(mGraphicsWidget, &QObject::destroyed, this, nullptr);
    mGraphicsWidget = nullptr;
    mGraphicsArea->removeWidget(shown);
    // Whoever is told of a step may have put something in its place, which then stays.
    if (alive && !is_graphics_area_taken() && was_graphics)
        CLOptions::instance()->set_graphics_state(1);
    if (!alive || is_graphics_area_taken())
        return;

    if (wanted) {
        mGraphicsWidget = wanted;
        connect(wanted, &QObject::destroyed, this, &Ostrel::replace_deleted_graphics);
        wanted->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (alive && wanted && mGraphicsWidget == wanted)
            mGraphicsArea->insertWidget(index, wanted);
        if (alive && wanted && mGraphicsWidget != wanted)
            mGraphicsArea->removeWidget(wanted);
        if (alive && wanted && mGraphicsWidget == wanted)
            CLOptions::instance()->set_graphics_state(2);
    } else {
        mGraphicsArea->insertWidget(index, mDefaultWidget);
    }
}

bool Ostrel::is_graphics_area_taken() const
{
    return mGraphicsWidget || mGraphicsArea->indexOf(mDefaultWidget) != -1;
}

void Ostrel::replace_deleted_graphics()
{
    // What is left of it is in the splitter still.
    const int index = mGraphicsArea->indexOf(mGraphicsWidget);
    mGraphicsWidget = nullptr;
    const Alive alive(this);
    {
        // Whoever deletes the window with the area would delete the widget once more.
        const InUse use(mGraphicsArea);
        CLOptions::instance()->set_graphics_state(1);
    }
    if (alive && !is_graphics_area_taken())
        mGraphicsArea->insertWidget(index, mDefaultWidget);
}

bool Ostrel::is_in_batch_mode() const
{
    return CLOptions::instance()->batch_mode();
}

bool Ostrel::usingButtonRows() const
{
    return qobject_cast<CommandButtonPanel*>(mCommandPanel) != nullptr;
}

void Ostrel::setUsingButtonRows(bool rows)
{
    if (usingButtonRows() != rows)
        update_navigation_model(rows);
}

void Ostrel::setPanelButtonWidth(int width)
{
    // The new width is not stored here: it is the panels' own to change.
    if (CommandButtons::mPanelButtonWidth != width && usingButtonRows())
        update_navigation_model(true);
}

bool Ostrel::usingLargeButtonIcons() const
{
    const auto* breadcrumbs = qobject_cast<BreadcrumbsPanel*>(mCommandPanel);
    return !breadcrumbs || breadcrumbs->usingLargeIcons;
}

void Ostrel::setUsingLargeButtonIcons(bool on)
{
    if (auto* breadcrumbs = qobject_cast<BreadcrumbsPanel*>(mCommandPanel))
        breadcrumbs->setUsingLargeIcons(on);
}

void Ostrel::update_navigation_model(bool rows)
{
    // The replaced panel is not deleted; it stays a hidden child of the dock (docs/surprises.md).
    const QPersistentModelIndex current = mCommandPanel->current_index();
    TaskPanel* panel = nullptr;
    if (rows)
        panel = new CommandButtonPanel(mCommandPanelDock);
    else
        panel = new BreadcrumbsPanel(mCommandPanelDock);
    const bool is_changing = mCommandPanelDock->widget() != mCommandPanel;
    mCommandPanel = panel;
    const Alive alive(this, panel);
    // Whoever hears of the change may choose another panel, which goes in when Qt has done with this one.
    while (alive && !is_changing && mCommandPanelDock->widget() != mCommandPanel)
        mCommandPanelDock->setWidget(mCommandPanel);
    if (alive)
        panel->set_model(mNavigationModel, QModelIndex());
    if (alive)
        panel->set_current_index(current);
}

void Ostrel::display_context_menu(QContextMenuEvent* e)
{
    if (!mViewMenu)
        return;
    QMenu menu;
    menu.setObjectName(u"MainContextMenu"_s);
    std::vector<QAction*> docks;
    mViewMenu->get_dock_items(docks);
    for (QAction* dock : docks)
        menu.addAction(dock);
    menu.addSeparator();
    menu.addMenu(mViewMenu->get_toolbar_menu());
    menu.addSeparator();
    menu.addAction(mLineupToolsAction);
    menu.exec(e->globalPos());
    e->accept();
}

void Ostrel::component_finished_loading(const char* name)
{
    emit componentLoaded(name);
}

void Ostrel::add_to_menu(const QString& title, std::vector<QAction*>& actions, const char* component)
{
    if (!component || !mSections)
        return;
    // The file and the window menu take nothing this way (docs/surprises.md).
    if (title == tr("&File"))
        return;
    if (title == tr("&View")) {
        if (mViewMenu)
            mViewMenu->add_items(actions, component);
        return;
    }
    if (title == tr("&Tools")) {
        if (mToolsMenu)
            mToolsMenu->add_items(actions, component);
        return;
    }
    if (title == tr("&Window"))
        return;
    if (title == tr("&Help")) {
        if (mHelpMenu)
            mHelpMenu->add_items(actions, component);
        return;
    }
    add_to_component_menu(*this, *mSections, title, actions, component);
}

void Ostrel::add_to_menu(const char* title, std::vector<PyAction*>& actions, const char* component)
{
    if (!title)
        return;
    std::vector<QAction*> list;
    list.reserve(actions.size());
    for (const PyAction* action : actions)
        list.push_back(action ? action->getAction() : nullptr);
    add_to_menu(QString::fromUtf8(title), list, component);
}

void Ostrel::add_to_toolbar(const char* name, const QString& title, std::vector<QAction*>& actions,
                            const char* component, Qt::ToolBarArea area)
{
    if (component && name && mSections)
        add_to_component_toolbar(*this, *mSections, QString::fromUtf8(name), title, actions, component, area);
}

void Ostrel::remove_menu_items(const char* component)
{
    if (!component)
        return;
    const Alive alive(this);
    if (mViewMenu)
        mViewMenu->remove_component_items(component);
    if (alive && mToolsMenu)
        mToolsMenu->remove_component_items(component);
    if (alive && mHelpMenu)
        mHelpMenu->remove_component_items(component);
    if (alive && mSections)
        remove_component_menu_items(*this, *mSections, component);
}

void Ostrel::remove_toolbar_items(const char* component)
{
    // The window menu has nothing to do with toolbars; without it the window is being built or taken down.
    if (mSections && component && mWindowMenu)
        remove_component_toolbar_items(*this, *mSections, component);
}

void Ostrel::push_tool_button(const char* toolbar, const char* button, bool on)
{
    if (toolbar && button && mSections)
        push_component_button(*mSections, QString::fromUtf8(toolbar), QString::fromUtf8(button), on);
}

bool Ostrel::add_dock_window(QDockWidget* dock, const char* component, Qt::DockWidgetArea area,
                             Qt::DockWidgetAreas allowed)
{
    if (!dock || !mSections || dock->objectName().isEmpty() || !is_one_area(area) || !(allowed & area))
        return false;
    // A dock tells of its move, which may be the end of it.
    const Alive alive(this, dock);
    addDockWidget(area, dock);
    if (alive)
        dock->setAllowedAreas(allowed);
    if (!alive)
        return false;
    if (mViewMenu) {
        const QByteArray own_name = dock->objectName().toUtf8();
        mViewMenu->add_dock_item(dock->toggleViewAction(), component ? component : own_name.constData());
    }
    return true;
}

void Ostrel::remove_dock_window(const char* component)
{
    if (mViewMenu)
        mViewMenu->remove_component_items(component);
}

void Ostrel::remove_dock_windows(const char* component)
{
    remove_dock_window(component);
}

bool Ostrel::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ContextMenu) {
        display_context_menu(static_cast<QContextMenuEvent*>(event));
        return true;
    }
    return QObject::eventFilter(object, event);
}

void Ostrel::set_focus_to_command_window()
{
    if (mCommandWindow)
        mCommandWindow->set_focus();
}

void Ostrel::cancel_progress()
{
    if (mProgress)
        mProgress->cancel_progress();
}

void Ostrel::keyPressEvent(QKeyEvent* e)
{
    if (e->key() == Qt::Key_F1)
        emit help_key_pressed();
    else
        QMainWindow::keyPressEvent(e);
}

void Ostrel::closeEvent(QCloseEvent* e)
{
    const Alive alive(this);
    if (mJournalEditor && !mJournalEditor->isHidden()) {
        mJournalEditor->close();
        if (!alive)
            return;
        if (!mJournalEditor->isHidden()) {
            save_settings();
            e->ignore();
            return;
        }
    }
    const bool may_close = !mFileMenu || mFileMenu->check_modified();
    if (!alive)
        return;
    // Even if the window stays.
    save_settings();
    if (!may_close) {
        e->ignore();
        return;
    }
    e->accept();
    Broker::instance()->request_exit();
}

void Ostrel::showEvent(QShowEvent* e)
{
    QMainWindow::showEvent(e);
}

void Ostrel::restore_settings()
{
    restore_window_settings(*this);
}

void Ostrel::save_settings()
{
    save_window_settings(*this);
}

void Ostrel::about_to_quit_qt()
{
    if (!isHidden())
        save_settings();
}
