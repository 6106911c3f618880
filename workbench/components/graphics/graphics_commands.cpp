// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/graphics_commands.h"

#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

void view(CommandCall& call, GraphicsState& state)
{
    static const std::array<std::pair<QLatin1StringView, Camera::View>, 7> views = {{
        {"front"_L1, Camera::View::Front},
        {"back"_L1, Camera::View::Back},
        {"left"_L1, Camera::View::Left},
        {"right"_L1, Camera::View::Right},
        {"top"_L1, Camera::View::Top},
        {"bottom"_L1, Camera::View::Bottom},
        {"iso"_L1, Camera::View::Iso},
    }};
    constexpr auto what = u"front, back, left, right, top, bottom or iso";
    const QString name = call.text(1, what);
    call.expect_end();
    for (const auto& [known, direction] : views) {
        if (name == known)
            return state.set_view(direction);
    }
    throw call.expected(1, what);
}

void fit(CommandCall& call, GraphicsState& state)
{
    call.expect_end();
    state.fit();
}

QString on_off(bool on)
{
    return on ? u"on"_s : u"off"_s;
}

void display(CommandCall& call, GraphicsState& state)
{
    if (!call.has(1)) {
        const DisplayOptions& display = state.display();
        call.print(u"shaded %1, wireframe %2, mesh %3, opengl %4%5\n"_s.arg(
            on_off(display.shaded), on_off(display.wireframe), on_off(display.mesh),
            on_off(state.wants_opengl()),
            state.wants_opengl() && !state.has_opengl() ? u" (not in use)"_s : QString()));
        return;
    }
    constexpr auto what = u"shaded, wireframe, mesh or opengl";
    const QString name = call.text(1, what);
    DisplayOptions display = state.display();
    bool opengl = state.wants_opengl();
    bool* const option = name == "shaded"_L1      ? &display.shaded
                         : name == "wireframe"_L1 ? &display.wireframe
                         : name == "mesh"_L1      ? &display.mesh
                         : name == "opengl"_L1    ? &opengl
                                                  : nullptr;
    if (!option)
        throw call.expected(1, what);
    const QString value = call.text(2, u"on or off");
    if (value != "on"_L1 && value != "off"_L1)
        throw call.expected(2, u"on or off");
    call.expect_end();
    *option = value == "on"_L1;
    state.set_display(display);
    state.set_wants_opengl(opengl);
}

} // namespace

bool register_graphics_commands(CommandRegistry& registry, GraphicsState& state)
{
    const QString owner = u"graphics"_s;
    const auto run = [&state](void (*function)(CommandCall&, GraphicsState&)) {
        return [&state, function](CommandCall& call) { function(call, state); };
    };
    const Command commands[] = {
        {.name = u"view"_s,
         .summary = u"Looks at the solids from that side, and shows all of them."_s,
         .help =
             u"Front looks along y, right against x, top against z; iso looks from the right, front and above."_s,
         .owner = owner,
         .run = run(&view),
         .forms = {{.clauses = {required_value({.name = u"SIDE"_s,
                                                .kind = Kind::Choice,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Side"),
                                                .choices = {u"front"_s, u"back"_s, u"left"_s, u"right"_s,
                                                            u"top"_s, u"bottom"_s, u"iso"_s}})}}}},
        {.name = u"fit"_s,
         .summary = u"Shows all solids, from the same side."_s,
         .owner = owner,
         .run = run(&fit),
         .forms = {{}}},
        {.name = u"display"_s,
         .summary = u"Tells or sets what the graphics view shows."_s,
         .help = u"shaded     surfaces; without them all edges are seen, and some lines on what is curved\n"
                 "wireframe  edges\n"
                 "mesh       the mesh in place of the surfaces, where there is one\n"
                 "opengl     draw by OpenGL, where there is one; the pictures are the same"_s,
         .owner = owner,
         .run = run(&display),
         .forms = {{.clauses = {{.parameters = {{.name = u"WHAT"_s,
                                                 .kind = Kind::Choice,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "What"),
                                                 .choices = {u"shaded"_s, u"wireframe"_s, u"mesh"_s,
                                                             u"opengl"_s}},
                                                {.name = u"STATE"_s,
                                                 .kind = Kind::Choice,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "State"),
                                                 .choices = {u"on"_s, u"off"_s}}},
                                 .optional = true}}}}},
    };
    for (const Command& command : commands) {
        if (registry.add(command) != CommandRegistry::AddResult::Added) {
            registry.remove_owner(owner);
            return false;
        }
    }
    return true;
}
