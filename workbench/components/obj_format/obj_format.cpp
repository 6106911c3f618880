// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "obj_format": one more file format for surfaces. It knows the triangles alone; whoever has a
// model finds the format in the registry. See docs/formats.md.

#include "workbench/components/obj_format/obj_text.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/** The component's name, the owner mark of what it adds. */
constexpr auto owner = "obj_format";

void load()
{
    if (!FormatRegistry::instance().add(
            {u"OBJ"_s, {u"obj"_s}, QString::fromLatin1(owner), &read_obj, &write_obj}))
        throw std::runtime_error("another component has the format OBJ");
}

void unload()
{
    FormatRegistry::instance().remove_owner(QString::fromLatin1(owner));
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, owner, "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
