// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The module of the CAD kernel: all that calls it but for the programs.

#include "workbench/components/geometry/kernel/KernelShape.h"
#include "workbench/components/geometry/kernel/exact_box.h"
#include "workbench/components/geometry/kernel/facing_outwards.h"

#include <QElapsedTimer>

#include <BRepAlgoAPI_Common.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Copy.hxx>
#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_PrinterOStream.hxx>
#include <Message_ProgressIndicator.hxx>
#include <Message_ProgressScope.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopTools_ListOfShape.hxx>
#include <TopoDS_Iterator.hxx>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <sstream>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** What a face, an edge or a corner takes with its geometry, on the average: so it was with bricks and tori.
 */
constexpr qint64 bytes_of_part = 500;

/** Between two calls of a listener, and before the first one, in milliseconds. */
constexpr qint64 listener_pause = 50;

gp_Pnt point(const Point3& p)
{
    return {p.x, p.y, p.z};
}

/** An axis through @p center, or as far below it as half of @p height. */
gp_Ax2 axes(const Point3& center, const Point3& axis, double height = 0)
{
    return {point(center - axis * (height / 2)), gp_Dir(axis.x, axis.y, axis.z)};
}

/** The solids of a shape; null if there are none. */
std::shared_ptr<KernelShape> solids_of(const TopoDS_Shape& shape)
{
    TopTools_IndexedMapOfShape solids;
    if (!shape.IsNull())
        TopExp::MapShapes(shape, TopAbs_SOLID, solids);
    if (solids.IsEmpty())
        return nullptr;
    auto kernel = std::make_shared<KernelShape>();
    BRep_Builder builder;
    builder.MakeCompound(kernel->solids);
    for (int i = 1; i <= solids.Extent(); ++i)
        builder.Add(kernel->solids, solids(i));
    return kernel;
}

std::shared_ptr<KernelShape> transformed(const KernelShape& kernel, const gp_Trsf& step)
{
    auto result = std::make_shared<KernelShape>();
    BRep_Builder builder;
    builder.MakeCompound(result->solids);
    for (TopoDS_Iterator solid(kernel.solids); solid.More(); solid.Next()) {
        // One transformation, not a chain with one more link for each step. What it applies to is shared.
        const gp_Trsf whole = step * solid.Value().Location().Transformation();
        builder.Add(result->solids, solid.Value().Located(TopLoc_Location(whole)));
    }
    return result;
}

/** Asks a listener now and then. */
class Indicator : public Message_ProgressIndicator
{
public:
    explicit Indicator(const ShapeListener& listener) : mListener(listener) { mTime.start(); }

    bool is_ended() const { return mEnded; }

protected:
    Standard_Boolean UserBreak() override
    {
        if (mEnded || mTime.elapsed() < listener_pause)
            return mEnded;
        if (mListener.progress)
            mListener.progress(int(100 * GetPosition()));
        mEnded = mListener.go_on && !mListener.go_on();
        mTime.restart(); // the listener may have taken its time
        return mEnded;
    }
    void Show(const Message_ProgressScope&, Standard_Boolean) override {}

private:
    const ShapeListener& mListener;
    QElapsedTimer mTime;
    bool mEnded = false;
};

TopTools_ListOfShape pieces(const TopoDS_Shape& solids)
{
    TopTools_ListOfShape list;
    for (TopoDS_Iterator solid(solids); solid.More(); solid.Next())
        list.Append(solid.Value());
    return list;
}

TopTools_ListOfShape pieces(const QList<Shape>& shapes)
{
    TopTools_ListOfShape list;
    for (const Shape& shape : shapes) {
        TopTools_ListOfShape more = pieces(KernelShape::of(shape).solids);
        list.Append(more);
    }
    return list;
}

Box3 box_of(const Bnd_Box& bounds)
{
    Box3 box;
    bounds.Get(box.least.x, box.least.y, box.least.z, box.most.x, box.most.y, box.most.z);
    return box;
}

const auto not_combined = u"the kernel could not combine the solids"_s;

/** The result, with one face where two lay in one plane or on one cylinder. */
TopoDS_Shape simplified(BRepAlgoAPI_Fuse& operation)
{
    const TopoDS_Shape result = BRepBuilderAPI_Copy(operation.Shape()).Shape();
    // The kernel may lose a face where it has two sides of a seam to join, and gives up on some tori, which
    // it has changed by then. The result is right without it.
    try {
        operation.SimplifyResult();
        const double volume = volume_of(result).Mass();
        if (std::abs(volume_of(operation.Shape()).Mass() - volume) <= 1e-6 * volume)
            return operation.Shape();
    } catch (const Standard_Failure&) {
    }
    return result;
}

TopTools_ListOfShape copies(const TopTools_ListOfShape& shapes)
{
    TopTools_ListOfShape list;
    for (const TopoDS_Shape& shape : shapes)
        list.Append(BRepBuilderAPI_Copy(shape).Shape());
    return list;
}

