// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "support/TestCase.h"
#include "workbench/application/python/python_actions.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"

#include <QAction>
#include <QMenuBar>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/**
 * Scripts' actions before the window, across two windows, and when Python ends first. Python can be started
 * once in a process, so the functions run in their order, and the last one ends it.
 */
class TstPythonActions : public TestCase
{
    Q_OBJECT

private:
    bool run(const QByteArray& source) { return mUser->Run_SimpleString(source.constData()) == 0; }
    QStringList bar() const
    {
        QStringList texts;
        for (const QAction* action : mWindow->menuBar()->actions())
            texts << action->text();
        return texts;
    }
    qsizetype action_count() const
    {
        return mWindow->findChildren<QAction*>(Qt::FindDirectChildrenOnly).size();
    }

    QString mErrors;
    std::unique_ptr<FennarPythonInterpreter> mUser;
    std::unique_ptr<Ostrel> mWindow;

protected:
    void tear_down() override
    {
        // The window stays for the next function.
    }

private slots:
    void initTestCase()
    {
        PythonHooks hooks;
        hooks.error_output = [this](const QString& text) { mErrors += text; };
        hooks.extend = &add_python_actions;
        QVERIFY2(PythonRuntime::start(hooks), qPrintable(mErrors));
        set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()),
                                   make_python_interpreter(PythonRuntime::user_namespace()));
        mUser = make_python_interpreter(PythonRuntime::user_namespace());
    }
    void cleanupTestCase() { mWindow.reset(); }

    void before_the_window_nothing_is_loaded_and_no_action_can_be_made()
    {
        QVERIFY2(run("assert fennar.is_loaded() is False\ntry:\n    fennar.PyAction()\n    raised = False\n"
                     "except RuntimeError:\n    raised = True\nassert raised\n"
                     "fennar.add_to_menu('Scripts', [], 'test')\nfennar.remove_menu_items('test')"),
                 qPrintable(mErrors));
    }

    void script_s_own_class_may_derive()
    {
        mWindow = std::make_unique<Ostrel>();
        QVERIFY2(run("class Mine(fennar.PyAction):\n    def __init__(self):\n        super().__init__()\n"
                     "        self.setText('mine')\n"
                     "fennar.add_to_menu('Scripts', [Mine()], 'test')"),
                 qPrintable(mErrors));
        QVERIFY(bar().contains(u"Scripts"_s));
        QVERIFY(!run("class Lazy(fennar.PyAction):\n    def __init__(self):\n        pass\nLazy()"));
        QVERIFY2(mErrors.contains(u"TypeError"_s), qPrintable(mErrors));
    }

    void action_of_a_window_that_is_gone_is_inert()
    {
        QVERIFY(
            run("old = fennar.PyAction()\nold.setText('old')\nfennar.add_to_menu('Scripts', [old], 'test')"));
        mWindow.reset();
        QVERIFY2(run("assert not fennar.is_loaded()\nold.setText('x')\nold.setOn(True)\n"
                     "assert old.getText() == old.getToolTip() == '' and not old.isEnabled()\n"
                     "fennar.add_to_menu('Scripts', [old], 'test')"),
                 qPrintable(mErrors));
    }

    void action_of_a_window_that_is_gone_cannot_be_added_to_the_next()
    {
        mWindow = std::make_unique<Ostrel>();
        const QStringList before = bar();
        QVERIFY2(run("try:\n    fennar.add_to_menu('Scripts', [old], 'test')\n    raised = False\n"
                     "except RuntimeError:\n    raised = True\nassert raised\n"
                     "assert fennar.is_loaded()"),
                 qPrintable(mErrors));
        QCOMPARE(bar(), before);
        QVERIFY(run("fennar.remove_menu_items('test')\ndel old"));
    }

    void end_of_python_takes_the_entries_along_and_leaves_the_window()
    {
        const QStringList before = bar();
        const qsizetype actions = action_count();
        QVERIFY2(run("held = fennar.PyAction()\nheld.setText('held')\n"
                     "fennar.add_to_menu('Scripts', [held, fennar.PyAction()], 'one')\n"
                     "fennar.add_to_menu('&Help', [fennar.PyAction()], 'two')\n"
                     "dropped = fennar.PyAction()\ndel dropped\nnever_added = fennar.PyAction()"),
                 qPrintable(mErrors));
        QCOMPARE(action_count(), actions + 5);
        QVERIFY(bar().contains(u"Scripts"_s));
        QAction* const help = mWindow->menuBar()->actions().last();
        QCOMPARE(help->menu()->actions().size(), 3);

        PythonRuntime::stop();
        QCOMPARE(bar(), before);
        QCOMPARE(help->menu()->actions().size(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(action_count(), actions);
        QCOMPARE(mErrors.count(u"Traceback"_s), 1);
    }
};

OSTREL_TEST(TstPythonActions)
#include "tst_python_actions.moc"
