// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennari19/FennarInterface.h"
#include "host/ostrelfw/Framework.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "support/menus.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"

#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/**
 * Scripts and their menu entries in the whole application. Python can be started once in a process, so all
 * functions share one workbench, which ends as it does for a user: first the window, then Python.
 */
class TstPythonMenus : public WorkbenchTest
{
    Q_OBJECT

private:
    static bool run(const QByteArray& source)
    {
        return Framework::user_python_interpreter()->Run_SimpleString(source.constData()) == 0;
    }
    QAction* bar_action(const QString& title) const
    {
        for (QAction* action : window().menuBar()->actions())
            if (action->text() == title)
                return action;
        return nullptr;
    }
    QMenu* bar_menu(const QString& title) const
    {
        const QAction* const action = bar_action(title);
        return action ? action->menu() : nullptr;
    }
    /** Opens the menu by a click and chooses the row with the keyboard. */
    void choose_entry(const QString& title, const QString& row) const
    {
        bool chosen = false;
        {
            const MenuDriver driver([&](QMenu* menu) { chosen = choose(menu, row); });
            QTest::mouseClick(window().menuBar(), Qt::LeftButton, {},
                              window().menuBar()->actionGeometry(bar_action(title)).center());
            QTRY_VERIFY_WITH_TIMEOUT(chosen, 5000);
        }
    }
    /** How many actions hang directly on the window: those of scripts among them. */
    static qsizetype action_count()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Ostrel::instance()->findChildren<QAction*>(Qt::FindDirectChildrenOnly).size();
    }

protected:
    void set_up() override { page()->clearToPrompt(); }
    void tear_down() override
    {
        QVERIFY(run("fennar.remove_menu_items('test')"));
        QVERIFY(!bar_action(u"Scripts"_s));
    }
    void tear_down_class() override
    {
        // An entry that is there to the end.
        QVERIFY(run("fennar.add_to_menu('Scripts', [fennar.PyAction()], 'last')\nkept = fennar.PyAction()"));
    }
    void after_window() override
    {
        QVERIFY(run("kept.setText('x'); assert kept.getText() == ''; assert not fennar.is_loaded()"));
    }

