// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/playback/CloseGuard.h"

#include <QTest>
#include <QWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstCloseGuard : public TestCase
{
    Q_OBJECT

private slots:
    void window_closes_at_once_while_nothing_runs();
    void window_closes_when_the_run_has_ended();
    void window_closes_once_however_often_it_was_asked();
    void next_run_puts_it_off_again();
    void window_that_need_not_wait_closes_at_once();
    void window_that_goes_meanwhile_does_no_harm();
    void other_windows_are_left_alone();
};

namespace {

/** A visible window that counts how often it was closed. */
class Window : public QWidget
{
public:
    Window() { show(); }
    int closed = 0;

protected:
    void closeEvent(QCloseEvent*) override { ++closed; }
};

} // namespace

void TstCloseGuard::window_closes_at_once_while_nothing_runs()
{
    Window window;
    CloseGuard guard;
    guard.watch(&window, [] { return true; });
    QVERIFY(window.close());
    QCOMPARE(window.closed, 1);
}

void TstCloseGuard::window_closes_when_the_run_has_ended()
{
    Window window;
    CloseGuard guard;
    int asked = 0;
    guard.watch(&window, [&asked] { return ++asked; });
    guard.set_running(true);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QCOMPARE(asked, 1);
    guard.set_running(false);
    QVERIFY2(window.isVisible(), "the window closed within the call that tells the end");
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(window.closed, 1);
}

void TstCloseGuard::window_closes_once_however_often_it_was_asked()
{
    Window window;
    CloseGuard guard;
    guard.watch(&window, [] { return true; });
    guard.set_running(true);
    window.close();
    window.close();
    guard.set_running(false);
    QTRY_VERIFY(!window.isVisible());
    window.show();
    guard.set_running(true);
    guard.set_running(false);
    QCoreApplication::processEvents();
    QVERIFY(window.isVisible());
    QCOMPARE(window.closed, 1);
}

void TstCloseGuard::next_run_puts_it_off_again()
{
    Window window;
    CloseGuard guard;
    guard.watch(&window, [] { return true; });
    guard.set_running(true);
    window.close();
    guard.set_running(false);
    guard.set_running(true);
    QCoreApplication::processEvents();
    QVERIFY(window.isVisible());
    guard.set_running(false);
    QTRY_VERIFY(!window.isVisible());
}

void TstCloseGuard::window_that_need_not_wait_closes_at_once()
{
    Window window;
    CloseGuard guard;
    guard.watch(&window, [] { return false; });
    guard.set_running(true);
    QVERIFY(window.close());
    QCOMPARE(window.closed, 1);
}

void TstCloseGuard::window_that_goes_meanwhile_does_no_harm()
{
    auto window = std::make_unique<Window>();
    CloseGuard guard;
    guard.watch(window.get(), [] { return true; });
    guard.set_running(true);
    window->close();
    window.reset();
    guard.set_running(false);
    QCoreApplication::processEvents();
    // The guard goes on for the windows that are left.
    Window other;
    guard.watch(&other, [] { return true; });
    guard.set_running(true);
    QVERIFY(!other.close());
    guard.set_running(false);
    QTRY_VERIFY(!other.isVisible());
}

void TstCloseGuard::other_windows_are_left_alone()
{
    Window window;
    Window other;
    CloseGuard guard;
    guard.watch(&window, [] { return true; });
    guard.set_running(true);
    QVERIFY(other.close());
    QVERIFY(!window.close());
    guard.set_running(false);
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(other.closed, 1);
}

OSTREL_TEST(TstCloseGuard)
#include "tst_closeguard.moc"
