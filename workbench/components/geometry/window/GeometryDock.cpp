// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/GeometryDock.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QMenu>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

constexpr int id_role = Qt::UserRole;

/** The kinds of elements in the words of the engine, with their numbers of nodes. Others stand as it says
 * them. */
[[maybe_unused]] constexpr const char* element_kinds[] = {
    QT_TRANSLATE_NOOP("MeshElements", "Point"),         QT_TRANSLATE_NOOP("MeshElements", "Line 2"),
    QT_TRANSLATE_NOOP("MeshElements", "Triangle 3"),    QT_TRANSLATE_NOOP("MeshElements", "Quadrilateral 4"),
    QT_TRANSLATE_NOOP("MeshElements", "Tetrahedron 4"), QT_TRANSLATE_NOOP("MeshElements", "Hexahedron 8"),
    QT_TRANSLATE_NOOP("MeshElements", "Prism 6"),       QT_TRANSLATE_NOOP("MeshElements", "Pyramid 5"),
};

QTreeWidgetItem* make_branch(QTreeWidget* tree, const QString& text)
{
    auto* item = new QTreeWidgetItem(tree, {text});
    item->setFlags(Qt::ItemIsEnabled);
    item->setExpanded(true);
    return item;
}

} // namespace

GeometryDock::GeometryDock(const GeometryModel& model, QWidget* parent)
    : QDockWidget(parent),
      mModel(model),
      mTree(new QTreeWidget(this)),
      mSolids(make_branch(mTree, tr("Solids"))),
      mMesh(make_branch(mTree, tr("Mesh"))),
      mMenu(new QMenu(this))
{
    setObjectName(u"GeometryModelDock"_s);
    setWindowTitle(tr("Model"));
    mTree->setObjectName(u"GeometryModelTree"_s);
    mTree->setAccessibleName(tr("Model"));
    mTree->setHeaderLabels({tr("Name"), tr("Volume")});
    mTree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mTree->setUniformRowHeights(true);
    mTree->setContextMenuPolicy(Qt::CustomContextMenu);
    // Names take the room that numbers leave.
    mTree->header()->setStretchLastSection(false);
    mTree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    mTree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    setWidget(mTree);
    mMenu->setObjectName(u"GeometryModelMenu"_s);

    connect(mTree, &QTreeWidget::itemSelectionChanged, this, &GeometryDock::selection_changed);
    connect(mTree, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& point) { mMenu->popup(mTree->viewport()->mapToGlobal(point)); });

    mSend.setSingleShot(true);
    connect(mTree, &QTreeWidget::itemSelectionChanged, &mSend, qOverload<>(&QTimer::start));
    connect(&mSend, &QTimer::timeout, this, &GeometryDock::send_selection);
    connect(&Scene::instance(), &Scene::selection_changed, this, &GeometryDock::take_selection);

    mUpdate.setSingleShot(true);
    connect(&mUpdate, &QTimer::timeout, this, &GeometryDock::update_tree);
    connect(&model, &GeometryModel::solid_changed, this, &GeometryDock::mark);
    connect(&model, &GeometryModel::mesh_changed, this, [this] {
        mMeshChanged = true;
        mUpdate.start();
    });
    const QList<int> ids = model.ids();
    mChanged.insert(ids.begin(), ids.end());
    update_tree();
}

QStringList GeometryDock::selection() const
{
    QStringList names;
    for (int i = 0; i < mSolids->childCount(); ++i) {
        const QTreeWidgetItem* item = mSolids->child(i);
        // The tree may not have caught up yet.
        if (const auto solid =
                item->isSelected() ? mModel.solid(item->data(0, id_role).toInt()) : std::nullopt)
            names << solid->name;
    }
    return names;
}

void GeometryDock::mark(int id)
{
    mChanged.insert(id);
    mUpdate.start();
}

void GeometryDock::update_tree()
{
    mTree->setUpdatesEnabled(false);
    for (const int id : std::exchange(mChanged, {}))
        update_solid(id);
    mSolids->setText(1, u"(%1)"_s.arg(mItems.size()));
    update_mesh();
    take_selection();
    mTree->setUpdatesEnabled(true);
}

/** Has what is selected in the tree selected everywhere. */
void GeometryDock::send_selection()
{
    const QStringList names = selection();
    if (names != Scene::instance().selection())
        send_command(u"select "_s + (names.isEmpty() ? u"none"_s : names.join(u' ')));
}

/** Selects in the tree what is selected in the scene. */
void GeometryDock::take_selection()
{
    if (mSend.isActive())
        return; // the user's choice is on its way
    const QStringList names = Scene::instance().selection();
    if (names == selection())
        return;
    {
        const QSignalBlocker blocker(mTree);
        for (QTreeWidgetItem* item : std::as_const(mItems)) {
            const auto solid = mModel.solid(item->data(0, id_role).toInt());
            item->setSelected(solid && names.contains(solid->name));
        }
    }
    emit selection_changed();
}

void GeometryDock::update_solid(int id)
{
    const auto solid = mModel.solid(id);
    if (!solid) {
        delete mItems.take(id);
        return;
    }
    QTreeWidgetItem*& item = mItems[id];
    if (!item) {
        item = new QTreeWidgetItem;
        item->setData(0, id_role, id);
        // The oldest first. A new solid belongs last, those of a model just opened anywhere.
        int place = mSolids->childCount();
        while (place > 0 && mSolids->child(place - 1)->data(0, id_role).toInt() > id)
            --place;
        mSolids->insertChild(place, item);
    }
    item->setText(0, solid->name);
    try {
        item->setText(1, QString::number(mModel.measures(id).volume, 'g', 6));
    } catch (const GeometryError& error) {
        item->setText(1, u"?"_s);
        item->setToolTip(1, error.message());
    }
}

void GeometryDock::update_mesh()
{
    const std::shared_ptr<const Mesh> mesh = mModel.mesh();
    mMesh->setText(1, !mesh ? tr("none") : mModel.is_mesh_old() ? tr("of an earlier model") : QString());
    if (!std::exchange(mMeshChanged, false))
        return;
    qDeleteAll(mMesh->takeChildren());
    if (!mesh)
        return;
    const auto add = [this](const QString& text, qint64 count) {
        auto* item = new QTreeWidgetItem(mMesh, {text, QString::number(count)});
        item->setFlags(Qt::ItemIsEnabled);
    };
    add(tr("Nodes"), mesh->nodes);
    for (const Mesh::Elements& elements : mesh->elements)
        add(QCoreApplication::translate("MeshElements", elements.kind.toUtf8().constData()), elements.count);
}

} // namespace fennar::geometry
