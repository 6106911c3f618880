// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/SceneShape.h"

#include <QByteArray>

#include <memory>
#include <optional>

/** Takes apart what fennar-tessellator writes, as it comes. The format stands at the head of its source. */
class TessellatorOutput
{
public:
    struct Solid
    {
        /** The number that the tessellator was given; 0 for a line that makes no sense. */
        int id = 0;
        /** Null if there is no shape. */
        std::shared_ptr<const SceneShape> shape;
    };

    /** Takes the next bytes. */
    void add(const QByteArray& bytes);
    /** The next solid that has come whole; empty if there is none yet. */
    std::optional<Solid> take();
    /** Forgets what has come. */
    void clear();

private:
    QByteArray mBytes;
    /** How many of them have been taken. */
    qsizetype mTaken = 0;
};