private slots:
    void entry_of_a_script_calls_back()
    {
        QVERIFY(run("def hello():\n    print('Hello')\n"
                    "a = fennar.PyAction()\na.setText('&Greet')\na.setActivateMethod('hello')\n"
                    "fennar.add_to_menu('Scripts', [a], 'test')"));
        choose_entry(u"Scripts"_s, u"&Greet"_s);
        QCOMPARE(text(), u"Hello\nFennar>"_s);
        QVERIFY(run("del a"));
    }

    void checkable_entry_tells_its_state_and_then_calls()
    {
        QVERIFY(run("def switch(on):\n    print('switched', on, a.isOn())\n"
                    "def click():\n    print('clicked')\n"
                    "a = fennar.PyAction()\na.setText('Switch')\na.setToggleAction(True)\n"
                    "a.setToggleMethod('switch')\na.setActivateMethod('click')\n"
                    "fennar.add_to_menu('&Tools', [a], 'test')"));
        choose_entry(u"&Tools"_s, u"Switch"_s);
        choose_entry(u"&Tools"_s, u"Switch"_s);
        QCOMPARE(text(), u"switched 1 True\nclicked\nswitched 0 False\nclicked\nFennar>"_s);
        QVERIFY(run("a.setOn(True)"));
        QVERIFY2(text().endsWith(u"clicked\nswitched 1 True\nFennar>"_s), qPrintable(text()));
        QVERIFY(run("del a"));
    }

    void exception_in_a_method_stands_on_the_console()
    {
        QVERIFY(run("def fail():\n    raise ValueError('no good')\n"
                    "a = fennar.PyAction()\na.setText('Fail')\na.setActivateMethod('fail')\n"
                    "fennar.add_to_menu('Scripts', [a], 'test')"));
        choose_entry(u"Scripts"_s, u"Fail"_s);
        QVERIFY2(text().startsWith(u"Traceback (most recent call last):\n"_s), qPrintable(text()));
        QVERIFY2(text().endsWith(u"\nValueError: no good\nFennar>"_s), qPrintable(text()));
        QVERIFY(workbench().console()->error_page()->toPlainText().contains(u"ValueError: no good"_s));
        // The entry works on.
        choose_entry(u"Scripts"_s, u"Fail"_s);
        QCOMPARE(text().count(u"ValueError: no good"_s), 2);
        QVERIFY(run("del a"));
    }

    void method_that_is_no_python_is_an_error_on_the_console()
    {
        QVERIFY(run("a = fennar.PyAction()\na.setText('Odd')\na.setActivateMethod('no such (')\n"
                    "fennar.add_to_menu('Scripts', [a], 'test')\ndel a"));
        choose_entry(u"Scripts"_s, u"Odd"_s);
        QVERIFY2(text().contains(u"SyntaxError"_s), qPrintable(text()));
    }

    void commands_run_from_an_entry()
    {
        QVERIFY(run("a = fennar.PyAction()\na.setText('Echo')\n"
                    "a.setActivateMethod('lambda: fennar.cmd(\"echo from the menu\")')\n"
                    "fennar.add_to_menu('Scripts', [a], 'test')"));
        // Source text it is: this makes a function whose body is the call, and runs nothing.
        choose_entry(u"Scripts"_s, u"Echo"_s);
        QCOMPARE(text(), u"Fennar>"_s);
        QVERIFY(run("a.setActivateMethod('(lambda: fennar.cmd(\"echo from the menu\"))')\ndel a"));
        choose_entry(u"Scripts"_s, u"Echo"_s);
        QCOMPARE(text(), u"Fennar>echo from the menu\nfrom the menu\nFennar>"_s);
    }

    void texts_come_back_as_they_were_set()
    {
        QVERIFY(
            run("a = fennar.PyAction()\n"
                "assert a.getText() == a.getStatusTip() == a.getWhatsThis() == ''\n"
                "a.setText('&\\u0394 \\U0001f600')\n"
                "assert a.getText() == a.getMenuText() == '&\\u0394 \\U0001f600', a.getText()\n"
                "assert a.getToolTip() == '\\u0394 \\U0001f600', a.getToolTip()\n"
                "a.setMenuText('x' * 100000)\nassert a.getText() == 'x' * 100000\n"
                "a.setToolTip('tip'); a.setStatusTip('status'); a.setWhatsThis('what')\n"
                "assert (a.getToolTip(), a.getStatusTip(), a.getWhatsThis()) == ('tip', 'status', 'what')\n"
                "del a"));
    }

    void flags_come_back_as_they_were_set()
    {
        QVERIFY(run("a = fennar.PyAction()\n"
                    "assert (a.hasToggleAction(), a.isOn(), a.isEnabled(), a.isVisible()) == "
                    "(False, False, True, True)\n"
                    "a.setToggleAction(True); a.setOn(True); a.setEnabled(False)\n"
                    "assert (a.hasToggleAction(), a.isOn(), a.isEnabled(), a.isVisible()) == "
                    "(True, True, False, True)\n"
                    "a.setVisible(False)\nassert not a.isVisible()\ndel a"));
    }

    void window_is_loaded() { QVERIFY(run("assert fennar.is_loaded() is True")); }

    void entry_stays_when_the_script_forgets_it()
    {
        const qsizetype before = action_count();
        QVERIFY(run("import gc\ndef make():\n    a = fennar.PyAction()\n    a.setText('Forgotten')\n"
                    "    a.setActivateMethod('print')\n    fennar.add_to_menu('Scripts', [a, a], 'test')\n"
                    "make(); gc.collect()"));
        QCOMPARE(action_count(), before + 1);
        choose_entry(u"Scripts"_s, u"Forgotten"_s);
        QCOMPARE(text(), u"\nFennar>"_s);
        QVERIFY(run("fennar.remove_menu_items('test')"));
        QCOMPARE(action_count(), before);
    }

    void entry_in_two_components_stays_until_both_go()
    {
        const qsizetype before = action_count();
        QVERIFY(run("fennar.add_to_menu('Scripts', [a := fennar.PyAction()], 'test')\n"
                    "a.setText('Shared')\nfennar.add_to_menu('More', [a], 'more')\ndel a\n"
                    "fennar.remove_menu_items('test')"));
        QCOMPARE(action_count(), before + 1);
        QVERIFY(bar_menu(u"More"_s));
        QCOMPARE(menu_rows(bar_menu(u"More"_s)), QStringList({u"Shared [] (enabled)"_s}));
        QVERIFY(run("fennar.remove_menu_items('more')"));
        QCOMPARE(action_count(), before);
    }

    void action_that_is_in_no_menu_goes_with_its_object()
    {
        const qsizetype before = action_count();
        QVERIFY(run("a = fennar.PyAction()"));
        QCOMPARE(action_count(), before + 1);
        QVERIFY(run("del a"));
        QCOMPARE(action_count(), before);
    }

    void action_that_another_thread_collects_goes_too()
    {
        const qsizetype before = action_count();
        QVERIFY(run("import threading\nheld = [fennar.PyAction()]\n"
                    "t = threading.Thread(target=held.clear)\nt.start()\nt.join()"));
        QCOMPARE(action_count(), before);
    }

    void method_may_remove_its_own_menu()
    {
        const qsizetype before = action_count();
        QVERIFY(run("def leave():\n    fennar.remove_menu_items('test')\n    print('left')\n"
                    "a = fennar.PyAction()\na.setText('Leave')\na.setActivateMethod('leave')\n"
                    "fennar.add_to_menu('Scripts', [a], 'test')\ndel a"));
        choose_entry(u"Scripts"_s, u"Leave"_s);
        QCOMPARE(text(), u"left\nFennar>"_s);
        QVERIFY(!bar_action(u"Scripts"_s));
        QCOMPARE(action_count(), before);
    }

    void several_actions_keep_their_order_and_any_iterable_will_do()
    {
        QVERIFY(run("made = [fennar.PyAction() for i in range(3)]\n"
                    "for i, a in enumerate(made):\n    a.setText(f'entry {i}')\n"
                    "fennar.add_to_menu('Scripts', (a for a in reversed(made)), 'test')\ndel made, a"));
        QCOMPARE(
            menu_rows(bar_menu(u"Scripts"_s)),
            QStringList({u"entry 2 [] (enabled)"_s, u"entry 1 [] (enabled)"_s, u"entry 0 [] (enabled)"_s}));
    }

    void wrong_arguments_raise_and_add_nothing_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<QByteArray>("error");
        QTest::newRow("text that is none") << "a.setText(3)"_ba
                                           << "TypeError"_ba;
        QTest::newRow("text None") << "a.setActivateMethod(None)"_ba
                                   << "TypeError"_ba;
        QTest::newRow("null character") << "a.setText('a\\0b')"_ba
                                        << "ValueError"_ba;
        QTest::newRow("no valid text") << "a.setText('\\udc80')"_ba
                                       << "UnicodeEncodeError"_ba;
        QTest::newRow("no list") << "fennar.add_to_menu('Scripts', a, 'test')"_ba
                                 << "TypeError"_ba;
        QTest::newRow("None among the actions") << "fennar.add_to_menu('Scripts', [a, None], 'test')"_ba
                                                << "TypeError"_ba;
        QTest::newRow("text among the actions") << "fennar.add_to_menu('Scripts', 'abc', 'test')"_ba
                                                << "TypeError"_ba;
        QTest::newRow("no title") << "fennar.add_to_menu(None, [a], 'test')"_ba
                                  << "TypeError"_ba;
        QTest::newRow("no component") << "fennar.add_to_menu('Scripts', [a], None)"_ba
                                      << "TypeError"_ba;
        QTest::newRow("null character in the component") << "fennar.add_to_menu('Scripts', [a], 'te\\0st')"_ba
                                                         << "ValueError"_ba;
        QTest::newRow("remove nothing") << "fennar.remove_menu_items(None)"_ba
                                        << "TypeError"_ba;
        QTest::newRow("iterator that raises")
            << "fennar.add_to_menu('Scripts', (1 / 0 for x in [a]), 'test')"_ba
            << "ZeroDivisionError"_ba;
    }
    void wrong_arguments_raise_and_add_nothing()
    {
        QFETCH(const QByteArray, call);
        QFETCH(const QByteArray, error);
        QVERIFY(run("a = fennar.PyAction()\na.setText('before')\ntry:\n    " + call +
                    "\n    raised = False\n"
                    "except " +
                    error +
                    ":\n    raised = True\n"
                    "assert raised and a.getText() == 'before'\ndel a"));
        QVERIFY(!bar_action(u"Scripts"_s));
    }

    void other_threads_are_refused()
    {
        QVERIFY(run(
            "import threading\na = fennar.PyAction()\nrefused = []\ndef attempt():\n"
            "    for call in (fennar.PyAction, lambda: a.setText('x'), a.getText, a.isOn,\n"
            "                 lambda: a.setOn(True), lambda: fennar.add_to_menu('Scripts', [a], 'test'),\n"
            "                 lambda: fennar.remove_menu_items('test')):\n"
            "        try:\n            call()\n"
            "        except RuntimeError as error:\n            refused.append(str(error))\n"
            "t = threading.Thread(target=attempt)\nt.start()\nt.join()\n"
            "assert len(refused) == 7 and all('main thread' in text for text in refused), refused\n"
            "del a"));
    }

    void process_that_was_forked_off_is_refused_and_ends_without_harm()
    {
        // The copy deletes its actions, too, and must not disturb the window that it shares.
        QVERIFY(run("import os, warnings\nwarnings.simplefilter('ignore')\na = fennar.PyAction()\n"
                    "child = os.fork()\nif child == 0:\n    try:\n        a.setText('x')\n"
                    "    except RuntimeError:\n        del a\n        os._exit(7)\n    os._exit(1)\n"
                    "assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 7\ndel a"));
    }

    void methods_are_the_users_whoever_made_the_entry()
    {
        QVERIFY(run("def whose():\n    print('the user\\'s')"));
        QCOMPARE(Framework::python_interpreter()->Run_SimpleString(
                     "import fennar\ndef whose():\n    print('the framework\\'s')\n"
                     "a = fennar.PyAction()\na.setText('Whose')\na.setActivateMethod('whose')\n"
                     "fennar.add_to_menu('Scripts', [a], 'test')\ndel a"),
                 0);
        choose_entry(u"Scripts"_s, u"Whose"_s);
        QCOMPARE(text(), u"the user's\nFennar>"_s);
    }

    void help_tells_of_the_entries()
    {
        QVERIFY(run("help(fennar)"));
        for (const QString& name : {u"class PyAction"_s, u"add_to_menu(menu, actions, component)"_s,
                                    u"remove_menu_items(component)"_s, u"is_loaded()"_s})
            QVERIFY2(text().contains(name), qPrintable(name));
    }

    void about_dialog_shows_the_product()
    {
        const HelpAboutOstrel* const dialog = window().help_menu()->get_help_about_dialog();
        QStringList seen;
        QSize icon;
        QTimer::singleShot(0, dialog, [&] {
            for (const QString& name : {u"mProductNameLabel"_s, u"mProductInfoLabel"_s, u"mOstrel3rdParty"_s})
                seen << dialog->findChild<QLabel*>(name)->text();
            icon = dialog->findChild<QLabel*>(u"mProductIconLabel"_s)->pixmap(Qt::ReturnByValue).size();
            QTest::mouseClick(dialog->findChild<QPushButton*>(u"mOkButton"_s), Qt::LeftButton);
        });
        window().help_menu()->help_about();
        FennarPythonInterpreter* const python = Framework::python_interpreter();
        QCOMPARE(seen.size(), 3);
        QCOMPARE(seen.at(0), u"<h1>Fennar</h>"_s);
        QCOMPARE(seen.at(1),
                 u"<b>Version %1, the workbench of Ostrel</b>"_s.arg(QCoreApplication::applicationVersion()));
        QCOMPARE(seen.at(2), u"%1 includes:\nQt %2 by The Qt Company\nPython %3.%4.%5 (www.python.org)"_s
                                 .arg(QCoreApplication::applicationName(), QLatin1StringView(qVersion()))
                                 .arg(python->version_major())
                                 .arg(python->version_minor())
                                 .arg(python->version_micro()));
        QCOMPARE(icon, QSize(64, 64));
    }
};

OSTREL_TEST(TstPythonMenus)
#include "tst_python_menus.moc"
