// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component with dialogs and commands that are open and running when the program ends.

#include "frame/Ostrel.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QCoreApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

QPointer<QDialog> dialog;

QDialog* make_dialog()
{
    dialog = new QDialog(Ostrel::instance());
    dialog->setObjectName(u"lastingDialog"_s);
    return dialog;
}

void open_dialog(CommandCall&)
{
    make_dialog()->show();
}

/** Opens a dialog that holds the event loop, and ends the program from it. */
void open_modal(CommandCall&)
{
    QTimer::singleShot(0, Ostrel::instance(), [] {
        QPointer<QDialog> own = make_dialog();
        QTimer::singleShot(0, own, [] { Fennar::instance().interpreter().run(u"quit"_s); });
        own->exec();
        delete own;
    });
}

/** Runs until the user, who closes the window, does not want it any more. */
void run_on(CommandCall& call)
{
    QTimer::singleShot(0, Ostrel::instance(), &QWidget::close);
    while (!call.interrupted())
        QCoreApplication::processEvents();
    throw call.error(0, u"interrupted"_s);
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    const auto add = [&context](const QString& name, void (*run)(CommandCall&)) {
        context.add_command(plain_command(name, {}, run));
    };
    add(u"open-dialog"_s, &open_dialog);
    add(u"open-modal"_s, &open_modal);
    add(u"run-on"_s, &run_on);
    context.on_end([] { delete dialog; });
}
