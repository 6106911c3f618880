// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/ComponentTool.h"

#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "frame/InUse.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/Mediator.h"
#include "resources/load_icon.h"
#include "ui_QtComponentTool.h"

#include <vector>

using namespace Qt::StringLiterals;

QString ComponentTool::sLastPath;

struct ComponentTool::Form : Ui::QtComponentTool
{
    /**
     * Where the lists are between two showings. The framework may show and hide the dialog while it is asked
     * or told of anything.
     *
     * The events of showing and hiding do not tell: minimizing brings them as well, and newer versions of Qt
     * send one more of showing, which is not marked as the window system's, while the window is minimized.
     */
    enum class State { Empty, Loading, Loaded, HandingBack } state = State::Empty;
};

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

ComponentTool::ComponentTool(Ostrel* parent) : QDialog(parent), ui(std::make_unique<Form>())
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
    // There is no such picture: what is not loaded shows none (docs/surprises.md).
    show_state(name, "unloaded_ot.svg");
}

void ComponentTool::show_state(const char* name, const char* icon)
{
    if (!name)
        return;
    const QList<QListWidgetItem*> items =
        ui->mCompList->findItems(QString::fromUtf8(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!items.isEmpty())
        items.constFirst()->setData(Qt::DecorationRole, load_icon(icon));
}

void ComponentTool::add_location()
{
    const Alive alive(this);
    if (sLastPath.isEmpty())
        mediator().get_component_directory(sLastPath);
    if (!alive)
        return;
    const QString directory = ask_directory(this, tr("Select Folder"), sLastPath);
    if (directory.isEmpty())
        return;
    // A name without "/" stays whole.
    sLastPath = directory.left(directory.lastIndexOf(u'/'));
    if (!alive || ui->state != Form::State::Loaded)
        return;

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
    if (ui->state == Form::State::Empty)
        load();
}

void ComponentTool::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (isHidden() && ui->state == Form::State::Loaded)
        hand_back();
}

/** Fills the lists from the framework. */
void ComponentTool::load()
{
    // Qt goes on with a widget that it has shown or hidden.
    const InUse use(this);
    ui->state = Form::State::Loading;
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
    ui->state = Form::State::Loaded;
    if (isHidden())
        hand_back();
}

/** Empties the lists and gives the directories to the framework. */
void ComponentTool::hand_back()
{
    const InUse use(this);
    ui->state = Form::State::HandingBack;
    QStringList directories;
    for (int row = 0; row < ui->mPathList->count(); ++row)
        directories << ui->mPathList->item(row)->text();
    ui->mCompList->clear();
    ui->mPathList->clear();
    mediator().remove_component_tracker(this);
    mediator().set_component_path(directories.join(u';'));
    ui->state = Form::State::Empty;
    if (!isHidden())
        load();
}
