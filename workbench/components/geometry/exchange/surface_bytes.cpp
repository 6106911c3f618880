// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/exchange/surface_bytes.h"

#include "workbench/components/geometry/model/GeometryError.h"

#include <cstring>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

template <typename Item>
void append_items(QByteArray& data, const Item* items, std::size_t count)
{
    data.append(reinterpret_cast<const char*>(items), qsizetype(count) * qsizetype(sizeof(Item)));
}

template <typename Item>
void take_items(const char*& from, std::vector<Item>& items, std::uint64_t count)
{
    items.resize(count);
    // Without items there is no address to copy to.
    if (count > 0)
        std::memcpy(items.data(), from, count * sizeof(Item));
    from += count * sizeof(Item);
}

} // namespace

void check_corners(const Surface& surface)
{
    for (const auto& triangle : surface.triangles) {
        for (const std::uint32_t corner : triangle) {
            if (corner >= surface.points.size())
                throw GeometryError(u"a triangle has a corner that does not exist"_s);
        }
    }
}

QByteArray pack_surface(const Surface& surface)
{
    const std::array<std::uint64_t, 2> counts{surface.points.size(), surface.triangles.size()};
    QByteArray data;
    append_items(data, counts.data(), counts.size());
    append_items(data, surface.points.data(), surface.points.size());
    append_items(data, surface.triangles.data(), surface.triangles.size());
    return data;
}

Surface unpack_surface(const QByteArray& data)
{
    std::array<std::uint64_t, 2> counts{};
    Surface surface;
    const auto size = static_cast<std::uint64_t>(data.size());
    if (size >= sizeof counts)
        std::memcpy(counts.data(), data.constData(), sizeof counts);
    if (counts[0] > size || counts[1] > size ||
        size !=
            sizeof counts + counts[0] * sizeof surface.points[0] + counts[1] * sizeof surface.triangles[0])
        throw GeometryError(u"the triangles are damaged"_s);
    const char* from = data.constData() + sizeof counts;
    take_items(from, surface.points, counts[0]);
    take_items(from, surface.triangles, counts[1]);
    check_corners(surface);
    return surface;
}

} // namespace fennar::geometry
