// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Mesh.h"
#include "workbench/components/geometry/model/Shape.h"

#include <QObject>
#include <QThread>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace fennar {
class Scene;
}

namespace fennar::geometry {

class GeometryModel;

/**
 * Keeps the solids of the model in the scene: one item each, with its name, its shape and its part of the
 * mesh.
 *
 * Shapes are made only while the scene has viewers, once after each change of a solid, on a thread of their
 * own: the program waits for none. Until a new shape is there the old one is shown. A solid whose shape
 * cannot be made has none.
 *
 * When it is deleted, its items go.
 */
class GeometryScene : public QObject
{
    Q_OBJECT

public:
    /**
     * @param model, scene  must outlive this object.
     * @param prepare       Shape::prepare_tessellation(), or what tests put in its place.
     */
    GeometryScene(const GeometryModel& model, Scene& scene,
                  std::function<Tessellation(const Shape& shape)> prepare = &Shape::prepare_tessellation);
    ~GeometryScene() override;

    /** Whether shapes are still to come. */
    bool is_busy() const { return !mWaiting.empty() || !mMeshed.empty() || mThread; }

signals:
    /** All shapes that could be made are there. */
    void finished();

private:
    struct Entry
    {
        int item = 0;
        /** What its shape in the scene was made of, or will be. */
        Shape shape;
        /** Grows with each change of the shape. */
        int version = 0;
    };
    /** A solid with the shape that was meshed. */
    struct Meshed
    {
        int id;
        int version;
        /** Which of the mesh's surfaces is its. */
        qsizetype surface;
    };
    void update_solid(int id);
    void update_mesh();
    void go_on();
    void tell_whether_awaited(bool awaited);
    void start();
    std::function<void()> work_on_solids();
    std::function<void()> work_on_mesh();
    void end_if_done();

    const GeometryModel& mModel;
    Scene& mScene;
    std::function<Tessellation(const Shape& shape)> mPrepare;
    /** By the ids of the solids. */
    std::map<int, Entry> mEntries;
    /** Solids whose shapes are out of date. */
    std::set<int> mWaiting;
    /** The model's, whose surfaces are in the scene. */
    std::shared_ptr<const Mesh> mMesh;
    /** Surfaces of it that are still to be made. */
    std::vector<Meshed> mMeshed;
    /** What the scene has been told. */
    bool mAwaited = false;
    /** Makes shapes; null while it has nothing to do. */
    std::unique_ptr<QThread> mThread;
    /** Tells it that nobody waits any more. */
    std::atomic<bool> mStop = false;
};

} // namespace fennar::geometry
