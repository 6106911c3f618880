// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Mesh.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

namespace fennar::geometry {

/** All of a GeometryModel as plain data: what a file of the model holds. */
struct GeometryContents
{
    struct Solid
    {
        int id = 0;
        QString name;
        /** The shape in the BREP format. */
        QByteArray brep;
    };

    /** The greatest id that a solid has ever had; 0 for none. */
    int last_id = 0;
    /** The oldest first: their ids grow. */
    QList<Solid> solids;
    /** Null if there is none. Mesh::revision does not count here. */
    std::shared_ptr<const Mesh> mesh;
    /** How many changes the model has had since it was meshed; 0 for none. */
    qint64 mesh_age = 0;
};

} // namespace fennar::geometry
