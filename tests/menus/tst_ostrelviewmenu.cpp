// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "menus/OstrelViewMenu.h"
#include "support/MarkingTranslator.h"
#include "support/own_methods.h"

#include <QDockWidget>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

class TstOstrelViewMenu : public MenuTestCase
{
    Q_OBJECT

private:
    OstrelViewMenu* view() const { return window()->view_menu(); }
    QMenu* menu() const { return bar_menu(u"&View"_s); }
    QStringList toolbar_labels() const
    {
        std::vector<QString> labels;
        view()->get_toolbar_labels(labels);
        return QStringList(labels.begin(), labels.end());
    }
    QStringList dock_labels() const
    {
        std::vector<QString> labels;
        view()->get_dock_labels(labels);
        return QStringList(labels.begin(), labels.end());
    }
    QDockWidget* add_dock(const QString& title) const
    {
        auto* dock = new QDockWidget(title);
        dock->setObjectName(u"dock of "_s + title);
        if (!window()->add_dock_window(dock, "test", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas))
            qFatal("the dock was not taken");
        return dock;
    }
    QToolBar* console_bar() const { return window()->findChild<QToolBar*>(u"FileTools"_s); }

private slots:
    void object_and_menus_have_their_names_and_parents()
    {
        QCOMPARE(view()->objectName(), u"OstrelViewMenu"_s);
        QCOMPARE(view()->parent(), window());
        QVERIFY(menu());
        QCOMPARE(menu()->title(), u"&View"_s);
        QCOMPARE(menu()->parent(), window());
        const QMenu* const toolbars = view()->get_toolbar_menu();
        QCOMPARE(toolbars->objectName(), u"ViewToolbarsActionGroup"_s);
        QCOMPARE(toolbars->title(), u"Toolbars"_s);
        QVERIFY(!toolbars->parent());
    }

    void slots_stand_in_their_order_and_there_are_no_signals()
    {
        QCOMPARE(own_methods(OstrelViewMenu::staticMetaObject),
                 QStringList({u"slot view_command(bool)"_s, u"slot lineup_tools()"_s}));
    }

    void texts_are_translated()
    {
        const MarkingTranslator marker("OstrelViewMenu");
        const OstrelViewMenu second(window());
        QCOMPARE(bar().last(), u"<&View>"_s);
        QCOMPARE(second.get_toolbar_menu()->title(), u"<Toolbars>"_s);
        delete second.get_toolbar_menu();
    }

    void new_menu_holds_the_submenu_of_the_toolbars()
    {
        auto* second = new OstrelViewMenu(window());
        const QMenu* const made = window()->menuBar()->actions().last()->menu();
        QCOMPARE(made->actions(), QList<QAction*>({second->get_toolbar_menu()->menuAction()}));
        delete second->get_toolbar_menu();
        delete second;
    }

    void toolbars_come_before_docks_and_docks_before_the_rest()
    {
        QAction general(u"general"_s);
        QAction dock(u"dock"_s);
        view()->add_item(&general, "test");
        view()->add_dock_item(&dock, "test");
        QAction more(u"more"_s);
        std::vector<QAction*> list{nullptr, &more};
        view()->add_items(list, "test");
        QCOMPARE(rows(menu()), QStringList({u"Toolbars"_s, u"---"_s, u"Command Line"_s, u"Command Panel"_s,
                                            u"dock"_s, u"---"_s, u"general"_s, u"---"_s, u"more"_s}));
        view()->remove_component_items("test");
        QCOMPARE(rows(menu()),
                 QStringList({u"Toolbars"_s, u"---"_s, u"Command Line"_s, u"Command Panel"_s, u"---"_s}));
    }

    void null_component_adds_and_removes_nothing()
    {
        const QStringList before = rows(menu());
        QAction one(u"one"_s);
        std::vector<QAction*> list{&one};
        view()->add_item(&one, nullptr);
        view()->add_items(list, nullptr);
        view()->add_dock_item(&one, nullptr);
        view()->remove_component_items(nullptr);
        QCOMPARE(rows(menu()), before);
    }

