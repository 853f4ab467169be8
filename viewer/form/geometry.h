#pragma once

#include <array>
#include <vector>

namespace inin::viewer {

// Lengths are points (1/72 inch), y grows downwards from the page's upper left corner.

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
    /// First `inner`, then this.
    [[nodiscard]] Affine operator*(const Affine &inner) const;
    /// How much lengths grow, as the root of the area's growth.
    [[nodiscard]] double scale() const;
};

struct PathStep {
    enum class Kind { move, line, curve, close };
    Kind kind = Kind::move;
    std::array<Point, 3> points{}; ///< one for move and line, two controls and the end for a curve
};
using Path = std::vector<PathStep>;

void transformPath(Path &path, const Affine &by);
[[nodiscard]] Path rectanglePath(const Box &box, double radiusX, double radiusY);
[[nodiscard]] Path ellipsePath(Point centre, double radiusX, double radiusY);
/// The smallest upright box around the path's points.
[[nodiscard]] Box boundsOf(const Path &path);
/// True for a box near enough to a page that it can be drawn at all; no page is a hundredth as large.
[[nodiscard]] bool isDrawable(const Box &box);

} // namespace inin::viewer
