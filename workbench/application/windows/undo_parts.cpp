// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/undo_parts.h"

#include "frame/Ostrel.h"
#include "ui_UndoOptions.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/UndoSteps.h"

#include <QAction>
#include <QCoreApplication>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

constexpr auto memory_key = "/fennar/undo/memory"_L1;
constexpr int most_memory = 65536; // as the form has it
constexpr double mebibyte = 1 << 20;

OptionsPage make_page(UndoSteps& steps)
{
    auto* page = new QWidget;
    const auto form = std::make_shared<Ui::UndoOptions>();
    form->setupUi(page);
    return {page,
            [form, &steps] {
                form->memory->setValue(int(steps.limit() >> 20));
                form->used->setText(QCoreApplication::translate("UndoOptions", "%1 MiB, steps: %2")
                                        .arg(double(steps.memory()) / mebibyte, 0, 'f', 1)
                                        .arg(steps.steps().size()));
            },
            [form, &steps] {
                QSettings().setValue(memory_key, form->memory->value());
                read_undo_limit(steps);
            }};
}

/** An action that sends the command of its name. */
QAction* make_action(ComponentContext& context, const QString& command, const QString& text,
                     const QKeySequence& key, const QString& disabled_reason)
{
    QAction* const action = context.make_command_action(text, command, CommandUse::Run);
    action->setObjectName(u"fennar_"_s + command);
    // Fields for text take these keys before the window does.
    action->setShortcut(key);
    set_disabled_reason(action, disabled_reason);
    return action;
}

void add_edit_menu(ComponentContext& context, const UndoSteps& steps)
{
    QAction* const undo = make_action(
        context, u"undo"_s, QCoreApplication::translate("UndoOptions", "&Undo"), Qt::CTRL | Qt::Key_Z,
        QCoreApplication::translate("UndoOptions", "There is nothing to undo."));
    QAction* const redo =
        make_action(context, u"redo"_s, QCoreApplication::translate("UndoOptions", "&Redo"),
                    Qt::CTRL | Qt::SHIFT | Qt::Key_Z,
                    QCoreApplication::translate("UndoOptions", "There is nothing to redo."));
    const auto update = [undo, redo, &steps] {
        undo->setEnabled(steps.can_undo());
        redo->setEnabled(steps.can_redo());
    };
    // Undo goes last, as what the context makes goes in reverse order: redo takes the connection along.
    QObject::connect(&steps, &UndoSteps::changed, redo, update);
    update();
    // The shell puts the menu of this title behind the file menu.
    context.add_to_menu(Ostrel::tr("&Edit"), {undo, redo});
}

} // namespace

void read_undo_limit(UndoSteps& steps)
{
    const QVariant chosen = QSettings().value(memory_key);
    bool ok = false;
    const int memory = chosen.toInt(&ok);
    steps.set_limit(ok && memory >= 0 && memory <= most_memory ? qint64(memory) << 20
                                                               : UndoSteps::usual_limit);
}

void add_undo_parts(ComponentContext& context, UndoSteps& steps)
{
    read_undo_limit(steps);
    add_edit_menu(context, steps);
    context.add_options_page(QCoreApplication::translate("UndoOptions", "Undo"),
                             [&steps] { return make_page(steps); });
}

} // namespace fennar
