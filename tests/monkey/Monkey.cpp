// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Monkey.h"

#include "acts.h"
#include "answers.h"
#include "checks.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "options/ComponentTool.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QActionEvent>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QEventLoop>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTabWidget>
#include <QThread>
#include <QTimer>
#include <QToolBar>

#include <array>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int deepest = 4;
constexpr auto watched_mark = "watched_by_monkey";

Monkey* the_monkey = nullptr;

bool is_of_qt(const QMetaObject* meta)
{
    return meta->className()[0] == 'Q';
}

template <class... Classes>
bool is_any_of(const QObject* object)
{
    return (... || qobject_cast<const Classes*>(object));
}

/** What a component is likely to look at, with a filter or for its signals. */
bool is_of_interest(const QObject* object)
{
    // The models behind the shell's lists are its own.
    if (is_any_of<QAbstractItemModel>(object))
        return false;
    return !is_of_qt(object->metaObject()) ||
           is_any_of<QAction, QDockWidget, QMenu, QMenuBar, QPlainTextEdit, QTabBar, QTabWidget, QToolBar>(
               object);
}

/** Types of events from inside which acts are played. */
bool is_of_interest(QEvent::Type type)
{
    static constexpr std::array types{QEvent::ActionAdded,
                                      QEvent::ActionChanged,
                                      QEvent::ActionRemoved,
                                      QEvent::ChildAdded,
                                      QEvent::ChildRemoved,
                                      QEvent::Close,
                                      QEvent::ContextMenu,
                                      QEvent::Drop,
                                      QEvent::EnabledChange,
                                      QEvent::FocusIn,
                                      QEvent::FocusOut,
                                      QEvent::FontChange,
                                      QEvent::Hide,
                                      QEvent::KeyPress,
                                      QEvent::MouseButtonPress,
                                      QEvent::MouseButtonRelease,
                                      QEvent::Move,
                                      QEvent::ParentChange,
                                      QEvent::Resize,
                                      QEvent::Show,
                                      QEvent::WindowActivate,
                                      QEvent::WindowTitleChange};
    return std::find(types.begin(), types.end(), type) != types.end();
}

/** Whether it keeps the user from the rest until it is closed. */
bool is_modal(const QObject* object)
{
    const auto* widget = qobject_cast<const QWidget*>(object);
    return widget && widget->isWindow() &&
           (qobject_cast<const QMenu*>(widget) ||
            (qobject_cast<const QDialog*>(widget) && widget->isModal()));
}

QWidget* modal_on_top()
{
    QWidget* const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

/** What Qt goes on with when a slot of @p signal has returned. */
const QObject* busy_with(const QObject* sender, const QMetaMethod& signal)
{
    // The shell is to bear all.
    if (!is_of_qt(signal.enclosingMetaObject()))
        return nullptr;
    const bool is_choice = signal == QMetaMethod::fromSignal(&QAction::triggered) ||
                           signal == QMetaMethod::fromSignal(&QAction::toggled);
    // Qt bears the end of an action. That of a dock or a toolbar may follow an event of these.
    if (is_choice && !is_any_of<QDockWidget, QToolBar>(sender->parent()))
        return nullptr;
    return sender;
}

/** The child or action that comes or goes with @p event, if one does. */
const QObject* object_of(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::ChildAdded:
    case QEvent::ChildRemoved:
        return static_cast<const QChildEvent*>(event)->child();
    case QEvent::ActionAdded:
    case QEvent::ActionChanged:
    case QEvent::ActionRemoved:
        return static_cast<const QActionEvent*>(event)->action();
    default:
        return nullptr;
    }
}

/** Whether little is left of it, or of what it is in: Qt cannot walk over that. */
bool is_dying(const QObject* object)
{
    // A dock deletes its action when it is a mere widget still; else no action is a mere widget's own.
    const auto* const action = qobject_cast<const QAction*>(object);
    if (action && action->parent() && action->parent()->metaObject() == &QWidget::staticMetaObject)
        return true;
    while (object && object->metaObject() != &QObject::staticMetaObject)
        object = object->parent();
    return object;
}

