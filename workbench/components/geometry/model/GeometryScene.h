// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/programs/TessellatorOutput.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"
#include "workbench/sdk/core/scene/SceneShape.h"

#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QSet>
#include <QThread>
#include <QTimer>

#include <map>
#include <memory>

class GeometryModel;
class Scene;

/**
 * Keeps the solids of the model in the scene: one item each, with its name, its shape and its part of the
 * mesh.
 *
 * Shapes are made only while the scene has viewers, once after each change of a solid, by processes of their
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
     * @param tessellator   the path of the program fennar-tessellator.
     */
    GeometryScene(const GeometryModel& model, Scene& scene, const QString& tessellator);
    ~GeometryScene() override;

    /** Whether shapes are still to come. */
    bool is_busy() const { return !mWaiting.isEmpty() || mProcess || mReader; }

signals:
    /** All shapes that could be made are there. */
    void finished();

private:
    struct Entry
    {
        int item = 0;
        /** Grows with each change of the shape. */
        int version = 0;
        /** The version that was handed to the tessellator. */
        int asked = 0;
    };
    using Surfaces = std::map<QString, std::shared_ptr<const SceneShape>>;

    void update_solid(int id);
    void update_mesh();
    void read_mesh();
    void go_on();
    void tell_whether_awaited(bool awaited);
    void start_tessellator();
    void take_shapes();
    void tessellator_ended(bool well);
    void end_if_done();

    const GeometryModel& mModel;
    Scene& mScene;
    QString mProgram;
    /** By the ids of the solids. */
    std::map<int, Entry> mEntries;
    /** Solids whose shapes are out of date. */
    QSet<int> mWaiting;
    qint64 mRevision = 0;
    QTimer mStart;
    QTimer mPatience;
    std::unique_ptr<TemporaryFolder> mDirectory;
    std::unique_ptr<QProcess> mProcess;
    TessellatorOutput mOutput;
    /** The solids that the tessellator has not come to yet. */
    QSet<int> mBatch;
    qsizetype mBatchSize = 0;
    /** After a crash one solid at a time, until they are through. */
    bool mOneByOne = false;
    bool mMeshWanted = false;
    /** What the scene has been told. */
    bool mAwaited = false;
    std::unique_ptr<QThread> mReader;
    std::shared_ptr<Surfaces> mSurfaces;
};
