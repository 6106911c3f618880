// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

// For sources that call the kernel, and for no others: its headers are many.

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/Shape.h"

#include <QString>

#include <Standard_Failure.hxx>
#include <TopoDS_Compound.hxx>
#include <optional>

namespace fennar::geometry {

struct Shape::Kernel
{
    /** Of solids, and nothing but solids. */
    TopoDS_Compound solids;
    mutable std::optional<SolidMeasures> measures;
    mutable qint64 memory = 0;
    /** As it was read, or written first; empty before. To write what was read is not the same: the kernel may
     * round the last bit of a direction. */
    mutable QByteArray brep;
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
