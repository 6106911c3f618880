// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/insert_command/InsertCommandDialog.h"

#include "ui_InsertCommandDialog.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace fennar::insert_command {

namespace {

constexpr int name_role = Qt::UserRole;
constexpr int help_role = Qt::UserRole + 1;

} // namespace

InsertCommandDialog::InsertCommandDialog(const CommandRegistry& registry, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::InsertCommandDialog>())
{
    ui->setupUi(this);
    ui->mButtons->button(QDialogButtonBox::Ok)->setText(tr("&Insert"));

    mCommands.setHorizontalHeaderLabels({tr("Command"), tr("Summary")});
    for (const QString& name : registry.names()) {
        const std::shared_ptr<const Command> command = registry.find(name);
        auto* usage = new QStandardItem(command->usage());
        usage->setData(name, name_role);
        usage->setData(command->help, help_role);
        mCommands.appendRow({usage, new QStandardItem(command->translated_summary())});
    }
    mShown.setSourceModel(&mCommands);
    mShown.setFilterKeyColumn(-1);
    mShown.setFilterCaseSensitivity(Qt::CaseInsensitive);
    ui->mCommands->setModel(&mShown);
    ui->mCommands->resizeColumnToContents(0);

    ui->mFilter->installEventFilter(this);
    connect(ui->mFilter, &QLineEdit::textChanged, this, &InsertCommandDialog::filter);
    connect(ui->mCommands->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &InsertCommandDialog::show_selected);
    filter({});
    ui->mFilter->setFocus();
}

InsertCommandDialog::~InsertCommandDialog() = default;

QString InsertCommandDialog::name() const
{
    return selected(name_role);
}

QString InsertCommandDialog::usage() const
{
    return selected(Qt::DisplayRole);
}

bool InsertCommandDialog::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp && key != Qt::Key_PageDown)
        return false;
    QCoreApplication::sendEvent(ui->mCommands, event);
    return true;
}

void InsertCommandDialog::filter(const QString& text)
{
    mShown.setFilterFixedString(text);
    ui->mCommands->setCurrentIndex(mShown.index(0, 0));
    show_selected();
}

void InsertCommandDialog::show_selected()
{
    ui->mHelp->setPlainText(selected(help_role));
    ui->mButtons->button(QDialogButtonBox::Ok)->setEnabled(!name().isEmpty());
}

QString InsertCommandDialog::selected(int role) const
{
    return ui->mCommands->currentIndex().siblingAtColumn(0).data(role).toString();
}

} // namespace fennar::insert_command
