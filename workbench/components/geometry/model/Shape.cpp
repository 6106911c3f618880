// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/Shape.h"

#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/ShapeKernel.h"
#include "workbench/components/geometry/programs/program_folder.h"

#include <QFile>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

constexpr auto kernel_function = QT_STRINGIFY(FENNAR_SHAPE_KERNEL);

const ShapeKernel& load_kernel()
{
    // Programs that have the kernel from the start are those of tests.
    void* function = dlsym(RTLD_DEFAULT, kernel_function);
    if (!function) {
        const QByteArray path = QFile::encodeName(program_folder().filePath(u"fennar-kernel.so"_s));
        void* const module = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
        if (!module)
            throw GeometryError(u"the CAD kernel cannot be loaded: "_s + QString::fromLocal8Bit(dlerror()));
        function = dlsym(module, kernel_function);
        if (!function) {
            dlclose(module);
            throw GeometryError(
                u"the CAD kernel cannot be loaded: %1 is of another version"_s.arg(QFile::decodeName(path)));
        }
    }
    return *reinterpret_cast<const ShapeKernel* (*)()>(function)();
}

/** Whether @p brep could hold as many curves, surfaces and so on as it says. The kernel takes each number on
 * trust, and reads on for as many behind the end. */
bool has_room_for_its_counts(const QByteArray& brep)
{
    for (const char* section : {"Locations", "Curve2ds", "Curves", "Polygon3D", "PolygonOnTriangulations",
                                "Surfaces", "Triangulations", "TShapes"}) {
        const QByteArray begin = QByteArray("\n") + section + ' ';
        for (qsizetype at = brep.indexOf(begin); at >= 0; at = brep.indexOf(begin, at + begin.size())) {
            const qsizetype start = at + begin.size();
            const qsizetype end = brep.indexOf('\n', start);
            bool is_number = false;
            const qint64 count =
                brep.sliced(start, (end < 0 ? brep.size() : end) - start).trimmed().toLongLong(&is_number);
            if (!is_number || count < 0 || count > brep.size() - start)
                return false;
        }
    }
    return true;
}

} // namespace

const ShapeKernel& ShapeKernel::get()
{
    static const ShapeKernel& kernel = load_kernel();
    return kernel;
}

Shape Shape::joined(const QList<Shape>& shapes)
{
    return shapes.size() == 1 ? shapes.first() : ShapeKernel::get().joined(shapes);
}

Shape Shape::from_brep(const QByteArray& brep)
{
    // The kernel looks for ever for what is missing behind the end.
    const bool is_whole = brep.left(200).contains("CASCADE Topology") && ends_brep(brep.right(64)) &&
                          has_room_for_its_counts(brep);
    return is_whole ? ShapeKernel::get().from_brep(brep) : Shape();
}

} // namespace fennar::geometry
