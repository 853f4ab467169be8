#pragma once

#include <array>
#include <vector>

namespace inin::viewer {

// Lengths are points (1/72 inch). The origin is the page's upper left corner; y grows downwards.

inline constexpr double kPointsPerMillimetre = 72.0 / 25.4;

struct Point {
    double x = 0, y = 0;
};

struct Box {
    double left = 0, top = 0, width = 0, height = 0;
    [[nodiscard]] double right() const { return left + width; }
    [[nodiscard]] double bottom() const { return top + height; }
};

/// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;
    [[nodiscard]] Point operator()(Point point) const
    {
        return {a * point.x + c * point.y + e, b * point.x + d * point.y + f};
    }
    /// Applies `inner` first.
    [[nodiscard]] Affine operator*(const Affine &inner) const;
    /// The mean scale of lengths: the square root of the scale of areas.
    [[nodiscard]] double scale() const;
};

struct PathStep {
    enum class Kind { move, line, curve, close };
    Kind kind = Kind::move;
    std::array<Point, 3> points{}; ///< one for move and line; two control points and the end for a curve
};
using Path = std::vector<PathStep>;

void transformPath(Path &path, const Affine &by);
[[nodiscard]] Path rectanglePath(const Box &box, double radiusX, double radiusY);
[[nodiscard]] Path ellipsePath(Point centre, double radiusX, double radiusY);
/// The bounding box of the path's points.
[[nodiscard]] Box boundsOf(const Path &path);
/// False for a box that is too far away or too large to be drawn; the limit is far beyond the largest page.
[[nodiscard]] bool isDrawable(const Box &box);

} // namespace inin::viewer
