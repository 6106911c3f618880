// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "options/ComponentTool.h"
#include "resources/load_icon.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPushButton* button(const QWidget& tool, const QString& name)
{
    return tool.findChild<QPushButton*>(name);
}

QListWidget* components(const QWidget& tool)
{
    return tool.findChild<QListWidget*>(u"mCompList"_s);
}

QListWidget* paths(const QWidget& tool)
{
    return tool.findChild<QListWidget*>(u"mPathList"_s);
}

QStringList rows(const QListWidget* list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    return texts;
}

QImage picture(const QIcon& icon)
{
    return icon.pixmap(22, 22).toImage();
}

/** Those of the three buttons that are enabled: "remove", "up", "down". */
QStringList enabled(const QWidget& tool)
{
    QStringList names;
    if (button(tool, u"mRemoveButton"_s)->isEnabled())
        names << u"remove"_s;
    if (button(tool, u"mMoveUpButton"_s)->isEnabled())
        names << u"up"_s;
    if (button(tool, u"mMoveDownButton"_s)->isEnabled())
        names << u"down"_s;
    return names;
}

void press_button(const QWidget& tool, const QString& name)
{
    button(tool, name)->click();
}

QList<int> place(const QGridLayout* grid, int index)
{
    QList<int> place(4);
    grid->getItemPosition(index, &place[0], &place[1], &place[2], &place[3]);
    return place;
}

HostDouble& host()
{
    return HostDouble::instance();
}

ComponentRecord component(const QString& name, const QString& state)
{
    return {name, u"second"_s, u"third"_s, state, 7};
}

} // namespace

class TstComponentTool : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // Form.
    void form_has_the_names_texts_and_measures();
    void widgets_have_their_places_in_the_grid();
    void buttons_have_shortcuts_icons_and_are_auto_default();
    void what_is_this_texts();
    void texts_are_translated_in_the_forms_context();
    void tab_key_visits_the_controls_in_their_order();
    void slots_have_their_order();
    void window_is_its_parent();

    // Showing.
    void nothing_is_asked_before_it_is_shown();
    void showing_reads_components_then_registers_then_reads_the_directories();
    void components_are_listed_in_their_order_with_the_icons_of_their_states_data();
    void components_are_listed_in_their_order_with_the_icons_of_their_states();
    void clicked_component_does_nothing();
    void directories_are_listed_without_gaps_data();
    void directories_are_listed_without_gaps();
    void first_directory_is_current();
    void each_opening_reads_anew();

    // Hiding.
    void hiding_by_any_means_hands_the_directories_back_data();
    void hiding_by_any_means_hands_the_directories_back();
    void deleting_the_open_dialog_hands_the_directories_back();
    void deleting_the_hidden_dialog_asks_nothing();
    void unchanged_directories_go_back_joined_by_single_semicolons();
    void empty_list_hands_an_empty_text_back();
    void lists_are_empty_while_hidden();
    void minimizing_is_not_hiding();

    // States.
    void report_changes_the_icon_data();
    void report_changes_the_icon();
    void reports_tell_names_by_case();
    void report_changes_the_first_of_equal_names();
    void report_of_an_unknown_name_is_ignored_data();
    void report_of_an_unknown_name_is_ignored();
    void reports_while_hidden_are_not_remembered();

    // Editing.
    void buttons_follow_the_current_row_data();
    void buttons_follow_the_current_row();
    void empty_path_leaves_only_adding();
    void remove_takes_the_current_row_data();
    void remove_takes_the_current_row();
    void remove_without_a_current_row_does_nothing();
    void move_changes_places_data();
    void move_changes_places();
    void move_without_a_current_row_does_nothing();

    // Adding.
    void folder_dialog_asks_for_a_directory();
    void framework_names_the_first_start_directory_only();
    void chosen_directory_is_added_at_the_end_and_current();
    void first_added_directory_enables_remove_only();
    void known_directory_is_selected_and_its_parent_remembered();
    void first_of_equal_directories_is_selected();
    void directories_differ_by_case();
    void cancelled_folder_dialog_changes_nothing();
    void start_directory_above_the_root_is_empty();
    void start_directory_is_shared_by_all_dialogs();
    void folder_chosen_after_hiding_is_not_added();
    void dialog_may_go_under_the_folder_dialog();

    // From inside the framework.
    void framework_may_act_when_it_is_asked_data();
    void framework_may_act_when_it_is_asked();
    void framework_may_hide_the_dialog_before_the_lists_are_there();
    void report_without_a_name_is_ignored();
};

void TstComponentTool::set_up()
{
    host().reset();
    ComponentTool::sLastPath.clear();
}

