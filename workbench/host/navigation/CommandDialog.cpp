// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/CommandDialog.h"

#include "workbench/host/navigation/CommandForm.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace fennar {

CommandDialog::CommandDialog(const QString& command, const QString& title, QWidget* parent) : QDialog(parent)
{
    setObjectName(u"commandDialog_"_s + command);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* form = new CommandForm(this, buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(form);
    layout->addStretch();
    connect(form, &CommandForm::applying, this, &QDialog::accept);
    connect(form, &CommandForm::left, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->set_command(command);
    form->focus_first();
}

} // namespace fennar
