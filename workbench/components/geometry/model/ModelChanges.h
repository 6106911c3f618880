// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/UndoSteps.h"

#include <QObject>
#include <QSet>

#include <memory>

namespace fennar::geometry {

/**
 * Finds what has changed in the model from step to step: solids with their shapes, names and ids, and the
 * mesh. GUI thread only.
 */
class ModelChanges : public QObject
{
    Q_OBJECT

public:
    /** @param model  outlives this object and all changes. */
    explicit ModelChanges(GeometryModel& model);

    /**
     * What has changed since it was asked last, or since the model was replaced; null if nothing has.
     *
     * The change holds what it has replaced, and belongs to steps that end before this object does.
     */
    std::unique_ptr<UndoSteps::Change> take();

private:
    class PartChange;

    void start_anew();
    void restore(const GeometryModel::Part& part);

    GeometryModel& mModel;
    /** The whole model as the last change has left it. */
    GeometryModel::Part mNow;
    /** The solids that have changed since. */
    QSet<int> mTouched;
};

} // namespace fennar::geometry
