// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/graphics_commands.h"

#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

using Kind = CommandParameter::Kind;

/** In the order of the choices. */
constexpr std::array<std::pair<QLatin1StringView, Camera::View>, 7> views = {{
    {"front"_L1, Camera::View::Front},
    {"back"_L1, Camera::View::Back},
    {"left"_L1, Camera::View::Left},
    {"right"_L1, Camera::View::Right},
    {"top"_L1, Camera::View::Top},
    {"bottom"_L1, Camera::View::Bottom},
    {"iso"_L1, Camera::View::Iso},
}};

QStringList sides()
{
    QStringList names;
    for (const auto& view : views)
        names << view.first;
    return names;
}

void view(CommandCall&, const CommandArguments& arguments, GraphicsState& state)
{
    state.set_view(views[std::size_t(sides().indexOf(arguments.text("SIDE"_L1)))].second);
}

void fit(CommandCall&, const CommandArguments&, GraphicsState& state)
{
    state.fit();
}

QString on_off(bool on)
{
    return on ? u"on"_s : u"off"_s;
}

void display(CommandCall& call, const CommandArguments& arguments, GraphicsState& state)
{
    if (!arguments.has("WHAT"_L1)) {
        const DisplayOptions& display = state.display();
        call.print(u"shaded %1, wireframe %2, mesh %3, opengl %4%5\n"_s.arg(
            on_off(display.shaded), on_off(display.wireframe), on_off(display.mesh),
            on_off(state.wants_opengl()),
            state.wants_opengl() && !state.has_opengl() ? u" (not in use)"_s : QString()));
        return;
    }
    const QString name = arguments.text("WHAT"_L1);
    DisplayOptions display = state.display();
    bool opengl = state.wants_opengl();
    bool& option = name == "shaded"_L1      ? display.shaded
                   : name == "wireframe"_L1 ? display.wireframe
                   : name == "mesh"_L1      ? display.mesh
                                            : opengl;
    option = arguments.text("STATE"_L1) == "on"_L1;
    state.set_display(display);
    state.set_wants_opengl(opengl);
}

} // namespace

bool register_graphics_commands(CommandRegistry& registry, const QString& owner, GraphicsState& state)
{
    const auto run = [&state](void (*function)(CommandCall&, const CommandArguments&, GraphicsState&)) {
        return [&state, function](CommandCall& call, const CommandArguments& arguments) {
            function(call, arguments, state);
        };
    };
    const QList<Command> commands{
        {.name = u"view"_s,
         .summary = u"Looks at the solids from that side, and shows all of them."_s,
         .help =
             u"Front looks along y, right against x, top against z; iso looks from the right, front and above."_s,
         .perform = run(&view),
         .forms = {{.clauses = {required_value({.name = u"SIDE"_s,
                                                .kind = Kind::Choice,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Side"),
                                                .choices = sides()})}}}},
        {.name = u"fit"_s, .summary = u"Shows all solids, from the same side."_s, .perform = run(&fit)},
        {.name = u"display"_s,
         .summary = u"Tells or sets what the graphics view shows."_s,
         .help = u"shaded     surfaces; without them all edges are seen, and some lines on what is curved\n"
                 "wireframe  edges\n"
                 "mesh       the mesh in place of the surfaces, where there is one\n"
                 "opengl     draw by OpenGL, where there is one; the pictures are the same"_s,
         .perform = run(&display),
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
    return registry.add_all(owner, commands);
}

} // namespace fennar::graphics
