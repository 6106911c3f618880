// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelSplitter.h"
#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/OstrelWindowMenu.h"
#include "options/OptionsPanel.h"
#include "resources/load_icon.h"
#include "support/IdleDocuments.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/menus.h"
#include "support/statics.h"
#include "support/windows.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPixmapCache>
#include <QPointer>
#include <QScopeGuard>
#include <QSettings>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

QDockWidget* console_dock(const Ostrel& window)
{
    return window.findChild<QDockWidget*>(u"OstrelCommandWindow"_s);
}

QDockWidget* panel_dock(const Ostrel& window)
{
    return window.findChild<QDockWidget*>(u"FennarCommandPanel"_s);
}

QWidget* placeholder(const Ostrel& window)
{
    return window.findChild<QWidget*>(u"mDefaultWidget"_s);
}

QImage picture(const QIcon& icon)
{
    return icon.pixmap(22, 22).toImage();
}

/** Documents that are modified. Calls @p asked when it is asked about them. */
class ModifiedDocuments : public IdleDocuments
{
public:
    explicit ModifiedDocuments(std::function<void()> asked) : mAsked(std::move(asked)) {}

    bool is_modified() override
    {
        mAsked();
        return mModified;
    }
    void set_modified(bool modified) override { mModified = modified; }

private:
    std::function<void()> mAsked;
    bool mModified = true;
};

} // namespace

class TstOstrel : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // Construction.
    void name_is_ostrel_unless_given();
    void first_window_is_the_instance();
    void icons_are_22_pixels_wide();
    void central_area_fills_the_middle();
    void window_starts_at_1016_by_819();
    void window_that_needs_more_starts_larger();
    void empty_central_area_is_black();
    void navigation_model_belongs_to_the_window();
    void side_docks_reach_down_beside_the_bottom_dock();
    void docks_are_named_and_placed();
    void docks_may_go_to_their_areas_only();
    void toggle_actions_show_text_and_icon();
    void line_up_action_belongs_to_the_window();
    void docks_hold_console_and_button_rows();
    void panel_gets_the_model_and_settings_come_last();
    void parts_are_built_in_order();
    void texts_are_translated_in_its_own_context();
    void window_has_no_icon_of_its_own();
    void ctrl_l_focuses_the_console();
    void ctrl_l_holds_in_the_main_window_only();
    void focus_slot_focuses_the_console();
    void signals_and_slots_keep_their_order();

    // Title and prompt.
    void title_is_set_and_kept();
    void empty_title_stands_for_ostrel();
    void update_title_writes_the_title_anew();
    void title_names_the_current_file();
    void prompt_is_kept_and_nothing_else();

    // Graphics.
    void graphics_widget_replaces_the_placeholder();
    void second_graphics_widget_replaces_the_first();
    void removed_graphics_widget_gives_way_to_the_placeholder();
    void graphics_widgets_keep_their_place_among_others();
    void removing_no_graphics_widget_reinserts_the_placeholder();
    void same_graphics_widget_again_is_taken_out_and_put_back();
    void graphics_widget_given_to_another_window_stays_there();
    void graphics_widget_that_died_in_place_gives_way();
    void graphics_widget_set_while_another_comes_stays();

    void batch_mode_is_asked_of_the_command_line();

    // Command panel.
    void choosing_the_present_panel_rebuilds_nothing();
    void choosing_the_other_panel_replaces_it();
    void replaced_panel_stays_hidden_in_the_dock();
    void place_in_the_panel_is_kept();
    void new_panel_is_seen();
    void new_width_rebuilds_button_rows();
    void present_width_rebuilds_nothing();
    void width_means_nothing_to_breadcrumbs();
    void button_rows_always_have_large_icons();
    void icon_size_goes_to_breadcrumbs();

    // Docks.
    void dock_is_added_where_it_is_wanted();
    void dock_without_component_is_added_too();
    void dock_is_refused_data();
    void dock_is_refused();

    // Events.
    void f1_asks_for_help_and_goes_no_further();
    void other_keys_go_to_the_base_class();
    void context_menu_events_are_swallowed_where_the_window_filters();
    void loaded_component_is_announced();
    void close_saves_then_accepts_then_asks_to_exit();
    void documents_are_asked_about_before_the_settings_are_saved();
    void refused_close_saves_the_settings_and_leaves_all_else();
    void refusing_editor_is_asked_before_the_documents();

    // Destruction.
    void window_is_taken_down_in_order();
    void removed_graphics_widget_outlives_the_window();
    void graphics_widget_in_place_goes_with_the_window();
};

void TstOstrel::set_up()
{
    reset_statics();
    host().reset();
    CommandButtons::mPanelButtonWidth = 0;
}

void TstOstrel::name_is_ostrel_unless_given()
{
    const Ostrel unnamed;
    const Ostrel named(nullptr, "second");
    QWidget parent;
    const Ostrel child(&parent, "caf\xc3\xa9");
    QCOMPARE(unnamed.objectName(), u"Ostrel"_s);
    QCOMPARE(unnamed.parent(), nullptr);
    QCOMPARE(named.objectName(), u"second"_s);
    QCOMPARE(child.objectName(), u"caf\u00e9"_s);
    QCOMPARE(child.parent(), &parent);
    QCOMPARE(named.get_title(), u"Ostrel"_s);
}

