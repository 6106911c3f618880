// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/WorkbenchTest.h"

#include "console/CommandWidget.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QApplication>
#include <QTest>

using namespace fennar;

WorkbenchTest::WorkbenchTest() = default;
WorkbenchTest::~WorkbenchTest() = default;

void WorkbenchTest::initTestCase()
{
    arm();
    mWorkbench = std::make_unique<Workbench>();
    prepare(*mWorkbench);
    QVERIFY(mWorkbench->load());
    QVERIFY(show_active(&window()));
    set_up_class();
    for (QWidget* open : QApplication::topLevelWidgets()) {
        if (open->isVisible())
            keep_open(open);
    }
}

void WorkbenchTest::cleanupTestCase()
{
    arm();
    tear_down_class();
    mWorkbench->unload();
    QVERIFY(!Ostrel::instance());
    after_window();
    mWorkbench.reset();
    after_workbench();
    disarm();
}

CommandWidget* WorkbenchTest::page() const
{
    return mWorkbench->console()->command_page();
}

QString WorkbenchTest::text() const
{
    return page()->toPlainText();
}

QString WorkbenchTest::enter(const QString& line)
{
    page()->clearToPrompt();
    mWorkbench->console()->run_line(line);
    flush();
    return text();
}

void WorkbenchTest::type(const QString& line)
{
    QTest::keyClicks(page(), line);
    QTest::keyClick(page(), Qt::Key_Return);
}

void WorkbenchTest::python_mode(bool on)
{
    QTest::keyClick(&window(), on ? Qt::Key_P : Qt::Key_C, Qt::AltModifier);
}

void WorkbenchTest::flush()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QString run_line(const QString& line)
{
    QString text;
    CommandInterpreter& interpreter = Fennar::instance().interpreter();
    const auto print = [&text](const QString& more) { text += more; };
    interpreter.set_output(print);
    interpreter.set_error_output(print);
    interpreter.run(line);
    interpreter.set_output(nullptr);
    interpreter.set_error_output(nullptr);
    return text;
}
