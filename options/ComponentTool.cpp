// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/ComponentTool.h"

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/Mediator.h"
#include "resources/load_icon.h"
#include "ui_QtComponentTool.h"

#include <QFileDialog>
#include <QHideEvent>
#include <QShowEvent>

#include <vector>

using namespace Qt::StringLiterals;

QString ComponentTool::sLastPath;

namespace {

Mediator& mediator()
{
    return *Broker::instance();
}

void move_current(QListWidget* list, int rows)
{
    const int row = list->currentRow();
    const int target = row + rows;
    if (row < 0 || target < 0 || target >= list->count())
        return;
    QListWidgetItem* item = list->takeItem(row);
    list->insertItem(target, item);
    list->setCurrentItem(item);
}

} // namespace

ComponentTool::ComponentTool(Ostrel* parent) : QDialog(parent), ui(std::make_unique<Ui::QtComponentTool>())
{
    ui->setupUi(this);
    connect(ui->mAddButton, &QPushButton::clicked, this, &ComponentTool::add_location);
    connect(ui->mRemoveButton, &QPushButton::clicked, this, &ComponentTool::remove_location);
    connect(ui->mMoveUpButton, &QPushButton::clicked, this, &ComponentTool::move_up);
    connect(ui->mMoveDownButton, &QPushButton::clicked, this, &ComponentTool::move_down);
    connect(ui->mCloseButton, &QPushButton::clicked, this, &ComponentTool::close);
    connect(ui->mPathList, &QListWidget::currentItemChanged, this, &ComponentTool::update_buttons);
}

ComponentTool::~ComponentTool()
{
    // The base would hide an open dialog without a word to the framework, which would call a dead tracker.
    hide();
}

void ComponentTool::component_loading(const char* name)
{
    show_state(name, "loading_ot.svg");
}

void ComponentTool::component_loaded(const char* name)
{
    show_state(name, "loaded_ot.svg");
}

void ComponentTool::component_unloading(const char* name)
{
    show_state(name, "unloading_ot.svg");
}

void ComponentTool::component_unloaded(const char* name)
{
    // There is no such picture, which is intended: what is not loaded shows none.
    show_state(name, "unloaded_ot.svg");
}

void ComponentTool::show_state(const char* name, const char* icon)
{
    const QList<QListWidgetItem*> items =
        ui->mCompList->findItems(QString::fromUtf8(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!items.isEmpty())
        items.constFirst()->setData(Qt::DecorationRole, load_icon(icon));
}

void ComponentTool::add_location()
{
    if (sLastPath.isEmpty())
        mediator().get_component_directory(sLastPath);
    const QString directory =
        QFileDialog::getExistingDirectory(this, tr("Select Folder"), sLastPath, QFileDialog::ShowDirsOnly);
    if (directory.isEmpty())
        return;
    // A name without "/" stays whole.
    sLastPath = directory.left(directory.lastIndexOf(u'/'));

    QListWidget* list = ui->mPathList;
    const QList<QListWidgetItem*> known =
        list->findItems(directory, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (known.isEmpty())
        list->addItem(directory);
    list->setCurrentItem(known.isEmpty() ? list->item(list->count() - 1) : known.constFirst());
}

void ComponentTool::remove_location()
{
    delete ui->mPathList->currentItem();
    // The list has told of its new current item before the row was gone.
    update_buttons(ui->mPathList->currentItem(), nullptr);
}

void ComponentTool::move_up()
{
    move_current(ui->mPathList, -1);
}

void ComponentTool::move_down()
{
    move_current(ui->mPathList, 1);
}

void ComponentTool::update_buttons(QListWidgetItem* current, QListWidgetItem* /*previous*/)
{
    const int row = ui->mPathList->row(current);
    ui->mRemoveButton->setEnabled(current);
    ui->mMoveUpButton->setEnabled(current && row >= 1);
    ui->mMoveDownButton->setEnabled(current && row < ui->mPathList->count() - 1);
}

void ComponentTool::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // The window system tells of minimizing as well; the dialog stays open then.
    if (event->spontaneous())
        return;

    std::vector<ComponentRecord> components;
    mediator().get_components(components);
    for (const ComponentRecord& component : components) {
        const QString icon = (component.state + "_ot.svg"_L1).toLower();
        ui->mCompList->addItem(new QListWidgetItem(load_icon(icon.toUtf8().constData()), component.name));
    }
    mediator().add_component_tracker(this);

    QString path;
    mediator().get_component_path(path);
    ui->mPathList->addItems(path.split(u';', Qt::SkipEmptyParts, Qt::CaseSensitive));
    if (ui->mPathList->count() > 0)
        ui->mPathList->setCurrentRow(0);
    // The current item need not have changed.
    update_buttons(ui->mPathList->item(0), nullptr);
}

void ComponentTool::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (event->spontaneous())
        return;

    mediator().remove_component_tracker(this);
    QStringList directories;
    for (int row = 0; row < ui->mPathList->count(); ++row)
        directories << ui->mPathList->item(row)->text();
    mediator().set_component_path(directories.join(u';'));
    ui->mCompList->clear();
    ui->mPathList->clear();
}
