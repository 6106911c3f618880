// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "answers.h"

#include "Monkey.h"
#include "options/OptionsPanel.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPointer>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

/** The buttons that a user could click. */
QList<QAbstractButton*> buttons_of(const QWidget* dialog)
{
    QList<QAbstractButton*> buttons = dialog->findChildren<QAbstractButton*>();
    buttons.removeIf(
        [](const QAbstractButton* button) { return !button->isVisible() || !button->isEnabled(); });
    return buttons;
}

void answer_menu(Monkey& monkey, QMenu* menu)
{
    QList<QAction*> choices = menu->actions();
    choices.removeIf([](const QAction* action) {
        return action->isSeparator() || !action->isEnabled() || action->menu();
    });
    QAction* const choice = monkey.one_in(3) ? nullptr : monkey.one_of(choices);
    if (!choice) {
        menu->close();
        return;
    }
    monkey.note(choice->text());
    menu->setActiveAction(choice);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &press);
}

void answer_file_dialog(Monkey& monkey, QFileDialog* dialog)
{
    if (monkey.one_in(3)) {
        dialog->reject();
        return;
    }
    dialog->findChild<QListView*>(u"listView"_s)->clearSelection();
    dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(monkey.file_name());
    QMetaObject::invokeMethod(dialog, "accept");
}

/** Goes to a page and changes a row of a list there, if there is one: that of the toolbars and docks. */
void look_at_options(Monkey& monkey, QWidget* dialog)
{
    const QPointer<QWidget> open = dialog;
    auto* const tree = dialog->findChild<QTreeWidget*>();
    if (QTreeWidgetItem* const item = tree->topLevelItem(monkey.below(tree->topLevelItemCount() + 1)))
        tree->setCurrentItem(item);
    if (!open)
        return;
    for (auto* const list : dialog->findChildren<QAbstractItemView*>()) {
        if (list == tree || !list->isVisible() || !list->model())
            continue;
        const QModelIndex row = list->model()->index(monkey.below(list->model()->rowCount() + 1), 0);
        if (row.flags().testFlag(Qt::ItemIsUserCheckable))
            list->model()->setData(row, Qt::Checked, Qt::CheckStateRole);
        return;
    }
}

} // namespace

void answer(Monkey& monkey, QWidget* dialog)
{
    if (auto* const menu = qobject_cast<QMenu*>(dialog)) {
        answer_menu(monkey, menu);
        return;
    }
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
        answer_file_dialog(monkey, files);
        return;
    }
    const QPointer<QWidget> open = dialog;
    if (qobject_cast<OptionsPanel*>(dialog))
        look_at_options(monkey, dialog);
    if (!open)
        return;
    if (auto* const field = dialog->findChild<QLineEdit*>(); field && field->isVisible())
        field->setText(u"own"_s);
    QAbstractButton* const button = open ? monkey.one_of(buttons_of(dialog)) : nullptr;
    if (button)
        button->click();
    else if (open)
        dialog->close();
}

void dismiss(QWidget* dialog)
{
    const QPointer<QWidget> open = dialog;
    if (auto* const with_result = qobject_cast<QDialog*>(dialog))
        with_result->done(QDialog::Rejected);
    else
        dialog->close();
    if (open && open->isVisible())
        open->hide();
}
