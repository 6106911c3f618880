// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Busy.h"
#include "Monkey.h"
#include "acts.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/ComponentTool.h"
#include "support/drops.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// --- Input. What it leads to may delete the widget.

void press(const QPointer<QWidget>& widget, int key, Qt::KeyboardModifiers modifiers = {},
           const QString& text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        if (widget)
            QCoreApplication::sendEvent(widget, &event);
    }
}

void type(const QPointer<QWidget>& widget, const QString& text)
{
    for (const QChar character : text)
        press(widget, character.toUpper().unicode(), {}, character);
}

void click(const QPointer<QWidget>& widget, const QPoint& position, Qt::MouseButton button)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!widget)
            return;
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? button : Qt::NoButton;
        QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, {});
        QCoreApplication::sendEvent(widget, &event);
    }
}

void ask_for_menu(QWidget* widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(widget, &event);
}

/** Text with several lines, or with one. */
QString some_text(Monkey& monkey)
{
    return monkey.one_in(2) ? monkey.fresh_text() : monkey.fresh_text() + u'\n' + monkey.fresh_text();
}

struct Key
{
    int key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    const char* text = "";
};

const std::vector<Key>& keys_for_text()
{
    static const std::vector<Key> keys{
        {Qt::Key_Return, {}, "\r"},
        {Qt::Key_Backspace, {}, "\b"},
        {Qt::Key_Delete, {}, "\x7f"},
        {Qt::Key_Up, {}},
        {Qt::Key_Down, {}},
        {Qt::Key_Home, {}},
        {Qt::Key_End, Qt::ShiftModifier},
        {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier},
        {Qt::Key_X, Qt::ControlModifier},
        {Qt::Key_V, Qt::ControlModifier},
        {Qt::Key_K, Qt::ControlModifier},
        {Qt::Key_T, Qt::ControlModifier},
        {Qt::Key_Insert, Qt::ShiftModifier},
        {Qt::Key_F1, {}},
        {Qt::Key_Tab, {}, "\t"},
    };
    return keys;
}

void press_any_key(Monkey& monkey, QWidget* widget)
{
    const Key key = monkey.one_of(keys_for_text());
    press(widget, key.key, key.modifiers, QString::fromLatin1(key.text));
}

// --- What there is

/** A page of the console, which need not be the one on top. */
QPlainTextEdit* console_page(Monkey& monkey)
{
    return monkey.window() ? qobject_cast<QPlainTextEdit*>(monkey.one_of(monkey.world().tabs)) : nullptr;
}

/** Null while Qt is at work in it, since journals come and go there. */
JournalEditor* editor(Monkey& monkey)
{
    JournalEditor* const window = monkey.window() ? monkey.window()->journal_editor() : nullptr;
    return Busy::with(window) ? nullptr : window;
}

QTabWidget* journals(Monkey& monkey)
{
    return editor(monkey) ? editor(monkey)->findChild<QTabWidget*>(u"mDocTab"_s) : nullptr;
}

template <class Widget>
Widget* any_visible(Monkey& monkey, const QWidget* inside)
{
    QList<Widget*> widgets = inside->findChildren<Widget*>();
    widgets.removeIf([](const Widget* widget) { return !widget->isVisible() || !widget->isEnabled(); });
    return monkey.one_of(widgets);
}

void trigger_any(Monkey& monkey, QList<QAction*> actions)
{
    actions.removeIf([](const QAction* action) {
        return action->isSeparator() || action->menu() || !action->isEnabled() || !action->isVisible();
    });
    if (QAction* const action = monkey.one_of(actions)) {
        monkey.note(action->text());
        action->trigger();
    }
}

// --- The console

void enters_a_command(Monkey& monkey)
{
    const QPointer<QWidget> page = console_page(monkey);
    type(page, u"go"_s);
    press(page, Qt::Key_Return, {}, u"\r"_s);
}

void presses_a_key_in_the_console(Monkey& monkey)
{
    if (QWidget* const page = console_page(monkey))
        press_any_key(monkey, page);
}

void clicks_into_the_console(Monkey& monkey)
{
    if (const QPlainTextEdit* const page = console_page(monkey))
        click(page->viewport(), QPoint(20, 10), monkey.one_in(2) ? Qt::MiddleButton : Qt::LeftButton);
}

void pastes_into_the_console(Monkey& monkey)
{
    QGuiApplication::clipboard()->setText(some_text(monkey));
    if (QPlainTextEdit* const page = console_page(monkey))
        page->paste();
}

void drops_text_onto_the_console(Monkey& monkey)
{
    const QString text = some_text(monkey);
    // Qt's own text page does not bear a drop if it is too low to show the caret.
    if (const auto* const page = qobject_cast<CommandWidget*>(console_page(monkey)))
        std::ignore = drop_text(page->viewport(), QPoint(20, 10), text);
}

void opens_the_menu_of_a_page(Monkey& monkey)
{
    if (const QPlainTextEdit* const page = console_page(monkey))
        ask_for_menu(page->viewport());
}

void selects_output(Monkey& monkey)
{
    if (QPlainTextEdit* const page = console_page(monkey))
        page->selectAll();
}

void goes_to_another_page(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window()) {
        auto* const tabs = window->command_line()->findChild<QTabWidget*>(u"mCommandTab"_s);
        tabs->setCurrentIndex(monkey.below(tabs->count() + 1));
    }
}

