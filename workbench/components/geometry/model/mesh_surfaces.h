// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/SceneShape.h"

#include <QByteArray>
#include <QString>

#include <map>
#include <memory>

/**
 * The outer surfaces of the tetrahedra of a mesh, by the names of the physical groups that they belong to.
 *
 * @param msh  a binary file in the MSH format 4.1.
 * @return empty if @p msh is something else or is damaged.
 *
 * May be called on any thread.
 */
std::map<QString, std::shared_ptr<const SceneShape>> mesh_surfaces(const QByteArray& msh);
