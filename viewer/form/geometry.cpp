#include "viewer/form/geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace inin::viewer {

namespace {

/// The distance of the control points of a quarter circle from its ends, for a radius of 1.
constexpr double kQuarter = 0.5522847498307936;

constexpr std::size_t pointsOf(PathStep::Kind kind)
{
    switch (kind) {
    case PathStep::Kind::curve:
        return 3;
    case PathStep::Kind::close:
        return 0;
    default:
        return 1;
    }
}

PathStep moveTo(double x, double y)
{
    return {PathStep::Kind::move, {Point{x, y}}};
}
PathStep lineTo(double x, double y)
{
    return {PathStep::Kind::line, {Point{x, y}}};
}
PathStep curveTo(Point first, Point second, Point end)
{
    return {PathStep::Kind::curve, {first, second, end}};
}

} // namespace

Affine Affine::operator*(const Affine &inner) const
{
    return {a * inner.a + c * inner.b, b * inner.a + d * inner.b,     a * inner.c + c * inner.d,
            b * inner.c + d * inner.d, a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
}

double Affine::scale() const
{
    return std::sqrt(std::abs(a * d - b * c));
}

void transformPath(Path &path, const Affine &by)
{
    for (PathStep &step : path)
        for (Point &point : step.points) point = by(point);
}

Path rectanglePath(const Box &box, double radiusX, double radiusY)
{
    const double rx = std::min(radiusX, box.width / 2), ry = std::min(radiusY, box.height / 2);
    const double left = box.left, top = box.top, right = box.right(), bottom = box.bottom();
    if (rx <= 0 || ry <= 0)
        return {moveTo(left, top),
                lineTo(right, top),
                lineTo(right, bottom),
                lineTo(left, bottom),
                {PathStep::Kind::close, {}}};
    const double kx = rx * (1 - kQuarter), ky = ry * (1 - kQuarter);
    return {
        moveTo(left + rx, top),
        lineTo(right - rx, top),
        curveTo({right - kx, top}, {right, top + ky}, {right, top + ry}),
        lineTo(right, bottom - ry),
        curveTo({right, bottom - ky}, {right - kx, bottom}, {right - rx, bottom}),
        lineTo(left + rx, bottom),
        curveTo({left + kx, bottom}, {left, bottom - ky}, {left, bottom - ry}),
        lineTo(left, top + ry),
        curveTo({left, top + ky}, {left + kx, top}, {left + rx, top}),
        {PathStep::Kind::close, {}},
    };
}

Path ellipsePath(Point centre, double radiusX, double radiusY)
{
    return rectanglePath({centre.x - radiusX, centre.y - radiusY, 2 * radiusX, 2 * radiusY}, radiusX, radiusY);
}

Box boundsOf(const Path &path)
{
    constexpr double kFar = std::numeric_limits<double>::max();
    double left = kFar, top = kFar, right = -kFar, bottom = -kFar;
    for (const PathStep &step : path) {
        for (std::size_t i = 0; i < pointsOf(step.kind); ++i) {
            // The comparisons below would ignore NaN.
            if (!std::isfinite(step.points[i].x) || !std::isfinite(step.points[i].y)) return {-kFar, -kFar, kFar, kFar};
            left = std::min(left, step.points[i].x);
            right = std::max(right, step.points[i].x);
            top = std::min(top, step.points[i].y);
            bottom = std::max(bottom, step.points[i].y);
        }
    }
    if (left > right) return {};
    return {left, top, right - left, bottom - top};
}

bool isDrawable(const Box &box)
{
    constexpr double kFarthest = 1e6;
    const auto isNear = [](double place) { return std::abs(place) < kFarthest; };
    return isNear(box.left) && isNear(box.top) && isNear(box.right()) && isNear(box.bottom());
}

} // namespace inin::viewer
