// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/scene/SceneShape.h"

void SceneShape::update_box()
{
    box = {};
    for (const std::vector<QVector3D>* points : {&corners, &lines}) {
        for (const QVector3D& point : *points)
            box.add(origin + Point3{point.x(), point.y(), point.z()});
    }
}