void TstOstrel::first_window_is_the_instance()
{
    QCOMPARE(Ostrel::instance(), nullptr);
    auto first = std::make_unique<Ostrel>();
    QCOMPARE(Ostrel::instance(), first.get());
    {
        const Ostrel second;
        QCOMPARE(Ostrel::instance(), first.get());
    }
    QCOMPARE(Ostrel::instance(), first.get());

    const Ostrel second;
    first.reset();
    QCOMPARE(Ostrel::instance(), nullptr);
    const Ostrel third;
    QCOMPARE(Ostrel::instance(), &third);
}

void TstOstrel::icons_are_22_pixels_wide()
{
    const Ostrel window;
    QCOMPARE(window.iconSize(), QSize(22, 22));
}

void TstOstrel::central_area_fills_the_middle()
{
    const Ostrel window;
    const QWidget* const central = window.centralWidget();
    QVERIFY(central);
    QCOMPARE(central->objectName(), u"qt_central_widget"_s);
    const auto* const layout = qobject_cast<QVBoxLayout*>(central->layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), u"QtOstrelLayout"_s);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);

    const OstrelSplitter* const area = window.graphics_area();
    QVERIFY(area);
    QCOMPARE(area->objectName(), u"mGraphicsArea"_s);
    QCOMPARE(area->orientation(), Qt::Horizontal);
    QCOMPARE(area->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(area->minimumSize(), QSize(5, 5));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), area);
}

void TstOstrel::window_starts_at_1016_by_819()
{
    const Ostrel window;
    QCOMPARE(window.size(), QSize(1016, 819));
}

void TstOstrel::window_that_needs_more_starts_larger()
{
    const auto reset = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    qApp->setStyleSheet(u"OstrelSplitter { min-width: 1500px; }"_s);
    const Ostrel wide;
    QCOMPARE_GE(wide.width(), 1500);
    QCOMPARE(wide.height(), 819);
    qApp->setStyleSheet(u"OstrelSplitter { min-height: 1200px; }"_s);
    const Ostrel high;
    QCOMPARE(high.width(), 1016);
    QCOMPARE_GE(high.height(), 1200);
}

void TstOstrel::empty_central_area_is_black()
{
    Ostrel window;
    const QWidget* const widget = placeholder(window);
    QVERIFY(widget);
    QCOMPARE(window.graphics_widget(), nullptr);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), widget);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QBrush brush = widget->palette().brush(group, widget->backgroundRole());
        QCOMPARE(brush.style(), Qt::SolidPattern);
        QCOMPARE(brush.color(), QColor(Qt::black));
    }

    window.show();
    const QImage seen = window.grab(QRect(widget->mapTo(&window, QPoint()), widget->size())).toImage();
    QVERIFY(!seen.isNull());
    QCOMPARE(seen.pixelColor(seen.rect().center()), QColor(Qt::black));
}

void TstOstrel::navigation_model_belongs_to_the_window()
{
    Ostrel window;
    QVERIFY(window.navigation_model());
    QCOMPARE(window.navigation_model()->parent(), &window);
}

void TstOstrel::side_docks_reach_down_beside_the_bottom_dock()
{
    const Ostrel window;
    QCOMPARE(window.corner(Qt::BottomLeftCorner), Qt::LeftDockWidgetArea);
    QCOMPARE(window.corner(Qt::BottomRightCorner), Qt::RightDockWidgetArea);
}

void TstOstrel::docks_are_named_and_placed()
{
    const Ostrel window;
    QDockWidget* const console = console_dock(window);
    QDockWidget* const panel = panel_dock(window);
    QVERIFY(console);
    QVERIFY(panel);
    QCOMPARE(console->windowTitle(), u"Command Line"_s);
    QCOMPARE(panel->windowTitle(), u"Command Panel"_s);
    QCOMPARE(window.dockWidgetArea(console), Qt::BottomDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(panel), Qt::RightDockWidgetArea);
    QVERIFY(!console->isFloating());
    QVERIFY(!panel->isFloating());
}