void TstComponentTool::form_has_the_names_texts_and_measures()
{
    const ComponentTool tool(nullptr);
    QCOMPARE(tool.objectName(), u"QtComponentTool"_s);
    QCOMPARE(tool.windowTitle(), u"Plugin Directories"_s);
    QCOMPARE(tool.size(), QSize(625, 350));
    QVERIFY(!tool.isModal());
    QCOMPARE(tool.findChild<QLabel*>(u"label"_s)->text(), u"Plugins"_s);
    QCOMPARE(tool.findChild<QLabel*>(u"label_2"_s)->text(), u"Loading Locations"_s);
    QCOMPARE(button(tool, u"mAddButton"_s)->text(), u"&Add"_s);
    QCOMPARE(button(tool, u"mRemoveButton"_s)->text(), u"&Remove"_s);
    QCOMPARE(button(tool, u"mMoveUpButton"_s)->text(), QString());
    QCOMPARE(button(tool, u"mMoveDownButton"_s)->text(), QString());
    QCOMPARE(button(tool, u"mCloseButton"_s)->text(), u"Close"_s);
}

void TstComponentTool::widgets_have_their_places_in_the_grid()
{
    const ComponentTool tool(nullptr);
    const auto* grid = tool.findChild<QGridLayout*>(u"gridLayout"_s);
    QCOMPARE(grid, tool.layout());
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(grid->count(), 10);
    const auto placed = [&](const QString& name) {
        return place(grid, grid->indexOf(tool.findChild<QWidget*>(name)));
    };
    QCOMPARE(placed(u"label"_s), QList<int>({0, 0, 1, 1}));
    QCOMPARE(placed(u"label_2"_s), QList<int>({0, 1, 1, 6}));
    QCOMPARE(placed(u"mCompList"_s), QList<int>({1, 0, 2, 1}));
    QCOMPARE(placed(u"mPathList"_s), QList<int>({1, 1, 1, 6}));
    QCOMPARE(placed(u"mAddButton"_s), QList<int>({2, 1, 1, 1}));
    QCOMPARE(placed(u"mRemoveButton"_s), QList<int>({2, 2, 1, 1}));
    QCOMPARE(placed(u"mMoveUpButton"_s), QList<int>({2, 3, 1, 1}));
    QCOMPARE(placed(u"mMoveDownButton"_s), QList<int>({2, 4, 1, 1}));
    QCOMPARE(placed(u"mCloseButton"_s), QList<int>({2, 6, 1, 1}));
    const QSpacerItem* spacer = grid->itemAtPosition(2, 5)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
}

void TstComponentTool::buttons_have_shortcuts_icons_and_are_auto_default()
{
    const ComponentTool tool(nullptr);
    QCOMPARE(tool.findChildren<QPushButton*>().size(), 5);
    for (const QPushButton* each : tool.findChildren<QPushButton*>())
        QVERIFY2(each->autoDefault(), qPrintable(each->objectName()));
    QCOMPARE(button(tool, u"mAddButton"_s)->shortcut(), QKeySequence(u"Alt+A"_s));
    QCOMPARE(button(tool, u"mRemoveButton"_s)->shortcut(), QKeySequence(u"Alt+R"_s));
    for (const auto& name : {u"mMoveUpButton"_s, u"mMoveDownButton"_s, u"mCloseButton"_s})
        QVERIFY(button(tool, name)->shortcut().isEmpty());
    QCOMPARE(picture(button(tool, u"mMoveUpButton"_s)->icon()), picture(load_icon("arrowup_ot.svg")));
    QCOMPARE(picture(button(tool, u"mMoveDownButton"_s)->icon()), picture(load_icon("arrowdown_ot.svg")));
    QVERIFY(picture(load_icon("arrowup_ot.svg")) != picture(load_icon("arrowdown_ot.svg")));
}

void TstComponentTool::what_is_this_texts()
{
    const ComponentTool tool(nullptr);
    QCOMPARE(
        button(tool, u"mAddButton"_s)->whatsThis(),
        u"Adds a plugin to the framework. You must click save in order to have Ostrel load the plugin the "
        "next time it starts up."_s);
    QCOMPARE(
        button(tool, u"mRemoveButton"_s)->whatsThis(),
        u"Removes a plugin from the framework. The plugin must be unloaded before it can be removed. You "
        "must click save to prevent Ostrel from loading the plugin the next time it starts up."_s);
    QCOMPARE(button(tool, u"mMoveUpButton"_s)->whatsThis(),
             u"Moves a plugin up in the list. The changes will only take effect after saving and restarting "
             "Ostrel."_s);
    QCOMPARE(
        button(tool, u"mMoveDownButton"_s)->whatsThis(),
        u"Moves a plugin down in the list. The changes will only take effect after saving and restarting "
        "Ostrel."_s);
    // The misspelled word is part of the text.
    QCOMPARE(paths(tool)->whatsThis(),
             u"The list of plugins registered with the framework. If the ckeck box in the left column of a "
             "plugin is checked, the plugin will be loaded on startup. If the box is not checked, the plugin "
             "will be in the list, but it will not be loaded when the framework starts up."_s);
    QCOMPARE(components(tool)->whatsThis(), QString());
    QCOMPARE(button(tool, u"mCloseButton"_s)->whatsThis(), QString());
}

