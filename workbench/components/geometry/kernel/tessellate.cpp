// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/kernel/KernelShape.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Copy.hxx>
#include <BRepLProp_SLProps.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <IMeshTools_Parameters.hxx>
#include <Message_ProgressIndicator.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopoDS.hxx>
#include <array>
#include <numbers>

namespace fennar::geometry {

namespace {

/** A full circle gets so many pieces. */
constexpr int pieces_of_circle = 24;
/** No piece is shorter than this part of the solid's size. */
constexpr double least_piece = 1.0 / 400;
/** No triangle lies farther from the surface than this part of the solid's size. */
constexpr double most_deviation = 1.0 / 400;

class Stop : public Message_ProgressIndicator
{
public:
    explicit Stop(const std::atomic<bool>& stop) : mStop(stop) {}

protected:
    Standard_Boolean UserBreak() override { return mStop; }
    void Show(const Message_ProgressScope&, Standard_Boolean) override {}

private:
    const std::atomic<bool>& mStop;
};

QVector3D vector(const Point3& point)
{
    return {float(point.x), float(point.y), float(point.z)};
}

Point3 point(const gp_XYZ& xyz)
{
    return {xyz.X(), xyz.Y(), xyz.Z()};
}

/** Collects the triangles and edges of the faces. */
class Collector
{
public:
    explicit Collector(const Point3& origin) : mShape(std::make_shared<SceneShape>())
    {
        mShape->origin = origin;
    }

    void add_face(const TopoDS_Face& face)
    {
        TopLoc_Location location;
        const Handle(Poly_Triangulation)& triangles = BRep_Tool::Triangulation(face, location);
        if (triangles.IsNull() || !triangles->HasUVNodes())
            return;
        const gp_Trsf place = location.Transformation();
        const BRepAdaptor_Surface surface(face, Standard_False);
        BRepLProp_SLProps at(surface, 1, Precision::Confusion());
        const bool reversed = face.Orientation() == TopAbs_REVERSED;
        for (int i = 1; i <= triangles->NbTriangles(); ++i) {
            std::array<int, 3> nodes{};
            triangles->Triangle(i).Get(nodes[0], nodes[1], nodes[2]);
            if (reversed)
                std::swap(nodes[1], nodes[2]);
            std::array<Point3, 3> corners;
            for (std::size_t j = 0; j < 3; ++j)
                corners[j] = point(triangles->Node(nodes[j]).Transformed(place).XYZ());
            const Point3 across = cross(corners[1] - corners[0], corners[2] - corners[0]);
            const double size = length(across);
            if (!(size > 0)) // at the pole of a sphere, say
                continue;
            for (std::size_t j = 0; j < 3; ++j) {
                mShape->corners.push_back(vector(corners[j] - mShape->origin));
                const gp_Pnt2d uv = triangles->UVNode(nodes[j]);
                at.SetParameters(uv.X(), uv.Y());
                Point3 normal = across * (1 / size);
                // At the tip of a cone the surface has none, or one that leads anywhere.
                if (at.IsNormalDefined()) {
                    const Point3 exact = point(at.Normal().XYZ()) * (reversed ? -1 : 1);
                    normal = dot(exact, normal) > 0.7 ? exact : normal;
                }
                mShape->normals.push_back(vector(normal));
            }
        }
    }

    /** @param face  one of the edge's. */
    void add_edge(const TopoDS_Edge& edge, const TopoDS_Face& face)
    {
        TopLoc_Location location;
        const Handle(Poly_Triangulation)& triangles = BRep_Tool::Triangulation(face, location);
        if (triangles.IsNull() || BRep_Tool::Degenerated(edge))
            return;
        const Handle(Poly_PolygonOnTriangulation)& polygon =
            BRep_Tool::PolygonOnTriangulation(edge, triangles, location);
        if (polygon.IsNull())
            return;
        const gp_Trsf place = location.Transformation();
        for (int i = 1; i < polygon->NbNodes(); ++i) {
            for (const int end : {i, i + 1}) {
                const gp_Pnt node = triangles->Node(polygon->Node(end)).Transformed(place);
                mShape->lines.push_back(vector(point(node.XYZ()) - mShape->origin));
            }
        }
    }

    std::shared_ptr<const SceneShape> take()
    {
        mShape->update_box();
        mShape->update_curves();
        return mShape;
    }

private:
    std::shared_ptr<SceneShape> mShape;
};

std::shared_ptr<const SceneShape> tessellate(const TopoDS_Shape& shape, const std::atomic<bool>& stop)
{
    Bnd_Box bounds;
    BRepBndLib::Add(shape, bounds);
    const Box3 box{point(bounds.CornerMin().XYZ()), point(bounds.CornerMax().XYZ())};
    const double size = length(box.most - box.least);
    IMeshTools_Parameters parameters;
    // The kernel takes half of these for edges.
    parameters.Angle = 4 * std::numbers::pi / pieces_of_circle;
    parameters.Deflection = 2 * size * most_deviation;
    parameters.AngleInterior = 2 * std::numbers::pi / pieces_of_circle;
    parameters.DeflectionInterior = size * most_deviation;
    parameters.MinSize = size * least_piece;
    const Handle(Stop) indicator = new Stop(stop);
    const BRepMesh_IncrementalMesh triangles(shape, parameters, Message_ProgressIndicator::Start(indicator));
    if (stop)
        return nullptr;

    Collector collector(box.center());
    for (TopExp_Explorer face(shape, TopAbs_FACE); face.More(); face.Next())
        collector.add_face(TopoDS::Face(face.Current()));
    TopTools_IndexedDataMapOfShapeListOfShape faces_of_edges;
    TopExp::MapShapesAndUniqueAncestors(shape, TopAbs_EDGE, TopAbs_FACE, faces_of_edges);
    for (int i = 1; i <= faces_of_edges.Extent(); ++i) {
        // Where a round face meets itself there is no edge to be seen.
        if (faces_of_edges(i).Extent() > 1)
            collector.add_edge(TopoDS::Edge(faces_of_edges.FindKey(i)),
                               TopoDS::Face(faces_of_edges(i).First()));
    }
    return collector.take();
}

} // namespace

Tessellation KernelShape::prepare_tessellation() const
{
    return call_kernel([this] {
        const TopoDS_Shape own = BRepBuilderAPI_Copy(solids, Standard_True).Shape();
        return [own](const std::atomic<bool>& stop) -> std::shared_ptr<const SceneShape> {
            try {
                return call_kernel([&] { return tessellate(own, stop); });
            } catch (const std::exception&) { // nobody would do anything about it
                return nullptr;
            }
        };
    });
}

} // namespace fennar::geometry
