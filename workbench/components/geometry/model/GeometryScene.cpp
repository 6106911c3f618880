// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GeometryScene.h"

#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/mesh_shape.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** For how long, in milliseconds, shapes are copied at a time: nobody must feel it. */
constexpr qint64 copy_time = 15;

} // namespace

GeometryScene::GeometryScene(const GeometryModel& model, Scene& scene,
                             std::function<Tessellation(const Shape& shape)> prepare)
    : mModel(model), mScene(scene), mPrepare(std::move(prepare))
{
    setObjectName(u"GeometryScene"_s);
    connect(&model, &GeometryModel::solid_changed, this, &GeometryScene::update_solid);
    connect(&model, &GeometryModel::mesh_changed, this, &GeometryScene::update_mesh);
    connect(&scene, &Scene::viewers_changed, this, &GeometryScene::go_on);
    const QList<int> ids = model.ids();
    for (const int id : ids)
        update_solid(id);
    update_mesh();
}

GeometryScene::~GeometryScene()
{
    mStop = true;
    if (mThread)
        mThread->wait();
    tell_whether_awaited(false);
    for (const auto& [id, entry] : mEntries)
        mScene.remove(entry.item);
}

void GeometryScene::update_solid(int id)
{
    const auto solid = mModel.solid(id);
    const auto found = mEntries.find(id);
    if (!solid) {
        if (found != mEntries.end()) {
            const int item = found->second.item;
            mEntries.erase(found);
            mWaiting.erase(id);
            mScene.remove(item);
            // Perhaps it was the last that was waited for.
            go_on();
            end_if_done();
        }
        return;
    }
    const Shape shape = mModel.shape(id);
    Entry& entry = mEntries[id];
    if (entry.item == 0)
        entry.item = mScene.add(solid->name);
    mScene.set_name(entry.item, solid->name);
    if (entry.shape == shape) // it has only got another name
        return;
    entry.shape = shape;
    ++entry.version;
    mScene.set_mesh(entry.item, nullptr);
    mWaiting.insert(id);
    go_on();
}

void GeometryScene::update_mesh()
{
    const auto mesh = mModel.mesh();
    // Solids that have changed have lost theirs: what is left of the same mesh still fits.
    if (std::exchange(mMesh, mesh) != mesh) {
        mMeshed.clear();
        for (const auto& [id, entry] : mEntries)
            mScene.set_mesh(entry.item, nullptr);
    }
    // Which solids an older one fits is not known.
    if (mesh && mesh->revision == mModel.revision()) {
        mMeshed.clear();
        for (qsizetype i = 0; i < std::min(mesh->solids.size(), mesh->surfaces.size()); ++i) {
            const auto solid = mModel.find(mesh->solids[i]);
            if (const auto found = mEntries.find(solid ? solid->id : 0); found != mEntries.end())
                mMeshed.push_back({found->first, found->second.version, i});
        }
    }
    go_on();
}

void GeometryScene::go_on()
{
    if (mScene.has_viewers() && !mThread && is_busy())
        start();
    tell_whether_awaited(mScene.has_viewers() && is_busy());
}

void GeometryScene::tell_whether_awaited(bool awaited)
{
    if (std::exchange(mAwaited, awaited) == awaited)
        return;
    if (awaited)
        mScene.begin_work();
    else
        mScene.end_work();
}

/** Begins with what waits; what comes meanwhile waits for the next time. */
void GeometryScene::start()
{
    mThread.reset(QThread::create([solids = work_on_solids(), mesh = work_on_mesh()] {
        solids();
        mesh();
    }));
    connect(mThread.get(), &QThread::finished, this, [this] {
        mThread->wait();
        mThread.release()->deleteLater(); // it is the sender
        go_on();
        end_if_done();
    });
    mThread->start();
}

std::function<void()> GeometryScene::work_on_solids()
{
    struct Job
    {
        int id;
        int version;
        Tessellation tessellate;
    };
    std::vector<Job> jobs;
    QElapsedTimer time;
    time.start();
    while (!mWaiting.empty()) {
        const int id = mWaiting.extract(mWaiting.begin()).value();
        jobs.push_back({id, mEntries.at(id).version, [](const std::atomic<bool>&) { return nullptr; }});
        try {
            jobs.back().tessellate = mPrepare(mModel.shape(id));
        } catch (const GeometryError&) {
            // It has no shape then.
        }
        if (time.elapsed() > copy_time)
            break;
    }
    return [this, jobs] {
        for (const Job& job : jobs) {
            const auto shape = job.tessellate(mStop);
            if (mStop)
                return;
            const auto take = [this, id = job.id, version = job.version, shape] {
                const auto found = mEntries.find(id);
                // One that has changed meanwhile gets its present shape next.
                if (found != mEntries.end() && found->second.version == version)
                    mScene.set_shape(found->second.item, shape);
            };
            QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
        }
    };
}

std::function<void()> GeometryScene::work_on_mesh()
{
    if (mMeshed.empty())
        return [] {};
    return [this, mesh = mMesh, meshed = std::exchange(mMeshed, {})] {
        for (const Meshed& part : meshed) {
            std::shared_ptr<const SceneShape> surface;
            try {
                surface = mesh_shape(unpack_surface(mesh->surfaces[part.surface]));
            } catch (const GeometryError&) {
                continue; // The mesh of this one is not to be seen.
            }
            const auto take = [this, mesh, part, surface] {
                const auto found = mEntries.find(part.id);
                if (mesh == mMesh && found != mEntries.end() && found->second.version == part.version)
                    mScene.set_mesh(found->second.item, surface);
            };
            QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
        }
    };
}

void GeometryScene::end_if_done()
{
    if (!is_busy())
        emit finished();
}

} // namespace fennar::geometry
