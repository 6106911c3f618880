// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/paint_picture.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace fennar::graphics {

namespace {

/** A corner as it lies in the picture. */
struct Spot
{
    float x;
    float y;
    /** Greater is nearer to the viewer; in pixels, too. */
    float z;
};

/** An image with the depth of each pixel. */
class Canvas
{
public:
    explicit Canvas(const QSize& size)
        : mImage(size, QImage::Format_ARGB32_Premultiplied),
          mDepths(std::size_t(size.width()) * std::size_t(size.height()),
                  -std::numeric_limits<float>::infinity())
    {
        mImage.fill(Qt::transparent);
        mPixels = reinterpret_cast<QRgb*>(mImage.bits());
    }

    const QImage& image() const { return mImage; }
    int width() const { return mImage.width(); }
    int height() const { return mImage.height(); }

    void plot(int x, int y, float z, QRgb color)
    {
        const std::size_t at = std::size_t(y) * std::size_t(width()) + std::size_t(x);
        if (!(z >= mDepths[at])) // nor if it is no number
            return;
        mDepths[at] = z;
        mPixels[at] = color;
    }

private:
    QImage mImage;
    QRgb* mPixels = nullptr;
    std::vector<float> mDepths;
};

/** From a shape's own coordinates to spots and to shades. */
class Projection
{
public:
    Projection(const Picture& picture, const SceneShape& shape, double pixels)
    {
        const Camera& camera = picture.camera;
        const double scale = pixels / camera.units_per_pixel();
        const Point3 origin = camera.to_view(shape.origin);
        const QSizeF size = camera.viewport() * pixels;
        mRows = {row(camera.right(), scale, origin.x * scale + size.width() / 2),
                 row(camera.up(), -scale, size.height() / 2 - origin.y * scale),
                 row(camera.back(), scale, origin.z * scale)};
        mTurn = {row(camera.right(), 1, 0), row(camera.up(), 1, 0), row(camera.back(), 1, 0)};
    }

    Spot spot(const QVector3D& point) const
    {
        return {apply(mRows[0], point), apply(mRows[1], point), apply(mRows[2], point)};
    }

    /** From 0 to 1. */
    float shade(const QVector3D& normal) const
    {
        const float z = apply(mTurn[2], normal);
        const float sum = apply(mTurn[0], normal) * Light::from[0] +
                          apply(mTurn[1], normal) * Light::from[1] + z * Light::from[2];
        return Light::ambient + Light::direct * std::max(0.0F, z < 0 ? -sum : sum);
    }

private:
    using Row = std::array<float, 4>;

    static Row row(const Point3& direction, double scale, double offset)
    {
        return {float(direction.x * scale), float(direction.y * scale), float(direction.z * scale),
                float(offset)};
    }
    static float apply(const Row& row, const QVector3D& point)
    {
        return row[0] * point.x() + row[1] * point.y() + row[2] * point.z() + row[3];
    }

    std::array<Row, 3> mRows;
    std::array<Row, 3> mTurn;
};

/** The color in all the shades that can be told apart. */
std::array<QRgb, 256> shades(const QColor& color)
{
    std::array<QRgb, 256> result;
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto part = [i](int value) { return int(std::lround(double(value) * double(i) / 255)); };
        result[i] = qRgb(part(color.red()), part(color.green()), part(color.blue()));
    }
    return result;
}

/** The pixels whose middle lies between @p from and @p to, cut at the border. */
std::pair<int, int> pixels_between(float from, float to, int count)
{
    const float last = float(count);
    return {int(std::ceil(std::clamp(from - 0.5F, 0.0F, last))),
            int(std::ceil(std::clamp(to - 0.5F, 0.0F, last)))};
}

void fill(Canvas& canvas, const std::array<Spot, 3>& spots, const std::array<float, 3>& light,
          const std::array<QRgb, 256>& colors)
{
    const Spot& a = spots[0];
    const Spot& b = spots[1];
    const Spot& c = spots[2];
    const float area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    if (!(std::abs(area) > 1e-12F) || !std::isfinite(area))
        return;
    // Depth and shade are linear in the picture.
    const auto slopes = [&](float u, float v, float w) {
        return std::pair{((v - u) * (c.y - a.y) - (w - u) * (b.y - a.y)) / area,
                         ((w - u) * (b.x - a.x) - (v - u) * (c.x - a.x)) / area};
    };
    const auto [depth_x, depth_y] = slopes(a.z, b.z, c.z);
    const auto [shade_x, shade_y] = slopes(light[0], light[1], light[2]);
    // Pushed back a little, so that lines on the surface are seen.
    const float push = std::min(std::max(std::abs(depth_x), std::abs(depth_y)), 50.0F) + 0.25F;
    const float least = std::min({a.z, b.z, c.z}) - push;
    const float most = std::max({a.z, b.z, c.z}) - push;

    const auto [first, last] =
        pixels_between(std::min({a.y, b.y, c.y}), std::max({a.y, b.y, c.y}), canvas.height());
    for (int y = first; y < last; ++y) {
        const float middle = float(y) + 0.5F;
        float from = std::numeric_limits<float>::infinity();
        float to = -from;
        for (std::size_t i = 0; i < 3; ++i) {
            const Spot& p = spots[i];
            const Spot& q = spots[(i + 1) % 3];
            if ((p.y <= middle) == (q.y <= middle))
                continue;
            const float x = p.x + (q.x - p.x) * (middle - p.y) / (q.y - p.y);
            from = std::min(from, x);
            to = std::max(to, x);
        }
        const auto [left, right] = pixels_between(from, to, canvas.width());
        const float dy = middle - a.y;
        for (int x = left; x < right; ++x) {
            const float dx = float(x) + 0.5F - a.x;
            // Slivers have slopes without end.
            const float z = std::clamp(a.z + depth_x * dx + depth_y * dy - push, least, most);
            const float shade = light[0] + shade_x * dx + shade_y * dy;
            canvas.plot(x, y, z, colors[shade > 0 ? std::size_t(std::min(shade, 1.0F) * 255) : 0]);
        }
    }
}

