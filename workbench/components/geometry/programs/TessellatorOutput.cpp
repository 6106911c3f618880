// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/TessellatorOutput.h"

#include <QList>

#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr qsizetype number = sizeof(double);

/** No shape has more triangles, or pieces of edges. */
constexpr qint64 most = std::numeric_limits<qint32>::max();

std::vector<QVector3D> read_points(const char*& bytes, qsizetype count, const Point3& origin)
{
    std::vector<QVector3D> points;
    points.reserve(std::size_t(count));
    for (qsizetype i = 0; i < count; ++i, bytes += 3 * number) {
        Point3 point;
        std::memcpy(&point.x, bytes, number);
        std::memcpy(&point.y, bytes + number, number);
        std::memcpy(&point.z, bytes + 2 * number, number);
        point = point - origin;
        points.emplace_back(float(point.x), float(point.y), float(point.z));
    }
    return points;
}

std::shared_ptr<const SceneShape> read_shape(const char* bytes, qsizetype triangles, qsizetype lines)
{
    auto shape = std::make_shared<SceneShape>();
    if (triangles > 0) {
        std::memcpy(&shape->origin.x, bytes, number);
        std::memcpy(&shape->origin.y, bytes + number, number);
        std::memcpy(&shape->origin.z, bytes + 2 * number, number);
    }
    shape->corners = read_points(bytes, 3 * triangles, shape->origin);
    shape->normals = read_points(bytes, 3 * triangles, {});
    shape->lines = read_points(bytes, 2 * lines, shape->origin);
    shape->update_box();
    shape->update_curves();
    return shape;
}

} // namespace

void TessellatorOutput::add(const QByteArray& bytes)
{
    mBytes.remove(0, std::exchange(mTaken, 0));
    mBytes += bytes;
}

std::optional<TessellatorOutput::Solid> TessellatorOutput::take()
{
    const qsizetype end = mBytes.indexOf('\n', mTaken);
    if (end < 0)
        return std::nullopt;
    const QList<QByteArray> words = mBytes.mid(mTaken, end - mTaken).split(' ');
    const qint64 triangles = words.value(2).toLongLong();
    const qint64 lines = words.value(3).toLongLong();
    // The program may have been broken off, and what comes first need not be its own.
    const bool made = words[0] == "shape" && words.size() == 4 && triangles >= 0 && triangles <= most &&
                      lines >= 0 && lines <= most;
    const qsizetype size = made ? (18 * triangles + 6 * lines) * number : 0;
    if (mBytes.size() - end - 1 < size)
        return std::nullopt;
    mTaken = end + 1 + size;
    return Solid{words.value(1).toInt(),
                 made ? read_shape(mBytes.constData() + end + 1, triangles, lines) : nullptr};
}

void TessellatorOutput::clear()
{
    *this = {};
}