void TstOstrel::docks_may_go_to_their_areas_only()
{
    const Ostrel window;
    QCOMPARE(console_dock(window)->allowedAreas(), Qt::DockWidgetAreas(Qt::BottomDockWidgetArea));
    QCOMPARE(panel_dock(window)->allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
}

void TstOstrel::toggle_actions_show_text_and_icon()
{
    const Ostrel window;
    const QAction* const console = console_dock(window)->toggleViewAction();
    const QAction* const panel = panel_dock(window)->toggleViewAction();
    // The docks' final titles have replaced the actions' first texts.
    QCOMPARE(console->text(), u"Command Line"_s);
    QCOMPARE(panel->text(), u"Command Panel"_s);
    QCOMPARE(console->toolTip(), u"Show/hide command line workspace"_s);
    QCOMPARE(panel->toolTip(), u"Show/hide command panel"_s);
    QVERIFY(console->isCheckable());
    QVERIFY(panel->isCheckable());
    QVERIFY(console->isChecked());
    QVERIFY(panel->isChecked());

    QVERIFY(!picture(console->icon()).isNull());
    QCOMPARE(picture(console->icon()), picture(load_icon("cmdwindow_ot.svg")));
    QCOMPARE(picture(panel->icon()), picture(load_icon("ctrlpanel_ot.svg")));
    QVERIFY(picture(console->icon()) != picture(panel->icon()));
}

void TstOstrel::line_up_action_belongs_to_the_window()
{
    const Ostrel window;
    const auto* action = window.findChild<QAction*>(u"lineupToolsAction"_s, Qt::FindDirectChildrenOnly);
    QVERIFY(action);
    QCOMPARE(action->text(), u"Line up"_s);
}

void TstOstrel::docks_hold_console_and_button_rows()
{
    const Ostrel window;
    QVERIFY(window.command_line());
    QCOMPARE(console_dock(window)->widget(), window.command_line());
    QCOMPARE(window.command_line()->parentWidget(), console_dock(window));
    QVERIFY(qobject_cast<CommandButtonPanel*>(window.command_buttons()));
    QCOMPARE(panel_dock(window)->widget(), window.command_buttons());
    QCOMPARE(window.command_buttons()->parentWidget(), panel_dock(window));
    QVERIFY(window.usingButtonRows());
}

void TstOstrel::panel_gets_the_model_and_settings_come_last()
{
    QSettings().setValue(u"/fennargui/commandpanel/breadcrumbs"_s, true);
    const Ostrel window;
    QCOMPARE(host().take_calls(), (QStringList{
                                      u"Framework::python_interpreter()"_s,
                                      u"FennarPythonInterpreter::version_major()"_s,
                                      u"FennarPythonInterpreter::version_minor()"_s,
                                      u"FennarPythonInterpreter::version_micro()"_s,
                                      u"CommandButtonPanel::CommandButtonPanel"_s,
                                      u"CommandButtonPanel::set_model(set, invalid)"_s,
                                      u"CLParser::batch_mode()"_s,
                                      u"BreadcrumbsPanel::BreadcrumbsPanel"_s,
                                      u"BreadcrumbsPanel::set_model(set, invalid)"_s,
                                      u"BreadcrumbsPanel::set_current_index(invalid)"_s,
                                  }));
}

void TstOstrel::parts_are_built_in_order()
{
    const Ostrel window;
    // A dock becomes a child when it is added, a toolbar or bar when it is first asked for.
    // The file menu has a label in the status bar.
    const QStringList parts{u"qt_central_widget"_s,  u"QMenuBar"_s,          u"OstrelFileMenu"_s,
                            u"QStatusBar"_s,         u"OstrelViewMenu"_s,    u"OstrelToolsMenu"_s,
                            u"OstrelWindowMenu"_s,   u"OstrelHelpMenu"_s,    u"NavigationModel"_s,
                            u"FileTools"_s,          u"lineupToolsAction"_s, u"OstrelCommandWindow"_s,
                            u"FennarCommandPanel"_s, u"QtJournalEditor"_s,   u"QtOptionsPanel"_s,
                            u"OstrelGUIOptions"_s,   u"QShortcut"_s};
    QStringList built;
    for (const QObject* child : window.children()) {
        const QString name = child->objectName();
        const QString kind = QString::fromLatin1(child->metaObject()->className());
        if (parts.contains(name))
            built << name;
        else if (parts.contains(kind))
            built << kind;
    }
    QCOMPARE(built, parts);
}

void TstOstrel::texts_are_translated_in_its_own_context()
{
    const MarkingTranslator marker("Ostrel");
    const Ostrel window;
    QCOMPARE(window.findChild<QToolBar*>(u"FileTools"_s)->windowTitle(), u"<File Tools>"_s);
    QCOMPARE(console_dock(window)->windowTitle(), u"<Command Line>"_s);
    QCOMPARE(panel_dock(window)->windowTitle(), u"<Command Panel>"_s);
    QCOMPARE(console_dock(window)->toggleViewAction()->toolTip(), u"<Show/hide command line workspace>"_s);
    QCOMPARE(panel_dock(window)->toggleViewAction()->toolTip(), u"<Show/hide command panel>"_s);
    QCOMPARE(window.findChild<QAction*>(u"lineupToolsAction"_s)->text(), u"<Line up>"_s);
    // These name nothing that is to be read.
    QCOMPARE(window.get_title(), u"Ostrel"_s);
    QCOMPARE(window.objectName(), u"Ostrel"_s);
}

void TstOstrel::window_has_no_icon_of_its_own()
{
    const Ostrel window;
    QVERIFY(!window.testAttribute(Qt::WA_SetWindowIcon));
}

void TstOstrel::ctrl_l_focuses_the_console()
{
    Ostrel window;
    CommandWidget page;
    QLineEdit elsewhere;
    window.command_line()->add_command_tab(u"page"_s, &page);
    const auto remove_page = qScopeGuard([&] {
        window.command_line()->remove_command_tab(&page);
        page.setParent(nullptr);
    });
    window.set_graphics_widget(&elsewhere);
    const auto remove_elsewhere = qScopeGuard([&] { window.set_graphics_widget(nullptr); });
    QVERIFY(show_active(&window));
    elsewhere.setFocus();
    QVERIFY(elsewhere.hasFocus());

    QTest::keyClick(window.windowHandle(), Qt::Key_L, Qt::ControlModifier);
    QVERIFY(page.hasFocus());
}

void TstOstrel::ctrl_l_holds_in_the_main_window_only()
{
    Ostrel window;
    const auto shortcuts = window.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly);
    QCOMPARE(shortcuts.size(), 1);
    QCOMPARE(shortcuts.constFirst()->key(), QKeySequence(Qt::CTRL | Qt::Key_L));
    QCOMPARE(shortcuts.constFirst()->context(), Qt::WindowShortcut);
}

