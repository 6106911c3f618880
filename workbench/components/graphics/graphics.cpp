// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "graphics": shows the scene in the middle of the main window. See docs/graphics.md.

#include "frame/Ostrel.h"
#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/components/graphics/GraphicsWindow.h"
#include "workbench/components/graphics/graphics_commands.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

// Not in a namespace, as Qt demands.
static void init_resources()
{
    Q_INIT_RESOURCE(graphics);
}

static void clean_up_resources()
{
    Q_CLEANUP_RESOURCE(graphics);
}

namespace {

std::unique_ptr<GraphicsState> state;
std::unique_ptr<GraphicsWindow> window_part;

void unload()
{
    window_part.reset();
    Fennar::instance().registry().remove_owner(u"graphics"_s);
    state.reset();
    clean_up_resources();
}

void load()
{
    init_resources();
    state = std::make_unique<GraphicsState>(Scene::instance());
    if (!register_graphics_commands(Fennar::instance().registry(), *state)) {
        unload();
        throw std::runtime_error("one of the graphics commands is there already");
    }
    if (Ostrel* window = Ostrel::instance())
        window_part = std::make_unique<GraphicsWindow>(window, *state);
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "graphics", "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
