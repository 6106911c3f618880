// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/ModelChanges.h"

#include <utility>

namespace fennar::geometry {

namespace {

using Part = GeometryModel::Part;

/** What only the steps keep: the other side's shapes and mesh are in the model or in the next step. */
qint64 memory_of(const Part& kept, const Part& other)
{
    qint64 bytes = 2 * sizeof(Part);
    for (const auto& [id, solid] : kept.solids) {
        const auto& twin = other.solids.at(id);
        if (!solid)
            continue;
        bytes += solid->name.size() * qint64(sizeof(QChar));
        if (!(twin && twin->shape == solid->shape))
            bytes += solid->shape.memory();
    }
    if (kept.mesh && kept.mesh != other.mesh) {
        bytes += kept.mesh->msh.size();
        for (const QByteArray& surface : kept.mesh->surfaces)
            bytes += surface.size();
    }
    return bytes;
}

} // namespace

/** The changed solids, the mesh and the model's numbers, before and behind a step. */
class ModelChanges::PartChange : public UndoSteps::Change
{
public:
    PartChange(ModelChanges& changes, Part before, Part after)
        : mChanges(changes), mBefore(std::move(before)), mAfter(std::move(after))
    {}

    void undo() override { mChanges.restore(mBefore); }
    void redo() override { mChanges.restore(mAfter); }
    qint64 memory(bool done) const override
    {
        return done ? memory_of(mBefore, mAfter) : memory_of(mAfter, mBefore);
    }

private:
    ModelChanges& mChanges;
    const Part mBefore;
    const Part mAfter;
};

ModelChanges::ModelChanges(GeometryModel& model) : mModel(model), mNow(model.part(model.ids()))
{
    connect(&model, &GeometryModel::solid_changed, this, [this](int id) { mTouched.insert(id); });
    connect(&model, &GeometryModel::replaced, this, &ModelChanges::start_anew);
}

void ModelChanges::start_anew()
{
    mTouched.clear();
    mNow = mModel.part(mModel.ids());
}

std::unique_ptr<UndoSteps::Change> ModelChanges::take()
{
    Part after = mModel.part(mTouched.values());
    Part before{{}, mNow.last_id, mNow.mesh, mNow.revision, mNow.state};
    mTouched.clear();
    for (const auto& [id, solid] : after.solids) {
        const auto found = mNow.solids.find(id);
        before.solids.emplace(id, found == mNow.solids.end() ? std::nullopt : found->second);
    }
    if (after.state == before.state)
        return nullptr;
    for (const auto& [id, solid] : after.solids) {
        if (solid)
            mNow.solids.insert_or_assign(id, solid);
        else
            mNow.solids.erase(id);
    }
    mNow.last_id = after.last_id;
    mNow.mesh = after.mesh;
    mNow.revision = after.revision;
    mNow.state = after.state;
    return std::make_unique<PartChange>(*this, std::move(before), std::move(after));
}

void ModelChanges::restore(const Part& part)
{
    mModel.restore(part);
    start_anew();
}

} // namespace fennar::geometry