void TstOstrel::focus_slot_focuses_the_console()
{
    Ostrel window;
    CommandWidget page;
    window.command_line()->add_command_tab(u"page"_s, &page);
    const auto remove_page = qScopeGuard([&] {
        window.command_line()->remove_command_tab(&page);
        page.setParent(nullptr);
    });
    QVERIFY(show_active(&window));
    page.clearFocus();
    QVERIFY(!page.hasFocus());
    window.set_focus_to_command_window();
    QVERIFY(page.hasFocus());
}

void TstOstrel::signals_and_slots_keep_their_order()
{
    const QMetaObject& meta = Ostrel::staticMetaObject;
    QList<QByteArray> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        methods << (method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") +
                       method.methodSignature();
    }
    QCOMPARE(methods, (QList<QByteArray>{
                          "signal help_key_pressed()",
                          "signal componentLoaded(const char*)",
                          "slot set_focus_to_command_window()",
                          "slot cancel_progress()",
                      }));
}

void TstOstrel::title_is_set_and_kept()
{
    Ostrel window;
    window.set_title(u"Fennar"_s);
    QCOMPARE(window.get_title(), u"Fennar"_s);
    QCOMPARE(window.windowTitle(), u"Fennar"_s);
}

void TstOstrel::empty_title_stands_for_ostrel()
{
    Ostrel window;
    window.set_title(u"Fennar"_s);
    window.set_title(QString());
    QCOMPARE(window.get_title(), u"Ostrel"_s);
    QCOMPARE(window.windowTitle(), u"Ostrel"_s);
}

void TstOstrel::update_title_writes_the_title_anew()
{
    Ostrel window;
    window.set_title(u"Fennar"_s);
    window.setWindowTitle(u"something else"_s);
    window.update_title();
    QCOMPARE(window.windowTitle(), u"Fennar"_s);
}

void TstOstrel::title_names_the_current_file()
{
    Ostrel window;
    window.set_title(u"Fennar"_s);
    OstrelFileMenu::mFileName = u"/a - b/plate %1.mdl"_s;
    QCOMPARE(window.windowTitle(), u"Fennar"_s);
    window.update_title();
    QCOMPARE(window.windowTitle(), u"Fennar - /a - b/plate %1.mdl"_s);
    QCOMPARE(window.get_title(), u"Fennar"_s);
    window.set_title(QString());
    QCOMPARE(window.windowTitle(), u"Ostrel - /a - b/plate %1.mdl"_s);
    OstrelFileMenu::mFileName.clear();
    window.update_title();
    QCOMPARE(window.windowTitle(), u"Ostrel"_s);
}

void TstOstrel::prompt_is_kept_and_nothing_else()
{
    Ostrel window;
    window.set_title(u"Fennar"_s);
    QSignalSpy printed(window.command_line(), &CommandWindow::dataToPrint);
    QSignalSpy prompted(window.command_line(), &CommandWindow::readyForPrompt);
    QCOMPARE(window.command_prompt(), QString());
    window.set_prompt(u"abc"_s);
    QCOMPARE(window.command_prompt(), u"abc"_s);
    window.set_prompt(QString());
    QCOMPARE(window.command_prompt(), u"Fennar>"_s);
    QCOMPARE(window.windowTitle(), u"Fennar"_s);
    QVERIFY(printed.isEmpty());
    QVERIFY(prompted.isEmpty());
}

void TstOstrel::graphics_widget_replaces_the_placeholder()
{
    Ostrel window;
    QWidget* const black = placeholder(window);
    QWidget graphics;
    host().take_calls();
    window.set_graphics_widget(&graphics);
    QCOMPARE(host().take_calls(), QStringList{u"CLParser::set_graphics_state(2)"_s});
    QCOMPARE(window.graphics_widget(), &graphics);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), &graphics);
    QCOMPARE(graphics.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(black->parent(), nullptr);
    window.set_graphics_widget(nullptr);
}

void TstOstrel::second_graphics_widget_replaces_the_first()
{
    Ostrel window;
    QPointer<QWidget> first(new QWidget);
    const std::unique_ptr<QWidget> owner(first);
    QWidget second;
    window.set_graphics_widget(first);
    host().take_calls();
    window.set_graphics_widget(&second);
    QCOMPARE(host().take_calls(),
             (QStringList{u"CLParser::set_graphics_state(1)"_s, u"CLParser::set_graphics_state(2)"_s}));
    QCOMPARE(window.graphics_widget(), &second);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), &second);
    QVERIFY(first);
    QCOMPARE(first->parent(), nullptr);
    window.set_graphics_widget(nullptr);
}

