// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/graphics_commands.h"

#include "workbench/components/graphics/GraphicsState.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

using Kind = CommandParameter::Kind;

/** In the order of Camera::View. */
const QStringList sides{u"front"_s, u"back"_s, u"left"_s, u"right"_s, u"top"_s, u"bottom"_s, u"iso"_s};

void display(CommandCall& call, const CommandArguments& arguments, GraphicsState& state)
{
    DisplayOptions display = state.display();
    const QString name = arguments.text("WHAT"_L1);
    QStringList states;
    for (const DisplayOption& option : display_options) {
        if (option.name == name)
            display.*option.value = arguments.text("STATE"_L1) == "on"_L1;
        states << option.name + (display.*option.value ? u" on"_s : u" off"_s);
    }
    state.set_display(display);
    if (name.isEmpty())
        call.print(states.join(u", "_s) +
                   (display.opengl && !state.has_opengl() ? u" (not in use)\n"_s : u"\n"_s));
}

QStringList option_names()
{
    QStringList names;
    for (const DisplayOption& option : display_options)
        names << option.name;
    return names;
}

} // namespace

bool register_graphics_commands(CommandRegistry& registry, const QString& owner, GraphicsState& state)
{
    const QList<Command> commands{
        {.name = u"view"_s,
         .summary = u"Looks at the solids from that side, and shows all of them."_s,
         .help =
             u"Front looks along y, right against x, top against z; iso looks from the right, front and above."_s,
         .perform =
             [&state](CommandCall&, const CommandArguments& arguments) {
                 state.set_view(Camera::View(sides.indexOf(arguments.text("SIDE"_L1))));
             },
         .forms = {{.clauses = {required_value({.name = u"SIDE"_s,
                                                .kind = Kind::Choice,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Side"),
                                                .choices = sides})}}}},
        {.name = u"fit"_s,
         .summary = u"Shows all solids, from the same side."_s,
         .perform = [&state](CommandCall&, const CommandArguments&) { state.fit(); }},
        {.name = u"display"_s,
         .summary = u"Tells or sets what the graphics view shows."_s,
         .help = u"shaded     surfaces; without them all edges are seen, and some lines on what is curved\n"
                 "wireframe  edges\n"
                 "mesh       the mesh in place of the surfaces, where there is one\n"
                 "opengl     draw by OpenGL, where there is one; the pictures are the same"_s,
         .perform = [&state](CommandCall& call,
                             const CommandArguments& arguments) { display(call, arguments, state); },
         .forms = {{.clauses = {{.parameters = {{.name = u"WHAT"_s,
                                                 .kind = Kind::Choice,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "What"),
                                                 .choices = option_names()},
                                                {.name = u"STATE"_s,
                                                 .kind = Kind::Choice,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "State"),
                                                 .choices = {u"on"_s, u"off"_s}}},
                                 .optional = true}}}}},
    };
    return registry.add_all(owner, commands);
}

} // namespace fennar::graphics
