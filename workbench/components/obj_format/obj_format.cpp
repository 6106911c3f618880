// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "obj_format": one more file format for surfaces. It knows the triangles alone; whoever has a
// model finds the format in the registry. See docs/formats.md.

#include "workbench/components/obj_format/obj_text.h"
#include "workbench/sdk/component/ComponentContext.h"

using namespace fennar;
using namespace fennar::obj_format;
using namespace Qt::StringLiterals;

void fennar::load_component(ComponentContext& context)
{
    context.add_format({.name = u"OBJ"_s, .endings = {u"obj"_s}, .read = &read_obj, .write = &write_obj});
}