void TstOstrel::removed_graphics_widget_gives_way_to_the_placeholder()
{
    Ostrel window;
    QWidget* const black = placeholder(window);
    QWidget graphics;
    window.show();
    window.set_graphics_widget(&graphics);
    QVERIFY(!black->isVisible());
    host().take_calls();
    window.set_graphics_widget(nullptr);
    QCOMPARE(host().take_calls(), QStringList{u"CLParser::set_graphics_state(1)"_s});
    QCOMPARE(window.graphics_widget(), nullptr);
    QCOMPARE(graphics.parent(), nullptr);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), black);
    QVERIFY(black->isVisible());
}

void TstOstrel::graphics_widgets_keep_their_place_among_others()
{
    Ostrel window;
    OstrelSplitter* const area = window.graphics_area();
    QWidget* const black = placeholder(window);
    area->insertWidget(0, new QWidget);
    area->addWidget(new QWidget);
    QCOMPARE(area->indexOf(black), 1);
    QWidget first;
    QWidget second;
    window.set_graphics_widget(&first);
    QCOMPARE(area->indexOf(&first), 1);
    window.set_graphics_widget(&second);
    QCOMPARE(area->indexOf(&second), 1);
    window.set_graphics_widget(nullptr);
    QCOMPARE(area->indexOf(black), 1);
    window.set_graphics_widget(nullptr);
    QCOMPARE(area->indexOf(black), 1);
    QCOMPARE(area->count(), 3);
}

void TstOstrel::removing_no_graphics_widget_reinserts_the_placeholder()
{
    class ParentWatch : public QObject
    {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::ParentChange)
                parents << watched->parent();
            return false;
        }
        QList<QObject*> parents;
    } watch;
    Ostrel window;
    QWidget* const black = placeholder(window);
    black->installEventFilter(&watch);
    host().take_calls();
    window.set_graphics_widget(nullptr);
    QCOMPARE(watch.parents, (QList<QObject*>{nullptr, window.graphics_area()}));
    QCOMPARE(window.graphics_area()->widget(0), black);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrel::same_graphics_widget_again_is_taken_out_and_put_back()
{
    Ostrel window;
    QWidget graphics;
    window.set_graphics_widget(&graphics);
    host().take_calls();
    window.set_graphics_widget(&graphics);
    QCOMPARE(host().take_calls(),
             (QStringList{u"CLParser::set_graphics_state(1)"_s, u"CLParser::set_graphics_state(2)"_s}));
    QCOMPARE(window.graphics_widget(), &graphics);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), &graphics);
    window.set_graphics_widget(nullptr);
}

void TstOstrel::graphics_widget_given_to_another_window_stays_there()
{
    Ostrel first;
    Ostrel second;
    QWidget graphics;
    first.set_graphics_widget(&graphics);
    second.set_graphics_widget(&graphics);
    first.set_graphics_widget(nullptr);
    QCOMPARE(second.graphics_widget(), &graphics);
    QCOMPARE(second.graphics_area()->count(), 1);
    QCOMPARE(second.graphics_area()->widget(0), &graphics);
    QCOMPARE(first.graphics_widget(), nullptr);
    QCOMPARE(first.graphics_area()->count(), 1);
    QCOMPARE(first.graphics_area()->widget(0), placeholder(first));
    second.set_graphics_widget(nullptr);
}

void TstOstrel::graphics_widget_that_died_in_place_gives_way()
{
    Ostrel window;
    window.set_graphics_widget(new QWidget);
    delete window.graphics_widget();
    window.set_graphics_widget(nullptr);
    QCOMPARE(window.graphics_widget(), nullptr);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), placeholder(window));
}

void TstOstrel::graphics_widget_set_while_another_comes_stays()
{
    class Setter : public QObject
    {
    public:
        Setter(Ostrel& window, QWidget* widget) : mWindow(window), mWidget(widget)
        {
            window.graphics_area()->installEventFilter(this);
        }
        bool eventFilter(QObject* area, QEvent* event) override
        {
            if (event->type() == QEvent::ChildAdded) {
                area->removeEventFilter(this);
                mWindow.set_graphics_widget(mWidget);
            }
            return false;
        }

    private:
        Ostrel& mWindow;
        QWidget* mWidget;
    };
    Ostrel window;
    QWidget first;
    QWidget second;
    const auto remove = qScopeGuard([&window] { window.set_graphics_widget(nullptr); });
    const Setter setter(window, &second);
    window.set_graphics_widget(&first);
    QCOMPARE(window.graphics_widget(), &second);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), &second);
    QCOMPARE(first.parent(), nullptr);
}

void TstOstrel::batch_mode_is_asked_of_the_command_line()
{
    const Ostrel window;
    host().take_calls();
    host().batch_mode = true;
    QVERIFY(window.is_in_batch_mode());
    host().batch_mode = false;
    QVERIFY(!window.is_in_batch_mode());
    QCOMPARE(host().take_calls(), QStringList(2, u"CLParser::batch_mode()"_s));
}