void TstComponentTool::texts_are_translated_in_the_forms_context()
{
    const MarkingTranslator marker("QtComponentTool");
    const ComponentTool tool(nullptr);
    QCOMPARE(tool.windowTitle(), u"<Plugin Directories>"_s);
    QCOMPARE(tool.findChild<QLabel*>(u"label"_s)->text(), u"<Plugins>"_s);
    QCOMPARE(button(tool, u"mAddButton"_s)->text(), u"<&Add>"_s);
    QVERIFY(button(tool, u"mMoveUpButton"_s)->whatsThis().startsWith(u"<Moves"_s));
    // "<Alt+A>" names no key.
    QVERIFY(button(tool, u"mAddButton"_s)->shortcut() != QKeySequence(u"Alt+A"_s));
}

void TstComponentTool::tab_key_visits_the_controls_in_their_order()
{
    host().component_path = u"/a;/b;/c"_s;
    ComponentTool tool(nullptr);
    QVERIFY(show_active(&tool));
    paths(tool)->setCurrentRow(1);
    paths(tool)->setFocus();
    QStringList visited;
    for (int i = 0; i < 6; ++i) {
        visited << tool.focusWidget()->objectName();
        QTest::keyClick(tool.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, QStringList({u"mPathList"_s, u"mAddButton"_s, u"mRemoveButton"_s, u"mMoveUpButton"_s,
                                   u"mMoveDownButton"_s, u"mCloseButton"_s}));
    tool.hide();
}

void TstComponentTool::slots_have_their_order()
{
    const QMetaObject& meta = ComponentTool::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << QString::fromUtf8(meta.method(i).methodSignature());
    QCOMPARE(names, QStringList({u"add_location()"_s, u"remove_location()"_s, u"move_up()"_s,
                                 u"move_down()"_s, u"update_buttons(QListWidgetItem*,QListWidgetItem*)"_s}));
}

void TstComponentTool::window_is_its_parent()
{
    Ostrel window;
    const ComponentTool tool(&window);
    QCOMPARE(tool.parentWidget(), &window);
    QVERIFY(tool.isWindow());
}

void TstComponentTool::nothing_is_asked_before_it_is_shown()
{
    const ComponentTool tool(nullptr);
    QCOMPARE(host().take_calls(), QStringList());
    QVERIFY(!tool.isVisible());
}

void TstComponentTool::showing_reads_components_then_registers_then_reads_the_directories()
{
    ComponentTool tool(nullptr);
    tool.show();
    QCOMPARE(host().take_calls(),
             QStringList({u"Mediator::get_components()"_s, u"Mediator::add_component_tracker(set)"_s,
                          u"Mediator::get_component_path()"_s}));
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&tool});
    tool.hide();
    QCOMPARE(host().take_calls(), QStringList({u"Mediator::remove_component_tracker(set)"_s,
                                               u"Mediator::set_component_path(\"\")"_s}));
    QVERIFY(host().trackers.empty());
}

void TstComponentTool::components_are_listed_in_their_order_with_the_icons_of_their_states_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QByteArray>("icon");
    QTest::newRow("loaded") << u"loaded"_s << QByteArray("loaded_ot.svg");
    QTest::newRow("loading") << u"loading"_s << QByteArray("loading_ot.svg");
    QTest::newRow("unloading") << u"unloading"_s << QByteArray("unloading_ot.svg");
    QTest::newRow("capital letters") << u"LoadeD"_s << QByteArray("loaded_ot.svg");
    QTest::newRow("unloaded has no icon") << u"unloaded"_s << QByteArray();
    QTest::newRow("word without an icon") << u"failed"_s << QByteArray();
    QTest::newRow("no word") << QString() << QByteArray();
    QTest::newRow("not trimmed") << u"loaded "_s << QByteArray();
}

void TstComponentTool::components_are_listed_in_their_order_with_the_icons_of_their_states()
{
    QFETCH(const QString, state);
    QFETCH(const QByteArray, icon);
    host().components = {component(u"zeta"_s, u"loaded"_s), component(u"alpha"_s, state),
                         component(u"zeta"_s, u"loading"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    QCOMPARE(rows(components(tool)), QStringList({u"zeta"_s, u"alpha"_s, u"zeta"_s}));
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("loaded_ot.svg")));
    QCOMPARE(picture(components(tool)->item(1)->icon()), picture(load_icon(icon.constData())));
    QCOMPARE(picture(components(tool)->item(1)->icon()).isNull(), icon.isEmpty());
    QCOMPARE(picture(components(tool)->item(2)->icon()), picture(load_icon("loading_ot.svg")));
    QVERIFY(picture(load_icon("loading_ot.svg")) != picture(load_icon("loaded_ot.svg")));
    tool.hide();
}

void TstComponentTool::clicked_component_does_nothing()
{
    host().components = {component(u"a"_s, u"loaded"_s), component(u"b"_s, u"loaded"_s)};
    host().component_path = u"/x;/y"_s;
    ComponentTool tool(nullptr);
    tool.show();
    host().take_calls();
    const QStringList before = enabled(tool);
    QListWidget* list = components(tool);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    QCOMPARE(list->currentRow(), 1);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    QCOMPARE(enabled(tool), before);
    QCOMPARE(rows(paths(tool)), QStringList({u"/x"_s, u"/y"_s}));
    QCOMPARE(host().take_calls(), QStringList());
    tool.hide();
}