/** The plugin tool if @p call is one that it makes from inside its events of being shown and hidden. */
const QObject* shows_or_hides(const QString& call)
{
    const bool is_of_tool = call.contains(u"component"_s) && Ostrel::instance();
    return is_of_tool ? Ostrel::instance()->findChild<ComponentTool*>() : nullptr;
}

/** Calls from inside which no act is played when they are recorded: those that tell once more when they are
 * done, and those behind which the recording host goes on with what it has been given. */
bool is_host_busy(const QString& call)
{
    return call.startsWith(u"Mediator::"_s) || call.startsWith(u"Navigation"_s) || call.startsWith(u'~') ||
           call.contains(u"Panel::"_s);
}

} // namespace

void tell_monkey(const char* by, const QObject* busy)
{
    if (the_monkey)
        the_monkey->called(QString::fromUtf8(by), busy);
}

Monkey::Monkey(quint32 seed, const QString& folder) : mRandom(seed), mFolder(folder)
{
    the_monkey = this;
    HostDouble::instance().on_record = [this](const QString& call) {
        if (!is_host_busy(call))
            called(call.section(u'(', 0, 0), nullptr);
    };
    HostDouble::instance().on_call = [this](const QString& operation) {
        called(operation, shows_or_hides(operation));
    };
    qApp->installEventFilter(this);
    mWorld.load();
}

Monkey::~Monkey()
{
    qApp->removeEventFilter(this);
    HostDouble::instance().reset();
    the_monkey = nullptr;
}

void Monkey::step()
{
    HostDouble::instance().take_calls();
    watch_window();
    mArmed.clear();
    for (int count = below(4); count > 0; --count)
        mArmed << 1 + below(below(2) ? 40 : 8);
    // In an event loop, as in an application: what waits for its deletion waits for the end of the step.
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        play_any({});
        close_what_is_open();
        if (one_in(4))
            QCoreApplication::processEvents();
        mArmed.clear();
        close_what_is_open();
        loop.quit();
    });
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Busy::delete_pending();
    mWorld.forget_frames();
}

// A menu that does not wait for its end, as that of Qt's own text pages.
void Monkey::close_what_is_open()
{
    for (int turn = 0; turn < 9; ++turn) {
        QWidget* const open = modal_on_top();
        if (!open)
            return;
        if (turn < 3)
            answer(*this, open);
        else
            dismiss(open);
    }
}

