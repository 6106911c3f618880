// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "hostdouble/HostDouble.h"
#include "menus/PyAction.h"
#include "menus/PyOstrel.h"
#include "support/menus.h"
#include "support/own_methods.h"
#include "support/windows.h"

#include <QPointer>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/** What the shell asks before it runs @p text. */
QStringList run_of(const QString& text)
{
    return {u"Framework::user_python_interpreter()"_s, u"FennarPythonInterpreter::IsInitialized()"_s,
            u"FennarPythonInterpreter::Run_SimpleString(\"%1\")"_s.arg(text)};
}

} // namespace

class TstPyAction : public MenuTestCase
{
    Q_OBJECT

private:
    static QStringList take_calls() { return HostDouble::instance().take_calls(); }
    /** The texts run since the last question. */
    static QStringList take_runs()
    {
        return take_calls().filter(u"FennarPythonInterpreter::Run_SimpleString"_s);
    }
    static QString own_text(const PyAction& action, const char* property)
    {
        return action.getAction()->property(property).toString();
    }

private slots:
    void object_and_action_have_their_names_and_parents()
    {
        const PyAction action;
        QCOMPARE(action.objectName(), u"PyAction"_s);
        QVERIFY(!action.parent());
        QVERIFY(action.getAction());
        QCOMPARE(action.getAction()->parent(), window());
        QCOMPARE(action.getAction()->text(), QString());
    }

    void slots_stand_in_their_order_and_there_are_no_signals()
    {
        QCOMPARE(own_methods(PyAction::staticMetaObject),
                 QStringList({u"slot actionActivated()"_s, u"slot actionToggled(bool)"_s}));
    }

    void action_goes_with_its_object()
    {
        auto* action = new PyAction;
        const QPointer<QAction> inner = action->getAction();
        delete action;
        QVERIFY(!inner);
    }

    void texts_are_utf8_and_reach_the_action_data()
    {
        QTest::addColumn<int>("setter");
        QTest::addColumn<QByteArray>("property");
        QTest::newRow("text") << 0 << "text"_ba;
        QTest::newRow("menu text") << 1 << "text"_ba;
        QTest::newRow("tool tip") << 2 << "toolTip"_ba;
        QTest::newRow("status tip") << 3 << "statusTip"_ba;
        QTest::newRow("help text") << 4 << "whatsThis"_ba;
    }
    void texts_are_utf8_and_reach_the_action()
    {
        QFETCH(const int, setter);
        QFETCH(const QByteArray, property);
        using Setter = void (PyAction::*)(const char*);
        const Setter setters[] = {&PyAction::setText, &PyAction::setMenuText, &PyAction::setToolTip,
                                  &PyAction::setStatusTip, &PyAction::setWhatsThis};
        PyAction action;
        (action.*setters[setter])("&\u0394 \u00fc \U0001f600");
        QCOMPARE(own_text(action, property.constData()), u"&\u0394 \u00fc \U0001f600"_s);
        int others = 0;
        for (const char* other : {"text", "statusTip", "whatsThis"})
            others += !own_text(action, other).isEmpty();
        QCOMPARE(others, property == "toolTip" ? 0 : 1);
        (action.*setters[setter])("");
        QCOMPARE(own_text(action, property.constData()), QString());
        (action.*setters[setter])("again");
        (action.*setters[setter])(nullptr);
        QCOMPARE(own_text(action, property.constData()), QString());
        (action.*setters[setter])("\xff");
        QCOMPARE(own_text(action, property.constData()), u"\ufffd"_s);
    }

    void text_and_menu_text_overwrite_each_other()
    {
        PyAction action;
        action.setText("one");
        action.setMenuText("two");
        QCOMPARE(own_text(action, "text"), u"two"_s);
        action.setText("three");
        QCOMPARE(own_text(action, "text"), u"three"_s);
    }

    void texts_can_be_asked_for_though_not_read()
    {
        PyAction action;
        action.setText("text");
        const void* const pointers[] = {action.getText(), action.getMenuText(), action.getToolTip(),
                                        action.getStatusTip(), action.getWhatsThis()};
        // What they point to is released; that they are no null pointers is all there is to see.
        for (const void* pointer : pointers)
            QVERIFY(pointer);
    }