void TstComponentTool::directories_are_listed_without_gaps_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("none") << QString() << QStringList();
    QTest::newRow("one") << u"/a"_s << QStringList{u"/a"_s};
    QTest::newRow("gaps") << u";/b;;;/a;"_s << QStringList{u"/b"_s, u"/a"_s};
    QTest::newRow("only gaps") << u";;"_s << QStringList();
    QTest::newRow("same twice") << u"/a;/a"_s << QStringList{u"/a"_s, u"/a"_s};
    QTest::newRow("blanks and letters")
        << u" /a b ;/каталог;#%&"_s << QStringList{u" /a b "_s, u"/каталог"_s, u"#%&"_s};
}

void TstComponentTool::directories_are_listed_without_gaps()
{
    QFETCH(const QString, path);
    QFETCH(const QStringList, listed);
    host().component_path = path;
    ComponentTool tool(nullptr);
    tool.show();
    QCOMPARE(rows(paths(tool)), listed);
    tool.hide();
    QCOMPARE(host().component_path, listed.join(u';'));
}

void TstComponentTool::first_directory_is_current()
{
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    for (int opening = 0; opening < 2; ++opening) {
        tool.show();
        QCOMPARE(paths(tool)->currentRow(), 0);
        QCOMPARE(enabled(tool), QStringList({u"remove"_s, u"down"_s}));
        paths(tool)->setCurrentRow(1);
        tool.hide();
    }
}

void TstComponentTool::each_opening_reads_anew()
{
    host().components = {component(u"a"_s, u"loaded"_s)};
    host().component_path = u"/a"_s;
    ComponentTool tool(nullptr);
    tool.show();
    tool.hide();
    host().components = {component(u"b"_s, u"loading"_s), component(u"c"_s, u"loaded"_s)};
    host().component_path = u"/b;/c"_s;
    tool.show();
    QCOMPARE(rows(components(tool)), QStringList({u"b"_s, u"c"_s}));
    QCOMPARE(rows(paths(tool)), QStringList({u"/b"_s, u"/c"_s}));
    tool.hide();
}

void TstComponentTool::hiding_by_any_means_hands_the_directories_back_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Close button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
    QTest::newRow("hide()") << 3;
    QTest::newRow("accept()") << 4;
}

void TstComponentTool::hiding_by_any_means_hands_the_directories_back()
{
    QFETCH(const int, way);
    host().component_path = u"/a;/b;/c"_s;
    ComponentTool tool(nullptr);
    QVERIFY(show_active(&tool));
    press_button(tool, u"mMoveDownButton"_s);
    paths(tool)->setCurrentRow(2);
    press_button(tool, u"mRemoveButton"_s);
    host().take_calls();
    if (way == 0)
        press_button(tool, u"mCloseButton"_s);
    else if (way == 1)
        QTest::keyClick(&tool, Qt::Key_Escape);
    else if (way == 2)
        tool.close();
    else if (way == 3)
        tool.hide();
    else
        tool.accept();
    QVERIFY(!tool.isVisible());
    QCOMPARE(host().take_calls(), QStringList({u"Mediator::remove_component_tracker(set)"_s,
                                               u"Mediator::set_component_path(\"/b;/a\")"_s}));
    QVERIFY(host().trackers.empty());
}

void TstComponentTool::deleting_the_open_dialog_hands_the_directories_back()
{
    host().component_path = u"/a;/b"_s;
    {
        ComponentTool tool(nullptr);
        tool.show();
        press_button(tool, u"mRemoveButton"_s);
        host().take_calls();
    }
    QCOMPARE(host().take_calls(), QStringList({u"Mediator::remove_component_tracker(set)"_s,
                                               u"Mediator::set_component_path(\"/b\")"_s}));
    QVERIFY(host().trackers.empty());
}

void TstComponentTool::deleting_the_hidden_dialog_asks_nothing()
{
    {
        ComponentTool tool(nullptr);
        tool.show();
        tool.hide();
        host().take_calls();
    }
    QCOMPARE(host().take_calls(), QStringList());
}

void TstComponentTool::unchanged_directories_go_back_joined_by_single_semicolons()
{
    host().component_path = u";/a;;/b;"_s;
    ComponentTool tool(nullptr);
    tool.show();
    host().take_calls();
    tool.hide();
    QCOMPARE(host().take_calls().constLast(), u"Mediator::set_component_path(\"/a;/b\")"_s);
}

void TstComponentTool::empty_list_hands_an_empty_text_back()
{
    host().component_path = u"/a"_s;
    ComponentTool tool(nullptr);
    tool.show();
    press_button(tool, u"mRemoveButton"_s);
    tool.hide();
    QCOMPARE(host().component_path, QString());
}

