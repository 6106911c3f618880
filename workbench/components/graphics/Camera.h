// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/Point3.h"

#include <QPointF>
#include <QSizeF>

namespace fennar::graphics {

/**
 * From where the scene is looked at, and how large: a parallel projection, upright (z never points down on
 * the screen).
 *
 * Pixels are those of the viewport, which has its origin in the upper left corner; lengths are in the units
 * of the model. View coordinates are relative to the target: x to the right, y up, z towards the viewer.
 */
class Camera
{
public:
    enum class View {
        Front,
        Back,
        Left,
        Right,
        Top,
        Bottom,
        /** From the right, front and above, with all three axes equally long. */
        Iso,
    };

    Camera();

    /** Pixels below 1 count as 1. What can be seen along the shorter side stays the same. */
    void set_viewport(const QSizeF& size);
    QSizeF viewport() const { return mViewport; }

    /** Turns to a standard view; the target and the scale stay. */
    void set_view(View view);
    /** Turns about the target as if a ball had been dragged by so many pixels. Stops at top and bottom. */
    void orbit(const QPointF& pixels);
    /** Moves the picture by so many pixels. */
    void pan(const QPointF& pixels);
    /** Makes all larger by the factor; the point that is shown at @p pixel stays there. A factor that is not
     * greater than 0 does nothing. */
    void zoom(double factor, const QPointF& pixel);
    /** Shows all of the box, and little more. The direction stays. Does nothing if the box is empty. */
    void fit(const Box3& box);

    Point3 target() const { return mTarget; }
    /** The directions of the view coordinates: of length 1, and exact in the standard views along the axes.
     */
    Point3 right() const { return mRight; }
    Point3 up() const { return mUp; }
    Point3 back() const { return mBack; }
    /** The length of a pixel. */
    double units_per_pixel() const;

    /** A direction in view coordinates. */
    Point3 turned(const Point3& direction) const
    {
        return {dot(direction, mRight), dot(direction, mUp), dot(direction, mBack)};
    }
    /** From the model's coordinates to view coordinates. */
    Point3 to_view(const Point3& point) const { return turned(point - mTarget); }
    /** Around the corners of the box, in view coordinates; empty if the box is. */
    Box3 to_view(const Box3& box) const;
    /** Where a point of the model is shown. */
    QPointF to_pixel(const Point3& point) const;
    /** Whether all of the box is shown; an empty one is. */
    bool contains(const Box3& box) const;

    bool operator==(const Camera&) const = default;

private:
    void set_angles(double turn, double rise);

    QSizeF mViewport = {1, 1};
    Point3 mTarget;
    /** About z, in degrees; 0 looks along y. */
    double mTurn = 0;
    /** Above the xy plane, from -90 to 90 degrees. */
    double mRise = 0;
    /** What can be seen along the shorter side of the viewport. */
    double mExtent = 10;
    Point3 mRight;
    Point3 mUp;
    Point3 mBack;
};

} // namespace fennar::graphics