    void submenu_belongs_to_its_section_and_keeps_its_entries()
    {
        view()->remove_component_items("framework");
        QVERIFY(rows(menu()).contains(u"Toolbars"_s));
        std::vector<QAction*> items;
        view()->get_toolbar_items(items);
        QCOMPARE(texts(items), QStringList({u"File Tools"_s}));
        view()->remove_component_items("viewToolbars");
        QVERIFY(!rows(menu()).contains(u"Toolbars"_s));
        QCOMPARE(view()->get_toolbar_menu()->actions().size(), 1);
    }

    void new_toolbar_is_listed_in_the_submenu()
    {
        QAction one(u"one"_s);
        std::vector<QAction*> list{&one};
        window()->add_to_toolbar("Extra", u"Extra Tools"_s, list, "test", Qt::TopToolBarArea);
        QAction own(u"own"_s);
        std::vector<QAction*> items{&own};
        view()->get_toolbar_items(items);
        QCOMPARE(texts(items), QStringList({u"own"_s, u"File Tools"_s, u"Extra Tools"_s}));
        QCOMPARE(items.back(), window()->findChild<QToolBar*>(u"Extra"_s)->toggleViewAction());
    }

    void dock_items_and_labels_are_appended_without_separators()
    {
        QAction one(u"one"_s);
        view()->add_dock_item(nullptr, "test");
        view()->add_dock_item(&one, "test");
        QCOMPARE(rows(menu()), QStringList({u"Toolbars"_s, u"---"_s, u"Command Line"_s, u"Command Panel"_s,
                                            u"---"_s, u"one"_s}));
        QAction own(u"own"_s);
        std::vector<QAction*> items{&own};
        view()->get_dock_items(items);
        QCOMPARE(texts(items), QStringList({u"own"_s, u"Command Line"_s, u"Command Panel"_s, u"one"_s}));
        std::vector<QString> labels{u"own"_s};
        view()->get_dock_labels(labels);
        QCOMPARE(labels, std::vector<QString>({u"own"_s, u"Command Line"_s, u"Command Panel"_s, u"one"_s}));
    }

    void dock_label_is_the_present_text_of_the_action()
    {
        QDockWidget* const dock = add_dock(u"Dock"_s);
        QCOMPARE(dock_labels().last(), u"Dock"_s);
        dock->toggleViewAction()->setText(u"&Renamed"_s);
        QCOMPARE(dock_labels().last(), u"&Renamed"_s);
        QCOMPARE(dock->windowTitle(), u"Dock"_s);
    }

    void toolbar_labels_are_appended_and_found_at_any_depth()
    {
        QToolBar deep(u"Deep"_s, window()->centralWidget());
        QToolBar nameless(window());
        QStringList expected;
        for (const QToolBar* toolbar : window()->findChildren<QToolBar*>())
            expected << toolbar->windowTitle();
        QVERIFY(expected.contains(u"Deep"_s));
        QVERIFY(expected.contains(u"File Tools"_s));
        QVERIFY(expected.contains(QString()));
        QCOMPARE(toolbar_labels(), expected);
        std::vector<QString> labels{u"own"_s};
        view()->get_toolbar_labels(labels);
        QCOMPARE(labels.front(), u"own"_s);
        QCOMPARE(static_cast<qsizetype>(labels.size()), expected.size() + 1);
    }

