// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component with dialogs and commands that are open and running when the program ends.

#include "frame/Ostrel.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QCoreApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

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

void load()
{
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add({u"open-dialog"_s, u"open-dialog"_s, {}, {}, u"lasting"_s, &open_dialog});
    registry.add({u"open-modal"_s, u"open-modal"_s, {}, {}, u"lasting"_s, &open_modal});
    registry.add({u"run-on"_s, u"run-on"_s, {}, {}, u"lasting"_s, &run_on});
}

void unload()
{
    delete dialog;
    Fennar::instance().registry().remove_owner(u"lasting"_s);
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "lasting", "1", &load, &unload};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
