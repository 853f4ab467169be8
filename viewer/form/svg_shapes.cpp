#include "viewer/form/svg_shapes.h"

#include "viewer/form/svg_values.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

double coordinate(const XmlAttributes &attributes, std::string_view name)
{
    return readLength(attributes.get(name)).value_or(0);
}

Path pathOfPoints(std::string_view text, bool isClosed)
{
    const std::vector<double> numbers = readNumbers(text);
    Path path;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
        path.push_back({i == 0 ? PathStep::Kind::move : PathStep::Kind::line, {Point{numbers[i], numbers[i + 1]}}});
    if (isClosed && !path.empty()) path.push_back({PathStep::Kind::close, {}});
    return path;
}

Path lineOf(const XmlAttributes &a)
{
    return {{PathStep::Kind::move, {Point{coordinate(a, "x1"), coordinate(a, "y1")}}},
            {PathStep::Kind::line, {Point{coordinate(a, "x2"), coordinate(a, "y2")}}}};
}

struct Shape {
    std::string_view name;
    Path (*path)(const XmlAttributes &);
};
const Shape kShapes[] = {
    {"rect", rectangleOf},
    {"line", lineOf},
    {"circle",
     [](const XmlAttributes &a) {
         return ellipsePath({coordinate(a, "cx"), coordinate(a, "cy")}, coordinate(a, "r"), coordinate(a, "r"));
     }},
    {"ellipse",
     [](const XmlAttributes &a) {
         return ellipsePath({coordinate(a, "cx"), coordinate(a, "cy")}, coordinate(a, "rx"), coordinate(a, "ry"));
     }},
    {"polyline", [](const XmlAttributes &a) { return pathOfPoints(a.get("points"), false); }},
    {"polygon", [](const XmlAttributes &a) { return pathOfPoints(a.get("points"), true); }},
    {"path", [](const XmlAttributes &a) { return readPathData(a.get("d")); }},
};

} // namespace

std::optional<Path> shapeOf(std::string_view element, const XmlAttributes &attributes)
{
    const auto *const shape = std::ranges::find(kShapes, element, &Shape::name);
    if (shape == std::end(kShapes)) return std::nullopt;
    return shape->path(attributes);
}

Path rectangleOf(const XmlAttributes &a)
{
    const auto rx = readLength(a.get("rx")), ry = readLength(a.get("ry"));
    return rectanglePath({coordinate(a, "x"), coordinate(a, "y"), coordinate(a, "width"), coordinate(a, "height")},
                         rx.value_or(ry.value_or(0)), ry.value_or(rx.value_or(0)));
}

} // namespace inin::viewer
