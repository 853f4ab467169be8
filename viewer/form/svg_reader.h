#pragma once

#include "viewer/form/form_document.h"

#include <string_view>

namespace inin::viewer {

/// True when the bytes begin as an XML document does. All form documents are XML.
[[nodiscard]] bool looksLikeXml(std::string_view bytes);

/// Reads a form document (SVG) and never opens anything outside the bytes. Throws a RuntimeError with a sentence for
/// entity declarations, malformed XML, and too many elements, levels or characters.
[[nodiscard]] FormDocument readSvg(std::string_view bytes);

} // namespace inin::viewer
