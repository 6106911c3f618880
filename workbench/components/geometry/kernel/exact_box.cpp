// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/kernel/exact_box.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRep_Tool.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Torus.hxx>

namespace fennar::geometry {

namespace {

/**
 * Adds the box of @p face if it is a whole torus; false if it is anything else. The kernel searches for that
 * box, and takes 100 ms where a torus lies along the coordinates.
 */
bool add_whole_torus(const TopoDS_Face& face, Bnd_Box& box)
{
    const BRepAdaptor_Surface surface(face, Standard_False);
    if (surface.GetType() != GeomAbs_Torus)
        return false;
    for (TopExp_Explorer edge(face, TopAbs_EDGE); edge.More(); edge.Next()) {
        // Where the face meets itself.
        const bool is_seam = BRep_Tool::IsClosed(TopoDS::Edge(edge.Current()), face);
        if (!is_seam)
            return false;
    }
    // A circle about the axis, with a ball around each of its points.
    const gp_Torus torus = surface.Torus();
    const gp_XYZ axis = torus.Axis().Direction().XYZ();
    for (int i = 1; i <= 3; ++i) {
        const double reach =
            torus.MajorRadius() * std::sqrt(std::max(0.0, 1 - axis.Coord(i) * axis.Coord(i))) +
            torus.MinorRadius();
        gp_XYZ step(0, 0, 0);
        step.SetCoord(i, reach);
        box.Add(gp_Pnt(torus.Location().XYZ() + step));
        box.Add(gp_Pnt(torus.Location().XYZ() - step));
    }
    return true;
}

} // namespace

Bnd_Box exact_box(const TopoDS_Shape& solids)
{
    Bnd_Box box;
    for (TopExp_Explorer face(solids, TopAbs_FACE); face.More(); face.Next()) {
        // The kernel's quicker box is far too large around parts of spheres and tori.
        if (!add_whole_torus(TopoDS::Face(face.Current()), box))
            BRepBndLib::AddOptimal(face.Current(), box, Standard_False, Standard_False);
    }
    return box;
}

} // namespace fennar::geometry