void clicks_a_button_of_the_mode(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window()) {
        const QString name = monkey.one_in(2) ? u"mFennarButton"_s : u"mPythonButton"_s;
        window->command_line()->findChild<QAbstractButton*>(name)->click();
    }
}

// --- The window

void chooses_from_a_menu(Monkey& monkey)
{
    if (const Ostrel* const window = monkey.window()) {
        const QAction* const entry = monkey.one_of(window->menuWidget()->actions());
        if (const auto* const menu = entry->menu<QMenu*>())
            trigger_any(monkey, menu->actions());
    }
}

void chooses_any_action(Monkey& monkey)
{
    if (const Ostrel* const window = monkey.window())
        trigger_any(monkey, window->findChildren<QAction*>());
}

void clicks_a_button_of_a_toolbar(Monkey& monkey)
{
    if (const Ostrel* const window = monkey.window()) {
        const QToolBar* const toolbar = any_visible<QToolBar>(monkey, window);
        if (auto* const button = toolbar ? any_visible<QToolButton>(monkey, toolbar) : nullptr)
            click(button, button->rect().center(), Qt::LeftButton);
    }
}

void presses_a_key_in_the_window(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        press(window, monkey.one_in(2) ? Qt::Key_F1 : Qt::Key_A);
}

void types_ahead(Monkey& monkey)
{
    if (QWidget* const target = QApplication::focusWidget())
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s));
    monkey.note(u"posted"_s);
}

void resizes_the_window(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->resize(500 + monkey.below(600), 400 + monkey.below(400));
}

void minimizes_or_restores_the_window(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window()) {
        if (window->isMinimized())
            window->showNormal();
        else
            window->showMinimized();
    }
}

void closes_the_window(Monkey& monkey)
{
    if (editor(monkey))
        monkey.window()->close();
}

void shows_the_window(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->show();
}

void cancels_work(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->cancel_progress();
}

void uses_the_plugin_tool(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    const QPointer<QWidget> tool = window->findChild<ComponentTool*>();
    if (!tool || !tool->isVisible())
        window->tools_menu()->show_component_tool();
    else if (monkey.one_in(4))
        tool->close();
    else if (auto* const button = any_visible<QAbstractButton>(monkey, tool))
        button->click();
}

// --- The journal editor

void opens_or_closes_the_editor(Monkey& monkey)
{
    JournalEditor* const window = editor(monkey);
    if (!window)
        return;
    if (window->isVisible() && monkey.one_in(2))
        window->close();
    else
        monkey.window()->tools_menu()->show_journal_editor();
}

void writes_a_journal(Monkey& monkey)
{
    if (editor(monkey))
        type(editor(monkey)->returnCurrentDocument(), u"a"_s);
}

void presses_a_key_in_a_journal(Monkey& monkey)
{
    if (editor(monkey))
        press_any_key(monkey, editor(monkey)->returnCurrentDocument());
}

void opens_the_menu_of_a_journal(Monkey& monkey)
{
    if (editor(monkey) && editor(monkey)->isVisible())
        ask_for_menu(editor(monkey)->returnCurrentDocument()->viewport());
}

void chooses_in_the_editor(Monkey& monkey)
{
    if (editor(monkey))
        trigger_any(monkey, editor(monkey)->findChildren<QAction*>());
}

void goes_to_another_journal(Monkey& monkey)
{
    if (QTabWidget* const tabs = journals(monkey))
        tabs->setCurrentIndex(monkey.below(tabs->count()));
}

void closes_a_journal(Monkey& monkey)
{
    if (const QTabWidget* const tabs = journals(monkey))
        editor(monkey)->close_tab(monkey.below(tabs->count()));
}

} // namespace

const std::vector<Act>& user_acts()
{
    static const std::vector<Act> acts{
        {"enters a command", enters_a_command, true},
        {"presses a key in the console", presses_a_key_in_the_console, true},
        {"clicks into the console", clicks_into_the_console},
        {"pastes into the console", pastes_into_the_console},
        {"drops text onto the console", drops_text_onto_the_console},
        {"opens the menu of a page", opens_the_menu_of_a_page, true},
        {"selects output", selects_output},
        {"goes to another page", goes_to_another_page},
        {"clicks a button of the mode", clicks_a_button_of_the_mode, true},
        {"chooses from a menu", chooses_from_a_menu, true},
        {"chooses any action", chooses_any_action, true},
        {"clicks a button of a toolbar", clicks_a_button_of_a_toolbar, true},
        {"presses a key in the window", presses_a_key_in_the_window},
        {"types ahead", types_ahead},
        {"resizes the window", resizes_the_window},
        {"minimizes or restores the window", minimizes_or_restores_the_window},
        {"closes the window", closes_the_window, true},
        {"shows the window", shows_the_window},
        {"cancels work", cancels_work},
        {"uses the plugin tool", uses_the_plugin_tool, true},
        {"opens or closes the editor", opens_or_closes_the_editor, true},
        {"writes a journal", writes_a_journal},
        {"presses a key in a journal", presses_a_key_in_a_journal, true},
        {"opens the menu of a journal", opens_the_menu_of_a_journal, true},
        {"chooses in the editor", chooses_in_the_editor, true},
        {"goes to another journal", goes_to_another_journal},
        {"closes a journal", closes_a_journal, true},
    };
    return acts;
}