void TstOstrel::choosing_the_present_panel_rebuilds_nothing()
{
    Ostrel window;
    const TaskPanel* const panel = window.command_buttons();
    host().take_calls();
    window.setUsingButtonRows(true);
    QCOMPARE(window.command_buttons(), panel);
    window.setUsingButtonRows(false);
    const TaskPanel* const breadcrumbs = window.command_buttons();
    host().take_calls();
    window.setUsingButtonRows(false);
    QCOMPARE(window.command_buttons(), breadcrumbs);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrel::choosing_the_other_panel_replaces_it()
{
    Ostrel window;
    host().take_calls();
    window.setUsingButtonRows(false);
    QVERIFY(!window.usingButtonRows());
    QVERIFY(qobject_cast<BreadcrumbsPanel*>(window.command_buttons()));
    QCOMPARE(panel_dock(window)->widget(), window.command_buttons());
    QCOMPARE(window.command_buttons()->parentWidget(), panel_dock(window));
    QCOMPARE(host().take_calls(), (QStringList{
                                      u"BreadcrumbsPanel::BreadcrumbsPanel"_s,
                                      u"BreadcrumbsPanel::set_model(set, invalid)"_s,
                                      u"BreadcrumbsPanel::set_current_index(invalid)"_s,
                                  }));

    window.setUsingButtonRows(true);
    QVERIFY(window.usingButtonRows());
    QVERIFY(qobject_cast<CommandButtonPanel*>(window.command_buttons()));
    QCOMPARE(panel_dock(window)->widget(), window.command_buttons());
}

void TstOstrel::replaced_panel_stays_hidden_in_the_dock()
{
    Ostrel window;
    window.show();
    const QPointer<TaskPanel> replaced = window.command_buttons();
    QVERIFY(replaced->isVisible());
    window.setUsingButtonRows(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(replaced);
    QCOMPARE(replaced->parentWidget(), panel_dock(window));
    QVERIFY(!replaced->isVisible());
}

void TstOstrel::place_in_the_panel_is_kept()
{
    Ostrel window;
    window.navigation_model()->appendRow(new QStandardItem(u"zero"_s));
    window.navigation_model()->appendRow(new QStandardItem(u"one"_s));
    const QModelIndex place = window.navigation_model()->index(1, 0);
    window.command_buttons()->set_current_index(place);
    host().take_calls();
    window.setUsingButtonRows(false);
    QCOMPARE(window.command_buttons()->current_index(), place);
    QCOMPARE(host().take_calls(), (QStringList{
                                      u"BreadcrumbsPanel::BreadcrumbsPanel"_s,
                                      u"BreadcrumbsPanel::set_model(set, invalid)"_s,
                                      u"BreadcrumbsPanel::set_current_index(row 1)"_s,
                                  }));
}

void TstOstrel::new_panel_is_seen()
{
    Ostrel window;
    window.show();
    window.setUsingButtonRows(false);
    QTRY_VERIFY(window.command_buttons()->isVisible());
}

void TstOstrel::new_width_rebuilds_button_rows()
{
    Ostrel window;
    CommandButtons::mPanelButtonWidth = 100;
    const TaskPanel* const panel = window.command_buttons();
    host().take_calls();
    window.setPanelButtonWidth(120);
    QVERIFY(window.command_buttons() != panel);
    QVERIFY(window.usingButtonRows());
    QCOMPARE(host().take_calls(), (QStringList{
                                      u"CommandButtonPanel::CommandButtonPanel"_s,
                                      u"CommandButtonPanel::set_model(set, invalid)"_s,
                                      u"CommandButtonPanel::set_current_index(invalid)"_s,
                                  }));
    // Not stored, so that the same width rebuilds again.
    QCOMPARE(CommandButtons::mPanelButtonWidth, 100);
    window.setPanelButtonWidth(120);
    QCOMPARE(host().take_calls().size(), 3);
}

void TstOstrel::present_width_rebuilds_nothing()
{
    Ostrel window;
    CommandButtons::mPanelButtonWidth = 100;
    const TaskPanel* const panel = window.command_buttons();
    host().take_calls();
    window.setPanelButtonWidth(100);
    QCOMPARE(window.command_buttons(), panel);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrel::width_means_nothing_to_breadcrumbs()
{
    Ostrel window;
    CommandButtons::mPanelButtonWidth = 100;
    window.setUsingButtonRows(false);
    const TaskPanel* const panel = window.command_buttons();
    host().take_calls();
    window.setPanelButtonWidth(120);
    window.setPanelButtonWidth(100);
    QCOMPARE(window.command_buttons(), panel);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrel::button_rows_always_have_large_icons()
{
    Ostrel window;
    QVERIFY(window.usingLargeButtonIcons());
    host().take_calls();
    window.setUsingLargeButtonIcons(false);
    QVERIFY(window.usingLargeButtonIcons());
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrel::icon_size_goes_to_breadcrumbs()
{
    Ostrel window;
    window.setUsingButtonRows(false);
    host().take_calls();
    QVERIFY(!window.usingLargeButtonIcons());
    window.setUsingLargeButtonIcons(true);
    QVERIFY(window.usingLargeButtonIcons());
    window.setUsingLargeButtonIcons(false);
    QVERIFY(!window.usingLargeButtonIcons());
    QCOMPARE(host().take_calls(), (QStringList{u"BreadcrumbsPanel::setUsingLargeIcons(true)"_s,
                                               u"BreadcrumbsPanel::setUsingLargeIcons(false)"_s}));
}

void TstOstrel::dock_is_added_where_it_is_wanted()
{
    Ostrel window;
    auto* dock = new QDockWidget(u"Tree"_s);
    dock->setObjectName(u"tree"_s);
    const Qt::DockWidgetAreas allowed = Qt::LeftDockWidgetArea | Qt::TopDockWidgetArea;
    QVERIFY(window.add_dock_window(dock, "geometry", Qt::LeftDockWidgetArea, allowed));
    QCOMPARE(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    QCOMPARE(dock->allowedAreas(), allowed);
    QCOMPARE(dock->parentWidget(), &window);
}

void TstOstrel::dock_without_component_is_added_too()
{
    Ostrel window;
    auto* dock = new QDockWidget;
    dock->setObjectName(u"tree"_s);
    QVERIFY(window.add_dock_window(dock, nullptr, Qt::TopDockWidgetArea, Qt::AllDockWidgetAreas));
    QCOMPARE(window.dockWidgetArea(dock), Qt::TopDockWidgetArea);
}

void TstOstrel::dock_is_refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::addColumn<Qt::DockWidgetAreas>("allowed");

    QTest::newRow("no object name") << QString() << Qt::LeftDockWidgetArea
                                    << Qt::DockWidgetAreas(Qt::AllDockWidgetAreas);
    QTest::newRow("area that is not allowed")
        << u"tree"_s << Qt::LeftDockWidgetArea << (Qt::RightDockWidgetArea | Qt::TopDockWidgetArea);
    QTest::newRow("no area") << u"tree"_s << Qt::NoDockWidgetArea
                             << Qt::DockWidgetAreas(Qt::AllDockWidgetAreas);
}

void TstOstrel::dock_is_refused()
{
    QFETCH(const QString, name);
    QFETCH(const Qt::DockWidgetArea, area);
    QFETCH(const Qt::DockWidgetAreas, allowed);
    Ostrel window;
    QDockWidget dock;
    dock.setObjectName(name);
    dock.setAllowedAreas(Qt::BottomDockWidgetArea);
    QVERIFY(!window.add_dock_window(&dock, "geometry", area, allowed));
    QCOMPARE(dock.parent(), nullptr);
    QCOMPARE(dock.allowedAreas(), Qt::DockWidgetAreas(Qt::BottomDockWidgetArea));
    QCOMPARE(window.dockWidgetArea(&dock), Qt::NoDockWidgetArea);
    QVERIFY(!window.add_dock_window(nullptr, "geometry", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
}

void TstOstrel::f1_asks_for_help_and_goes_no_further()
{
    Ostrel window;
    const QSignalSpy asked(&window, &Ostrel::help_key_pressed);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &press);
    QCOMPARE(asked.size(), 1);
    QVERIFY(press.isAccepted()); // the base class would have ignored it
}

void TstOstrel::other_keys_go_to_the_base_class()
{
    Ostrel window;
    const QSignalSpy asked(&window, &Ostrel::help_key_pressed);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Help, Qt::Key_A}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &press);
        QVERIFY(!press.isAccepted());
    }
    QVERIFY(asked.isEmpty());
}

void TstOstrel::context_menu_events_are_swallowed_where_the_window_filters()
{
    Ostrel window;
    QWidget widget;
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(), QPoint());
    QString opened;
    {
        const MenuDriver driver([&](QMenu* shown) { opened = shown->objectName(); });
        QVERIFY(window.eventFilter(&widget, &menu));
    }
    QCOMPARE(opened, u"MainContextMenu"_s);
    for (const QEvent::Type type :
         {QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::Paint, QEvent::User}) {
        QEvent event(type);
        QVERIFY(!window.eventFilter(&widget, &event));
    }
}

void TstOstrel::loaded_component_is_announced()
{
    Ostrel window;
    QStringList announced;
    connect(&window, &Ostrel::componentLoaded, this,
            [&](const char* name) { announced << QString::fromUtf8(name); });
    window.component_finished_loading("geometry");
    QCOMPARE(announced, QStringList{u"geometry"_s});
}

void TstOstrel::close_saves_then_accepts_then_asks_to_exit()
{
    Ostrel window;
    QCloseEvent close;
    close.ignore();
    bool saved = false;
    bool accepted = false;
    host().take_calls();
    host().on_request_exit = [&] {
        saved = QSettings().contains(u"geometry"_s);
        accepted = close.isAccepted();
    };
    QVERIFY(!QSettings().contains(u"geometry"_s));
    QCoreApplication::sendEvent(&window, &close);
    host().on_request_exit = nullptr;
    QCOMPARE(host().take_calls(), QStringList{u"Mediator::request_exit()"_s});
    QVERIFY(saved);
    QVERIFY(accepted);
    QVERIFY(close.isAccepted());
}

void TstOstrel::documents_are_asked_about_before_the_settings_are_saved()
{
    Ostrel window;
    bool saved_before = true;
    ModifiedDocuments documents([&] { saved_before = QSettings().contains(u"geometry"_s); });
    documents.set_modified(false);
    window.file_menu()->set_open_save_handler(&documents);
    QVERIFY(show_active(&window));
    QVERIFY(window.close());
    window.file_menu()->set_open_save_handler(nullptr);
    QVERIFY(!saved_before);
    QVERIFY(QSettings().contains(u"geometry"_s));
}

void TstOstrel::refused_close_saves_the_settings_and_leaves_all_else()
{
    Ostrel window;
    ModifiedDocuments documents([] {});
    window.file_menu()->set_open_save_handler(&documents);
    QVERIFY(show_active(&window));
    host().take_calls();
    DialogDriver driver;
    driver.expect(u"QtMessageSettingBox"_s, press(u"mCancelButton"_s));
    QCloseEvent close;
    QVERIFY(close.isAccepted());
    QCoreApplication::sendEvent(&window, &close);
    QVERIFY(driver.finish());
    QVERIFY(!close.isAccepted());
    QVERIFY(QSettings().contains(u"geometry"_s));
    QVERIFY(window.isVisible());
    QCOMPARE(host().take_calls(), QStringList());

    DialogDriver second;
    second.expect(u"QtMessageSettingBox"_s, press(u"mNoButton"_s));
    QVERIFY(window.close());
    QVERIFY(second.finish());
    QCOMPARE(host().take_calls(), QStringList{u"Mediator::request_exit()"_s});
    window.file_menu()->set_open_save_handler(nullptr);
}

void TstOstrel::refusing_editor_is_asked_before_the_documents()
{
    // Whatever hinders the editor from closing.
    class KeepOpen : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::Close)
                return false;
            event->ignore();
            return true;
        }
    } keep_open;
    Ostrel window;
    int asked = 0;
    ModifiedDocuments documents([&] { ++asked; });
    window.file_menu()->set_open_save_handler(&documents);
    QVERIFY(show_active(&window));
    window.journal_editor()->show();
    window.journal_editor()->installEventFilter(&keep_open);
    host().take_calls();
    QVERIFY(!window.close());
    QCOMPARE(asked, 0);
    QVERIFY(QSettings().contains(u"geometry"_s));
    QCOMPARE(host().take_calls(), QStringList());
    QVERIFY(window.isVisible());

    window.journal_editor()->removeEventFilter(&keep_open);
    documents.set_modified(false);
    QVERIFY(window.close());
    QVERIFY(window.journal_editor()->isHidden());
    QVERIFY(asked > 0);
    window.file_menu()->set_open_save_handler(nullptr);
}

