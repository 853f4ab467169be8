#pragma once

#include "viewer/form/form_document.h"

#include <string_view>

namespace inin::viewer {

/// True when the bytes begin as an XML document does; anything else is no form document of ours.
[[nodiscard]] bool looksLikeXml(std::string_view bytes);

/// Reads a form document (SVG). Nothing outside the bytes is ever opened; entities of the document's own, more elements,
/// nesting or text than a form has, and XML that is not well formed are RuntimeErrors with a sentence.
[[nodiscard]] FormDocument readSvg(std::string_view bytes);

} // namespace inin::viewer
