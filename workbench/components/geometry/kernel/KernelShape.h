// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/ShapeKernel.h"

#include <QString>

#include <GProp_GProps.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS_Compound.hxx>
#include <optional>

namespace fennar::geometry {

/** A shape of the CAD kernel. */
class KernelShape final : public Shape::Body
{
public:
    static const KernelShape& of(const Shape& shape)
    {
        return static_cast<const KernelShape&>(*shape.body());
    }

    Shape moved(const Point3& by) const override;
    Shape rotated(double angle, const Point3& point, const Point3& axis) const override;
    const SolidMeasures& measures() const override;
    const Box3& box() const override;
    Box3 outer_box() const override;
    QList<FaceMeasures> faces() const override;
    QByteArray brep() const override;
    qint64 memory() const override;
    Tessellation prepare_tessellation() const override;

    /** Of solids, and nothing but solids. */
    TopoDS_Compound solids;
    /** As it was read, or written first; empty before. To write what was read is not the same: the kernel may
     * round the last bit of a direction. */
    mutable QByteArray file;
    /** Its volume, if that was measured when it was read. */
    std::optional<GProp_GProps> volume;

private:
    mutable std::optional<SolidMeasures> mMeasures;
    mutable std::optional<Box3> mBox;
    mutable qint64 mMemory = 0;
};

/** Calls the kernel; whatever it throws becomes a GeometryError. */
template <typename Work>
auto call_kernel(const Work& work)
{
    const auto refused = [](const char* why) {
        return GeometryError(QStringLiteral("the kernel refuses: ") + QString::fromUtf8(why).simplified());
    };
    try {
        return work();
    } catch (const Standard_Failure& failure) {
        const char* message = failure.GetMessageString();
        throw refused(message && *message ? message : failure.DynamicType()->Name());
    } catch (const GeometryError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw refused(error.what());
    }
}

} // namespace fennar::geometry
