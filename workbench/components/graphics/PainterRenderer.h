// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Renderer.h"

namespace fennar::graphics {

/** Draws without the help of the display, into an image that a painter can show anywhere. */
class PainterRenderer : public Renderer
{
public:
    QImage render(const Picture& picture) override;
};

} // namespace fennar::graphics