/** @param objects  may touch or cut neither each other nor themselves, but for a union. */
template <typename Operation>
TopoDS_Shape combine(const TopTools_ListOfShape& objects, const TopTools_ListOfShape& tools,
                     const Message_ProgressRange& range)
{
    // What is made simpler afterwards is changed in place.
    constexpr bool changes = std::is_same_v<Operation, BRepAlgoAPI_Fuse>;
    Operation operation;
    operation.SetArguments(changes ? copies(objects) : objects);
    operation.SetTools(changes ? copies(tools) : tools);
    operation.SetNonDestructive(Standard_True); // they are shared
    operation.Build(range);
    if (operation.HasErrors() || !operation.IsDone())
        throw GeometryError(not_combined);
    if constexpr (changes)
        return simplified(operation);
    return operation.Shape();
}

/** The result of combine(). The kernel reports success even if it has lost a part of it, as with some tangent
 * surfaces; where the volume shows that, this throws. */
Shape verified(const Shape& result, double least, double most)
{
    // Volumes within curved faces are integrated.
    const double tolerance = 0.01 * most;
    const double volume = result.empty() ? 0 : result.measures().volume;
    if (!(volume >= least - tolerance && volume <= most + tolerance))
        throw GeometryError(not_combined);
    return result;
}

/** Of all of them, what is common counted each time. */
double volume_of(const QList<Shape>& shapes)
{
    return std::accumulate(shapes.begin(), shapes.end(), 0.0,
                           [](double sum, const Shape& shape) { return sum + shape.measures().volume; });
}

/** Runs @p work with a range of progress that the listener is told of. */
template <typename Work>
auto listened(const ShapeListener& listener, const Work& work)
{
    const Handle(Indicator) indicator = new Indicator(listener);
    try {
        auto result = call_kernel([&] { return work(Message_ProgressIndicator::Start(indicator)); });
        if (!indicator->is_ended())
            return result;
    } catch (const GeometryError&) {
        if (!indicator->is_ended())
            throw;
    }
    throw GeometryError(u"cancelled; nothing has changed"_s);
}

/** The kernel speaks to standard output, where nobody looks for it and others have more to say. */
void make_quiet()
{
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_PrinterOStream));
}

class CadKernel final : public ShapeKernel
{
public:
    Shape brick(const Point3& size, const Point3& center) const override
    {
        return call_kernel([&] {
            const Point3 corner = center - size * 0.5;
            return Shape(solids_of(BRepPrimAPI_MakeBox(point(corner), size.x, size.y, size.z).Solid()));
        });
    }

    Shape cylinder(double radius, double height, const Point3& center, const Point3& axis) const override
    {
        return call_kernel([&] {
            return Shape(
                solids_of(BRepPrimAPI_MakeCylinder(axes(center, axis, height), radius, height).Solid()));
        });
    }

    Shape sphere(double radius, const Point3& center) const override
    {
        return call_kernel(
            [&] { return Shape(solids_of(BRepPrimAPI_MakeSphere(point(center), radius).Solid())); });
    }

    Shape cone(double bottom_radius, double top_radius, double height, const Point3& center,
               const Point3& axis) const override
    {
        return call_kernel([&] {
            return Shape(solids_of(
                BRepPrimAPI_MakeCone(axes(center, axis, height), bottom_radius, top_radius, height).Solid()));
        });
    }

    Shape torus(double radius, double tube_radius, const Point3& center, const Point3& axis) const override
    {
        const Shape upright = call_kernel([&] {
            return Shape(
                solids_of(BRepPrimAPI_MakeTorus(axes(center, {0, 0, 1}), radius, tube_radius).Solid()));
        });
        // The shortest way from the z axis, about the line that is square to both.
        const double across = std::hypot(axis.x, axis.y);
        if (across > 0)
            return KernelShape::of(upright).rotated(std::atan2(across, axis.z), center,
                                                    {-axis.y / across, axis.x / across, 0});
        return axis.z < 0 ? KernelShape::of(upright).rotated(std::numbers::pi, center, {1, 0, 0}) : upright;
    }

    Shape united(const QList<Shape>& shapes, const ShapeListener& listener) const override
    {
        return listened(listener, [&](const Message_ProgressRange& range) {
            const Shape result(solids_of(
                combine<BRepAlgoAPI_Fuse>(pieces(shapes.first(1)), pieces(shapes.sliced(1)), range)));
            double largest = 0;
            for (const Shape& shape : shapes)
                largest = std::max(largest, shape.measures().volume);
            return verified(result, largest, volume_of(shapes));
        });
    }

    Shape subtracted(const QList<Shape>& shapes, const ShapeListener& listener) const override
    {
        return listened(listener, [&](const Message_ProgressRange& range) {
            const Shape result(solids_of(
                combine<BRepAlgoAPI_Cut>(pieces(shapes.first(1)), pieces(shapes.sliced(1)), range)));
            const double whole = shapes.first().measures().volume;
            return verified(result, whole - volume_of(shapes.sliced(1)), whole);
        });
    }

