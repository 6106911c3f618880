// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GeometryScene.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/mesh_surfaces.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/** For how long, in milliseconds, solids are written at a time: nobody must feel it. */
constexpr qint64 write_time = 15;
/** How long, in milliseconds, the tessellator may be silent. */
constexpr int patience = 60'000;
/** The start of the tessellator waits this long, in milliseconds, for more changes. */
constexpr int start_delay = 20;

} // namespace

GeometryScene::GeometryScene(const GeometryModel& model, Scene& scene, const QString& tessellator)
    : mModel(model), mScene(scene), mProgram(tessellator), mRevision(model.revision())
{
    setObjectName(u"GeometryScene"_s);
    mStart.setSingleShot(true);
    mStart.setInterval(start_delay);
    connect(&mStart, &QTimer::timeout, this, &GeometryScene::start_tessellator);
    mPatience.setSingleShot(true);
    mPatience.setInterval(patience);
    connect(&mPatience, &QTimer::timeout, this, [this] {
        if (mProcess)
            mProcess->kill();
    });
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
    if (mProcess) {
        mProcess->disconnect(this);
        mProcess->kill();
        mProcess->waitForFinished();
    }
    if (mReader)
        mReader->wait();
    tell_whether_awaited(false);
    for (const auto& [id, entry] : mEntries)
        mScene.remove(entry.item);
}

void GeometryScene::update_solid(int id)
{
    const auto solid = mModel.solid(id);
    const bool same_shape = mRevision == mModel.revision(); // it has only got another name
    mRevision = mModel.revision();
    const auto found = mEntries.find(id);
    if (!solid) {
        if (found != mEntries.end()) {
            const int item = found->second.item;
            mEntries.erase(found);
            mWaiting.remove(id);
            mScene.remove(item);
            // Perhaps it was the last that was waited for.
            go_on();
            end_if_done();
        }
        return;
    }
    if (found != mEntries.end() && same_shape) {
        mScene.set_name(found->second.item, solid->name);
        return;
    }
    Entry& entry = mEntries[id];
    if (entry.item == 0)
        entry.item = mScene.add(solid->name);
    ++entry.version;
    mScene.set_name(entry.item, solid->name);
    mScene.set_mesh(entry.item, nullptr);
    mWaiting.insert(id);
    go_on();
}

void GeometryScene::update_mesh()
{
    for (const auto& [id, entry] : mEntries)
        mScene.set_mesh(entry.item, nullptr);
    const auto mesh = mModel.mesh();
    // Which solids an older one still fits is not known.
    mMeshWanted = mesh && mesh->revision == mModel.revision();
    go_on();
}

void GeometryScene::go_on()
{
    if (mScene.has_viewers()) {
        if (!mWaiting.isEmpty() && !mProcess && !mStart.isActive())
            mStart.start();
        if (mMeshWanted && !mReader)
            read_mesh();
    }
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

/** Reads the mesh on another thread. */
void GeometryScene::read_mesh()
{
    mMeshWanted = false;
    const auto mesh = mModel.mesh();
    if (!mesh)
        return;
    mSurfaces = std::make_shared<Surfaces>();
    mReader.reset(QThread::create([mesh, surfaces = mSurfaces] { *surfaces = mesh_surfaces(mesh->msh); }));
    connect(mReader.get(), &QThread::finished, this, [this, mesh] {
        mReader->wait();
        mReader.release()->deleteLater();
        const bool fits = mesh == mModel.mesh() && mesh->revision == mModel.revision();
        for (const auto& [name, surface] : *mSurfaces) {
            // Solids may have got other names meanwhile, which only costs the sight of their mesh.
            const auto solid = fits ? mModel.find(name) : std::nullopt;
            if (const auto found = mEntries.find(solid ? solid->id : 0); found != mEntries.end())
                mScene.set_mesh(found->second.item, surface);
        }
        mSurfaces.reset();
        go_on();
        end_if_done();
    });
    mReader->start();
}

void GeometryScene::start_tessellator()
{
    if (mProcess || mWaiting.isEmpty() || !mScene.has_viewers())
        return;
    mDirectory = std::make_unique<TemporaryFolder>();
    QElapsedTimer time;
    time.start();
    QStringList arguments;
    QList<int> ids(mWaiting.begin(), mWaiting.end());
    std::sort(ids.begin(), ids.end());
    mBatch.clear();
    for (const int id : std::as_const(ids)) {
        mWaiting.remove(id);
        Entry& entry = mEntries.at(id);
        const QString file = mDirectory->path(QString::number(id));
        try {
            mModel.write_brep(id, file + u".brep"_s);
        } catch (const GeometryError&) {
            mScene.set_shape(entry.item, nullptr);
            continue;
        }
        entry.asked = entry.version;
        mBatch.insert(id);
        arguments << QString::number(id) << file + u".brep"_s;
        if (mOneByOne || time.elapsed() > write_time)
            break;
    }
    mBatchSize = mBatch.size();
    if (mBatch.isEmpty()) {
        go_on();
        end_if_done();
        return;
    }
    mOutput.clear();
    mProcess = std::make_unique<QProcess>();
    mProcess->setStandardInputFile(QProcess::nullDevice());
    mProcess->setStandardErrorFile(QProcess::nullDevice());
    connect(mProcess.get(), &QProcess::readyReadStandardOutput, this, &GeometryScene::take_shapes);
    connect(mProcess.get(), &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        take_shapes();
        tessellator_ended(status == QProcess::NormalExit && code == 0);
    });
    connect(mProcess.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            mBatchSize = 1; // it would not start for one solid either
            tessellator_ended(false);
        }
    });
    mPatience.start();
    mProcess->start(mProgram, arguments);
}

/** Takes the shapes that are complete. */
void GeometryScene::take_shapes()
{
    mPatience.start();
    mOutput.add(mProcess->readAllStandardOutput());
    while (const auto solid = mOutput.take()) {
        mBatch.remove(solid->id);
        const auto found = mEntries.find(solid->id);
        // One that has changed meanwhile gets its present shape next.
        if (found != mEntries.end() && found->second.asked == found->second.version)
            mScene.set_shape(found->second.item, solid->shape);
    }
}

void GeometryScene::tessellator_ended(bool well)
{
    mPatience.stop();
    mProcess.release()->deleteLater(); // it is the sender
    mDirectory.reset();
    if (!well && mBatchSize > 1) {
        mOneByOne = true;
        for (const int id : std::as_const(mBatch)) {
            if (mEntries.contains(id))
                mWaiting.insert(id);
        }
    } else {
        for (const int id : std::as_const(mBatch)) {
            const auto found = mEntries.find(id);
            if (found != mEntries.end() && !mWaiting.contains(id))
                mScene.set_shape(found->second.item, nullptr);
        }
    }
    mBatch.clear();
    if (mWaiting.isEmpty())
        mOneByOne = false;
    go_on();
    end_if_done();
}

void GeometryScene::end_if_done()
{
    if (!is_busy())
        emit finished();
}
