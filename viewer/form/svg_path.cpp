#include "viewer/form/svg_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace inin::viewer {

namespace {

Point reflected(Point point, Point centre)
{
    return {2 * centre.x - point.x, 2 * centre.y - point.y};
}

double angleOf(double ux, double uy, double vx, double vy)
{
    return std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
}

/// More than any drawing of a form has. Longer paths are cut off.
constexpr std::size_t kMaxSteps = 200'000;

/// An elliptical arc between two points, as curves of at most a quarter turn each.
/// The centre is computed as in the SVG 1.1 recommendation, appendix F.6.
struct Arc {
    Point from;
    double rx, ry, turn;
    bool isLarge, isForward;
    Point to;

    void appendTo(Path &path)
    {
        rx = std::abs(rx);
        ry = std::abs(ry);
        if (rx == 0 || ry == 0 || (from.x == to.x && from.y == to.y)) {
            path.push_back({PathStep::Kind::line, {to}});
            return;
        }
        const double phi = turn * std::numbers::pi / 180;
        const double cosine = std::cos(phi), sine = std::sin(phi);
        const double dx = (from.x - to.x) / 2, dy = (from.y - to.y) / 2;
        const double px = cosine * dx + sine * dy, py = -sine * dx + cosine * dy;
        const double excess = px * px / (rx * rx) + py * py / (ry * ry);
        if (excess > 1) {
            rx *= std::sqrt(excess);
            ry *= std::sqrt(excess);
        }
        const double share = rx * rx * py * py + ry * ry * px * px;
        const double root = std::sqrt(std::max(0.0, (rx * rx * ry * ry - share) / share));
        const double factor = isLarge == isForward ? -root : root;
        const double qx = factor * rx * py / ry, qy = -factor * ry * px / rx;
        const Point centre{cosine * qx - sine * qy + (from.x + to.x) / 2,
                           sine * qx + cosine * qy + (from.y + to.y) / 2};
        const double start = angleOf(1, 0, (px - qx) / rx, (py - qy) / ry);
        double sweep = angleOf((px - qx) / rx, (py - qy) / ry, (-px - qx) / rx, (-py - qy) / ry);
        if (isForward && sweep < 0) sweep += 2 * std::numbers::pi;
        if (!isForward && sweep > 0) sweep -= 2 * std::numbers::pi;
        appendCurves(path, {cosine * rx, sine * rx, -sine * ry, cosine * ry, centre.x, centre.y}, start, sweep);
    }

private:
    static void appendCurves(Path &path, const Affine &place, double start, double sweep)
    {
        const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9)));
        const double step = sweep / count, reach = 4.0 / 3 * std::tan(step / 4);
        for (int i = 0; i < count; ++i) {
            const double a = start + i * step, b = a + step;
            path.push_back({PathStep::Kind::curve,
                            {place({std::cos(a) - reach * std::sin(a), std::sin(a) + reach * std::cos(a)}),
                             place({std::cos(b) + reach * std::sin(b), std::sin(b) - reach * std::cos(b)}),
                             place({std::cos(b), std::sin(b)})}});
        }
    }
};

class PathReader {
public:
    explicit PathReader(std::string_view text) : m_scan(text) {}

    Path read()
    {
        char command = 0;
        while (!m_scan.atEnd() && m_path.size() < kMaxSteps) {
            const auto next = m_scan.command();
            if (next) command = *next;
            if (!next && (command == 'Z' || command == 'z')) break; // numbers after a close are an error
            if (m_path.empty() && command != 'M' && command != 'm') break;
            if (!step(command)) break;
            // Further pairs after a move are lines.
            if (command == 'M') command = 'L';
            if (command == 'm') command = 'l';
        }
        return std::move(m_path);
    }

private:
    bool step(char command)
    {
        m_isRelative = command >= 'a';
        const Point before = m_lastControl;
        const char kind = m_lastKind;
        m_lastKind = static_cast<char>(m_isRelative ? command - 'a' + 'A' : command);
        switch (m_lastKind) {
        case 'M':
            return moveOrLine(PathStep::Kind::move);
        case 'L':
            return moveOrLine(PathStep::Kind::line);
        case 'H':
        case 'V':
            return straight();
        case 'C':
            return curve(point());
        case 'S':
            return curve(kind == 'C' || kind == 'S' ? reflected(before, m_at) : m_at);
        case 'Q':
            return quadratic(point());
        case 'T':
            return quadratic(kind == 'Q' || kind == 'T' ? reflected(before, m_at) : m_at);
        case 'A':
            return arc();
        case 'Z':
            m_path.push_back({PathStep::Kind::close, {}});
            m_at = m_start;
            return true;
        default:
            return false;
        }
    }

    std::optional<Point> point()
    {
        const auto x = m_scan.number(), y = m_scan.number();
        if (!x || !y) return std::nullopt;
        return m_isRelative ? Point{m_at.x + *x, m_at.y + *y} : Point{*x, *y};
    }
    bool moveOrLine(PathStep::Kind kind)
    {
        const auto end = point();
        if (!end) return false;
        if (kind == PathStep::Kind::move) m_start = *end;
        return go(kind, {*end}, *end);
    }
    bool straight()
    {
        const auto length = m_scan.number();
        if (!length) return false;
        Point end = m_at;
        double &moved = m_lastKind == 'H' ? end.x : end.y;
        moved = m_isRelative ? moved + *length : *length;
        return go(PathStep::Kind::line, {end}, end);
    }
    bool curve(std::optional<Point> first)
    {
        const auto second = point(), end = point();
        if (!first || !second || !end) return false;
        m_lastControl = *second;
        return go(PathStep::Kind::curve, {*first, *second, *end}, *end);
    }
    bool quadratic(std::optional<Point> control)
    {
        const auto end = point();
        if (!control || !end) return false;
        m_lastControl = *control;
        const auto third = [&](Point from) {
            return Point{from.x + (control->x - from.x) * 2 / 3, from.y + (control->y - from.y) * 2 / 3};
        };
        return go(PathStep::Kind::curve, {third(m_at), third(*end), *end}, *end);
    }
    bool arc()
    {
        const auto rx = m_scan.number(), ry = m_scan.number(), turn = m_scan.number();
        const auto isLarge = m_scan.flag(), isForward = m_scan.flag();
        const auto end = point();
        if (!rx || !ry || !turn || !isLarge || !isForward || !end) return false;
        Arc{m_at, *rx, *ry, *turn, *isLarge, *isForward, *end}.appendTo(m_path);
        m_at = *end;
        return true;
    }
    bool go(PathStep::Kind kind, std::array<Point, 3> points, Point end)
    {
        m_path.push_back({kind, points});
        m_at = end;
        return true;
    }

    NumberScan m_scan;
    Path m_path;
    Point m_at, m_start, m_lastControl;
    char m_lastKind = 0;
    bool m_isRelative = false;
};

} // namespace

Path readPathData(std::string_view text)
{
    return PathReader(text).read();
}

} // namespace inin::viewer
