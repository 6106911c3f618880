// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/Scene.h"

#include <array>
#include <cmath>
#include <memory>
#include <numbers>

/** A box with flat faces and its twelve edges. */
inline std::shared_ptr<fennar::SceneShape> make_box(const fennar::Point3& center, const fennar::Point3& size)
{
    auto shape = std::make_shared<fennar::SceneShape>();
    shape->origin = center;
    const auto corner = [&size](int x, int y, int z) {
        return QVector3D(float((x ? 0.5 : -0.5) * size.x), float((y ? 0.5 : -0.5) * size.y),
                         float((z ? 0.5 : -0.5) * size.z));
    };
    const auto face = [&shape](const std::array<QVector3D, 4>& corners, const QVector3D& normal) {
        for (const std::size_t i : {0U, 1U, 2U, 0U, 2U, 3U}) {
            shape->corners.push_back(corners[i]);
            shape->normals.push_back(normal);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            shape->lines.push_back(corners[i]);
            shape->lines.push_back(corners[(i + 1) % 4]);
        }
    };
    for (const int side : {0, 1}) {
        const float sign = side ? 1.0F : -1.0F;
        face({corner(side, 0, 0), corner(side, 1, 0), corner(side, 1, 1), corner(side, 0, 1)}, {sign, 0, 0});
        face({corner(0, side, 0), corner(1, side, 0), corner(1, side, 1), corner(0, side, 1)}, {0, sign, 0});
        face({corner(0, 0, side), corner(1, 0, side), corner(1, 1, side), corner(0, 1, side)}, {0, 0, sign});
    }
    shape->update_box();
    return shape;
}

/** Adds a box to the scene and returns its id. */
inline int add_box(fennar::Scene& scene, const QString& name, const fennar::Point3& center,
                   const fennar::Point3& size)
{
    const int id = scene.add(name);
    scene.set_shape(id, make_box(center, size));
    return id;
}

/** A sphere of radius 1, which has no edges. */
inline std::shared_ptr<fennar::SceneShape> make_ball(const fennar::Point3& center)
{
    auto shape = std::make_shared<fennar::SceneShape>();
    shape->origin = center;
    constexpr int pieces = 24;
    const auto corner = [](int turn, int rise) {
        const double a = 2 * std::numbers::pi * turn / pieces;
        const double b = std::numbers::pi * rise / pieces - std::numbers::pi / 2;
        return QVector3D(float(std::cos(a) * std::cos(b)), float(std::sin(a) * std::cos(b)),
                         float(std::sin(b)));
    };
    for (int i = 0; i < pieces; ++i) {
        for (int j = 0; j < pieces; ++j) {
            for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}}) {
                shape->corners.push_back(corner(i + di, j + dj));
                shape->normals.push_back(corner(i + di, j + dj));
            }
        }
    }
    shape->update_box();
    shape->update_curves();
    return shape;
}
