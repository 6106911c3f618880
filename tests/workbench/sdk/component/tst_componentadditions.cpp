// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "samples.h"
#include "support/TestCase.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QShortcut>
#include <QTest>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** A row for each addition, or only for those that hand out an object. */
void all_additions(bool with_object = false)
{
    QTest::addColumn<std::size_t>("index");
    for (std::size_t i = 0; i < additions().size(); ++i) {
        if (additions()[i].gives_object || !with_object)
            QTest::newRow(additions()[i].name) << i;
    }
}

} // namespace

class TstComponentAdditions : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override { HostDouble::instance().reset(); }

private slots:
    void addition_is_undone_data() { all_additions(); }
    void addition_is_undone();
    void two_contexts_keep_apart_data() { all_additions(); }
    void two_contexts_keep_apart();
    void what_the_component_has_deleted_is_passed_over_data() { all_additions(true); }
    void what_the_component_has_deleted_is_passed_over();
    void window_may_go_first_data() { all_additions(); }
    void window_may_go_first();
    void window_that_goes_may_take_the_context_along_data() { all_additions(); }
    void window_that_goes_may_take_the_context_along();
    void nothing_is_done_without_a_window_data() { all_additions(); }
    void nothing_is_done_without_a_window();
    void all_of_them_are_undone_together();
    void handlers_are_deleted_once();
    void refused_handler_is_deleted_at_once();
    void open_save_handler_of_another_stays();
    void name_of_the_document_goes_with_its_handler();
    void entries_run_what_they_are_given();
    void form_of_a_command_goes_with_its_entry();
    void entry_runs_a_command_on_what_is_selected();
    void entry_for_a_command_that_is_not_there_ends_the_load();
    void options_page_refreshes_and_saves();
    void taken_options_page_ends_the_load();
    void group_that_others_have_joined_stays();
    void dock_that_the_window_refuses_ends_the_load();
    void key_of_an_entry_of_the_editor_works_in_the_whole_editor();
    void entries_of_the_import_menu_do_what_they_are_given();
    void input_reaches_what_is_allowed_until_the_end();
};