void TstOstrel::window_is_taken_down_in_order()
{
    auto window = std::make_unique<Ostrel>();
    // Out of the splitter, so that Qt would not delete it.
    QWidget graphics;
    QWidget* const black = placeholder(*window);
    window->set_graphics_widget(&graphics);
    graphics.setParent(nullptr);

    QStringList order;
    const auto announce = [&](const QObject* object, const QString& what) {
        connect(object, &QObject::destroyed, this, [&order, what] { order << what; });
    };
    bool instance_gone = false;
    bool cache_cleared = false;
    connect(black, &QObject::destroyed, this, [&] {
        QPixmap found;
        instance_gone = !Ostrel::instance();
        cache_cleared = !QPixmapCache::find(u"a picture"_s, &found);
    });
    announce(black, u"placeholder"_s);
    announce(window->options(), u"options"_s);
    announce(window->journal_editor(), u"journal editor"_s);
    announce(window->file_menu(), u"file menu"_s);
    announce(window->view_menu(), u"view menu"_s);
    announce(window->tools_menu(), u"tools menu"_s);
    announce(window->findChild<OstrelWindowMenu*>(), u"window menu"_s);
    announce(window->help_menu(), u"help menu"_s);
    announce(window->command_line(), u"console"_s);
    announce(console_dock(*window), u"console dock"_s);

    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    QVERIFY(QPixmapCache::insert(u"a picture"_s, picture));
    window.reset();
    QCOMPARE(order, (QStringList{u"placeholder"_s, u"options"_s, u"journal editor"_s, u"file menu"_s,
                                 u"view menu"_s, u"tools menu"_s, u"window menu"_s, u"help menu"_s,
                                 u"console"_s, u"console dock"_s}));
    QVERIFY(instance_gone);
    QVERIFY(cache_cleared);
}

void TstOstrel::removed_graphics_widget_outlives_the_window()
{
    auto* graphics = new QWidget;
    const std::unique_ptr<QWidget> owner(graphics);
    const QPointer<QWidget> alive(graphics);
    {
        Ostrel window;
        window.set_graphics_widget(graphics);
        window.set_graphics_widget(nullptr);
    }
    QVERIFY(alive);
}

void TstOstrel::graphics_widget_in_place_goes_with_the_window()
{
    const QPointer<QWidget> graphics(new QWidget);
    {
        Ostrel window;
        window.set_graphics_widget(graphics);
    }
    QVERIFY(!graphics);
}

OSTREL_TEST(TstOstrel)

#include "tst_ostrel.moc"
