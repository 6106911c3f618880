// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/Camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace fennar::graphics {

namespace {

constexpr double degrees_per_pixel = 0.5;
/** How much of the viewport a box takes that has been fitted into it. */
constexpr double filling = 0.85;
/** What can be seen stays between these: beyond them nothing could be told apart. */
constexpr double least_extent = 1e-7;
constexpr double greatest_extent = 1e9;

/** Exact at multiples of 90 degrees. */
double sine(double degrees)
{
    const double rest = std::remainder(degrees, 360.0);
    if (rest == 0 || std::abs(rest) == 180)
        return 0;
    if (std::abs(rest) == 90)
        return rest > 0 ? 1 : -1;
    return std::sin(rest * std::numbers::pi / 180);
}

double cosine(double degrees)
{
    return sine(degrees + 90);
}

} // namespace

Camera::Camera()
{
    set_view(View::Iso);
}

void Camera::set_viewport(const QSizeF& size)
{
    mViewport = {std::max(1.0, size.width()), std::max(1.0, size.height())};
}

void Camera::set_view(View view)
{
    switch (view) {
    case View::Front:
        return set_angles(0, 0);
    case View::Back:
        return set_angles(180, 0);
    case View::Left:
        return set_angles(-90, 0);
    case View::Right:
        return set_angles(90, 0);
    case View::Top:
        return set_angles(0, 90);
    case View::Bottom:
        return set_angles(0, -90);
    case View::Iso:
        return set_angles(45, std::atan(std::numbers::sqrt2 / 2) * 180 / std::numbers::pi);
    }
}

void Camera::orbit(const QPointF& pixels)
{
    set_angles(mTurn - pixels.x() * degrees_per_pixel, mRise + pixels.y() * degrees_per_pixel);
}

void Camera::pan(const QPointF& pixels)
{
    const double unit = units_per_pixel();
    mTarget = mTarget - mRight * (pixels.x() * unit) + mUp * (pixels.y() * unit);
}

void Camera::zoom(double factor, const QPointF& pixel)
{
    if (!(factor > 0) || !std::isfinite(factor))
        return;
    const double before = units_per_pixel();
    mExtent = std::clamp(mExtent / factor, least_extent, greatest_extent);
    const double gone = before - units_per_pixel();
    mTarget = mTarget + mRight * ((pixel.x() - mViewport.width() / 2) * gone) +
              mUp * ((mViewport.height() / 2 - pixel.y()) * gone);
}

void Camera::fit(const Box3& box)
{
    if (box.empty())
        return;
    mTarget = box.center();
    double width = 0;
    double height = 0;
    for (int i = 0; i < 8; ++i) {
        const Point3 corner = to_view(box.corner(i));
        width = std::max(width, 2 * std::abs(corner.x));
        height = std::max(height, 2 * std::abs(corner.y));
    }
    const double unit = std::max(width / mViewport.width(), height / mViewport.height()) / filling;
    mExtent =
        std::clamp(unit * std::min(mViewport.width(), mViewport.height()), least_extent, greatest_extent);
}

double Camera::units_per_pixel() const
{
    return mExtent / std::min(mViewport.width(), mViewport.height());
}

Point3 Camera::to_view(const Point3& point) const
{
    const Point3 offset = point - mTarget;
    return {dot(offset, mRight), dot(offset, mUp), dot(offset, mBack)};
}

QPointF Camera::to_pixel(const Point3& point) const
{
    const Point3 view = to_view(point);
    const double unit = units_per_pixel();
    return {mViewport.width() / 2 + view.x / unit, mViewport.height() / 2 - view.y / unit};
}

bool Camera::contains(const Box3& box) const
{
    if (box.empty())
        return true;
    for (int i = 0; i < 8; ++i) {
        const QPointF pixel = to_pixel(box.corner(i));
        if (pixel.x() < 0 || pixel.y() < 0 || pixel.x() > mViewport.width() || pixel.y() > mViewport.height())
            return false;
    }
    return true;
}

void Camera::set_angles(double turn, double rise)
{
    mTurn = std::remainder(turn, 360.0);
    mRise = std::clamp(rise, -90.0, 90.0);
    mRight = {cosine(mTurn), sine(mTurn), 0};
    mBack = {sine(mTurn) * cosine(mRise), -cosine(mTurn) * cosine(mRise), sine(mRise)};
    mUp = cross(mBack, mRight);
}

} // namespace fennar::graphics