void TstComponentAdditions::addition_is_undone()
{
    QFETCH(const std::size_t, index);
    const Ostrel window;
    const QStringList before = describe();
    ComponentContext context(owner, [](const QString& text) { QFAIL(qPrintable(text)); });
    additions()[index].add(context);
    QVERIFY(describe() != before);
    context.end();
    QCOMPARE(describe(), before);
    // Nothing is half there: it can be added again.
    additions()[index].add(context);
    context.end();
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::two_contexts_keep_apart()
{
    QFETCH(const std::size_t, index);
    const Ostrel window;
    // Of the same name, as those of one component.
    ComponentContext others(owner);
    for (std::size_t i = 0; i < additions().size(); ++i) {
        // A function that adds commands by itself marks them as all commands are.
        if (i != index && !(QByteArray(additions()[index].name) == "commands" && i == 0))
            additions()[i].add(others);
    }
    const QStringList before = describe();
    ComponentContext context(owner);
    additions()[index].add(context);
    context.end();
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::what_the_component_has_deleted_is_passed_over()
{
    QFETCH(const std::size_t, index);
    const Ostrel window;
    const QStringList before = describe();
    ComponentContext context(owner, [](const QString& text) { QFAIL(qPrintable(text)); });
    QObject* const own = additions()[index].add(context);
    QVERIFY(own);
    delete own;
    context.end();
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::window_may_go_first()
{
    QFETCH(const std::size_t, index);
    auto window = std::make_unique<Ostrel>();
    ComponentContext context(owner, [](const QString& text) { QFAIL(qPrintable(text)); });
    additions()[index].add(context);
    window.reset();
    QVERIFY(!context.window());
    const QWidgetList windows = QApplication::topLevelWidgets();
    context.end();
    for (const QWidget* left : QApplication::topLevelWidgets())
        QVERIFY(windows.contains(left));
    // Another window is none of its.
    const Ostrel next;
    const QStringList before = describe();
    QVERIFY(!context.window());
    context.end();
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::window_that_goes_may_take_the_context_along()
{
    QFETCH(const std::size_t, index);
    auto window = std::make_unique<Ostrel>();
    ComponentContext context(owner, [](const QString& text) { QFAIL(qPrintable(text)); });
    additions()[index].add(context);
    // Told in the middle of the end of the window.
    connect(window->options(), &QObject::destroyed, &context.make<QObject>(), [&context] { context.end(); });
    window.reset();
    context.end();
    QVERIFY(!Ostrel::instance());
}

void TstComponentAdditions::nothing_is_done_without_a_window()
{
    QFETCH(const std::size_t, index);
    const QStringList before = describe();
    ComponentContext context(owner);
    QVERIFY(!context.window());
    QVERIFY(!additions()[index].add(context));
    QCOMPARE(describe() == before, additions()[index].needs_window);
    context.end();
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::all_of_them_are_undone_together()
{
    Ostrel window;
    const QStringList before = describe();
    const qsizetype top_levels = QApplication::topLevelWidgets().size();
    ComponentContext context(owner, [](const QString& text) { QFAIL(qPrintable(text)); });
    QStringList after_one;
    qsizetype objects = 0;
    for (int i = 0; i < 20; ++i) {
        for (const Addition& addition : additions())
            addition.add(context);
        context.end();
        if (i == 0) {
            after_one = describe();
            QCOMPARE(after_one, before);
            objects = window.findChildren<QObject*>().size();
        }
    }
    QCOMPARE(describe(), after_one);
    QCOMPARE(window.findChildren<QObject*>().size(), objects);
    QCOMPARE(QApplication::topLevelWidgets().size(), top_levels);
}

void TstComponentAdditions::handlers_are_deleted_once()
{
    int alive = 0;
    auto window = std::make_unique<Ostrel>();
    ComponentContext context(owner);
    const auto add = [&] {
        QVERIFY(context.add_import(std::make_unique<Handler>(u"Sample (*.sample)"_s, &alive)));
        QVERIFY(context.add_export(std::make_unique<Handler>(u"Sample (*.sample)"_s, &alive)));
        QCOMPARE(alive, 2);
    };
    add();
    context.end();
    QCOMPARE(alive, 0);
    // The window deletes those that it still has.
    add();
    window.reset();
    QCOMPARE(alive, 0);
    context.end();
    QCOMPARE(alive, 0);
}

void TstComponentAdditions::refused_handler_is_deleted_at_once()
{
    int alive = 0;
    const Ostrel window;
    ComponentContext context(owner);
    QVERIFY(!context.add_import(std::make_unique<Handler>(QString(), &alive)));
    QVERIFY(!context.add_export(std::make_unique<Handler>(QString(), &alive)));
    QVERIFY(!context.add_import(nullptr));
    QCOMPARE(alive, 0);
}

void TstComponentAdditions::open_save_handler_of_another_stays()
{
    Ostrel window;
    Files files;
    Files other;
    ComponentContext context(owner);
    QVERIFY(!context.open_save_handler());
    context.set_open_save_handler(files);
    QCOMPARE(context.open_save_handler(), &files);
    window.file_menu()->set_open_save_handler(&other);
    QVERIFY(!context.open_save_handler());
    context.end();
    QCOMPARE(window.file_menu()->get_open_save_handler(), &other);
}

void TstComponentAdditions::name_of_the_document_goes_with_its_handler()
{
    Ostrel window;
    window.update_title();
    const QString title = window.windowTitle();
    Files files;
    ComponentContext context(owner);
    context.set_open_save_handler(files);
    OstrelFileMenu::set_file_name(u"sample.file"_s);
    window.update_title();
    QVERIFY(window.windowTitle() != title);
    context.end();
    QCOMPARE(window.windowTitle(), title);
    QCOMPARE(OstrelFileMenu::mFileName, QString());
}

void TstComponentAdditions::entries_run_what_they_are_given()
{
    Ostrel window;
    QStringList ran;
    ComponentContext context(owner);
    context.add_menu_entry(u"Sample"_s, u"Entry"_s, [&] { ran << u"entry"_s; })->trigger();
    QShortcut* const key = context.add_shortcut(QKeySequence(u"Ctrl+Shift+L"_s), [&] { ran << u"key"_s; });
    QVERIFY(QMetaObject::invokeMethod(key, &QShortcut::activated));
    QCOMPARE(ran, (QStringList{u"entry"_s, u"key"_s}));
}

void TstComponentAdditions::form_of_a_command_goes_with_its_entry()
{
    const Ostrel window;
    QStringList opened;
    QPointer<QWidget> form;
    auto& open_form = Fennar::instance().application().open_form;
    open_form = [&](const QString& name, const QString& title) {
        opened << name + u' ' + title;
        form = new QWidget;
        form->show();
        return form.data();
    };
    const auto restore = qScopeGuard([&open_form] { open_form = {}; });
    ComponentContext context(owner);
    Command described = command(u"sample-form"_s);
    described.summary = u"Does nothing."_s;
    context.add_command(described);
    QAction* const action = context.make_command_action(u"&Sample..."_s, u"sample-form"_s);
    QCOMPARE(action->statusTip(), u"Does nothing."_s);
    action->trigger();
    // One that is open is enough.
    action->trigger();
    QCOMPARE(opened, QStringList(u"sample-form &Sample..."_s));
    form->hide();
    delete form;
    action->trigger();
    QCOMPARE(opened.size(), 2);
    QVERIFY(form);
    context.end();
    QVERIFY(!form);
}

void TstComponentAdditions::entry_runs_a_command_on_what_is_selected()
{
    const Ostrel window;
    QStringList sent;
    set_command_sink([&sent](const QString& line) { sent << line; });
    const auto restore = qScopeGuard([] { set_command_sink({}); });
    ComponentContext context(owner);
    const auto names = [] { return QStringList{u"a"_s, u"b c"_s}; };
    context.offer_entities(u"sample"_s, names);
    CommandEntities& entities = Fennar::instance().registry().entities();
    const CommandParameter several{
        .name = u"NAME"_s, .kind = CommandParameter::Kind::Entity, .entity = u"sample"_s, .repeated = true};
    Command needs = command(u"sample-needs"_s);
    needs.forms = {{.clauses = {required_value(several)}}};
    Command takes = command(u"sample-takes"_s);
    takes.forms = {{.clauses = {optional_value(several)}}};
    context.add_command(needs);
    context.add_command(takes);
    QAction* const one = context.make_command_action(u"One"_s, needs.name, fennar::CommandUse::Run);
    QAction* const other = context.make_command_action(u"Other"_s, takes.name, fennar::CommandUse::Run);
    entities.offer_selection(u"sample"_s, names);
    one->trigger();
    other->trigger();
    QCOMPARE(sent, QStringList({u"sample-needs a \"b c\""_s, u"sample-takes"_s}));
}

void TstComponentAdditions::entry_for_a_command_that_is_not_there_ends_the_load()
{
    const Ostrel window;
    ComponentContext context(owner);
    QCOMPARE(refusal([&context] { context.make_command_action(u"Sample"_s, u"sample-none"_s); }),
             u"there is no command \"sample-none\""_s);
}

void TstComponentAdditions::options_page_refreshes_and_saves()
{
    Ostrel window;
    QStringList calls;
    ComponentContext context(owner);
    context.add_options_page(u"Sample"_s, [&] {
        return OptionsPage{new QLabel, [&] { calls << u"refresh"_s; }, [&] { calls << u"save"_s; }};
    });
    window.options()->refresh_settings();
    window.options()->findChild<QPushButton*>(u"mSaveButton"_s)->click();
    QCOMPARE(calls, (QStringList{u"refresh"_s, u"save"_s}));
    context.end();
    window.options()->refresh_settings();
    QCOMPARE(calls.size(), 2);
}

void TstComponentAdditions::taken_options_page_ends_the_load()
{
    const Ostrel window;
    ComponentContext context(owner);
    const auto add = [&] { context.add_options_page(u"A/B"_s, [] { return OptionsPage{new QLabel}; }); };
    add();
    const QStringList before = describe();
    QCOMPARE(refusal(add), u"there is a page \"A/B\" of options already"_s);
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::group_that_others_have_joined_stays()
{
    const Ostrel window;
    const QStringList before = describe();
    ComponentContext first(owner);
    ComponentContext second(u"other"_s);
    first.add_options_page(u"A/B"_s, [] { return OptionsPage{new QLabel}; });
    second.add_options_page(u"A/C"_s, [] { return OptionsPage{new QLabel}; });
    first.end();
    QVERIFY(describe().contains(u"options A/C"_s));
    QVERIFY(!describe().contains(u"options A/B"_s));
    second.end();
    window.options()->remove_panel(u"A"_s);
    QCOMPARE(describe(), before);
}

void TstComponentAdditions::dock_that_the_window_refuses_ends_the_load()
{
    Ostrel window;
    ComponentContext context(owner);
    auto* const dock = new QDockWidget;
    const QPointer<QDockWidget> watched = dock;
    QVERIFY(!refusal([&] { context.add_dock(dock, Qt::LeftDockWidgetArea); }).isEmpty());
    context.end();
    QVERIFY(!watched);
}

void TstComponentAdditions::key_of_an_entry_of_the_editor_works_in_the_whole_editor()
{
    const Ostrel window;
    ComponentContext context(owner);
    QAction* const action = context.make_action(u"Sample"_s, nullptr);
    context.add_editor_entry(action);
    QVERIFY(window.journal_editor()->actions().contains(action));
    context.end();
    QCOMPARE(window.journal_editor()->actions().size(), 0);
}

void TstComponentAdditions::entries_of_the_import_menu_do_what_they_are_given()
{
    const Ostrel window;
    ComponentContext context(owner);
    int runs = 0;
    QPlainTextEdit page(u"brick 1"_s);
    context.add_editor_import(context.make_action(u"Sample"_s, [&] { ++runs; }));
    context.add_editor_import(u"Page"_s, &page);
    context.add_editor_import(nullptr);
    context.add_editor_import(u"None"_s, nullptr);
    const auto* const menu = window.journal_editor()->findChild<QMenu*>(u"fileImportMenu"_s);
    const QList<QAction*> entries = menu->actions();
    QCOMPARE(entries.size(), 2);
    entries[0]->trigger();
    QCOMPARE(runs, 1);
    entries[1]->trigger();
    QCOMPARE(current_journal(window.journal_editor())->toPlainText(), u"brick 1"_s);
    context.end();
    QCOMPARE(menu->actions().size(), 0);
}

void TstComponentAdditions::input_reaches_what_is_allowed_until_the_end()
{
    Ostrel window;
    QPushButton button(&window);
    QEvent click(QEvent::MouseButtonPress);
    QObject* const filter = window.event_filter();
    QVERIFY(filter->eventFilter(&button, &click));
    ComponentContext context(owner);
    context.allow_input(&button);
    context.allow_input(nullptr);
    QVERIFY(!filter->eventFilter(&button, &click));
    context.end();
    QVERIFY(filter->eventFilter(&button, &click));
}

OSTREL_TEST(TstComponentAdditions)
#include "tst_componentadditions.moc"
