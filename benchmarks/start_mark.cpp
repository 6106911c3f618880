// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A plug-in of Qt's that any Qt application can be made to load. It ends the process as soon as the window is
// there, and prints when that was. See bench_start.cpp.

#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** Whether the keyboard focus is behind the prompt, if @p prompt is given. */
bool has_prompt(const QString& prompt)
{
    if (prompt.isEmpty())
        return true;
    const auto* const console = qobject_cast<const QPlainTextEdit*>(QApplication::focusWidget());
    return console && console->document()->lastBlock().text() == prompt;
}

/**
 * Waits for the main window to be painted, and then for the event loop to take the next event: from then on
 * it takes what the user types.
 */
class StartMark : public QObject
{
public:
    StartMark() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched))
            mPainted = true;
        if (mPainted && (event->type() == QEvent::Paint || event->type() == QEvent::FocusIn))
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        return false;
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        if (!has_prompt(qEnvironmentVariable("OSTREL_BENCH_PROMPT")))
            return true;
        if (!qEnvironmentVariableIntValue("OSTREL_BENCH_IDLE"))
            finish(Clock::now());
        if (!mIdle.isActive()) {
            mLastTurn = mEnd = Clock::now();
            connect(&mIdle, &QTimer::timeout, this, &StartMark::take_turn);
            mIdle.start(0);
        }
        return true;
    }

private:
    using Clock = std::chrono::steady_clock;

    /** What still goes on shows as a gap between two turns of the event loop. The wait for more does not
     * count. */
    void take_turn()
    {
        const auto now = Clock::now();
        if (now > mLastTurn + 5ms)
            mEnd = now;
        mLastTurn = now;
        if (now > mEnd + 200ms)
            finish(mEnd);
    }

    [[noreturn]] static void finish(Clock::time_point end)
    {
        std::printf("%.9f\n", std::chrono::duration<double>(end.time_since_epoch()).count());
        std::fflush(stdout);
        std::_Exit(0);
    }

    QTimer mIdle;
    Clock::time_point mLastTurn;
    Clock::time_point mEnd;
    bool mPainted = false;
};

} // namespace

class StartMarkPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "start_mark.json")

public:
    QObject* create(const QString&, const QString&) override { return new StartMark; }
};

#include "start_mark.moc"