void TstComponentTool::lists_are_empty_while_hidden()
{
    host().components = {component(u"a"_s, u"loaded"_s)};
    host().component_path = u"/a"_s;
    ComponentTool tool(nullptr);
    tool.show();
    tool.hide();
    QCOMPARE(components(tool)->count(), 0);
    QCOMPARE(paths(tool)->count(), 0);
    QCOMPARE(enabled(tool), QStringList());
}

// Otherwise a dialog closed while it is minimized would hand back an empty list.
void TstComponentTool::minimizing_is_not_hiding()
{
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    tool.show();
    host().take_calls();
    tool.showMinimized();
    QCoreApplication::sendPostedEvents();
    QVERIFY(tool.isMinimized());
    tool.showNormal();
    QCoreApplication::sendPostedEvents();
    tool.showMinimized();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, u"/b"_s}));
    tool.close();
    QCOMPARE(host().component_path, u"/a;/b"_s);
}

void TstComponentTool::report_changes_the_icon_data()
{
    using Report = void (ComponentTracker::*)(const char*);
    QTest::addColumn<Report>("report");
    QTest::addColumn<QByteArray>("icon");
    QTest::newRow("loading") << &ComponentTracker::component_loading << QByteArray("loading_ot.svg");
    QTest::newRow("loaded") << &ComponentTracker::component_loaded << QByteArray("loaded_ot.svg");
    QTest::newRow("unloading") << &ComponentTracker::component_unloading << QByteArray("unloading_ot.svg");
    QTest::newRow("unloaded has no icon") << &ComponentTracker::component_unloaded << QByteArray();
}

void TstComponentTool::report_changes_the_icon()
{
    using Report = void (ComponentTracker::*)(const char*);
    QFETCH(const Report, report);
    QFETCH(const QByteArray, icon);
    // What stands there before is none of the four results.
    const QString before = icon == "loaded_ot.svg" ? u"loading"_s : u"loaded"_s;
    host().components = {component(u"a"_s, before), component(u"клапан"_s, before)};
    ComponentTool tool(nullptr);
    tool.show();
    QCOMPARE(host().trackers.size(), std::size_t(1));
    (host().trackers.front()->*report)("клапан");
    const QImage seen = picture(components(tool)->item(1)->icon());
    QCOMPARE(seen, picture(load_icon(icon.constData())));
    QCOMPARE(seen.isNull(), icon.isEmpty());
    QCOMPARE(components(tool)->item(1)->data(Qt::DecorationRole).metaType(), QMetaType::fromType<QIcon>());
    QCOMPARE(picture(components(tool)->item(0)->icon()),
             picture(load_icon((before.toUtf8() + "_ot.svg").constData())));
    QCOMPARE(rows(components(tool)), QStringList({u"a"_s, u"клапан"_s}));
    tool.hide();
}

void TstComponentTool::reports_tell_names_by_case()
{
    host().components = {component(u"Mesh"_s, u"loaded"_s), component(u"mesh"_s, u"loaded"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    tool.component_unloading("mesh");
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("loaded_ot.svg")));
    QCOMPARE(picture(components(tool)->item(1)->icon()), picture(load_icon("unloading_ot.svg")));
    tool.hide();
}

void TstComponentTool::report_changes_the_first_of_equal_names()
{
    host().components = {component(u"a"_s, u"loaded"_s), component(u"a"_s, u"loaded"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    tool.component_unloading("a");
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("unloading_ot.svg")));
    QCOMPARE(picture(components(tool)->item(1)->icon()), picture(load_icon("loaded_ot.svg")));
    tool.hide();
}

void TstComponentTool::report_of_an_unknown_name_is_ignored_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("part of a name") << QByteArray("mes");
    QTest::newRow("more than a name") << QByteArray("meshing");
    QTest::newRow("pattern") << QByteArray("m*");
    QTest::newRow("another case") << QByteArray("MESH");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("null") << QByteArray();
}

void TstComponentTool::report_of_an_unknown_name_is_ignored()
{
    QFETCH(const QByteArray, name);
    host().components = {component(u"mesh"_s, u"loaded"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    tool.component_unloading(name.isNull() ? nullptr : name.constData());
    QCOMPARE(components(tool)->count(), 1);
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("loaded_ot.svg")));
    tool.hide();
}

void TstComponentTool::reports_while_hidden_are_not_remembered()
{
    host().components = {component(u"a"_s, u"loaded"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    tool.hide();
    tool.component_unloading("a");
    QCOMPARE(components(tool)->count(), 0);
    tool.show();
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("loaded_ot.svg")));
    tool.hide();
}

void TstComponentTool::buttons_follow_the_current_row_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("the only row") << 1 << 0 << QStringList{u"remove"_s};
    QTest::newRow("first of two") << 2 << 0 << QStringList{u"remove"_s, u"down"_s};
    QTest::newRow("last of two") << 2 << 1 << QStringList{u"remove"_s, u"up"_s};
    QTest::newRow("middle row") << 3 << 1 << QStringList{u"remove"_s, u"up"_s, u"down"_s};
    QTest::newRow("none") << 3 << -1 << QStringList();
}

