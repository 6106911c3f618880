// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/Camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

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

/** How far the box reaches from the target, in view coordinates; less than 0 if it is empty. */
QSizeF reach(const Box3& seen)
{
    return {std::max(seen.most.x, -seen.least.x), std::max(seen.most.y, -seen.least.y)};
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
    // In the order of the views: the turn and the rise.
    static const std::pair<double, double> angles[] = {
        {0, 0},
        {180, 0},
        {-90, 0},
        {90, 0},
        {0, 90},
        {0, -90},
        {45, std::atan(std::numbers::sqrt2 / 2) * 180 / std::numbers::pi}};
    const auto [turn, rise] = angles[int(view)];
    set_angles(turn, rise);
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
    const QSizeF seen = 2 * reach(to_view(box));
    const double unit =
        std::max(seen.width() / mViewport.width(), seen.height() / mViewport.height()) / filling;
    mExtent =
        std::clamp(unit * std::min(mViewport.width(), mViewport.height()), least_extent, greatest_extent);
}

double Camera::units_per_pixel() const
{
    return mExtent / std::min(mViewport.width(), mViewport.height());
}

Box3 Camera::to_view(const Box3& box) const
{
    Box3 seen;
    for (int i = 0; i < 8 && !box.empty(); ++i)
        seen.add(to_view(box.corner(i)));
    return seen;
}

QPointF Camera::to_pixel(const Point3& point) const
{
    const Point3 view = to_view(point);
    const double unit = units_per_pixel();
    return {mViewport.width() / 2 + view.x / unit, mViewport.height() / 2 - view.y / unit};
}

bool Camera::contains(const Box3& box) const
{
    const QSizeF seen = reach(to_view(box));
    const QSizeF half = mViewport * (units_per_pixel() / 2);
    return seen.width() <= half.width() && seen.height() <= half.height();
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
