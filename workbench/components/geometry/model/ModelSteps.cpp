// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/ModelSteps.h"

#include <QScopeGuard>

#include <utility>

namespace {

qint64 memory_of(const QString& text)
{
    return text.size() * qint64(sizeof(QChar));
}

/** What only the steps keep: the other side's shapes and mesh are in the model or in the next step. */
qint64 memory_of(const GeometryModel::Part& kept, const GeometryModel::Part& other)
{
    qint64 bytes = sizeof(ModelSteps::Step);
    for (const auto& [id, solid] : kept.solids) {
        const auto& twin = other.solids.at(id);
        if (!solid)
            continue;
        bytes += memory_of(solid->name);
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

qint64 memory_of(const ModelSteps::Step& step, bool done)
{
    return memory_of(step.command) +
           (done ? memory_of(step.before, step.after) : memory_of(step.after, step.before));
}

} // namespace

ModelSteps::ModelSteps(GeometryModel& model) : mModel(model), mNow(model.part(model.ids()))
{
    connect(&model, &GeometryModel::solid_changed, this, [this](int id) {
        if (!mMoving)
            mTouched.insert(id);
    });
    connect(&model, &GeometryModel::replaced, this, &ModelSteps::clear);
}

void ModelSteps::clear()
{
    mSteps.clear();
    mDone = 0;
    mMemory = 0;
    mTouched.clear();
    mNow = mModel.part(mModel.ids());
    emit changed();
}

void ModelSteps::commit(const QString& command)
{
    Step step{command, mJournal ? mJournal() : 0, {}, {}};
    step.after = mModel.part(mTouched.values());
    step.before = {{}, mNow.last_id, mNow.mesh, mNow.revision, mNow.state};
    mTouched.clear();
    for (const auto& [id, solid] : step.after.solids) {
        const auto found = mNow.solids.find(id);
        step.before.solids.emplace(id, found == mNow.solids.end() ? std::nullopt : found->second);
    }
    if (step.after.state == step.before.state)
        return;
    for (; mSteps.size() > mDone; mSteps.pop_back())
        mMemory -= memory_of(mSteps.back(), false);
    for (const auto& [id, solid] : step.after.solids) {
        if (solid)
            mNow.solids.insert_or_assign(id, solid);
        else
            mNow.solids.erase(id);
    }
    mNow.last_id = step.after.last_id;
    mNow.mesh = step.after.mesh;
    mNow.revision = step.after.revision;
    mNow.state = step.after.state;
    mMemory += memory_of(step, true);
    mSteps.push_back(std::move(step));
    ++mDone;
    drop_surplus();
    emit changed();
}

std::size_t ModelSteps::undo(bool single)
{
    return move(true, single);
}

std::size_t ModelSteps::redo(bool single)
{
    return move(false, single);
}

std::size_t ModelSteps::move(bool back, bool single)
{
    if (mModel.state() != mNow.state) // what no command has changed
        commit({});
    const auto next = [&]() -> const Step* {
        if (back ? !can_undo() : !can_redo())
            return nullptr;
        return &mSteps[back ? mDone - 1 : mDone];
    };
    const Step* step = next();
    if (!step)
        return 0;
    // A journal that takes something back itself means its last command.
    const int journal = step->journal;
    const bool whole = !single && journal != 0 && journal != (mJournal ? mJournal() : 0);
    const auto end = qScopeGuard([this] { mMoving = false; });
    mMoving = true;
    std::size_t count = 0;
    do {
        mMemory -= memory_of(*step, back);
        mMemory += memory_of(*step, !back);
        mDone = back ? mDone - 1 : mDone + 1;
        ++count;
        mModel.restore(back ? step->before : step->after);
        step = next();
    } while (whole && step && step->journal == journal);
    mNow = mModel.part(mModel.ids());
    drop_surplus();
    emit changed();
    return count;
}

void ModelSteps::set_limit(qint64 bytes)
{
    mLimit = bytes;
    drop_surplus();
    emit changed();
}

void ModelSteps::drop_surplus()
{
    while (mMemory > mLimit && !mSteps.empty()) {
        // The oldest that is done, or the last that was undone.
        const bool done = mDone > 0;
        const auto farthest = done ? mSteps.begin() : std::prev(mSteps.end());
        mMemory -= memory_of(*farthest, done);
        mSteps.erase(farthest);
        mDone -= done ? 1 : 0;
    }
}
