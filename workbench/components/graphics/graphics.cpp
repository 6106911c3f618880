// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "graphics": shows the scene in the middle of the main window. See docs/graphics.md.

#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/components/graphics/GraphicsWindow.h"
#include "workbench/components/graphics/graphics_commands.h"
#include "workbench/components/graphics/paint_picture.h"
#include "workbench/sdk/component/ComponentContext.h"

using namespace fennar;
using namespace fennar::graphics;

void fennar::load_component(ComponentContext& context)
{
    auto& state = context.make<GraphicsState>(Scene::instance());
    context.add_commands([&state](CommandRegistry& registry, const QString& owner) {
        return register_graphics_commands(registry, owner, state);
    });
    Scene::instance().set_painter(&draw_scene);
    context.on_end([] { Scene::instance().set_painter(nullptr); });
    if (context.window())
        context.make<GraphicsWindow>(context, state);
}