void Monkey::leave()
{
    mArmed.clear();
    // A toolbar that has lost many buttons at once goes with the next removal only.
    for (int time = 0; time < 2; ++time) {
        for (Component& component : mWorld.components)
            mWorld.leave(component);
        Busy::delete_pending();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    mWorld.forget_frames();
}

QString Monkey::wrong()
{
    const QScopedValueRollback quiet(mQuiet, true);
    if (QWidget* const open = modal_on_top()) {
        const QString what = u"left open: "_s + QString::fromUtf8(open->metaObject()->className());
        dismiss(open);
        return what;
    }
    return wrong_with(mWorld);
}

void Monkey::called(const QString& by, const QObject* busy)
{
    if (mQuiet || mArmed.isEmpty() || mDepth >= deepest)
        return;
    // Qt calls far more often than the shell.
    mArmed.first() -= busy ? 1 : 6;
    if (mArmed.first() > 0)
        return;
    mArmed.removeFirst();
    std::optional<Busy> at_work;
    if (busy)
        at_work.emplace(busy);
    play_any(by);
}

QString Monkey::fresh_text()
{
    return u"own %1"_s.arg(++mTexts);
}

QString Monkey::file_name()
{
    return mFolder + u"/file%1.jou"_s.arg(below(4));
}

void Monkey::note(const QString& detail)
{
    if (!mTrail.isEmpty())
        mTrail.last() += u": "_s + detail;
}

void Monkey::play_any(const QString& by)
{
    const int whose = below(4);
    const bool user_may = !modal_on_top() && !Busy::with_anything();
    // What the shell is at work on is best taken away from it.
    const bool takes_away = mDepth > 0 && !Busy::with_anything() && one_in(3);
    const std::vector<Act>& acts = takes_away               ? ending_acts()
                                   : whose == 0 && user_may ? user_acts()
                                   : whose <= 1             ? host_acts()
                                   : whose == 2             ? component_window_acts()
                                                            : component_content_acts();
    const Act& act = acts[static_cast<std::size_t>(below(std::ssize(acts)))];
    if (act.may_take_turns && Busy::with_anything())
        play_any(by);
    else
        play(act, by);
}

void Monkey::play(const Act& act, const QString& by)
{
    const QString line = QString(2 * qsizetype{mDepth}, u' ') + (by.isEmpty() ? QString() : by + u" -> "_s) +
                         QString::fromUtf8(act.name);
    mTrail << line;
    if (qEnvironmentVariableIsSet("OSTREL_TEST_TRACE"))
        std::fprintf(stderr, "%s\n", qPrintable(line));
    if (mDepth > 0 && one_in(3))
        mArmed.prepend(1 + below(8));
    ++mDepth;
    act.play(*this);
    --mDepth;
}

// --- Where acts are played from

void Monkey::watch_window()
{
    Ostrel* const window = mWorld.window();
    if (!window)
        return;
    watch(window);
    for (QObject* const object : window->findChildren<QObject*>())
        watch(object);
}

void Monkey::watch(QObject* object)
{
    if (!is_of_interest(object) || object->property(watched_mark).isValid())
        return;
    object->setProperty(watched_mark, true);
    static const int slot = staticMetaObject.indexOfSlot("signal_emitted()");
    const QMetaObject* const meta = object->metaObject();
    for (int index = QObject::staticMetaObject.methodCount(); index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        // Text edits emit these two when they are not even ready to be read.
        const bool is_too_early = method.name() == "updateRequest" || method.name() == "blockCountChanged";
        if (method.methodType() == QMetaMethod::Signal && !is_too_early)
            QMetaObject::connect(object, index, this, slot, Qt::DirectConnection);
    }
}

void Monkey::signal_emitted()
{
    const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
    called(QString::fromUtf8(signal.enclosingMetaObject()->className()) + u"::"_s +
               QString::fromUtf8(signal.name()),
           busy_with(sender(), signal));
}

bool Monkey::eventFilter(QObject* watched, QEvent* event)
{
    // Dialogs and menus wait in a loop of their own, which may have yet to begin or be over.
    const bool opens = event->type() == QEvent::Show;
    if ((opens || event->type() == QEvent::Hide || event->type() == QEvent::Close) && is_modal(watched)) {
        if (opens)
            expect(static_cast<QWidget*>(watched));
        return false;
    }
    const bool is_calling = !mArmed.isEmpty() && is_of_interest(event->type()) && watched->isWidgetType() &&
                            is_of_interest(watched) && !is_dying(object_of(event));
    if (is_calling) {
        const Busy object(object_of(event));
        const QString type = QString::fromUtf8(QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type()));
        called(type + u" for "_s + QString::fromUtf8(watched->metaObject()->className()), watched);
    }
    return false;
}

// --- Dialogs and menus

void Monkey::expect(QWidget* dialog)
{
    const QPointer<QWidget> shown = dialog;
    const int level = thread()->loopLevel();
    QTimer::singleShot(0, this, [this, shown, level] { meet(shown, level, 0); });
}

// One that is closed before its own event loop runs would never return.
void Monkey::meet(const QPointer<QWidget>& dialog, int loop_level, int turn)
{
    const auto again = [&](int next_turn) {
        QTimer::singleShot(0, this,
                           [this, dialog, loop_level, next_turn] { meet(dialog, loop_level, next_turn); });
    };
    if (!dialog || !dialog->isVisible())
        return;
    if (thread()->loopLevel() <= loop_level || modal_on_top() != dialog) {
        again(turn);
        return;
    }
    if (mDepth < deepest && one_in(2)) {
        play_any(u"with open "_s + QString::fromUtf8(dialog->metaObject()->className()));
    }
    if (!dialog || !dialog->isVisible())
        return;
    if (modal_on_top() == dialog) {
        if (turn < 3)
            answer(*this, dialog);
        else
            dismiss(dialog);
    }
    again(turn + 1);
}