    void flags_reach_the_action_and_are_read_from_it()
    {
        PyAction action;
        QAction* const inner = action.getAction();
        QVERIFY(!action.hasToggleAction() && !action.isOn() && action.isEnabled() && action.isVisible());
        action.setToggleAction(true);
        QVERIFY(inner->isCheckable() && action.hasToggleAction());
        action.setOn(true);
        QVERIFY(inner->isChecked() && action.isOn());
        action.setEnabled(false);
        QVERIFY(!inner->isEnabled() && !action.isEnabled());
        action.setEnabled(true);
        action.setVisible(false);
        QVERIFY(!inner->isVisible() && !action.isVisible());
        inner->setVisible(true);
        inner->setChecked(false);
        QVERIFY(action.isVisible() && action.isEnabled() && !action.isOn());
        inner->setCheckable(false);
        QVERIFY(!action.hasToggleAction());
    }

    void activation_runs_a_call_of_the_method()
    {
        PyAction action;
        action.setActivateMethod("m\u00fcdul.hello");
        take_calls();
        action.getAction()->trigger();
        QCOMPARE(take_calls(), run_of(u"m\u00fcdul.hello()"_s));
        action.setActivateMethod("other");
        action.getAction()->trigger();
        QCOMPARE(take_calls(), run_of(u"other()"_s));
    }

    void toggling_runs_a_call_with_1_or_0()
    {
        PyAction action;
        action.setToggleAction(true);
        action.setToggleMethod("f");
        take_calls();
        action.getAction()->setChecked(true);
        QCOMPARE(take_calls(), run_of(u"f(1)"_s));
        action.getAction()->setChecked(true);
        QCOMPARE(take_calls(), QStringList());
        action.getAction()->setChecked(false);
        QCOMPARE(take_calls(), run_of(u"f(0)"_s));
    }

    void set_on_runs_the_toggle_method_only()
    {
        PyAction action;
        action.setToggleAction(true);
        action.setToggleMethod("f");
        action.setActivateMethod("g");
        action.setOn(true);
        QCOMPARE(take_runs(), run_of(u"f(1)"_s).mid(2));
    }

    void click_on_a_checkable_action_toggles_and_then_activates()
    {
        PyAction action;
        action.setToggleAction(true);
        action.setToggleMethod("f");
        action.setActivateMethod("g");
        take_calls();
        action.getAction()->trigger();
        QCOMPARE(take_calls(), run_of(u"f(1)"_s) + run_of(u"g()"_s));
    }

    void methods_are_not_looked_at()
    {
        PyAction action;
        action.setActivateMethod("no such (thing");
        action.getAction()->trigger();
        QCOMPARE(take_runs(), run_of(u"no such (thing()"_s).mid(2));
        // Nor is the result.
        HostDouble::instance().python_result = -1;
        action.getAction()->trigger();
        QCOMPARE(take_runs(), run_of(u"no such (thing()"_s).mid(2));
    }

    void without_an_interpreter_or_a_method_nothing_runs_data()
    {
        QTest::addColumn<bool>("interpreter");
        QTest::addColumn<bool>("initialized");
        QTest::addColumn<QByteArray>("method");
        QTest::newRow("no interpreter") << false << true << "f"_ba;
        QTest::newRow("not initialized") << true << false << "f"_ba;
        QTest::newRow("empty method") << true << true << ""_ba;
        QTest::newRow("no method") << true << true << QByteArray();
    }
    void without_an_interpreter_or_a_method_nothing_runs()
    {
        QFETCH(const bool, interpreter);
        QFETCH(const bool, initialized);
        QFETCH(const QByteArray, method);
        PyAction action;
        action.setToggleAction(true);
        action.setActivateMethod("g");
        action.setToggleMethod("g");
        action.setActivateMethod(method.isNull() ? nullptr : method.constData());
        action.setToggleMethod(method.isNull() ? nullptr : method.constData());
        HostDouble::instance().has_user_interpreter = interpreter;
        HostDouble::instance().python_initialized = initialized;
        take_calls();
        action.getAction()->trigger();
        QStringList asked{u"Framework::user_python_interpreter()"_s};
        if (interpreter)
            asked << u"FennarPythonInterpreter::IsInitialized()"_s;
        QCOMPARE(take_calls(), asked + asked);
    }

    void entries_are_added_in_order_and_removed_by_their_owner()
    {
        PyAction one;
        PyAction two;
        one.setText("one");
        two.setText("two");
        const QStringList before = bar();
        PyOstrel::add_to_menu("Scripts \u0394", {&two, &one}, "script");
        QMenu* const menu = bar_menu(u"Scripts \u0394"_s);
        QVERIFY(menu);
        QCOMPARE(menu->actions(), QList<QAction*>({two.getAction(), one.getAction()}));
        PyOstrel::remove_menu_items("other");
        QCOMPARE(menu->actions().size(), 2);
        PyOstrel::remove_menu_items("script");
        QCOMPARE(bar(), before);
        // They stay the script's.
        QCOMPARE(one.getAction()->text(), u"one"_s);
    }