    Shape intersected(const QList<Shape>& shapes, const ShapeListener& listener) const override
    {
        return listened(listener, [&](const Message_ProgressRange& range) {
            // One after the other: given together, all but the first would count as one.
            Message_ProgressScope scope(range, "", double(shapes.size() - 1));
            Shape result = shapes.first();
            for (qsizetype i = 1; i < shapes.size() && !result.empty(); ++i) {
                const double most = std::min(result.measures().volume, shapes[i].measures().volume);
                const Shape common(solids_of(
                    combine<BRepAlgoAPI_Common>(pieces({result}), pieces({shapes[i]}), scope.Next())));
                result = verified(common, 0, most);
            }
            return result;
        });
    }

    Shape joined(const QList<Shape>& shapes) const override
    {
        return call_kernel([&shapes] {
            TopoDS_Compound all;
            BRep_Builder builder;
            builder.MakeCompound(all);
            for (const Shape& shape : shapes)
                builder.Add(all, KernelShape::of(shape).solids);
            return Shape(solids_of(all));
        });
    }

    Shape from_brep(const QByteArray& brep) const override
    {
        return call_kernel([&brep] {
            TopoDS_Shape shape;
            std::istringstream in(brep.toStdString());
            BRepTools::Read(shape, in, BRep_Builder());
            const auto read = solids_of(shape);
            if (!read)
                return Shape();
            auto kernel = std::make_shared<KernelShape>();
            BRep_Builder builder;
            builder.MakeCompound(kernel->solids);
            kernel->volume.emplace();
            bool is_turned = false;
            for (TopoDS_Iterator solid(read->solids); solid.More(); solid.Next()) {
                const TopoDS_Shape right = facing_outwards(solid.Value(), *kernel->volume);
                is_turned = is_turned || !right.IsEqual(solid.Value());
                builder.Add(kernel->solids, right);
            }
            if (!is_turned)
                kernel->file = brep;
            return Shape(kernel);
        });
    }
};

} // namespace

Shape KernelShape::moved(const Point3& by) const
{
    return call_kernel([&] {
        gp_Trsf step;
        step.SetTranslation(gp_Vec(by.x, by.y, by.z));
        return Shape(transformed(*this, step));
    });
}

Shape KernelShape::rotated(double angle, const Point3& origin, const Point3& axis) const
{
    return call_kernel([&] {
        gp_Trsf step;
        step.SetRotation(gp_Ax1(point(origin), gp_Dir(axis.x, axis.y, axis.z)), angle);
        return Shape(transformed(*this, step));
    });
}

const SolidMeasures& KernelShape::measures() const
{
    if (mMeasures)
        return *mMeasures;
    return mMeasures.emplace(call_kernel([this] {
        SolidMeasures measures;
        const GProp_GProps filled = volume ? *volume : volume_of(solids);
        measures.volume = filled.Mass();
        const gp_Pnt center = filled.CentreOfMass();
        measures.center = {center.X(), center.Y(), center.Z()};
        GProp_GProps area;
        // What is between two pieces counts once.
        BRepGProp::SurfaceProperties(solids, area, Standard_True);
        measures.area = area.Mass();
        measures.pieces = solids.NbChildren();
        return measures;
    }));
}

const Box3& KernelShape::box() const
{
    if (mBox)
        return *mBox;
    return mBox.emplace(call_kernel([this] { return box_of(exact_box(solids)); }));
}

Box3 KernelShape::outer_box() const
{
    return call_kernel([this] {
        Bnd_Box box;
        BRepBndLib::Add(solids, box, Standard_False);
        return box_of(box);
    });
}

QList<FaceMeasures> KernelShape::faces() const
{
    return call_kernel([this] {
        TopTools_IndexedMapOfShape faces;
        TopExp::MapShapes(solids, TopAbs_FACE, faces);
        QList<FaceMeasures> result;
        for (int i = 1; i <= faces.Extent(); ++i) {
            GProp_GProps area;
            BRepGProp::SurfaceProperties(faces(i), area);
            const gp_Pnt center = area.CentreOfMass();
            result << FaceMeasures{area.Mass(), {center.X(), center.Y(), center.Z()}};
        }
        return result;
    });
}

qint64 KernelShape::memory() const
{
    if (mMemory == 0) {
        TopTools_IndexedMapOfShape parts;
        TopExp::MapShapes(solids, parts);
        mMemory = parts.Extent() * bytes_of_part;
    }
    return mMemory;
}

QByteArray KernelShape::brep() const
{
    if (file.isEmpty()) {
        file = call_kernel([this] {
            std::ostringstream out;
            BRepTools::Write(solids, out, Standard_False, Standard_False, TopTools_FormatVersion_CURRENT);
            if (!out)
                throw std::bad_alloc();
            return QByteArray::fromStdString(out.str());
        });
    }
    return file;
}

} // namespace fennar::geometry

extern "C" Q_DECL_EXPORT const fennar::geometry::ShapeKernel* FENNAR_SHAPE_KERNEL()
{
    static const fennar::geometry::CadKernel kernel = [] {
        fennar::geometry::make_quiet();
        return fennar::geometry::CadKernel();
    }();
    return &kernel;
}