    void two_toolbars_of_one_title_are_listed_twice_and_the_first_is_switched()
    {
        auto* first = new QToolBar(u"Twin"_s);
        auto* second = new QToolBar(u"Twin"_s);
        window()->addToolBar(first);
        window()->addToolBar(second);
        QCOMPARE(toolbar_labels().count(u"Twin"_s), 2);
        QCOMPARE(window()->findChildren<QToolBar*>().indexOf(first) <
                     window()->findChildren<QToolBar*>().indexOf(second),
                 true);
        view()->hide_toolbar(u"Twin"_s);
        QVERIFY(first->isHidden());
        QVERIFY(!second->isHidden());
        second->hide();
        view()->show_toolbar(u"Twin"_s);
        QVERIFY(!first->isHidden());
        QVERIFY(second->isHidden());
    }

    void toolbar_label_must_match_exactly_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("other case") << u"file Tools"_s;
        QTest::newRow("a part") << u"File"_s;
        QTest::newRow("more") << u"File Tools "_s;
        QTest::newRow("object name") << u"FileTools"_s;
        QTest::newRow("null") << QString();
    }
    void toolbar_label_must_match_exactly()
    {
        QFETCH(const QString, label);
        view()->hide_toolbar(label);
        QVERIFY(!console_bar()->isHidden());
        view()->hide_toolbar(u"File Tools"_s);
        QVERIFY(console_bar()->isHidden());
        view()->show_toolbar(label);
        QVERIFY(console_bar()->isHidden());
        view()->show_toolbar(u"File Tools"_s);
        QVERIFY(!console_bar()->isHidden());
    }

    void dock_follows_the_action_of_that_text_data()
    {
        QTest::addColumn<bool>("on_screen");
        QTest::newRow("window on the screen") << true;
        QTest::newRow("window not shown yet") << false;
    }
    void dock_follows_the_action_of_that_text()
    {
        QFETCH(const bool, on_screen);
        QDockWidget* const dock = add_dock(u"Dock"_s);
        window()->setVisible(on_screen);
        QCOMPARE(dock->isVisible(), on_screen);
        view()->hide_dock_window(u"Dock"_s);
        QVERIFY(dock->isHidden());
        QVERIFY(!dock->toggleViewAction()->isChecked());
        view()->hide_dock_window(u"Dock"_s);
        QVERIFY(dock->isHidden());
        view()->show_dock_window(u"Dock"_s);
        QVERIFY(!dock->isHidden());
        QVERIFY(dock->toggleViewAction()->isChecked());
        view()->show_dock_window(u"Dock"_s);
        QVERIFY(!dock->isHidden());
    }

    void state_that_a_dock_has_already_triggers_nothing()
    {
        QDockWidget* const dock = add_dock(u"Dock"_s);
        window()->show();
        QVERIFY(dock->isVisible());
        const QSignalSpy triggered(dock->toggleViewAction(), &QAction::triggered);
        view()->show_dock_window(u"Dock"_s);
        QCOMPARE(triggered.count(), 0);
        view()->hide_dock_window(u"Dock"_s);
        QCOMPARE(triggered.count(), 1);
        view()->hide_dock_window(u"Dock"_s);
        QCOMPARE(triggered.count(), 1);
        view()->show_dock_window(u"Dock"_s);
        QCOMPARE(triggered.count(), 2);
    }

    void dock_may_be_deleted_by_its_toggle()
    {
        for (const bool on_screen : {true, false}) {
            const QPointer<QDockWidget> dock = add_dock(u"Dock"_s);
            window()->setVisible(on_screen);
            dock->toggleViewAction()->setChecked(true);
            connect(dock->toggleViewAction(), &QAction::toggled, window(), [&] { delete dock; });
            view()->hide_dock_window(u"Dock"_s);
            QVERIFY(!dock);
            view()->show_dock_window(u"Dock"_s);
            QVERIFY(!dock_labels().contains(u"Dock"_s));
        }
    }

    void toggle_may_think_better_of_it()
    {
        QDockWidget* const dock = add_dock(u"Dock"_s);
        window()->show();
        QAction* const toggle = dock->toggleViewAction();
        connect(toggle, &QAction::toggled, window(), [toggle] { toggle->setChecked(true); });
        const QSignalSpy triggered(toggle, &QAction::triggered);
        view()->hide_dock_window(u"Dock"_s);
        QCOMPARE(triggered.count(), 0);
        QVERIFY(dock->isVisible() && toggle->isChecked());
    }

    void action_that_is_no_dock_s_own_is_only_checked()
    {
        QAction toggle(u"Mine"_s);
        toggle.setCheckable(true);
        const QSignalSpy toggled(&toggle, &QAction::toggled);
        const QSignalSpy triggered(&toggle, &QAction::triggered);
        view()->add_dock_item(&toggle, "test");
        view()->show_dock_window(u"Mine"_s);
        view()->show_dock_window(u"Mine"_s);
        QVERIFY(toggle.isChecked());
        QCOMPARE(toggled.count(), 1);
        QCOMPARE(triggered.count(), 0);
    }

    void dock_label_must_match_exactly_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("other case") << u"dock"_s;
        QTest::newRow("a part") << u"Doc"_s;
        QTest::newRow("object name") << u"dock of Dock"_s;
        QTest::newRow("null") << QString();
    }
    void dock_label_must_match_exactly()
    {
        QFETCH(const QString, label);
        QAction toggle(u"Dock"_s);
        toggle.setCheckable(true);
        toggle.setChecked(true);
        view()->add_dock_item(&toggle, "test");
        view()->hide_dock_window(label);
        QVERIFY(toggle.isChecked());
        toggle.setChecked(false);
        view()->show_dock_window(label);
        QVERIFY(!toggle.isChecked());
    }

    void first_dock_of_two_with_one_text_is_switched()
    {
        QAction first(u"Twin"_s);
        QAction second(u"Twin"_s);
        for (QAction* toggle : {&first, &second}) {
            toggle->setCheckable(true);
            view()->add_dock_item(toggle, "test");
        }
        view()->show_dock_window(u"Twin"_s);
        QVERIFY(first.isChecked());
        QVERIFY(!second.isChecked());
        second.setChecked(true);
        view()->hide_dock_window(u"Twin"_s);
        QVERIFY(!first.isChecked());
        QVERIFY(second.isChecked());
    }

    void general_actions_are_no_docks()
    {
        QAction general(u"general"_s);
        general.setCheckable(true);
        view()->add_item(&general, "test");
        view()->show_dock_window(u"general"_s);
        QVERIFY(!general.isChecked());
        QVERIFY(!dock_labels().contains(u"general"_s));
    }

    void view_command_shows_and_hides_the_console()
    {
        auto* dock = window()->findChild<QDockWidget*>(u"OstrelCommandWindow"_s);
        view()->view_command(false);
        QVERIFY(dock->isHidden());
        view()->view_command(true);
        QVERIFY(!dock->isHidden());
    }

    void line_up_changes_nothing()
    {
        auto* action = window()->findChild<QAction*>(u"lineupToolsAction"_s);
        QVERIFY(action);
        const QByteArray state = window()->saveState();
        action->trigger();
        view()->lineup_tools();
        QCOMPARE(window()->saveState(), state);
        QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    }

    void end_takes_the_menu_but_not_the_submenu()
    {
        auto* second = new OstrelViewMenu(window());
        const QPointer<QMenu> second_menu = window()->menuBar()->actions().last()->menu();
        const QPointer<QMenu> toolbars = second->get_toolbar_menu();
        const qsizetype count = bar().size();
        delete second;
        QVERIFY(!second_menu);
        QCOMPARE(bar().size(), count - 1);
        QVERIFY(toolbars);
        delete toolbars;
    }

    void submenu_outlives_the_window()
    {
        const QPointer<QMenu> toolbars = view()->get_toolbar_menu();
        delete_window();
        QVERIFY(toolbars);
        QVERIFY(toolbars->actions().isEmpty());
        delete toolbars;
    }
};

OSTREL_TEST(TstOstrelViewMenu)
#include "tst_ostrelviewmenu.moc"