void TstComponentTool::buttons_follow_the_current_row()
{
    QFETCH(const int, count);
    QFETCH(const int, row);
    QFETCH(const QStringList, names);
    host().component_path = QStringList({u"/a"_s, u"/b"_s, u"/c"_s}).first(count).join(u';');
    ComponentTool tool(nullptr);
    tool.show();
    paths(tool)->setCurrentRow(row);
    QCOMPARE(enabled(tool), names);
    QVERIFY(button(tool, u"mAddButton"_s)->isEnabled());
    tool.hide();
}

void TstComponentTool::empty_path_leaves_only_adding()
{
    ComponentTool tool(nullptr);
    tool.show();
    QCOMPARE(enabled(tool), QStringList());
    QVERIFY(button(tool, u"mAddButton"_s)->isEnabled());
    tool.hide();
}

void TstComponentTool::remove_takes_the_current_row_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<int>("current");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("first") << 0 << QStringList{u"/b"_s, u"/c"_s} << 0 << QStringList{u"remove"_s, u"down"_s};
    QTest::newRow("middle") << 1 << QStringList{u"/a"_s, u"/c"_s} << 1 << QStringList{u"remove"_s, u"up"_s};
    QTest::newRow("last") << 2 << QStringList{u"/a"_s, u"/b"_s} << 1 << QStringList{u"remove"_s, u"up"_s};
}

void TstComponentTool::remove_takes_the_current_row()
{
    QFETCH(const int, row);
    QFETCH(const QStringList, left);
    QFETCH(const int, current);
    QFETCH(const QStringList, names);
    host().component_path = u"/a;/b;/c"_s;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    paths(tool)->setCurrentRow(row);
    press_button(tool, u"mRemoveButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), left);
    QCOMPARE(paths(tool)->currentRow(), current);
    QCOMPARE(enabled(tool), names);
    press_button(tool, u"mRemoveButton"_s);
    QCOMPARE(enabled(tool), QStringList(u"remove"_s));
    press_button(tool, u"mRemoveButton"_s);
    QCOMPARE(enabled(tool), QStringList());
    QCOMPARE(rows(paths(tool)), QStringList());
    tool.hide();
}

void TstComponentTool::remove_without_a_current_row_does_nothing()
{
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    tool.show();
    paths(tool)->setCurrentRow(-1);
    tool.remove_location();
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, u"/b"_s}));
    QCOMPARE(enabled(tool), QStringList());
    tool.hide();
}

void TstComponentTool::move_changes_places_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QStringList>("order");
    QTest::addColumn<int>("current");
    QTest::addColumn<QStringList>("names");
    const QStringList same{u"/a"_s, u"/b"_s, u"/c"_s};
    const QStringList first_two{u"/b"_s, u"/a"_s, u"/c"_s};
    const QStringList last_two{u"/a"_s, u"/c"_s, u"/b"_s};
    const QStringList first{u"remove"_s, u"down"_s};
    const QStringList middle{u"remove"_s, u"up"_s, u"down"_s};
    const QStringList last{u"remove"_s, u"up"_s};
    QTest::newRow("first up") << 0 << true << same << 0 << first;
    QTest::newRow("middle up") << 1 << true << first_two << 0 << first;
    QTest::newRow("last up") << 2 << true << last_two << 1 << middle;
    QTest::newRow("first down") << 0 << false << first_two << 1 << middle;
    QTest::newRow("middle down") << 1 << false << last_two << 2 << last;
    QTest::newRow("last down") << 2 << false << same << 2 << last;
}

void TstComponentTool::move_changes_places()
{
    QFETCH(const int, row);
    QFETCH(const bool, up);
    QFETCH(const QStringList, order);
    QFETCH(const int, current);
    QFETCH(const QStringList, names);
    host().component_path = u"/a;/b;/c"_s;
    // By the buttons, which may be disabled, and by the slots, which then have to refuse themselves.
    for (const bool by_button : {true, false}) {
        host().component_path = u"/a;/b;/c"_s;
        ComponentTool tool(nullptr);
        tool.show();
        paths(tool)->setCurrentRow(row);
        if (by_button)
            press_button(tool, up ? u"mMoveUpButton"_s : u"mMoveDownButton"_s);
        else if (up)
            tool.move_up();
        else
            tool.move_down();
        QCOMPARE(rows(paths(tool)), order);
        QCOMPARE(paths(tool)->currentRow(), current);
        QCOMPARE(enabled(tool), names);
        tool.hide();
    }
}

void TstComponentTool::move_without_a_current_row_does_nothing()
{
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    tool.show();
    paths(tool)->setCurrentRow(-1);
    tool.move_up();
    tool.move_down();
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, u"/b"_s}));
    QCOMPARE(paths(tool)->currentRow(), -1);
    tool.hide();
}

