// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/scene/Scene.h"

namespace fennar {

Scene& Scene::instance()
{
    static Scene scene;
    return scene;
}

int Scene::add(const QString& name)
{
    const int id = ++mLastId;
    mItems[id] = Item{id, name, nullptr, nullptr, false};
    emit item_changed(id);
    return id;
}

void Scene::remove(int id)
{
    const auto found = mItems.find(id);
    if (found == mItems.end())
        return;
    const bool selected = found->second.selected;
    mItems.erase(found);
    emit item_changed(id);
    if (selected)
        emit selection_changed();
}

template <typename Value>
void Scene::set(int id, Value Item::*part, const Value& value)
{
    const auto found = mItems.find(id);
    if (found == mItems.end() || found->second.*part == value)
        return;
    found->second.*part = value;
    emit item_changed(id);
}

void Scene::set_name(int id, const QString& name)
{
    set(id, &Item::name, name);
}

void Scene::set_shape(int id, const std::shared_ptr<const SceneShape>& shape)
{
    set(id, &Item::shape, shape);
}

void Scene::set_mesh(int id, const std::shared_ptr<const SceneShape>& mesh)
{
    set(id, &Item::mesh, mesh);
}

int Scene::find(const QString& name) const
{
    const auto found = std::find_if(mItems.begin(), mItems.end(),
                                    [&name](const auto& item) { return item.second.name == name; });
    return found == mItems.end() ? 0 : found->first;
}

Box3 Scene::box() const
{
    Box3 box;
    for (const auto& [id, item] : mItems) {
        if (item.shape)
            box.add(item.shape->box);
    }
    return box;
}

void Scene::select(const QList<int>& ids)
{
    bool changed = false;
    for (auto& [id, item] : mItems) {
        const bool selected = ids.contains(id);
        changed |= item.selected != selected;
        item.selected = selected;
    }
    if (changed)
        emit selection_changed();
}

QStringList Scene::selection() const
{
    QStringList names;
    for (const auto& [id, item] : mItems) {
        if (item.selected)
            names << item.name;
    }
    return names;
}

void Scene::add_viewer()
{
    if (++mViewers == 1)
        emit viewers_changed();
}

void Scene::remove_viewer()
{
    if (mViewers > 0 && --mViewers == 0)
        emit viewers_changed();
}

} // namespace fennar