    void entry_in_a_fixed_menu_and_chosen_there_runs_its_method()
    {
        PyAction action;
        action.setText("mine");
        action.setActivateMethod("f");
        PyOstrel::add_to_menu("&Help", {&action}, "script");
        QCOMPARE(rows(bar_menu(u"&Help"_s)), QStringList({u"mine"_s, u"---"_s, u"&About"_s}));
        bar_menu(u"&Help"_s)->actions().first()->trigger();
        QCOMPARE(take_runs(), run_of(u"f()"_s).mid(2));
        PyOstrel::remove_menu_items("script");
    }

    void menu_may_be_removed_by_its_own_entry()
    {
        PyAction action;
        action.setText("leave");
        PyOstrel::add_to_menu("Scripts", {&action}, "script");
        connect(action.getAction(), &QAction::triggered, this, [] { PyOstrel::remove_menu_items("script"); });
        QVERIFY(show_active(window()));
        QPointer<QMenu> menu = bar_menu(u"Scripts"_s);
        bool chosen = false;
        const MenuDriver driver([&chosen](QMenu* open) { chosen = choose(open, u"leave"_s); });
        menu->popup(window()->mapToGlobal(QPoint(50, 50)));
        QTRY_VERIFY(chosen);
        QVERIFY(!bar_menu(u"Scripts"_s));
        QTRY_VERIFY(!menu);
        // Otherwise a menu goes at once.
        PyOstrel::add_to_menu("Scripts", {&action}, "script");
        menu = bar_menu(u"Scripts"_s);
        QVERIFY(menu);
        PyOstrel::remove_menu_items("script");
        QVERIFY(!menu);
    }

    void null_names_and_empty_lists_add_nothing()
    {
        const QStringList before = bar();
        PyAction action;
        PyOstrel::add_to_menu("Scripts", {&action}, nullptr);
        PyOstrel::remove_menu_items(nullptr);
        QCOMPARE(bar(), before);
    }

    void deleted_action_leaves_its_menu()
    {
        auto* action = new PyAction;
        PyAction other;
        PyOstrel::add_to_menu("Scripts", {action, &other}, "script");
        QMenu* const menu = bar_menu(u"Scripts"_s);
        delete action;
        QCOMPARE(menu->actions(), QList<QAction*>({other.getAction()}));
        PyOstrel::remove_menu_items("script");
        QVERIFY(!bar_menu(u"Scripts"_s));
    }

    void action_may_be_deleted_by_the_host_that_it_asks_first()
    {
        auto* action = new PyAction;
        action->setActivateMethod("method_of_an_action_that_has_gone");
        HostDouble::instance().take_calls();
        HostDouble::instance().on_record = [&](const QString&) { delete std::exchange(action, nullptr); };
        const auto reset = qScopeGuard([] { HostDouble::instance().on_record = nullptr; });
        action->getAction()->trigger();
        QVERIFY(!action);
        QCOMPARE(HostDouble::instance().take_calls(), run_of(u"method_of_an_action_that_has_gone()"_s));
    }

    void without_a_window_nothing_is_loaded_and_nothing_happens()
    {
        QVERIFY(PyOstrel::is_loaded());
        delete_window();
        QVERIFY(!PyOstrel::is_loaded());
        PyAction action;
        QVERIFY(action.getAction());
        QVERIFY(!action.getAction()->parent());
        PyOstrel::add_to_menu("Scripts", {&action}, "script");
        PyOstrel::remove_menu_items("script");
        QVERIFY(action.getAction()->associatedObjects().isEmpty());
    }

    void action_outlives_its_window_without_harm()
    {
        PyAction action;
        action.setText("mine");
        action.setActivateMethod("f");
        PyOstrel::add_to_menu("Scripts", {&action}, "script");
        delete_window();
        QVERIFY(!action.getAction());
        action.setText("x");
        action.setMenuText("x");
        action.setToolTip("x");
        action.setStatusTip("x");
        action.setWhatsThis("x");
        action.setToggleAction(true);
        action.setOn(true);
        action.setEnabled(true);
        action.setVisible(true);
        QVERIFY(!action.hasToggleAction() && !action.isOn() && !action.isEnabled() && !action.isVisible());
        QVERIFY(action.getText() && action.getMenuText() && action.getToolTip() && action.getStatusTip() &&
                action.getWhatsThis());
        PyOstrel::remove_menu_items("script");
    }
};

OSTREL_TEST(TstPyAction)
#include "tst_pyaction.moc"