void TstComponentTool::folder_dialog_asks_for_a_directory()
{
    const QTemporaryDir directory;
    ComponentTool::sLastPath = directory.path();
    ComponentTool tool(nullptr);
    tool.show();
    const MarkingTranslator marker("ComponentTool");
    FileQuestion asked;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        parent = dialog->parentWidget();
        dialog->close();
    });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(asked.caption, u"<Select Folder>"_s);
    QCOMPARE(asked.directory, directory.path());
    QCOMPARE(asked.file_mode, QFileDialog::Directory);
    QVERIFY(asked.directories_only);
    QCOMPARE(parent, &tool);
    tool.hide();
}

void TstComponentTool::framework_names_the_first_start_directory_only()
{
    const QTemporaryDir directory;
    host().component_directory = directory.path();
    ComponentTool tool(nullptr);
    tool.show();
    host().take_calls();
    for (const bool first : {true, false}) {
        FileQuestion asked;
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) {
            asked = file_question(dialog);
            dialog->close();
        });
        press_button(tool, u"mAddButton"_s);
        QVERIFY(driver.finish());
        QCOMPARE(asked.directory, directory.path());
        // It is kept although nothing was chosen.
        QCOMPARE(ComponentTool::sLastPath, directory.path());
        QCOMPARE(host().take_calls(),
                 first ? QStringList(u"Mediator::get_component_directory()"_s) : QStringList());
    }
    tool.hide();
}

void TstComponentTool::chosen_directory_is_added_at_the_end_and_current()
{
    const QTemporaryDir directory;
    const QString added = directory.filePath(u"plug ins"_s);
    QVERIFY(QDir().mkpath(added));
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, added); });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, u"/b"_s, added}));
    QCOMPARE(paths(tool)->currentRow(), 2);
    QCOMPARE(enabled(tool), QStringList({u"remove"_s, u"up"_s}));
    QCOMPARE(ComponentTool::sLastPath, directory.path());
    tool.hide();
    QCOMPARE(host().component_path, u"/a;/b;"_s + added);
}

void TstComponentTool::first_added_directory_enables_remove_only()
{
    const QTemporaryDir directory;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, directory.path()); });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), QStringList(directory.path()));
    QCOMPARE(enabled(tool), QStringList(u"remove"_s));
    tool.hide();
}

void TstComponentTool::known_directory_is_selected_and_its_parent_remembered()
{
    const QTemporaryDir directory;
    const QString known = directory.filePath(u"known"_s);
    QVERIFY(QDir().mkpath(known));
    ComponentTool::sLastPath = u"/"_s;
    host().component_path = u"/a;"_s + known + u";/c"_s;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, known); });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, known, u"/c"_s}));
    QCOMPARE(paths(tool)->currentRow(), 1);
    QCOMPARE(enabled(tool), QStringList({u"remove"_s, u"up"_s, u"down"_s}));
    QCOMPARE(ComponentTool::sLastPath, directory.path());
    tool.hide();
}

void TstComponentTool::first_of_equal_directories_is_selected()
{
    const QTemporaryDir directory;
    host().component_path = QStringList({u"/a"_s, directory.path(), directory.path()}).join(u';');
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, directory.path()); });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(paths(tool)->count(), 3);
    QCOMPARE(paths(tool)->currentRow(), 1);
    tool.hide();
}

void TstComponentTool::directories_differ_by_case()
{
    const QTemporaryDir directory;
    const QString lower = directory.filePath(u"plugins"_s);
    QVERIFY(QDir().mkpath(lower));
    const QString upper = directory.filePath(u"Plugins"_s);
    host().component_path = upper;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, lower); });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), QStringList({upper, lower}));
    tool.hide();
}

void TstComponentTool::cancelled_folder_dialog_changes_nothing()
{
    ComponentTool::sLastPath = u"/"_s;
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    tool.show();
    DialogDriver driver;
    driver.expect<QFileDialog>(press(QDialogButtonBox::Cancel));
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(rows(paths(tool)), QStringList({u"/a"_s, u"/b"_s}));
    QCOMPARE(paths(tool)->currentRow(), 0);
    QCOMPARE(ComponentTool::sLastPath, u"/"_s);
    tool.hide();
}

void TstComponentTool::start_directory_above_the_root_is_empty()
{
    host().component_directory = u"/"_s;
    ComponentTool tool(nullptr);
    tool.show();
    host().take_calls();
    DialogDriver driver;
    for (int i = 0; i < 2; ++i) {
        driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, u"/tmp"_s); });
        press_button(tool, u"mAddButton"_s);
        QCOMPARE(ComponentTool::sLastPath, QString());
    }
    QVERIFY(driver.finish());
    // So the framework is asked each time.
    QCOMPARE(host().take_calls().size(), 2);
    tool.hide();
}

void TstComponentTool::start_directory_is_shared_by_all_dialogs()
{
    const QTemporaryDir directory;
    const QString added = directory.filePath(u"a"_s);
    QVERIFY(QDir().mkpath(added));
    {
        ComponentTool tool(nullptr);
        tool.show();
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, added); });
        press_button(tool, u"mAddButton"_s);
        QVERIFY(driver.finish());
    }
    ComponentTool tool(nullptr);
    tool.show();
    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        dialog->close();
    });
    press_button(tool, u"mAddButton"_s);
    QVERIFY(driver.finish());
    QCOMPARE(asked.directory, directory.path());
    tool.hide();
}

