// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/kernel/facing_outwards.h"

#include <BRepGProp.hxx>
#include <BRep_Builder.hxx>
#include <ShapeAnalysis_Shell.hxx>
#include <ShapeFix_Shell.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_Solid.hxx>
#include <algorithm>
#include <cmath>
#include <vector>

namespace fennar::geometry {

namespace {

/** The faces of a shell, all on one side of it. */
TopoDS_Shape in_one_direction(const TopoDS_Shape& shell)
{
    ShapeAnalysis_Shell orientation;
    orientation.LoadShells(shell);
    if (!orientation.CheckOrientedShells(shell))
        return shell;
    ShapeFix_Shell fix;
    fix.FixFaceOrientation(TopoDS::Shell(shell));
    return fix.Shell();
}

} // namespace

GProp_GProps volume_of(const TopoDS_Shape& shape)
{
    GProp_GProps volume;
    BRepGProp::VolumeProperties(shape, volume);
    return volume;
}

TopoDS_Shape facing_outwards(const TopoDS_Shape& solid, GProp_GProps& volume)
{
    std::vector<TopoDS_Shape> shells;
    std::vector<GProp_GProps> volumes;
    for (TopoDS_Iterator part(solid); part.More(); part.Next()) {
        if (part.Value().ShapeType() != TopAbs_SHELL) {
            volume.Add(volume_of(solid));
            return solid; // a point in it, say, which no reader of ours would mind
        }
        shells.push_back(in_one_direction(part.Value()));
        volumes.push_back(volume_of(shells.back()));
    }
    // The outer shell holds those of the cavities.
    const auto smaller = [](const GProp_GProps& a, const GProp_GProps& b) {
        return std::abs(a.Mass()) < std::abs(b.Mass());
    };
    const auto outer = std::max_element(volumes.begin(), volumes.end(), smaller) - volumes.begin();
    TopoDS_Solid result;
    BRep_Builder builder;
    builder.MakeSolid(result);
    bool is_turned = false;
    TopoDS_Iterator before(solid);
    for (std::size_t i = 0; i < shells.size(); ++i, before.Next()) {
        if ((volumes[i].Mass() > 0) != (std::ptrdiff_t(i) == outer)) {
            shells[i].Reverse();
            volumes[i] = volume_of(shells[i]);
        }
        volume.Add(volumes[i]);
        is_turned = is_turned || !shells[i].IsEqual(before.Value());
        builder.Add(result, shells[i]);
    }
    return is_turned ? TopoDS_Shape(result) : solid;
}

} // namespace fennar::geometry
