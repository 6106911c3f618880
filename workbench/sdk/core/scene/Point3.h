// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace fennar {

/** A point or a direction, in the units of the model. */
struct Point3
{
    /** First coordinate. */
    double x = 0;
    /** Second coordinate. */
    double y = 0;
    /** Third coordinate. */
    double z = 0;

    /** Whether all coordinates are equal. */
    bool operator==(const Point3&) const = default;
};

inline Point3 operator+(const Point3& a, const Point3& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Point3 operator-(const Point3& a, const Point3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Point3 operator*(const Point3& a, double factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}

inline double dot(const Point3& a, const Point3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Point3 cross(const Point3& a, const Point3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const Point3& a)
{
    return std::hypot(a.x, a.y, a.z);
}

/** A box along the axes; empty at first. */
struct Box3
{
    /** The corner with the least coordinates. */
    Point3 least = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
                    std::numeric_limits<double>::infinity()};
    /** The corner with the greatest coordinates. */
    Point3 most = {-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                   -std::numeric_limits<double>::infinity()};

    /** Whether nothing has been added. */
    bool empty() const { return !(least.x <= most.x); }
    /** Makes the box reach to @p point. */
    void add(const Point3& point)
    {
        least = {std::min(least.x, point.x), std::min(least.y, point.y), std::min(least.z, point.z)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y), std::max(most.z, point.z)};
    }
    /** Makes the box hold @p box; an empty one changes nothing. */
    void add(const Box3& box)
    {
        if (box.empty())
            return;
        add(box.least);
        add(box.most);
    }
    /** The middle. The box must not be empty. */
    Point3 center() const { return (least + most) * 0.5; }
    /** One of the eight corners, @p i from 0 to 7. */
    Point3 corner(int i) const
    {
        return {i & 1 ? most.x : least.x, i & 2 ? most.y : least.y, i & 4 ? most.z : least.z};
    }
};

} // namespace fennar