void TstComponentTool::folder_chosen_after_hiding_is_not_added()
{
    const QTemporaryDir place;
    const QString known = QDir(place.path()).canonicalPath();
    for (const bool again : {false, true}) {
        host().component_path = u"/a;/b"_s;
        ComponentTool tool(nullptr);
        tool.show();
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) {
            tool.hide();
            if (again)
                tool.show();
            choose(dialog, known);
        });
        press_button(tool, u"mAddButton"_s);
        QVERIFY(driver.finish());
        if (again) {
            // It is what the user now looks at.
            QCOMPARE(rows(paths(tool)), (QStringList{u"/a"_s, u"/b"_s, known}));
            continue;
        }
        QCOMPARE(rows(paths(tool)), QStringList());
        tool.show();
        QCOMPARE(rows(paths(tool)), (QStringList{u"/a"_s, u"/b"_s}));
        tool.hide();
        QCOMPARE(host().component_path, u"/a;/b"_s);
    }
}

void TstComponentTool::dialog_may_go_under_the_folder_dialog()
{
    host().component_path = u"/a;/b"_s;
    auto tool = std::make_unique<ComponentTool>(nullptr);
    tool->show();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog*) { tool.reset(); });
    tool->add_location();
    QVERIFY(driver.finish());
    QVERIFY(!tool);
    QCOMPARE(host().component_path, u"/a;/b"_s);
    QVERIFY(host().trackers.empty());
}

void TstComponentTool::framework_may_act_when_it_is_asked_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("act");
    for (const char* operation : {"get_components", "add_component_tracker", "get_component_path",
                                  "remove_component_tracker", "set_component_path"}) {
        for (const char* act : {"hide", "show", "hide and show", "report"})
            QTest::addRow("%s, %s", operation, act)
                << u"Mediator::"_s + QString::fromUtf8(operation) << QString::fromUtf8(act);
    }
}

void TstComponentTool::framework_may_act_when_it_is_asked()
{
    QFETCH(QString, operation);
    QFETCH(QString, act);
    host().component_path = u"/a;/b"_s;
    host().components = {component(u"x"_s, u"loaded"_s)};
    ComponentTool tool(nullptr);
    bool acted = false;
    host().on_call = [&](const QString& called) {
        if (called != operation || acted)
            return;
        acted = true;
        if (act.startsWith(u"hide"_s))
            tool.hide();
        if (act.endsWith(u"show"_s))
            tool.show();
        if (act == u"report"_s)
            tool.component_unloading("x");
    };
    tool.show();
    if (!acted) {
        // An edit, to be handed back.
        press_button(tool, u"mMoveDownButton"_s);
        tool.hide();
        if (act != u"report"_s)
            QCOMPARE(host().component_path, u"/b;/a"_s);
    }
    QVERIFY(acted);
    host().on_call = nullptr;

    const bool open = tool.isVisible();
    QCOMPARE(host().trackers.size(), open ? std::size_t(1) : std::size_t(0));
    QStringList directories = host().component_path.split(u';');
    std::sort(directories.begin(), directories.end());
    QCOMPARE(directories, (QStringList{u"/a"_s, u"/b"_s}));
    QCOMPARE(rows(paths(tool)), open ? host().component_path.split(u';') : QStringList());
    QCOMPARE(rows(components(tool)), open ? QStringList{u"x"_s} : QStringList());
    if (!open)
        tool.show();
    QCOMPARE(rows(paths(tool)), host().component_path.split(u';'));
    QCOMPARE(rows(components(tool)), QStringList{u"x"_s});
    tool.hide();
    QVERIFY(host().trackers.empty());
}

// Otherwise it would hand back an empty list and forget all directories.
void TstComponentTool::framework_may_hide_the_dialog_before_the_lists_are_there()
{
    host().component_path = u"/a;/b"_s;
    ComponentTool tool(nullptr);
    host().on_call = [&](const QString& called) {
        if (called == u"Mediator::get_components"_s)
            tool.hide();
    };
    tool.show();
    host().on_call = nullptr;
    QVERIFY(tool.isHidden());
    QCOMPARE(host().component_path, u"/a;/b"_s);
    QVERIFY(host().trackers.empty());
    QCOMPARE(rows(paths(tool)), QStringList());
}

void TstComponentTool::report_without_a_name_is_ignored()
{
    host().components = {component(QString(), u"loaded"_s)};
    ComponentTool tool(nullptr);
    tool.show();
    tool.component_unloading(nullptr);
    QCOMPARE(picture(components(tool)->item(0)->icon()), picture(load_icon("loaded_ot.svg")));
    tool.hide();
}

OSTREL_TEST(TstComponentTool)
#include "tst_componenttool.moc"
