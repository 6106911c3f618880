// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "flows.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void key(const QPointer<CommandWidget>& page, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    if (page)
        QTest::keyClick(page.data(), key, modifiers);
}

void open_context_menu(QWidget* widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(widget, &event);
}

// What the framework has to say goes to the console, if there is one.
template <class Say>
void say(Stage& stage, Say&& words)
{
    if (OutputHandler* output = stage.console())
        words(*output);
}

} // namespace

std::span<const Flow> console_flows()
{
    static const Flow flows[] = {
        {"a line typed",
         [](Stage& stage) {
             key(stage.page, Qt::Key_L);
             key(stage.page, Qt::Key_Up);
             key(stage.page, Qt::Key_Down);
             key(stage.page, Qt::Key_Return);
         }},
        {"lines pasted",
         [](Stage& stage) {
             QGuiApplication::clipboard()->setText(u"one\ntwo\nthree"_s);
             key(stage.page, Qt::Key_V, Qt::ControlModifier);
         }},
        {"context menu of a page",
         [](Stage& stage) {
             if (stage.page)
                 open_context_menu(stage.page->viewport());
         }},
        {"output",
         [](Stage& stage) {
             say(stage, [](OutputHandler& output) { output.print_data(u"a line\n"_s); });
             say(stage, [](OutputHandler& output) { output.print_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.append_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.insert_command(u"list"_s); });
             say(stage, [](OutputHandler& output) { output.set_read_only(true); });
             say(stage, [](OutputHandler& output) { output.set_read_only(false); });
             say(stage, [](OutputHandler& output) { output.print_prompt(false, nullptr); });
         }},
        {"console cleared",
         [](Stage& stage) {
             if (stage.console())
                 stage.console()->clear_contents();
         }},
        {"mode buttons",
         [](Stage& stage) {
             for (const QString& mode : {u"mPythonAction"_s, u"mFennarAction"_s}) {
                 if (stage.console())
                     stage.console()->findChild<QAction*>(mode)->trigger();
             }
         }},
    };
    return flows;
}
