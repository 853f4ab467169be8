#pragma once

#include "viewer/form/form_document.h"
#include "viewer/form/svg_image.h"

#include <string_view>

namespace inin::viewer {

/// True when the bytes begin as an XML document does. All form documents are XML.
[[nodiscard]] bool looksLikeXml(std::string_view bytes);

/// Reads a form document (SVG). Nothing outside the bytes is opened except pictures by `files`. Throws a RuntimeError with
/// a sentence for entity declarations, malformed XML, and too many elements, levels, characters or pages.
[[nodiscard]] FormDocument readSvg(std::string_view bytes, const PictureFiles &files = {});

} // namespace inin::viewer
