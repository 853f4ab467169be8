#pragma once

#include "viewer/form/geometry.h"
#include "viewer/form/xml_reader.h"

#include <optional>
#include <string_view>

namespace inin::viewer {

/// The outline of a rect, line, circle, ellipse, polyline, polygon or path element; empty for other elements.
[[nodiscard]] std::optional<Path> shapeOf(std::string_view element, const XmlAttributes &attributes);
[[nodiscard]] Path rectangleOf(const XmlAttributes &attributes);

} // namespace inin::viewer
