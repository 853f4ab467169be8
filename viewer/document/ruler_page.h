#pragma once

#include "viewer/document/letter_set.h"

#include <cstdint>
#include <string>

namespace inin::viewer {

/// A page of rulers for measuring how far a printer shifts its output: each ruler shows the distance from the sheet's
/// edge. The offsets (tenths of a millimetre) are only printed as text; the caller moves the page by them.
[[nodiscard]] LetterSet rulerLetters(Paper paper, const std::string &printer, std::int32_t right, std::int32_t down);

} // namespace inin::viewer