void draw_line(Canvas& canvas, Spot a, Spot b, int width, QRgb color)
{
    if (!std::isfinite(a.x + a.y + b.x + b.y))
        return;
    const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    const auto along = [steep](const Spot& spot) { return steep ? spot.y : spot.x; };
    const auto across = [steep](const Spot& spot) { return steep ? spot.x : spot.y; };
    const int length = steep ? canvas.height() : canvas.width();
    const int breadth = steep ? canvas.width() : canvas.height();
    if (along(a) > along(b))
        std::swap(a, b);
    const float span = along(b) - along(a);
    const float half = float(width) / 2;
    const int first = int(std::floor(std::clamp(along(a), 0.0F, float(length))));
    const int last = std::min(length - 1, int(std::floor(std::clamp(along(b), -1.0F, float(length)))));
    for (int i = first; i <= last; ++i) {
        const float part = span > 0 ? std::clamp((float(i) + 0.5F - along(a)) / span, 0.0F, 1.0F) : 0.0F;
        const float middle = across(a) + (across(b) - across(a)) * part;
        if (!(middle > -half) || !(middle < float(breadth) + half))
            continue;
        const int start = int(std::floor(middle - half + 0.5F));
        const float z = a.z + (b.z - a.z) * part;
        for (int j = std::max(0, start); j < std::min(breadth, start + width); ++j)
            steep ? canvas.plot(j, i, z, color) : canvas.plot(i, j, z, color);
    }
}

void draw_lines(Canvas& canvas, const Picture& picture, const PictureParts::Lines& lines, double pixels)
{
    const Projection projection(picture, *lines.shape, pixels);
    const int width = std::max(1, int(std::lround(lines.width * pixels)));
    const std::vector<QVector3D>& points = lines.points();
    for (std::size_t i = 0; i + 1 < points.size(); i += 2)
        draw_line(canvas, projection.spot(points[i]), projection.spot(points[i + 1]), width,
                  lines.color.rgb());
}

void draw_surface(Canvas& canvas, const Picture& picture, const PictureParts::Surface& surface, double pixels)
{
    const SceneShape& shape = *surface.shape;
    const Projection projection(picture, shape, pixels);
    const std::array<QRgb, 256> colors = shades(surface.color);
    for (std::size_t i = 0; i + 2 < shape.corners.size(); i += 3)
        fill(canvas,
             {projection.spot(shape.corners[i]), projection.spot(shape.corners[i + 1]),
              projection.spot(shape.corners[i + 2])},
             {projection.shade(shape.normals[i]), projection.shade(shape.normals[i + 1]),
              projection.shade(shape.normals[i + 2])},
             colors);
}

/** Each pixel of the result is the mean of four. */
QImage halved(const QImage& image, const QSize& size)
{
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        const auto* upper = reinterpret_cast<const QRgb*>(image.constScanLine(2 * y));
        const auto* lower = reinterpret_cast<const QRgb*>(image.constScanLine(2 * y + 1));
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x, upper += 2, lower += 2) {
            // Two of the four channels at a time.
            constexpr QRgb mask = 0x00ff00ff;
            const QRgb even = (upper[0] & mask) + (upper[1] & mask) + (lower[0] & mask) + (lower[1] & mask);
            const QRgb odd = ((upper[0] >> 8) & mask) + ((upper[1] >> 8) & mask) + ((lower[0] >> 8) & mask) +
                             ((lower[1] >> 8) & mask);
            line[x] = ((even >> 2) & mask) | (((odd >> 2) & mask) << 8);
        }
    }
    return result;
}

} // namespace

QImage paint_picture(const Picture& picture)
{
    // Twice as large, and then made smaller: this is what smooths the edges.
    const int oversize = picture.draft ? 1 : 2;
    const QSize size = picture.device_size();
    const double pixels = picture.ratio * oversize;
    Canvas canvas(size * oversize);
    const PictureParts parts(picture);
    for (const auto& surface : parts.surfaces)
        draw_surface(canvas, picture, surface, pixels);
    for (const auto& lines : parts.lines)
        draw_lines(canvas, picture, lines, pixels);
    QImage image = oversize == 1 ? canvas.image() : halved(canvas.image(), size);
    image.setDevicePixelRatio(picture.ratio);
    return image;
}

QImage draw_scene(const Scene& scene, const QSize& size)
{
    Camera camera;
    camera.set_viewport(size);
    camera.set_view(Camera::View::Iso);
    camera.fit(scene.box());
    const ViewColors colors = ViewColors::light();
    const QImage drawn = paint_picture({.scene = scene, .camera = camera, .display = {}, .colors = colors});
    QImage picture(size, QImage::Format_RGB32);
    if (drawn.isNull() || picture.isNull())
        return {};
    QPainter painter(&picture);
    colors.paint_background(painter, picture.rect());
    painter.drawImage(QPointF(0, 0), drawn);
    return picture;
}

} // namespace fennar::graphics
